// The compact vector kit: transforms.
#include "kit/csys.h"
#include "kit/mat4.h"
#include "ztmath/mc.h"

using namespace ztmath;

void MC_apply_transform_to_vector(const double m[16], const double v[3], double out[3]) {
    store(block(load_mat4(m)) * load3(v), out);
}

void MC_apply_transform_to_point(const double m[16], const double p[3], double out[3]) {
    const Mat4 transform = load_mat4(m);
    store(block(transform) * load3(p) + translation(transform), out);
}

void MC_calc_csys_to_csys_transform(const double frame1[12], const double frame2[12],
                                    double out[16]) {
    const Csys from = load_csys(frame1);
    const Csys to = load_csys(frame2);
    const Mat3 rotation = transposed(to.axes) * from.axes;
    store(transform(rotation, to.origin - rotation * from.origin), out);
}
