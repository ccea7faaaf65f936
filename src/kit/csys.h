// Frame records as values: an origin and three axes.
#pragma once

#include "frame/mat3.h"

namespace ztmath {

struct Csys {
    Vec3 origin;
    Mat3 axes;
};

inline Csys load_csys(const double* p) {
    return {load3(p), load_mat3(p + 3)};
}

}  // namespace ztmath
