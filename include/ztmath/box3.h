/*
 * box3.h - axis-aligned boxes.
 *
 * A box is six doubles: x min, x max, y min, y max, z min, z max. There is no empty box. Outputs
 * may alias or overlap inputs.
 */
#ifndef ZTMATH_BOX3_H
#define ZTMATH_BOX3_H

#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/*
 * Grows a box, in place, until it takes in another: first that one's corner of the mins, then the
 * corner of the maxes. A min only decreases, a max only increases; what is not a number changes
 * nothing.
 */
ZTMATH_API void BOX3_expand_with_box(const double add[6], double grow[6]);

ZTMATH_END_DECLS

#endif
