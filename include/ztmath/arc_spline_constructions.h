/*
 * arc_spline_constructions.h - circles and arcs from points, radii and tangents. Those that touch
 * circles are in arc_spline_tangent_circles.h.
 *
 * Points and vectors are pairs of doubles. tols holds a distance and an angle in degrees. Nothing is
 * allocated, and outputs may alias inputs.
 *
 * Before anything else status and count are 0 and the records blank (ARC_SPLINE_init_1_seg_2d);
 * records beyond the count stay so. No solution is no failure: the count is 0 and the status, too. A
 * status above 0 says what input could not be served.
 *
 * Circles that touch a line at a given point start and end there, along the line; those through two
 * points with a radius, and through three points, start in the first. Those that touch a line
 * anywhere are made by ARC_SPLINE_cre_circle_from_center_and_radius_2d.
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
 * status  out: 0; 1 the points are collinear or not finite, 2 the outer ones coincide
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
 *           and which therefore miss the points; none below tols[0]. Larger: none
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

ZTMATH_END_DECLS

#endif
