/*
 * arc_spline.h - segments of planar arc splines: straights and circular arcs.
 *
 * Points and vectors are pairs of doubles, lengths in the caller's unit, angles in degrees. The
 * record belongs to the caller; nothing here allocates. An output may be the same storage as any
 * input. tols holds a distance, an angle in degrees and, where said, a curvature. A status is always
 * written; outputs that a failure leaves without a value stay as they were.
 *
 * Reports are internal errors of module "arc_spline_apollonian_constructions"; assertions are made
 * when the checking level is above 0.
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

/*
 * The concentric arc with a radius larger by the offset, whichever way the arc turns. Returns out.
 *
 * Asserts "( local_status_flag == 0 && type == 1 )" of a record that is an arc, else out is all 0;
 * "( new_radius >= dist_tol )"; "( local_status_flag == 0 )" of its ends.
 */
ZTMATH_API ARC_SPLINE_1_seg_2d_t *ARC_SPLINE_cre_offset_circle_2d(const ARC_SPLINE_1_seg_2d_t *arc,
                                                                  double offset, double dist_tol,
                                                                  ARC_SPLINE_1_seg_2d_t *out);

/*
 * The parallel straight, a positive offset to the left of its direction.
 *
 * Reports "The input segment is not available." of null, "The input segment is not of straight type."
 * and "The call to ARC_SPLINE_ask_end_pts_of_1_seg_2d failed."; out stays as it was then.
 */
ZTMATH_API void ARC_SPLINE_cre_offset_straight_2d(const ARC_SPLINE_1_seg_2d_t *straight,
                                                  double offset, ARC_SPLINE_1_seg_2d_t *out);

/* ---- Evaluation -------------------------------------------------------------------------------*/

/*
 * The point at a parameter and the unit tangent in the direction of travel.
 *
 * extrapolate  0 keeps to the domain of an arc; else an arc goes on round its circle. A straight has
 *              no bounds
 * parm         within 1e-10 of an end of an arc it counts as that end
 * status       out: 0; 1 not of the type evaluated, or no record (null); 2, 3 outside the domain of a
 *              counter-clockwise or a clockwise arc, and only the tangent is written
 *
 * An arc without orientation is its start point everywhere.
 */
ZTMATH_API void ARC_SPLINE_evaluate_1_seg_2d(const ARC_SPLINE_1_seg_2d_t *s, int extrapolate,
                                             double parm, double pt[2], double tangent[2],
                                             int *status);
ZTMATH_API void ARC_SPLINE_evaluate_arc_seg_2d(const ARC_SPLINE_1_seg_2d_t *s, int extrapolate,
                                               double parm, double pt[2], double tangent[2],
                                               int *status);
ZTMATH_API void ARC_SPLINE_evaluate_strt_seg_2d(const ARC_SPLINE_1_seg_2d_t *s, double parm,
                                                double pt[2], double tangent[2], int *status);

/* ---- Measures ---------------------------------------------------------------------------------*/

/*
 * The length of a segment; from its start to a parameter; between two parameters.
 *
 * parms   the second is in/out: of an arc it comes back one turn on if it lies before the first
 * status  out: 0; 1 no record (null); 2 an arc with a radius below 1e-10; 3 neither straight nor arc;
 *         the length is 0 with any but 0
 */
ZTMATH_API double ARC_SPLINE_ask_arcl_of_1_seg_2d(const ARC_SPLINE_1_seg_2d_t *s, int *status);
ZTMATH_API double ARC_SPLINE_ask_arcl_to_parm_of_1_seg_2d(const ARC_SPLINE_1_seg_2d_t *s,
                                                          double parm, int *status);
ZTMATH_API double ARC_SPLINE_ask_arcl_of_trimmed_1_seg_2d(const ARC_SPLINE_1_seg_2d_t *s,
                                                          double parms[2], int *status);

/* The radius; of a straight 1e19, of no record (null) 0. */
ZTMATH_API double ARC_SPLINE_ask_radius_of_1_seg_2d(const ARC_SPLINE_1_seg_2d_t *s);

/*
 * The central angle of an arc, whose end angle comes back one turn on if it lies before the start.
 *
 * Asserts "segment_ptr"; of null the angle is 0.
 */
ZTMATH_API double ARC_SPLINE_ask_central_angle_of_1_seg_2d(ARC_SPLINE_1_seg_2d_t *s);

/* The same from the inclinations at start and end (in/out). Without orientation it is 0. */
ZTMATH_API double ARC_SPLINE_ask_central_angle_from_inclination_angles(double start, double *end,
                                                                       int orientation);

/*
 * The circle of a record.
 *
 * type    out: that of the record; -1 of an arc with a radius below 1e-10, and of null
 * radius  out: 1e19 of a straight
 * status  out: 0; 1 no record (null); 2 neither straight nor arc, and there is no radius
 */
ZTMATH_API void ARC_SPLINE_ask_center_radius_of_seg_2d(const ARC_SPLINE_1_seg_2d_t *s, int *type,
                                                       double *radius, double center[2],
                                                       int *status);

/* The ends and the tangents there. status: as for the lengths. */
ZTMATH_API void ARC_SPLINE_ask_end_pts_of_1_seg_2d(const ARC_SPLINE_1_seg_2d_t *s, double start[2],
                                                   double start_tangent[2], double end[2],
                                                   double end_tangent[2], int *status);

/*
 * Everything at once.
 *
 * want_corner  1 asks for the point where the tangents at the ends of an arc meet; the corner of a
 *              straight is its midpoint
 * angles       out: at start and end, the latter one turn on if it lies before the start
 * status       out: 0, also of null, whose type is -1; 1 an arc with a radius below 1e-10; 2 the
 *              tangents at the ends are parallel; 3 neither straight nor arc
 */
ZTMATH_API void ARC_SPLINE_ask_1_seg_2d_data(const ARC_SPLINE_1_seg_2d_t *s, int want_corner,
                                             int *type, int *orientation, double angles[2],
                                             double *length, double *curvature, double center[2],
                                             double start[2], double start_tangent[2],
                                             double end[2], double end_tangent[2], double corner[2],
                                             int *status);

/* Makes an arc whose radius is above 1 / tols[2] a straight. status: 0; 2 the arc has no ends, and
 * stays, or there is no record (null). */
ZTMATH_API void ARC_SPLINE_ask_is_arc_rather_strt_2d(ARC_SPLINE_1_seg_2d_t *s, const double *tols,
                                                     int *status);

/* ---- Reversal and trimming --------------------------------------------------------------------*/

/*
 * Reverses the direction of travel.
 *
 * The end angle of a reversed arc is one turn from the old end angle, so that only half circles keep
 * their central angle: that of others becomes 180 or 540 degrees, or -180 before it is normalized.
 *
 * Reports "This segment type is not currently handled." of other types and null, and "The function
 * ARC_SPLINE_evaluate_1_seg_2d failed." of an arc whose end lies before its start; these stay.
 */
ZTMATH_API void ARC_SPLINE_reverse_parm_of_1_seg_2d(ARC_SPLINE_1_seg_2d_t *s);
ZTMATH_API void ARC_SPLINE_reverse_parm_of_strt_2d(ARC_SPLINE_1_seg_2d_t *s);
ZTMATH_API void ARC_SPLINE_reverse_parm_of_arc_2d(ARC_SPLINE_1_seg_2d_t *s);

/*
 * Lets a segment end at the foot of a point.
 *
 * status  out: 0; 1 the point has no foot; 2 there is no point at the foot; 3 no arc leads there. The
 *         segment stays with any but 0
 */
ZTMATH_API void ARC_SPLINE_trim_to_point_1_seg_2d(const double pt[2], const double *tols,
                                                  ARC_SPLINE_1_seg_2d_t *s, int *status);

/* ---- Points against segments ------------------------------------------------------------------*/

/*
 * The foot of a point on the infinite line or the full circle, and its parameter.
 *
 * parm    out: of an arc the smallest that is not more than tols[1] below both end angles
 * domain  out: -1 inside the segment's domain, 0 at an end (within tols[0] of a straight's, tols[1] of
 *         an arc's; a parameter just outside is moved onto it), 1 outside
 * status  out: 0; 1 no record (null); 2 neither straight nor arc, or a radius below 1e-10; 3 the
 *         point is within 1e-10 of the centre
 */
ZTMATH_API void ARC_SPLINE_ask_parm_at_a_point_2d(const ARC_SPLINE_1_seg_2d_t *s,
                                                  const double pt[2], const double *tols,
                                                  double foot[2], double *parm, int *domain,
                                                  int *status);

/*
 * The distance of a point from a segment.
 *
 * bounded  0 measures to the infinite line or the full circle; 1 to the nearer end when the foot is
 *          outside the domain
 * status   as above
 */
ZTMATH_API void ARC_SPLINE_ask_dist_pt_to_1_seg_2d(const ARC_SPLINE_1_seg_2d_t *s,
                                                   const double pt[2], int bounded,
                                                   const double *tols, double foot[2], double *parm,
                                                   double *distance, int *status);

/* Where a parameter lies in an arc's domain: as `domain` above. Whole turns are not taken away. */
ZTMATH_API int ARC_SPLINE_ask_is_parm_in_arc_domain(const ARC_SPLINE_1_seg_2d_t *arc,
                                                    double angle_tol, double *parm);

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
