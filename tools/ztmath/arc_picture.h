// Points, lines and circles in true proportion, what is given and what was found.
#pragma once

#include "arc_entities.h"

namespace tool {

/// A circle, a tangent or a point that was found, with the points to mark on it.
struct ArcFound {
    Entity shape;
    std::string words;  // of the legend
    std::vector<Vec2> marks;
};

std::string arc_picture(const std::string& title, const Given& given,
                        const std::vector<ArcFound>& found);

}  // namespace tool
