/*
 * arc_spline_constructions.h - circles and arcs from points, lines, circles, radii and angles: the
 * problems of Apollonius and their degenerate cases.
 *
 * Points and vectors are pairs of doubles, angles in degrees. tols holds a distance and an angle. A
 * circle given is a readable arc record whose radius is at least tols[0], and an arc stands for its
 * full circle; a line given is a straight record with a direction, and stands for its infinite line.
 * "Left" is the left of a direction. Nothing is allocated, and outputs may alias inputs.
 *
 * Before anything else status and count are 0 and the records blank (ARC_SPLINE_init_1_seg_2d);
 * records beyond the count stay so. No solution is no failure: the count is 0 and the status, too. A
 * status above 0 says what input could not be served. Circles smaller than tols[0] or larger than
 * 1e10 are never given, nor one that is (centre and radius within tols[0]) a given circle or one
 * given already.
 *
 * Circles that touch a line at a given point start and end there, along the line; those through two
 * points with a radius, and through three points, start in the first. All others are made by
 * ARC_SPLINE_cre_circle_from_center_and_radius_2d.
 *
 * Circles given together are in the order of a code: one bit for each given circle, the first the
 * highest, 0 when they touch from outside and 1 from inside; then by radius; then, when the radii
 * agree within tols[0], the centre farther to the left of the line from the first centre to the
 * second comes first (of concentric circles: the line to the point or to the third centre).
 *
 * Reports are internal errors of module "arc_spline_apollonian_constructions".
 */
#ifndef ZTMATH_ARC_SPLINE_CONSTRUCTIONS_H
#define ZTMATH_ARC_SPLINE_CONSTRUCTIONS_H

#include <ztmath/arc_spline.h>
#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/* ---- Through points ---------------------------------------------------------------------------*/

/*
 * The full circle from the first point through the second to the third, and back: counter-clockwise
 * (orientation 1) when the points turn left, else clockwise (-1).
 *
 * status  out: 0; 1 the points are collinear, 2 the outer ones coincide
 *         (ARC_SPLINE_ask_3pts_collinearity_2d), or that of the parallel bisectors
 */
ZTMATH_API void ARC_SPLINE_cre_circle_thru_3_points_2d(const double p1[2], const double p2[2],
                                                       const double p3[2], const double *tols,
                                                       ARC_SPLINE_1_seg_2d_t *out, int *status);

/*
 * Circles on the chord of two points.
 *
 * radius    within tols[0] of half the chord: one circle, with the chord as diameter. Smaller: two,
 *           whose centres lie the radius away from the middle of the chord, the left one first,
 *           and which therefore miss the points. Larger: none
 * selector  1 makes the first of two clockwise, 0 the second
 * status    out: 0; 1 half the chord is within tols[0]
 */
ZTMATH_API void ARC_SPLINE_cre_circle_thru_2_points_and_radius(
    const double p1[2], const double p2[2], double radius, int selector, const double *tols,
    int *count, ARC_SPLINE_1_seg_2d_t *circle_1, ARC_SPLINE_1_seg_2d_t *circle_2, int *status);

/*
 * Circles through two points that touch a line: two when both points lie on one side of it, one when
 * their chord is parallel to it or one of them lies on it, else none. The centre farther to the left
 * of the way from p1 to p2 comes first.
 *
 * line_dir  of any length
 * status    out: 0; 1 the points are within tols[0], 2 a direction shorter than 1e-10
 */
ZTMATH_API void ARC_SPLINE_cre_circle_thru_2_points_tangent_to_line(
    const double p1[2], const double p2[2], const double line_pt[2], const double line_dir[2],
    const double *tols, int *count, ARC_SPLINE_1_seg_2d_t *circle_1,
    ARC_SPLINE_1_seg_2d_t *circle_2, int *status);

/*
 * Circles through two points that touch a circle: two when both points lie inside or both outside,
 * one when the line of the chord touches the circle or one of the points lies on it (and the chord
 * does not touch there), else none. The order is that of the circles that touch a line.
 *
 * status  out: 0; 1 the points are within tols[0], 2 not a circle
 *
 * By two methods with one result: here oriented circles, as points above their centres at the height
 * of their radii, where those through the points are a line that meets the cone of those that touch
 * the circle; in _2 the pencil of circles through the points, as a line in the space of circles
 * that meets the cone tangent to the paraboloid of points (D. Pedoe, Geometry, 1970).
 */
ZTMATH_API void ARC_SPLINE_cre_circle_thru_2_points_tangent_to_circle(
    const double p1[2], const double p2[2], const ARC_SPLINE_1_seg_2d_t *circle,
    const double *tols, int *count, ARC_SPLINE_1_seg_2d_t *circle_1,
    ARC_SPLINE_1_seg_2d_t *circle_2, int *status);
ZTMATH_API void ARC_SPLINE_cre_circle_thru_2_points_tangent_to_circle_2(
    const double p1[2], const double p2[2], const ARC_SPLINE_1_seg_2d_t *circle,
    const double *tols, int *count, ARC_SPLINE_1_seg_2d_t *circle_1,
    ARC_SPLINE_1_seg_2d_t *circle_2, int *status);

/* ---- Along a tangent --------------------------------------------------------------------------*/

/*
 * The full circle through a point that touches a line at line_pt. When the point is within tols[0]
 * of the line, or the circle would be larger than 1e10, the straight from line_pt to the point.
 *
 * status  out: 0; 1 the points are within tols[0], 2 a direction shorter than 1e-10
 */
ZTMATH_API void ARC_SPLINE_cre_circle_thru_pt_and_tangent_to_line_at_pt_2d(
    const double pt[2], const double line_pt[2], const double line_dir[2], const double *tols,
    ARC_SPLINE_1_seg_2d_t *out, int *status);

/*
 * The arc that leaves the start of a chord along the tangent there and ends at its end. When the end
 * is within tols[0] of the line of the tangent, ahead, or the radius would be larger than 1e10, the
 * straight.
 *
 * end_tangent  not read, may be null
 * radius       below 0: computed; else it must be that of the arc, within tols[0], and is taken
 * status       out: 0; 1 the ends are within tols[0], 2 the end lies straight behind (or there is no
 *              tangent), 3 another radius
 */
ZTMATH_API void ARC_SPLINE_cre_circle_from_chord_end_data_2d(
    const double start[2], const double start_tangent[2], const double end[2],
    const double end_tangent[2], double radius, const double *tols, ARC_SPLINE_1_seg_2d_t *out,
    int *status);

/*
 * The arc that touches the lines of two rays. With their meeting point at the parameters t1 and t2:
 * when |t1| <= |t2| it starts in p1 and ends as far from the meeting point on the second line, else
 * it ends in p2 and starts as far on the first. Between parallel lines it is a half circle from p1.
 *
 * d1, d2  in/out: unitized when unit is 0
 * status  out: 0; 1 a direction shorter than 1e-8, 2 both rays on one line, 3 no such arc, which is
 *         reported as "The call to ARC_SPLINE_cre_circle_from_chord_end_data_2d failed."
 */
ZTMATH_API void ARC_SPLINE_cre_arc_from_ray_to_ray_2d(const double p1[2], double d1[2],
                                                      const double p2[2], double d2[2], int unit,
                                                      const double *tols,
                                                      ARC_SPLINE_1_seg_2d_t *out, int *status);

/* ---- At a point of a line ---------------------------------------------------------------------*/

/*
 * Circles that touch a line at a point of it and another thing, too: a circle, another line, or, at
 * an angle, a circle that they meet so that the tangents at a crossing enclose that angle. The centre
 * farther to the left of the line comes first.
 *
 * pt      the touching point, on the second segment's line
 * angle   0, touching, to 90
 * status  out: 0; 1, 2 a segment is not the circle or line it must be (a null one is reported as an
 *         assertion "seg_ptr_1 && seg_ptr_2" first), 3 the point is farther than tols[0] from the
 *         line, 4 the angle is out of range, reported as "The input value of the angle is not valid."
 *
 * A circle: two; one when the line itself is the other (it touches the circle elsewhere, or meets it
 * at the angle) or the angle is 90; none when pt lies on the circle. A line: two; one when the lines
 * are parallel; none when pt lies on line 1.
 */
ZTMATH_API void ARC_SPLINE_cre_circle_tangent_to_circle_and_line_at_pt_2d(
    const ARC_SPLINE_1_seg_2d_t *circle, const ARC_SPLINE_1_seg_2d_t *line, const double pt[2],
    const double *tols, int *count, ARC_SPLINE_1_seg_2d_t *circle_1,
    ARC_SPLINE_1_seg_2d_t *circle_2, int *status);
ZTMATH_API void ARC_SPLINE_cre_circle_tangent_to_line_and_line_at_pt_2d(
    const ARC_SPLINE_1_seg_2d_t *line_1, const ARC_SPLINE_1_seg_2d_t *line_2, const double pt[2],
    const double *tols, int *count, ARC_SPLINE_1_seg_2d_t *circle_1,
    ARC_SPLINE_1_seg_2d_t *circle_2, int *status);
ZTMATH_API void ARC_SPLINE_cre_circle_at_angle_to_c_tangent_to_l_at_pt_2d(
    const ARC_SPLINE_1_seg_2d_t *circle, const ARC_SPLINE_1_seg_2d_t *line, const double pt[2],
    double angle, const double *tols, int *count, ARC_SPLINE_1_seg_2d_t *circle_1,
    ARC_SPLINE_1_seg_2d_t *circle_2, int *status);

/* ---- Tangent to circles -----------------------------------------------------------------------*/

/*
 * Circles that touch two circles and pass a point, up to 4. A point within tols[0] of one of the
 * circles is where they touch it: then up to 2. None through a point on both.
 *
 * status  out: 0; 1, 2 not a circle, 3 the circles coincide
 */
ZTMATH_API void ARC_SPLINE_cre_circle_tangent_to_2_circles_and_a_pt(
    const ARC_SPLINE_1_seg_2d_t *c1, const ARC_SPLINE_1_seg_2d_t *c2, const double pt[2],
    const double *tols, int *count, ARC_SPLINE_1_seg_2d_t circles[4], int *status);

/*
 * Circles of a radius that touch two circles, up to 8: two for each code, or one where the circles of
 * the possible centres touch within tols[0].
 *
 * status  out: 0; 4 the radius is smaller than tols[0], 1, 2 not a circle, 3 the circles coincide.
 *         The first three are reported as assertions: "( given_radius >= tols[0] )",
 *         "( local_status_flag == 0 && type_1 == 1 && radius_1 >= tols[0] )", and with _2
 */
ZTMATH_API void ARC_SPLINE_cre_circle_tangent_to_2_circles_and_given_radius_2d(
    const ARC_SPLINE_1_seg_2d_t *c1, const ARC_SPLINE_1_seg_2d_t *c2, double given_radius,
    const double *tols, int *count, ARC_SPLINE_1_seg_2d_t circles[8], int *status);

/*
 * Circles that touch three circles, up to 8. Ways of touching that infinitely many circles have give
 * none.
 *
 * status  out: 0; 1, 2, 3 not a circle, 4 two of them coincide
 */
ZTMATH_API void ARC_SPLINE_cre_circle_tangent_to_3_circles(
    const ARC_SPLINE_1_seg_2d_t *c1, const ARC_SPLINE_1_seg_2d_t *c2,
    const ARC_SPLINE_1_seg_2d_t *c3, const double *tols, int *count,
    ARC_SPLINE_1_seg_2d_t circles[8], int *status);

ZTMATH_END_DECLS

#endif
