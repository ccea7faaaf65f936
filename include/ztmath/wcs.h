/*
 * wcs.h - the work coordinate system (WCS): its settings, and the mapping of points and vectors
 * between absolute and work coordinates.
 *
 * The WCS is kept in acom_: an origin and a 3x3 matrix, row-major, whose rows are its X, Y and Z
 * axes in absolute coordinates. The matrix is taken as it stands, orthonormal or not. Lengths are
 * in millimetres. Outputs may alias or overlap inputs.
 */
#ifndef ZTMATH_WCS_H
#define ZTMATH_WCS_H

#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/* ---- The frame ------------------------------------------------------------------------------- */

/* Copy the origin, and the matrix, out. Both return 0. */
ZTMATH_API int WCS_ask_origin(double origin[3]);
ZTMATH_API int WCS_ask_matrix(double matrix[9]);

/* Copies origin (3), then matrix (9) out. Returns 0. */
ZTMATH_API int WCS_ask_coordinate_system(double csys[12]);

/* Copies the third row of the matrix out. Returns 0. */
ZTMATH_API int WCS_ask_z_axis(double axis[3]);

/* Copies the plane z = 0 of the WCS out: origin (3), then Z axis (3). Returns 0. */
ZTMATH_API int WCS_ask_work_plane(double plane[6]);

/* Copies matrix and origin out in one call. */
ZTMATH_API void v6051_(double matrix[9], double origin[3]);

/* Sets the matrix, taken as it stands; the origin stays. */
ZTMATH_API void WCS__set_matrix_values(const double m[9]);

/* ---- Tags and status ------------------------------------------------------------------------- */

/* Return and set what the host keeps here about the WCS; the library gives it no meaning. */
ZTMATH_API int WCS_ask_view_names_skeleton(void); /* GCA(41) */
ZTMATH_API int WCS_ask_skeleton(void);            /* GCA(42) */
ZTMATH_API int WCS_ask_matrix_tag(void);          /* GCA(45) */
ZTMATH_API int WCS_ask_tag(void);                 /* GCA(50) */
ZTMATH_API void WCS__set_matrix_tag(int tag);
ZTMATH_API void WCS_set_tag(int tag);

/* Returns and sets whether the WCS follows the view: 1 or 0 out, any value but 0 for 1 in. Kept
   inverted in GCA(47). */
ZTMATH_API int WCS_is_linked_to_view(void);
ZTMATH_API void WCS_set_linked_to_view(int linked);

/* Returns 1 when the WCS is permanent (GCA(48) is 1), else 0. */
ZTMATH_API int WCS_is_permanent(void);

/* Returns 1 when the WCS is temporary (its display status is 1), else 0. */
ZTMATH_API int WCS_is_temporary(void);

/* Returns the display status, GCA(49). */
ZTMATH_API int WCS_ask_wcs_display(void);

/*
 * Sets the display status and tells the platform's listeners of reason number 2, handing them the
 * address of the status.
 *
 * status  0 or 1; anything else fails the assertion "display_status == 0 || display_status == 1" of
 *         module "libztmath_main" and is stored all the same
 */
ZTMATH_API void WCS_set_wcs_display(int status);

/* ---- Mapping --------------------------------------------------------------------------------- */

/* Map a vector or point; out may be in. With M the matrix and o the origin: */
ZTMATH_API void mapvaw_(const double in[3], double out[3]); /* vector, absolute to work: M v */
ZTMATH_API void mapvwa_(const double in[3], double out[3]); /* vector, work to absolute: M^T v */
ZTMATH_API void mappaw_(const double in[3], double out[3]); /* point, absolute to work: M (p - o) */
ZTMATH_API void mappwa_(const double in[3], double out[3]); /* point, work to absolute: M^T p + o */
ZTMATH_API void map10_(const double in[3], double out[3]);  /* the same as mapvwa_ */
ZTMATH_API void map11_(const double in[3], double out[3]);  /* the same as mapvaw_ */
ZTMATH_API void map12_(const double in[3], double out[3]);  /* the same as mappwa_ */
ZTMATH_API void map13_(const double in[3], double out[3]);  /* the same as mappaw_ */

ZTMATH_END_DECLS

#endif
