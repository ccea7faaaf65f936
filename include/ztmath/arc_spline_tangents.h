/*
 * arc_spline_tangents.h - tangent lines: through a point, common to two circles, and at the other end
 * of a chord.
 *
 * A circle is given by a segment record of an arc (arc_spline.h); it stands for the full circle, and
 * for the arc alone where a flag bounds it. Parameters are those of the arcs, in degrees. tols holds a
 * distance and an angle in degrees. Points and vectors are pairs of doubles; they may alias inputs.
 *
 * Before anything else status and count are 0, points and parameters 0, domain flags -1 and records
 * blank (ARC_SPLINE_init_1_seg_2d). No tangent is no failure: the count is 0 and the status, too. A
 * status above 0 says what input could not be served or what step failed; nothing but it is then set.
 *
 * The circle on the way from a centre to a point as diameter crosses the circle where the tangents
 * touch it (Thales). Where they touch is then told by the distances alone, so that digits are lost
 * neither when the point is far away nor when it nearly lies on the circle. Reports are internal
 * errors of module "arc_spline_apollonian_constructions".
 */
#ifndef ZTMATH_ARC_SPLINE_TANGENTS_H
#define ZTMATH_ARC_SPLINE_TANGENTS_H

#include <ztmath/arc_spline.h>
#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/*
 * The tangents from a point to a circle, by the points where they touch it.
 *
 * bounded  not 0: only tangents that touch the arc count. 0: all do, and the flags stay -1
 * count    out: 2 when the point is outside the circle, in the order of travel on it (ascending
 *          parameters when counter-clockwise, descending when clockwise; of orientation 0 as they
 *          are found: seen from the larger circle, this or that of Thales, the right one first); 1
 *          when it is within tols[0] of the circle and its own tangent point; 0 when it is inside,
 *          or the record is of a straight. Without those that miss the arc: the one left comes first
 * parms    out: the parameters of the two
 * flags    out: -1 inside the arc, 0 at an end, 1 outside. A point of flag 1 is not counted and
 *          stands behind those that are
 * status   out: 0; 1 the record cannot be read; 2 the parameter of the point itself; 3 the circle of
 *          Thales, as when the point is within 2 tols[0] of the centre; 4 its crossings
 */
ZTMATH_API void ARC_SPLINE_ask_tangents_thru_a_point_2d(const ARC_SPLINE_1_seg_2d_t *circle,
                                                        const double pt[2], int bounded,
                                                        const double *tols, int *count,
                                                        double tangent_pt_1[2],
                                                        double tangent_pt_2[2], double parms[2],
                                                        int flags[2], int *status);

/*
 * The outer common tangents of two circles of radii of at least tols[0]: both circles lie on one side
 * of each. A tangent is the straight from where it touches circle 1 to where it touches circle 2.
 *
 * Seen from the centre of the larger circle (the first of equal ones) towards the other, the tangent
 * on the left comes first. Radii within tols[0] of each other count as equal. Otherwise the tangents
 * are those from the external centre of similitude.
 *
 * bounded_1, bounded_2  not 0: only tangents that touch the arc count; the one left comes first
 * count                 out: at most 2; 0 when the centres are closer than tols[0], or one circle lies
 *                       inside the other
 * parms_1, parms_2      out: the parameters on circles 1 and 2, of tangent 1 and of tangent 2
 * status                out: 0; 1, 2 the record of that number is no circle; 4, 5 there are no two
 *                       tangents from the centre of similitude to circle 1, circle 2, as when the
 *                       circles touch from inside
 */
ZTMATH_API void ARC_SPLINE_ask_tangents_exterior_to_circles_2d(
    const ARC_SPLINE_1_seg_2d_t *c1, const ARC_SPLINE_1_seg_2d_t *c2, int bounded_1, int bounded_2,
    const double *tols, int *count, ARC_SPLINE_1_seg_2d_t *tangent_1,
    ARC_SPLINE_1_seg_2d_t *tangent_2, double parms_1[2], double parms_2[2], int *status);

/*
 * The inner common tangents, that have the circles on different sides: two when the circles are
 * apart, the one first that touches circle 1 on the left as seen towards circle 2. Circles that touch
 * from outside within tols[0] have one, a straight of length 0 at that point that points to the left.
 * Other arguments as of the outer tangents; status 0, 1 or 2.
 */
ZTMATH_API void ARC_SPLINE_ask_tangents_interior_to_circles_2d(
    const ARC_SPLINE_1_seg_2d_t *c1, const ARC_SPLINE_1_seg_2d_t *c2, int bounded_1, int bounded_2,
    const double *tols, int *count, ARC_SPLINE_1_seg_2d_t *tangent_1,
    ARC_SPLINE_1_seg_2d_t *tangent_2, double parms_1[2], double parms_2[2], int *status);

/*
 * The tangent at the end of a chord of the circle that has a given tangent at the start, in the
 * direction of travel: the start tangent as seen in a mirror along the chord, turned round. It is as
 * long as the start tangent, and the same when the chord lies along it.
 *
 * end_tangent  out: zero when the status is not 0
 * status       out: 0; 1 the points are within tols[0] or the tangent is shorter than 1e-10. Reported
 *              as "The call to ARC_SPLINE_cre_circle_thru_pt_and_tangent_to_line_at_pt_2d failed."
 */
ZTMATH_API void ARC_SPLINE_compute_tangent_at_other_end_of_chord_2d(
    const double start[2], const double start_tangent[2], const double end[2], const double *tols,
    double end_tangent[2], int *status);

ZTMATH_END_DECLS

#endif
