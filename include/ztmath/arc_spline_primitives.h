/*
 * arc_spline_primitives.h - small planar computations: angles, circles against points and circles,
 * lines, three points, two equations, rays and bisectors.
 *
 * Points and vectors are pairs of doubles, triples where _3d is said; angles are in degrees. A circle
 * is a segment record (arc_spline.h): an arc stands for its full circle, a straight for one of the
 * radius 1e19. tols holds a distance and an angle in degrees. Lines have unit directions. Tests
 * against a tolerance count equality as within. Nothing is allocated, and outputs may alias inputs.
 *
 * Reports are internal errors of module "arc_spline_apollonian_constructions".
 */
#ifndef ZTMATH_ARC_SPLINE_PRIMITIVES_H
#define ZTMATH_ARC_SPLINE_PRIMITIVES_H

#include <ztmath/arc_spline.h>
#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/* ---- Angles -----------------------------------------------------------------------------------*/

/* The inclination of a vector, in [0, 360). */
ZTMATH_API double ARC_SPLINE_ask_inclination_angle_from_tan_2d(const double v[2]);

/* The unit vector of an inclination. Returns out. */
ZTMATH_API double *ARC_SPLINE_ask_tan_2d_from_inclination_angle(double out[2], double angle);

/*
 * The angle from a to b, counter-clockwise, in [0, 360).
 *
 * unit  not 0 when both are unit vectors; else they are unitized with the tolerance 1e-10
 */
ZTMATH_API double ARC_SPLINE_ask_angle_between_vectors_2d(const double a[2], const double b[2],
                                                          int unit);

/*
 * The interior angle of a triangle, in [0, 180].
 *
 * which_angle  the vertex, 1, 2 or 3; for any other "Unrecognizable input value for which_angle." is
 *              reported and 0 returned
 * status       out: 0; 1 when a side from the vertex is shorter than tols[0], and the angle is 0
 *
 * An angle within tols[0], the length, of 180 degrees is 180.
 */
ZTMATH_API double ARC_SPLINE_ask_interior_angle_of_triangle_2d(const double p1[2],
                                                               const double p2[2],
                                                               const double p3[2],
                                                               const double *tols, int which_angle,
                                                               int *status);

/*
 * The angle between two tangents, in [0, 180].
 *
 * sense  out: 1 when a turns into b counter-clockwise, else -1
 */
ZTMATH_API double ARC_SPLINE_ask_central_angle_between_tangents_2d(const double a[2],
                                                                   const double b[2], int *sense);

/*
 * The central angle of a chord, in [0, 180]; 180 for a chord longer than the diameter.
 *
 * A radius below 1e-10 is reported as "The radius is zero." and gives 0.
 */
ZTMATH_API double ARC_SPLINE_ask_min_central_angle(double radius, double chord);

/* ---- Points and circles against circles -------------------------------------------------------*/

/* The power of a point: its squared distance from the centre less the squared radius. Of no record
 * (null) 0. */
ZTMATH_API double ARC_SPLINE_ask_power_of_a_point_2d(const double pt[2],
                                                     const ARC_SPLINE_1_seg_2d_t *circle);
ZTMATH_API double ARC_SPLINE_ask_power_of_a_point_3d(const double pt[3], const double center[3],
                                                     double radius);

/* -1 inside, 0 on the circle, 1 outside. On it are points whose power is at most 2 tol^2, either
 * way. */
ZTMATH_API int ARC_SPLINE_ask_where_is_pt_wrt_circle_2d(const double pt[2],
                                                        const ARC_SPLINE_1_seg_2d_t *circle,
                                                        double tol);

/*
 * How two circles lie:
 *
 *    1  apart, or a record cannot be read     0  touching from outside
 *   -2  circle 2 touches circle 1 inside     -3  circle 1 touches circle 2 inside
 *   -4  crossing, circle 1 the larger        -5  crossing, circle 2 the larger
 *   -6  coincident
 *   -1  one inside the other; also equal circles that cross
 */
ZTMATH_API int ARC_SPLINE_ask_where_is_circle_wrt_circle_2d(const ARC_SPLINE_1_seg_2d_t *c1,
                                                            const ARC_SPLINE_1_seg_2d_t *c2,
                                                            double tol);

/*
 * The radical axis of two circles: the line of equal powers.
 *
 * axis_pt   out: its point on the line of the centres
 * axis_dir  out: the left normal of the way from the larger circle's centre to the other's; from
 *           circle 1 to circle 2 when they are equal
 * relation  out: 0 apart; 1 equal circles that touch; 2 no farther apart than the sum of the radii;
 *           3 concentric within 1e-10, and there is no axis
 * status    out: 0; 1, 2 the record of that number is no circle
 *
 * Circles nested one in the other have the relation 2 as well, and the axis meets neither;
 * ARC_SPLINE_ask_where_is_circle_wrt_circle_2d tells them apart.
 */
ZTMATH_API void ARC_SPLINE_ask_radical_axis_of_2_circles_2d(const ARC_SPLINE_1_seg_2d_t *c1,
                                                            const ARC_SPLINE_1_seg_2d_t *c2,
                                                            double axis_pt[2], double axis_dir[2],
                                                            int *relation, int *status);

/* ---- Lines ------------------------------------------------------------------------------------*/

/*
 * The distance of a point from a line.
 *
 * foot, parm  out: the foot of the perpendicular and its way along the direction from line_pt; within
 *             tol of line_pt the foot is line_pt and parm is 0
 * side        out: 0 within tol of the foot, 1 to the right of the direction, -1 to the left
 */
ZTMATH_API double ARC_SPLINE_ask_dist_pt_to_line_2d(const double pt[2], const double line_pt[2],
                                                    const double line_dir[2], double tol,
                                                    double foot[2], double *parm, int *side);

/*
 * The same for the line from end_1 to end_2.
 *
 * bounded  1 keeps foot, parm and distance within the segment; 0 does not
 *
 * Ends within tol of each other are reported as "The line segment is not defined; we have coincident
 * points."; the foot is end_1 then, parm 0, side -1 and the distance that from end_1.
 */
ZTMATH_API double ARC_SPLINE_ask_dist_pt_to_line_seg_2d(const double pt[2], const double end_1[2],
                                                        const double end_2[2], double tol,
                                                        int bounded, double foot[2], double *parm,
                                                        int *side);

/* The mirror image of a point in a line; side as above. */
ZTMATH_API void ARC_SPLINE_mirror_point_wrt_line_2d(const double pt[2], const double line_pt[2],
                                                    const double line_dir[2], double tol,
                                                    double mirror[2], int *side);

/*
 * Where two infinite lines meet.
 *
 * tols    lines whose points are nearer than tols[0] meet half way between these, and leave parms as
 *         they were; directions whose cosine is at least cos(tols[1]) are parallel
 * unit    0 unitizes the directions in place, with the tolerance 1e-8
 * pt      out: the point, unless the lines are parallel with points apart
 * parms   out: the ways along d1 and d2 to it
 * cosine  out: of the angle of the directions; 1 when one of them is null
 * status  out: 0; 1 parallel; 2 the same line
 */
ZTMATH_API void ARC_SPLINE_inter_line_line_2d(const double *tols, const double P1[2],
                                              const double P2[2], int unit, double d1[2],
                                              double d2[2], double pt[2], double parms[2],
                                              double *cosine, int *status);

/* ---- Three points -----------------------------------------------------------------------------*/

/*
 * Moves three points on round their cycle so that the one opposite the longest side stands second.
 *
 * status  out: 0 nothing moved; 1 (p2, p3, p1); 2 (p3, p1, p2); -1 two are within tol of each other,
 *         and nothing moved
 */
ZTMATH_API void ARC_SPLINE_re_order_3pts_2d(double tol, double p1[2], double p2[2], double p3[2],
                                            int *status);
ZTMATH_API void ARC_SPLINE_re_order_3pts_3d(double tol, double p1[3], double p2[3], double p3[3],
                                            int *status);

/*
 * Whether three points lie on a line: 0 no, 1 yes, 2 the outer ones coincide.
 *
 * Points whose coordinates along an axis differ by less than the distance count as collinear when
 * they span more than tols[0] / tan(tols[1]): in the plane those along the other axis, in space all
 * that lie in the plane of the other two.
 *
 * tols  distance, and angle in degrees at the middle point
 * mode  2 asks for the side of a path that turns
 * side  out: 0 the path p1, p2, p3 turns left, 1 right, -1 not asked for or does not turn; in space
 *       always -1
 */
ZTMATH_API int ARC_SPLINE_ask_3pts_collinearity_2d(const double p1[2], const double p2[2],
                                                   const double p3[2], const double tols[2],
                                                   int mode, int *side);
ZTMATH_API int ARC_SPLINE_ask_3pts_collinearity_3d(const double p1[3], const double p2[3],
                                                   const double p3[3], const double tols[2],
                                                   int mode, int *side);

/* ---- Numbers and equations --------------------------------------------------------------------*/

/* -1, 0 or 1; 0 within the tolerance. */
ZTMATH_API int ARC_SPLINE_ask_sign_of_var(double x, double tol);

/*
 * Solves k2 x^2 + k1 x + k0 = 0.
 *
 * normalise  1 divides the coefficients by their root of squares first
 * roots      out: the roots; equal ones when there is one. Of a complex pair the real part and the
 *            imaginary part. Untouched when there is none
 * status     out: 0, 1 or 2 roots, 0 also of coefficients that are no numbers; -2 a complex pair; -3
 *            the coefficients are all below 1e-12
 */
ZTMATH_API void ARC_SPLINE_solve_quadratic_eqt(double k2, double k1, double k0, int normalise,
                                               double roots[2], int *status);

/*
 * Solves p sin x + q cos x + r = 0 by the tangent of x / 2, so that x = 180 degrees is never found.
 *
 * unit           'r' for radians, any other for degrees
 * mode           which solutions are kept: 0 all, brought into [0, 360); 1 those in [0, 90]; 10 those
 *                in [0, 90 - margin]; -11 those within 90 - margin of 0; any other all as they are
 * count          out: how many; -3 when there is no equation
 * angles         out: ascending
 * half_tangents  out: tan(x / 2) of each
 */
ZTMATH_API void ARC_SPLINE_trig_eqt_linear_sin_cos(double p, double q, double r, char unit,
                                                   int mode, double margin, int *count,
                                                   double angles[2], double half_tangents[2]);

/* Whether a comes before b, the shorter way round when the scale has a period (0 for none). */
ZTMATH_API int ARC_SPLINE_ask_is_pair_in_order(double a, double b, double period);

/* Where t lies: 0 outside, 1 inside, 11 within 1e-10 of a, 12 of b. With a period an interval whose a
 * is above b runs over its end. */
ZTMATH_API int ARC_SPLINE_ask_is_parm_in_interval(double t, double a, double b, double period);

/* ---- Rays and bisectors ------------------------------------------------------------------------
 * A ray is a point and a direction. Directions are in/out and become unit vectors unless `unit` is
 * not 0; inter_status is the status of ARC_SPLINE_inter_line_line_2d, 1 or above for parallel rays. */

/*
 * Whether two rays run alike with respect to the point where their lines meet: 1 both from it or both
 * to it, or one starts there; 0 one to it, one from it; -1 both start there. Parallel rays: 1 when
 * they point the same way, else 0.
 *
 * intersect  1 makes parms and inter_status out; any other number takes them as input
 */
ZTMATH_API int ARC_SPLINE_ask_are_two_rays_homodromic_2d(const double p1[2], double d1[2],
                                                         const double p2[2], double d2[2], int unit,
                                                         int intersect, const double *tols,
                                                         double parms[2], int *inter_status);

/*
 * On each ray, backwards from the meeting point as its start lies, the point as far from the meeting
 * point as the other ray's start. Of parallel rays the feet of each start on the other line.
 *
 * apex, parms   out: the meeting point and the ways to it; 0 for parallel rays
 * iso_1, iso_2  out: the points on ray 1 and ray 2
 * sides         out: of p1 against line 2, of p2 against line 1, as of a point against a line
 */
ZTMATH_API void ARC_SPLINE_ask_isosceles_to_pt_2d(const double p1[2], double d1[2],
                                                  const double p2[2], double d2[2], int unit,
                                                  const double *tols, double apex[2],
                                                  double parms[2], double iso_1[2], double iso_2[2],
                                                  int sides[2], int *inter_status);

/*
 * The bisector of two rays.
 *
 * pt            out: half way between the isosceles points
 * dir           out: with inter_status asked for, the first ray's direction; without (null), that
 *               from the meeting point to pt, or between the rays when pt lies there
 * inter_status  out, or null
 */
ZTMATH_API void ARC_SPLINE_ask_bisector_of_angle_2d(const double p1[2], double d1[2],
                                                    const double p2[2], double d2[2], int unit,
                                                    const double *tols, double pt[2], double dir[2],
                                                    int *inter_status);

/*
 * How arcs that leave p1 along d1 and arrive at p2 along d2 turn.
 *
 * convexities  out: 1 when p2 lies to the left of line 1 and p1 of line 2, -1 to the right, -2 on it;
 *              a single -2 becomes the opposite of the other; both 0 on one line
 * longer       out: 'l' or 'r' for the first or second way to the meeting point, 'e' when they are
 *              equal, 'n' for parallel rays
 */
ZTMATH_API void ARC_SPLINE_ask_convexities_of_tri_arc_2d(const double p1[2], double d1[2],
                                                         const double p2[2], double d2[2], int unit,
                                                         const double *tols, int convexities[2],
                                                         char *longer, int *inter_status);

/*
 * The angle inscribed in a path along v1 and then v2, on its left as seen against a unit normal.
 *
 * project    not 0 projects both into the plane of the normal first
 * angle_tol  degrees, at most 0.001 of which count
 * angle      out: the turn from v1 to v2, in [0, 360)
 * inscribed  out: the inscribed angle
 * type       out: 1 the path turns left, 0 right, -1 straight on, -2 a vector is null
 */
ZTMATH_API void ARC_SPLINE_ask_inscribed_angle_and_type(const double v1[3], const double v2[3],
                                                        const double normal[3], int project,
                                                        double angle_tol, double *angle,
                                                        double *inscribed, int *type);

/* The unit vector that halves that angle, to the left of the path. status: 0; 1 when a vector is
 * null, and the bisector is (0, 0, 0). */
ZTMATH_API void ARC_SPLINE_ask_bisector_of_inscribed_angle(const double v1[3], const double v2[3],
                                                           const double normal[3], int project,
                                                           double angle_tol, double bisector[3],
                                                           double *inscribed, int *type,
                                                           int *status);

/* The same at the corner p2 of a polygon; normal of any length, null for (0, 0, 1). A normal without
 * length is a null vector, too. */
ZTMATH_API void ARC_SPLINE_ask_bisector_of_polygon_angle(const double p1[3], const double p2[3],
                                                         const double p3[3], const double *normal,
                                                         double angle_tol, double bisector[3],
                                                         double *inscribed, int *type, int *status);

ZTMATH_END_DECLS

#endif
