// The fix-up of a frame that has been read from elsewhere.
#pragma once

#include "frame/mat3.h"

namespace ztmath {

/// Makes a frame of a matrix in place: elements of rows X and Y within 1.0e-10 of 0 and +-1 are
/// snapped to them, X is unitized, Y made perpendicular to it, Z rebuilt. Elements of X and Y that
/// moved by more than 1.0e-10 are logged and noted by module "mtx3_privileged".
///
/// Returns false if row X or Y is null, which is noted when checking is on; the rows are then as
/// far as the fix-up got.
bool fixup(Mat3& m);

}  // namespace ztmath
