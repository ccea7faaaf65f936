/*
 * arc_spline_intersections.h - where segments meet: arcs with arcs, arcs with straights, straights.
 *
 * Segments are readable records (arc_spline.h). A bounded flag of 0 lets one stand for its full circle
 * or infinite line. tols holds a distance and an angle in degrees. Points are pairs of doubles,
 * parameters those of the segments: degrees on arcs, lengths on straights. Pairs of parameters and of
 * flags are in the order of the arguments: on segment 1, on segment 2. Outputs may alias inputs.
 * Nothing is reported, but that a straight is shorter than tols[0]
 * (ARC_SPLINE_ask_dist_pt_to_line_seg_2d).
 */
#ifndef ZTMATH_ARC_SPLINE_INTERSECTIONS_H
#define ZTMATH_ARC_SPLINE_INTERSECTIONS_H

#include <ztmath/arc_spline.h>
#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/*
 * The points that two segments have in common, at most two. No point is no failure.
 *
 * bounded_1, bounded_2  0: the flags of that segment stay -1, and all points count
 * count                 out: points of which no flag is 1. The one that counts alone comes first
 * pt_1, pt_2            out: the second farther along the radical axis of two circles
 *                       (ARC_SPLINE_ask_radical_axis_of_2_circles_2d), or along the straight. Where
 *                       two segments touch, or two straights meet, there is one point: pt_2 is it, too
 * parms_1, parms_2      out: the parameters of point 1, of point 2
 * flags_1, flags_2      out: its domain flags: -1 inside, 0 at an end, 1 outside
 * status                out: 0; 1, 2 segment 1, 2 cannot be read; 3, 4 a touching point has no
 *                       parameter on segment 1, 2; 7, 8 point 1 has none on segment 1, 2; 9, 10 point
 *                       2. Unless it is 0, points, parameters and count are 0 and flags -1, as they
 *                       are without points
 *
 * Two circles touch when their relation says so, an arc and a straight within tols[0]. Parallel
 * straights do not meet, nor does an arc of a radius below 1e-10 meet anything, nor segments whose
 * points would be beyond all numbers. Circles that lie inside one another without a common centre
 * count as crossing, in points that are off the circles; this is kept as it stands.
 */
ZTMATH_API void ARC_SPLINE_inter_of_2_circular_arcs_2d(
    const ARC_SPLINE_1_seg_2d_t *s1, const ARC_SPLINE_1_seg_2d_t *s2, int bounded_1, int bounded_2,
    const double *tols, int *count, double pt_1[2], double parms_1[2], int flags_1[2],
    double pt_2[2], double parms_2[2], int flags_2[2], int *status);

/* The same of an arc and a straight; status 1 says that either cannot be read. */
ZTMATH_API void ARC_SPLINE_inter_circular_arc_line_seg_2d(
    const ARC_SPLINE_1_seg_2d_t *arc, const ARC_SPLINE_1_seg_2d_t *straight, int bounded_1,
    int bounded_2, const double *tols, int *count, double pt_1[2], double parms_1[2],
    int flags_1[2], double pt_2[2], double parms_2[2], int flags_2[2], int *status);

ZTMATH_END_DECLS

#endif
