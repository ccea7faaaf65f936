// Frames seen from other frames.
#include "kit/csys.h"

#include "kit/mtx3.h"
#include "ztmath/csys.h"

using namespace ztmath;

int CSYS_map_csys(const double a[12], const double b[12], double out[12]) {
    const Csys frame = load_csys(a);
    const auto [base, axes] = load_csys(b);
    const Mat3 mapped = times_transposed(frame.axes, axes);
    store(axes * (frame.origin - base), out);
    const auto result = frame_from_x_y_z(mapped.x, mapped.y, mapped.z);
    if (result) store(*result, out + 3);
    return result.has_value();
}
