/*
 * mc.h - the compact vector kit: arithmetic on vectors, lines and planes, 3x3 systems, transforms.
 *
 * Vectors and points are three doubles. A line is a direction and a point; a plane is a unit normal
 * n and a distance d, the points x with n . x = d. A direction must be unit where said; nothing
 * tests that. Tolerances are constants of the kit, absolute, made for lengths in millimetres; they
 * depend on no setting of the session. Outputs may alias or overlap inputs. Truth values are 1
 * and 0.
 *
 * Two things are reported, both with ERROR_raise, module "mc_math", reason 17, after a line on
 * standard output:
 *
 *   "\nERROR: zero vector in unitize\n", then "tried to unitize null vector":
 *       a vector shorter than 1.0e-4 where one is unitized;
 *   "\nERROR: zero determinant in 3 by 3 system\n", then "zero determinant in linear system":
 *       a determinant of absolute value below 1.0e-8 where a system is solved.
 *
 * When the report returns, the division is carried out all the same, also by zero; when it unwinds,
 * the outputs are untouched. Other degenerate input is answered as each routine says.
 */
#ifndef ZTMATH_MC_H
#define ZTMATH_MC_H

#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/* ---- Arithmetic ---- */

ZTMATH_API void MC_v_copy(const double a[3], double out[3]);                 /* a */
ZTMATH_API void MC_AmB(const double a[3], const double b[3], double out[3]); /* a - b */
ZTMATH_API void MC_ApB(const double a[3], const double b[3], double out[3]); /* a + b */
ZTMATH_API void MC_aA(double s, const double a[3], double out[3]);           /* s a */
ZTMATH_API void MC_aApB(double s, const double a[3], const double b[3],
                        double out[3]);                                      /* s a + b */
ZTMATH_API void MC_AxB(const double a[3], const double b[3], double out[3]); /* a x b */
ZTMATH_API double MC_A_dot_B(const double a[3], const double b[3]);          /* a . b */

/* Returns (a x b) . c. */
ZTMATH_API double MC_triple_product(const double a[3], const double b[3], const double c[3]);

/* The length of a vector, and its square. */
ZTMATH_API double MC_length(const double a[3]);
ZTMATH_API double MC_length2(const double a[3]);

/* The distance between two points, and its square. */
ZTMATH_API double MC_dist(const double p[3], const double q[3]);
ZTMATH_API double MC_dist2(const double p[3], const double q[3]);

/* ---- Directions ---- */

/* Divides a vector by its length, in place. Reports a vector shorter than 1.0e-4. */
ZTMATH_API void MC_v_unit(double a[3]);

/*
 * Whether |a x b|^2 < 1.7453292519943296e-5. Nothing is divided by the lengths: unit vectors are
 * parallel up to about 0.24 degrees, longer ones up to less.
 */
ZTMATH_API int MC_q_parallel(const double a[3], const double b[3]);

/* Whether |a . b| < 1.0e-4. Nothing is divided by the lengths. */
ZTMATH_API int MC_q_perp(const double a[3], const double b[3]);

/*
 * Returns the angle between two unit vectors, in radians, in [0, pi]: exactly 0 where the cosine is
 * above 0.9999999, exactly pi where it is below -0.9999999.
 */
ZTMATH_API double MC_get_angle(const double a[3], const double b[3]);

/*
 * Finds a unit vector perpendicular to a unit vector: along (1, 0, -a.x / a.z) where |a.x| <= 0.5
 * and |a.y| <= 0.5, (1, -a.x / a.y, 0) where only |a.x| <= 0.5, else (-a.y / a.x, 1, 0).
 */
ZTMATH_API void MC_perp_vec(const double a[3], double out[3]);

/* ---- 3x3 systems ----
 * A system is twelve doubles, row-major, rows of four: three coefficients, then the right-hand
 * side. */

/* Returns the determinant of the coefficients, by the rule of Sarrus. */
ZTMATH_API double MC_determinant(const double system[12]);

/*
 * Solves a system by Cramer's rule (Cramer, 1750). Reports a determinant of absolute value below
 * 1.0e-8; the system itself is never changed.
 *
 * x  out: the solution
 */
ZTMATH_API void MC_solve_3(const double system[12], double x[3]);

/* ---- Lines and planes ---- */

/*
 * Returns the distance between two lines, whose directions need not be unit.
 *
 * d1, p1  direction and point of the first line
 * d2, p2  direction and point of the second line
 *
 * Lines count as parallel where |d1 x d2|^2 < 1.0e-8. Parallel lines have the distance 0 when
 * |p1 - p2|^2 or |(p1 - p2) x d1|^2 is below 1.0e-8. Where d1 is so short that its product with
 * that is shorter than 1.0e-4, the null vector is reported.
 */
ZTMATH_API double MC_dist_lines(const double d1[3], const double p1[3], const double d2[3],
                                const double p2[3]);

/*
 * Returns the signed distance from plane 1 to plane 2 along normal1; 0.0 unless MC_q_parallel holds
 * for the normals. Where normal1 . normal2 <= 0, plane 2 is turned over first.
 */
ZTMATH_API double MC_signed_dist_planes(const double normal1[3], double dist1,
                                        const double normal2[3], double dist2);

/*
 * Returns the signed distance of an axis, a line by direction and point, from a plane: n . point -
 * d, or 0.0 unless MC_q_perp holds for n and the direction.
 */
ZTMATH_API double MC_signed_dist_plane_axis(const double n[3], double d, const double direction[3],
                                            const double point[3]);

/*
 * Drops a perpendicular from a point onto a line.
 *
 * u, q  unit direction and point of the line
 * out   out: the foot
 */
ZTMATH_API void MC_proj_point_onto_line(const double p[3], const double u[3], const double q[3],
                                        double out[3]);

/*
 * Finds the unit vector from the foot of the perpendicular to the point p; arguments as of
 * MC_proj_point_onto_line. Reports a point that is closer than 1.0e-4 to the line.
 */
ZTMATH_API void MC_perp_from_line_to_point(const double p[3], const double u[3], const double q[3],
                                           double out[3]);

/* Whether the squared distance from p to the line, of unit direction u through q, is at most
   1.0e-8. */
ZTMATH_API int MC_q_point_on_line(const double p[3], const double u[3], const double q[3]);

/* Projects a point onto a plane. */
ZTMATH_API void MC_proj_point_onto_plane(const double p[3], const double n[3], double d,
                                         double out[3]);

/*
 * Intersects a line with a plane, by MC_solve_3 of the plane and two planes through the line.
 *
 * direction, point  the line; the direction need not be unit
 * normal, d         the plane; the normal need not be unit
 * out               out: the common point
 *
 * A line parallel to the plane is reported as a system without a solution. So is a direction or a
 * normal so short that the determinant, (direction . normal) times the largest component of the
 * direction, is below 1.0e-8 in absolute value.
 */
ZTMATH_API void MC_axis_plane_x(const double direction[3], const double point[3],
                                const double normal[3], double d, double out[3]);

/* ---- Transforms ----
 * A transform is a 4x4 matrix, row-major: a 3x3 block R in rows and columns 0 to 2, a translation t
 * in elements 3, 7 and 11, the last row 0, 0, 0, 1 (which is not read). */

/* out = R v */
ZTMATH_API void MC_apply_transform_to_vector(const double transform[16], const double v[3],
                                             double out[3]);

/* out = R p + t */
ZTMATH_API void MC_apply_transform_to_point(const double transform[16], const double p[3],
                                            double out[3]);

/*
 * Builds the motion that carries one frame onto another: a point with coordinates a, b, c in the
 * first goes to the point with the same coordinates in the second.
 *
 * frame1, frame2  origin (3), then the unit X, Y and Z axes (9), taken as they stand
 * transform       out: R = M2^T M1, t = o2 - R o1
 */
ZTMATH_API void MC_calc_csys_to_csys_transform(const double frame1[12], const double frame2[12],
                                               double transform[16]);

ZTMATH_END_DECLS

#endif
