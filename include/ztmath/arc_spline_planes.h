/*
 * arc_spline_planes.h - circles as points of space and families of circles as planes; projections
 * onto planes; rotations, reflections and maps from vectors.
 *
 * A circle of the plane with centre (x, y) and radius r is the point (x, y, x^2 + y^2 - r^2) of
 * space: points of the plane lie on the paraboloid z = x^2 + y^2, circles below it. A plane of space
 * is then a family of circles, and its section with the paraboloid, seen from above, a circle or a
 * line of the plane (after G. Monge and D. Pedoe, Geometry, 1970).
 *
 * Points and vectors are three doubles unless said, matrices row-major, acting on columns. `tols`
 * holds a distance and an angle in degrees. An output may be the same storage as any input; nothing
 * is allocated. A component that is not finite is reported as a failed assertion where a vector is
 * unitized.
 */
#ifndef ZTMATH_ARC_SPLINE_PLANES_H
#define ZTMATH_ARC_SPLINE_PLANES_H

#include <ztmath/arc_spline.h>
#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/* The plane of the points X with normal . X + offset = 0. */
typedef struct {
    double normal[3];
    double offset;
    unsigned char normalised; /* 1: the normal is known to be unit, the offset scaled to match */
} ARC_SPLINE_monge_plane_t;

/* ---- Circles as points ------------------------------------------------------------------------*/

/* The point (x, y, x^2 + y^2 - r^2) of a circle with centre (x, y). */
ZTMATH_API void ARC_SPLINE_convert_circle_to_3d_pt(const double center[2], double radius,
                                                   double pt[3]);

/*
 * The circle of a point.
 *
 * valid  out: 1, or 0 when the point lies above the paraboloid, where no circle is
 * out    the full circle (ARC_SPLINE_cre_circle_from_center_and_radius_2d), of radius 0 when the
 *        point lies on the paraboloid within 1e-20; not written when valid is 0
 */
ZTMATH_API void ARC_SPLINE_convert_3d_pt_to_circle_2d(const double pt[3], unsigned char *valid,
                                                      ARC_SPLINE_1_seg_2d_t *out);

/* The plane that cuts the paraboloid above the circle: normal (2 x, 2 y, -1), not normalised. */
ZTMATH_API void ARC_SPLINE_ask_polar_plane_of_circle(const double center[2], double radius,
                                                     ARC_SPLINE_monge_plane_t *out);

/* ---- Planes -----------------------------------------------------------------------------------*/

/* Copies all fields. */
ZTMATH_API void ARC_SPLINE_copy_monge_plane(const ARC_SPLINE_monge_plane_t *in,
                                            ARC_SPLINE_monge_plane_t *out);

/* Makes the normal unit, scales the offset to match and sets the flag, whatever it was. A null
 * normal must not be passed: the offset is divided by 0. */
ZTMATH_API void ARC_SPLINE_normalize_monge_plane(ARC_SPLINE_monge_plane_t *p);

/* The plane's point nearest to the origin, and its unit normal. */
ZTMATH_API void ARC_SPLINE_ask_pt_and_normal_of_monge_plane(const ARC_SPLINE_monge_plane_t *p,
                                                            double pt[3], double normal[3]);

/*
 * The line common to two planes.
 *
 * point, direction  the line's point nearest to the origin and its unit direction, along the cross
 *                   product of the normals; zero on a positive status
 * status            0; 1 the planes are parallel within the angle; 2 they are one plane besides,
 *                   within the distance
 */
ZTMATH_API void ARC_SPLINE_inter_2_monge_planes(const ARC_SPLINE_monge_plane_t *p1,
                                                const ARC_SPLINE_monge_plane_t *p2,
                                                const double *tols, double pt[3], double dir[3],
                                                int *status);

/*
 * How three planes lie to one another: the statuses of ARC_SPLINE_inter_2_monge_planes of each two.
 *
 * pt  out: (0, 0, 0), also where the planes have a point in common
 */
ZTMATH_API void ARC_SPLINE_inter_3_monge_planes(const ARC_SPLINE_monge_plane_t *p1,
                                                const ARC_SPLINE_monge_plane_t *p2,
                                                const ARC_SPLINE_monge_plane_t *p3,
                                                const double *tols, double pt[3], int *status_12,
                                                int *status_23, int *status_13);

/*
 * The line common to two planes that are given by points and unit normals; otherwise as
 * ARC_SPLINE_inter_2_monge_planes.
 *
 * sine_tolerance  the planes are parallel when the sine of their angle is at most this
 */
ZTMATH_API void h634_(const double p1[3], const double n1[3], const double p2[3],
                      const double n2[3], const double *sine_tolerance,
                      const double *distance_tolerance, double point[3], double direction[3],
                      int *status);

/* ---- Projections onto the plane through q with the normal n -----------------------------------*/

/* The foot of p, of a unit normal. */
ZTMATH_API void ARC_SPLINE_proj_pt_to_pln(const double n[3], const double q[3], const double p[3],
                                          double out[3]);

/* The same in place. */
ZTMATH_API void ARC_SPLINE_adjust_pt_on_pln(const double n[3], const double q[3], double p[3]);

/* The part of v along the plane, of a unit normal. */
ZTMATH_API void ARC_SPLINE_proj_vec_to_pln(const double n[3], const double v[3], double out[3]);

/*
 * The same in place.
 *
 * unitize  not 0: the result is made a unit vector too
 *
 * Returns 0, or when unitizing 1 and when that failed (length 1e-10 or below) 0: see VEC3_unitize.
 */
ZTMATH_API int ARC_SPLINE_adjust_vec_on_pln(unsigned char unitize, const double n[3], double v[3]);

/*
 * The point p carried onto the plane along the direction v.
 *
 * out, parm  p + parm v
 * status     0; -1 the direction lies in the plane within the angle and so does the point within the
 *            distance: out is p, parm 0; 1 the direction lies in the plane but the point does not:
 *            nothing else is written
 */
ZTMATH_API void ARC_SPLINE_proj_pt_along_vec_on_plane(const double p[3], const double q[3],
                                                      const double n[3], const double v[3],
                                                      const double *tols, double out[3],
                                                      double *parm, int *status);

/* ---- Rotations, reflections, translations -----------------------------------------------------*/

/*
 * The smallest rotation that takes the direction `from` to the direction `to`, as the product of two
 * reflections (A. S. Householder, 1958). Of opposite directions, the half turn about
 * VEC3_ask_perpendicular of the first.
 *
 * status  0; 1 a vector is null (1e-10): r is the identity
 */
ZTMATH_API void ARC_SPLINE_ask_householder_rotation(const double from[3], const double to[3],
                                                    double r[9], int *status);

/*
 * The reflection in the plane through pt with that normal, of any length.
 *
 * status  0; 1 the normal is null (1e-10): m is the identity
 */
ZTMATH_API void ARC_SPLINE_ask_householder_transformation(const double pt[3],
                                                          const double normal[3], double m[16],
                                                          int *status);

/* The translation by v. */
ZTMATH_API void ARC_SPLINE_ask_translation_matrix(const double v[3], double m[16]);

/* The transform m followed by the translation by v. */
ZTMATH_API void ARC_SPLINE_combine_translation_matrix(const double v[3], const double m[16],
                                                      double out[16]);

/* The transform x -> r x + v. */
ZTMATH_API void ARC_SPLINE_combine_rotation_translation(const double r[9], const double v[3],
                                                        double m[16]);

/* ---- Maps from vectors ------------------------------------------------------------------------*/

/*
 * The rotation that takes the direction a1 to the direction b1 and the half plane of a1 and a2 to
 * that of b1 and b2.
 *
 * status  0; 1 a vector is null (1e-10) or the two of a pair are parallel (sine 1e-10): r is the
 *         identity
 */
ZTMATH_API void ARC_SPLINE_cre_mtx3_from_2_vecs_to_2_vecs(const double a1[3], const double a2[3],
                                                          const double b1[3], const double b2[3],
                                                          double r[9], int *status);

/*
 * The linear map r with r a1 = b1, r a2 = b2, r a3 = b3.
 *
 * status  0; 1 the determinant of the a's is exactly 0: r is the identity
 */
ZTMATH_API void ARC_SPLINE_cre_mtx3_from_3_vecs_to_3_vecs(const double a1[3], const double a2[3],
                                                          const double a3[3], const double b1[3],
                                                          const double b2[3], const double b3[3],
                                                          double r[9], int *status);

ZTMATH_END_DECLS

#endif
