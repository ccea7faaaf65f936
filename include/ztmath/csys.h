/*
 * csys.h - frame records: frames seen from other frames.
 *
 * A frame record is twelve doubles: an origin (3), then a 3x3 matrix (9), row-major, whose rows are
 * the X, Y and Z axes as in mtx3.h. Outputs may alias or overlap inputs.
 */
#ifndef ZTMATH_CSYS_H
#define ZTMATH_CSYS_H

#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/*
 * Expresses frame a in the coordinates of frame b.
 *
 * b    its axes must be orthonormal for the result to be meant so; they are taken as they stand
 * out  out: origin and axes of a along the axes of b, the axes rebuilt by MTX3_init_x_y_z
 *
 * Returns 1, or 0 when a mapped axis is null or a pair is not perpendicular as MTX3_init_x_y_z
 * asks; the origin of out is then written and its matrix untouched. Asserts as that routine.
 */
ZTMATH_API int CSYS_map_csys(const double a[12], const double b[12], double out[12]);

ZTMATH_END_DECLS

#endif
