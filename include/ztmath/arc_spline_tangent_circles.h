/*
 * arc_spline_tangent_circles.h - circles that touch circles and lines (the problems of Apollonius).
 *
 * A circle is given by a segment record of an arc (arc_spline.h) with a radius of at least tols[0], a
 * line by one of a straight; they stand for the full circle and the infinite line. tols holds a
 * distance and an angle in degrees. Every output is set, to blank records and 0, before an input is
 * looked at; no solution is no error: count 0, status 0.
 *
 * Never given back: circles of a radius below tols[0] or above 1e10, circles equal to a given one
 * within tols[0], and the same circle twice. Solutions are full circles: those that touch at a
 * prescribed point start there, the others are made by
 * ARC_SPLINE_cre_circle_from_center_and_radius_2d.
 *
 * Circles that touch circles are ordered by their codes, a bit for each given circle, the first the
 * most significant: 0 when they touch it from outside (distance of the centres R + r), 1 from inside
 * (|R - r|). Equal codes by ascending radius; equal radii, within tols[0], from left to right as seen
 * from centre 1 to centre 2 (of concentric ones: to the point or to centre 3).
 *
 * They are found as the points of space that the line common to two planes and a cone have in common
 * (after G. Monge), and improved on the distances themselves. Reports are internal errors of module
 * "arc_spline_apollonian_constructions"; assertions are made when the checking level is above 0.
 */
#ifndef ZTMATH_ARC_SPLINE_TANGENT_CIRCLES_H
#define ZTMATH_ARC_SPLINE_TANGENT_CIRCLES_H

#include <ztmath/arc_spline.h>
#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/*
 * Circles through two points that touch a circle, the centre farthest to the left of the way from p1
 * to p2 first.
 *
 * count   out: 2 when both points are inside or both outside; 1 when besides the line through them
 *         touches the circle, or when one is on it, and the circle is touched there; else 0
 * status  out: 0; 1 the points are within tols[0] of each other; 2 no circle
 *
 * Both functions do the same.
 */
ZTMATH_API void ARC_SPLINE_cre_circle_thru_2_points_tangent_to_circle(
    const double p1[2], const double p2[2], const ARC_SPLINE_1_seg_2d_t *circle, const double *tols,
    int *count, ARC_SPLINE_1_seg_2d_t *circle_1, ARC_SPLINE_1_seg_2d_t *circle_2, int *status);
ZTMATH_API void ARC_SPLINE_cre_circle_thru_2_points_tangent_to_circle_2(
    const double p1[2], const double p2[2], const ARC_SPLINE_1_seg_2d_t *circle, const double *tols,
    int *count, ARC_SPLINE_1_seg_2d_t *circle_1, ARC_SPLINE_1_seg_2d_t *circle_2, int *status);

/*
 * Circles that touch a line at a point of it, and a circle; the centre farthest to the left of the
 * line first.
 *
 * count   out: 2; 1 when the line touches the circle elsewhere; 0 when the point is on the circle
 * status  out: 0; 1 no circle; 2 no line; 3 the point is farther than tols[0] from the line
 *
 * Asserts "seg_ptr_1 && seg_ptr_2".
 */
ZTMATH_API void ARC_SPLINE_cre_circle_tangent_to_circle_and_line_at_pt_2d(
    const ARC_SPLINE_1_seg_2d_t *circle, const ARC_SPLINE_1_seg_2d_t *line, const double pt[2],
    const double *tols, int *count, ARC_SPLINE_1_seg_2d_t *circle_1,
    ARC_SPLINE_1_seg_2d_t *circle_2, int *status);

/*
 * The same that touch line_2 at a point of it, and line_1. count: 2; 1 when the lines are parallel; 0
 * when the point is on line_1. status: 1, 2 the record of that number is no line.
 */
ZTMATH_API void ARC_SPLINE_cre_circle_tangent_to_line_and_line_at_pt_2d(
    const ARC_SPLINE_1_seg_2d_t *line_1, const ARC_SPLINE_1_seg_2d_t *line_2, const double pt[2],
    const double *tols, int *count, ARC_SPLINE_1_seg_2d_t *circle_1,
    ARC_SPLINE_1_seg_2d_t *circle_2, int *status);

/*
 * The same that touch a line at a point of it and cross a circle, the tangents at the crossing
 * enclosing an angle.
 *
 * angle   degrees, 0 to 90; 0 touches, 90 has one solution. Any other is reported as "The input value
 *         of the angle is not valid."
 * status  out: as for a circle and a line; 4 the angle is not valid
 */
ZTMATH_API void ARC_SPLINE_cre_circle_at_angle_to_c_tangent_to_l_at_pt_2d(
    const ARC_SPLINE_1_seg_2d_t *circle, const ARC_SPLINE_1_seg_2d_t *line, const double pt[2],
    double angle, const double *tols, int *count, ARC_SPLINE_1_seg_2d_t *circle_1,
    ARC_SPLINE_1_seg_2d_t *circle_2, int *status);

/*
 * Circles through a point that touch two circles, at most 4. One of the circles is touched at the
 * point when this is within tols[0] of it; on both there is none.
 *
 * status  out: 0; 1, 2 the record of that number is no circle; 3 the circles are equal
 */
ZTMATH_API void ARC_SPLINE_cre_circle_tangent_to_2_circles_and_a_pt(
    const ARC_SPLINE_1_seg_2d_t *c1, const ARC_SPLINE_1_seg_2d_t *c2, const double pt[2],
    const double *tols, int *count, ARC_SPLINE_1_seg_2d_t circles[4], int *status);

/*
 * Circles of a radius that touch two circles, at most 8.
 *
 * status  out: as above; 4 the radius is below tols[0]
 *
 * Asserts "( given_radius >= tols[0] )" and, of each circle, "( local_status_flag == 0 && type_1 == 1
 * && radius_1 >= tols[0] )", "( local_status_flag == 0 && type_2 == 1 && radius_2 >= tols[0] )".
 */
ZTMATH_API void ARC_SPLINE_cre_circle_tangent_to_2_circles_and_given_radius_2d(
    const ARC_SPLINE_1_seg_2d_t *c1, const ARC_SPLINE_1_seg_2d_t *c2, double given_radius,
    const double *tols, int *count, ARC_SPLINE_1_seg_2d_t circles[8], int *status);

/*
 * Circles that touch three circles, at most 8.
 *
 * status  out: 0; 1, 2, 3 the record of that number is no circle; 4 two of the circles are equal
 */
ZTMATH_API void ARC_SPLINE_cre_circle_tangent_to_3_circles(const ARC_SPLINE_1_seg_2d_t *c1,
                                                           const ARC_SPLINE_1_seg_2d_t *c2,
                                                           const ARC_SPLINE_1_seg_2d_t *c3,
                                                           const double *tols, int *count,
                                                           ARC_SPLINE_1_seg_2d_t circles[8],
                                                           int *status);

ZTMATH_END_DECLS

#endif
