// Axis-aligned boxes.
#include "ztmath/box3.h"

#include "frame/vec.h"

using namespace ztmath;

namespace {

struct Range {
    double min, max;
};

struct Box {
    Range x, y, z;
};

Box load_box(const double* p) {
    return {{p[0], p[1]}, {p[2], p[3]}, {p[4], p[5]}};
}

void store(const Range& r, double* p) {
    p[0] = r.min;
    p[1] = r.max;
}

void take_in(Range& r, double s) {
    if (s < r.min) r.min = s;
    if (s > r.max) r.max = s;
}

void take_in(Box& box, Vec3 p) {
    take_in(box.x, p.x);
    take_in(box.y, p.y);
    take_in(box.z, p.z);
}

}  // namespace

void BOX3_expand_with_box(const double add[6], double grow[6]) {
    const Box added = load_box(add);
    Box box = load_box(grow);
    take_in(box, {added.x.min, added.y.min, added.z.min});
    take_in(box, {added.x.max, added.y.max, added.z.max});
    store(box.x, grow);
    store(box.y, grow + 2);
    store(box.z, grow + 4);
}
