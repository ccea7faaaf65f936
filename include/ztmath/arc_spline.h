/*
 * arc_spline.h - segments of planar arc splines: straights and circular arcs.
 *
 * Points and vectors are pairs of doubles, lengths in the caller's unit, angles in degrees. The
 * record belongs to the caller; nothing here allocates. An output may be the same storage as any
 * input.
 */
#ifndef ZTMATH_ARC_SPLINE_H
#define ZTMATH_ARC_SPLINE_H

#include <stdint.h>
#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/*
 * A segment.
 *
 * A straight's parameter is the arc length from its start, from 0 to its length. An arc's parameter
 * is the inclination of its tangent, from start_angle to end_angle, which differ by the central
 * angle in the sense of the orientation and may lie outside [0, 360).
 */
typedef struct {
    int32_t type;        /* 0 straight, 1 arc, -1 circle of a single point */
    int32_t orientation; /* of an arc: 1 counter-clockwise, -1 clockwise, 0 no turning; else 0 */
    double start_point[2];
    double start_angle;  /* inclination of the tangent at the start */
    double end_angle;    /* of an arc start_angle + orientation * central angle; else start_angle */
    double center[2];    /* of an arc; of a straight the midpoint */
    double direction[2]; /* of a straight, unit; (0, 0) of an arc */
    double radius;       /* of an arc; of a straight its length */
    double radius_2;     /* the same again */
} ARC_SPLINE_1_seg_2d_t;

/* ---- Creation ---------------------------------------------------------------------------------*/

/* Sets every field to 0. */
ZTMATH_API void ARC_SPLINE_init_1_seg_2d(ARC_SPLINE_1_seg_2d_t *s);

/* Copies all fields. */
ZTMATH_API void ARC_SPLINE_copy_1_seg_2d_pre_allocated(const ARC_SPLINE_1_seg_2d_t *source,
                                                       ARC_SPLINE_1_seg_2d_t *target);

/*
 * The straight from start to end.
 *
 * end       in/out: becomes the start when it lies within 1e-10 of it; the length is 0 then
 * fallback  the direction, taken as given, of a straight of length 0
 */
ZTMATH_API void ARC_SPLINE_cre_strt_seg_2d(const double start[2], double end[2],
                                           const double fallback[2], ARC_SPLINE_1_seg_2d_t *out);

/*
 * The arc from a start point with its tangent there.
 *
 * tangent        unit vector in the direction of travel
 * central_angle  degrees
 * orientation    1, -1, or 0 for an arc that does not turn, whose centre is the start point
 * end, end_tangent  out: the end point and the unit tangent there
 *
 * Returns out.
 */
ZTMATH_API ARC_SPLINE_1_seg_2d_t *ARC_SPLINE_cre_arc_seg_2d(
    const double start[2], const double tangent[2], double central_angle, double radius,
    int orientation, ARC_SPLINE_1_seg_2d_t *out, double end[2], double end_tangent[2]);

/* A circle of radius 0, of type -1, with the angles of a full circle. Returns out. */
ZTMATH_API ARC_SPLINE_1_seg_2d_t *ARC_SPLINE_cre_single_point_circle_2d(const double pt[2],
                                                                        ARC_SPLINE_1_seg_2d_t *out);

/*
 * The full circle, counter-clockwise, from 90 to 450 degrees. Returns out.
 *
 * The start point is (radius, 0), wherever the centre is: who needs the point of the circle evaluates
 * it at 90 degrees.
 */
ZTMATH_API ARC_SPLINE_1_seg_2d_t *ARC_SPLINE_cre_circle_from_center_and_radius_2d(
    const double center[2], double radius, ARC_SPLINE_1_seg_2d_t *out);

/*
 * The full circle that starts and ends in a point with a tangent there.
 *
 * tangent      unit vector in the direction of travel
 * orientation  -1 has the centre on the right and goes clockwise; any other number goes
 *              counter-clockwise, with the centre that many radii to the left
 */
ZTMATH_API void ARC_SPLINE_cre_circle_from_point_tangent_radius_2d(const double pt[2],
                                                                   const double tangent[2],
                                                                   double radius, int orientation,
                                                                   ARC_SPLINE_1_seg_2d_t *out);

/* ---- Angles -----------------------------------------------------------------------------------*/

/*
 * The inclination of a vector in degrees.
 *
 * which_angle  the range: 180 for (-180, 180], 90 for the undirected line's [-90, 90], any other
 *              number for [0, 360). The null vector has the inclination 0
 */
ZTMATH_API double ARC_SPLINE_ask_angle_from_tan(double tangent_y, double tangent_x,
                                                int which_angle);

/* The polar angle of (x, y) in radians, in [0, 2 pi); of the null vector 0. */
ZTMATH_API void h053_(const double *y, const double *x, double *angle);

/* The left normal (-y, x) of a vector; the right one (y, -x) if `right` is 1. */
ZTMATH_API void ARC_SPLINE_ask_perp_vec(int right, const double v[2], double out[2]);

ZTMATH_END_DECLS

#endif
