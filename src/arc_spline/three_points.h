// Three points: whether they lie on a line, and which way they turn.
#pragma once

#include "frame/vec.h"

namespace ztmath {

/// answer: 0 not collinear, 1 collinear, 2 the outer points coincide. side: 0 the path turns left,
/// 1 right, -1 neither or collinear.
struct Collinearity {
    int answer, side;
};

Collinearity collinearity_and_side(Vec2 p1, Vec2 p2, Vec2 p3, const double tols[2]);

}  // namespace ztmath
