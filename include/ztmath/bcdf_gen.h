/*
 * bcdf_gen.h - validating, searching and editing B-curve defining data (bcdf.h).
 *
 * A slope or curvature belongs to the point whose parameter it carries. Edits keep parameters,
 * slopes, curvatures, type codes and weights in step; slopes and curvatures stand in the order of
 * their points, and parameters ascend. Lists of up to 1024 entries are searched from the first entry
 * on, in whatever order they are, with NaN among them or not; in longer ones, searches take
 * logarithmic time and rely on the order, but for that of entries within their tolerance of each
 * other. Edits of one point take the time of moving the entries behind it. Vectors are three
 * doubles, whatever the dimension of the record; a fourth coordinate is stored as 0. Positions count
 * from 0 and are those of points, indices those of slopes or curvatures. An edit at a position that
 * has no point changes nothing, unless said.
 *
 * Types of slopes:
 *   0  automatic (BCDF_CALC_auto_slope), recomputed by updates
 *   1  a fixed vector
 *   2  a direction, its length normalised (BCDF_CALC_normalized_slope), again by updates
 *   3  as 2 by a rule of its own, kept by updates
 *   4  as 2 with the length of an arc; updates turn it to the side of the automatic slope
 *   5  as 2 with the length of an arc
 * Types of curvatures:
 *   0  a fixed vector
 *   1  the automatic direction with a given radius, recomputed by updates
 *
 * Reports are made by module "bcdf_gen" and only with checking; ERROR_internal is meant unless a
 * reason code is given. They do not stop an operation; after a raised one that returned, the record
 * is as it was, unless said.
 */
#ifndef ZTMATH_BCDF_GEN_H
#define ZTMATH_BCDF_GEN_H

#include <ztmath/bcdf.h>
#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/* ---- Validation ------------------------------------------------------------------------------ */

/*
 * Checks whether a curve can be made from a record. Reports nothing. Returns 0 or the first of
 *
 *   1005321  fewer than 2 points, periodic: 3
 *   1005311  fewer constraints than the order
 *   1005317  2147483600 constraints or more
 *   1005322  parameters that do not increase
 *   1005320  slopes with an order below 3, or curvatures with one below 4
 *   1005318  a curvature at a point without slope
 *   1005319  a curvature whose dot product with the slope is 1e-7 or more in absolute value
 * and, for a least-squares record with m = BCDF_ask_max_npoles_for_fit - order + 1,
 *   1005321  m < 1
 *   1005006  no segment count and a negative tolerance
 *   1005005  a segment count below 1 or above m
 */
ZTMATH_API int BCDF_check_defining_data(const BCDF *record);

/*
 * Tests for points within the length tolerance of each other, in Cartesian coordinates.
 *
 * mode      1: the point, about to be placed at a position, and those before and behind it;
 *           2: the points before and behind the one at a position, about to be removed (an end
 *           never overlaps); 3: as BCDF_check_consecutive_dup_pts. Others: 0
 * point     only used with mode 1
 *
 * Returns 1 or 0.
 */
ZTMATH_API int BCDF_check_overlap_points(const BCDF *record, int mode, int position,
                                         const double point[3]);

/* Whether two consecutive points are within the length tolerance of each other, over all stored
   coordinates: 1 or 0. */
ZTMATH_API int BCDF_check_consecutive_dup_pts(const BCDF *record);

/* Returns the number of knots for the record's curve: constraints + order, and for a periodic
   record min(extra + 1, order - 1) more. */
ZTMATH_API int BCDF_num_of_knots_needed(const BCDF *record, int extra);

/* ---- Searching --------------------------------------------------------------------------------
 *
 * Searches return 1 when they found something, else 0.
 */

/*
 * Finds the first parameter that matches t, or else is greater.
 *
 * position  out: where it is; the number of parameters if there is none
 *
 * Reports "The Parameter List Has A NULL Value".
 */
ZTMATH_API int BCDF_parameter_in_list(const BCDF *record, double t, int *position);

/* Return the position of the first point that matches a slope or curvature. Without one, "Bcurve
   Defining Data Structure Corrupt" is reported and the number of points returned. */
ZTMATH_API int BCDF_point_at_slope(const BCDF *record, int slope);
ZTMATH_API int BCDF_point_at_curvature(const BCDF *record, int curvature);

/*
 * Finds the slope at a point: its parameter matches that of the point within 1e-10 times the span of
 * all parameters and is nearer to it than to those of both neighbours. The search ends at the first
 * slope that lies no farther than that before the point.
 *
 * slope  out: the index; if there is none, that at which one would be inserted. Untouched in a
 *        record without slopes
 */
ZTMATH_API int BCDF_slope_at_point(const BCDF *record, int position, int *slope);

/* Find the first curvature that matches a point, or a slope; the search ends at the first that is not
   before it. The index is as that of BCDF_slope_at_point. */
ZTMATH_API int BCDF_curvature_at_point(const BCDF *record, int position, int *curvature);
ZTMATH_API int BCDF_curvature_at_slope(const BCDF *record, int slope, int *curvature);

/*
 * Finds the slope at the point of a curvature. Reports "Point With Assigned Curvature Has No Slope".
 *
 * slope_index  out: untouched if there is none
 * slope        out: zero if there is none
 */
ZTMATH_API int BCDF_slope_at_curvature(const BCDF *record, int curvature, int *slope_index,
                                       double slope[3]);

/*
 * The points of all slopes, or curvatures: position + 1 of each, in order; 0 for each from the first
 * one on that has no point.
 *
 * number  out: how many
 *
 * Return a new array, which the caller frees with SM_free; null if there are none.
 */
ZTMATH_API int *BCDF_create_slope_pos_array(const BCDF *record, int *number);
ZTMATH_API int *BCDF_create_crvatr_pos_array(const BCDF *record, int *number);

/* ---- Points ---------------------------------------------------------------------------------- */

/*
 * Overwrites a point; the ends of a periodic record together. Parameters stay as they are.
 *
 * point      a point of `dimension` doubles. A Cartesian one in a homogeneous record is stored with
 *            the weight of the point it replaces, a homogeneous one in a Cartesian record divided by
 *            its weight
 */
ZTMATH_API void BCDF_replace_defining_point(BCDF *record, const double *point, int position,
                                            int dimension);

/*
 * Removes points with their parameters, weights, slopes and curvatures. What is left keeps its
 * parameters, unless the first point was removed or the last but one was the last to be removed
 * (removing the very last one does not count): parameters are then computed anew and needed slopes
 * added (BCDF_add_needed_slopes), and in a periodic record the last point is moved to the first one,
 * while the weight of the first goes to the point before the last. Removing the last point of a
 * periodic record makes the new last one the first too.
 *
 * Type codes of slopes behind a removed one stay where they are but for one: see BCDF_remove_slopes.
 *
 * Raises 1005316 "Error While Removing Points" for more points than there are; without checking, those
 * that there are go.
 */
ZTMATH_API void BCDF_remove_defining_points(BCDF *record, int position, int number);

/*
 * Gives the record parameters. Slopes are scaled by the ratio of the old to the new last parameter,
 * and the parameters of slopes and curvatures follow their points.
 *
 * params  one for each point; null: by chord length
 */
ZTMATH_API void BCDF_add_params(BCDF *record, const double *params);

/*
 * Makes the record open or periodic: removes the last point, with slope and curvature, or appends a
 * copy of the first. Parameters are computed anew, slopes scaled from what was the last one
 * (BCDF_add_params), so that a record that is closed and opened again has its slopes back. A
 * least-squares record that becomes periodic is reported, "Periodic Least Squares Curves Are Not
 * Allowed".
 */
ZTMATH_API void BCDF_toggle_periodicity(BCDF *record);

/* ---- Slopes ---------------------------------------------------------------------------------- */

/* Stores at a point the slope that a type makes of a vector; nothing for a code that is none. The
   vector may be null for type 0. Raises as the calculations do. */
ZTMATH_API void BCDF_change_slope(BCDF *record, int type, const double vector[3], int position);

/*
 * Stores a slope as it is, with its type; a record whose slopes have no codes gets codes, 1 for the
 * others. Over a slope that is there already: a curvature at the point, if it is
 * not perpendicular to the new slope within 1e-10, is turned about z with the slope, to the one side
 * or, where that leaves it not perpendicular, the other; its length stays.
 */
ZTMATH_API void BCDF_replace_slope(BCDF *record, const double vector[3], int position, int type);

/*
 * Removes slopes with their curvatures; all of them with all curvatures. Of the type codes behind
 * them only the first `number` move down, the others stay where they are.
 */
ZTMATH_API void BCDF_remove_slopes(BCDF *record, int first, int number);

/*
 * Computes slopes anew by their types, after points have changed: first those of type 4 are turned
 * where they point against the automatic slope, inner ones first; then all are derived; then those
 * at the ends once more (BCDF_update_end_slopes), from what their neighbours have become.
 */
ZTMATH_API void BCDF_update_slopes(BCDF *record);

/* Computes the slopes at both ends of an open record anew by their types. */
ZTMATH_API void BCDF_update_end_slopes(BCDF *record);

/*
 * Adds slopes that a curve needs at its ends. Least-squares record: an automatic slope at the one
 * end where only the other has a slope. Open interpolation record of order 4: automatic slopes at
 * ends without; but of two points with one slope, the other gets that slope mirrored in the chord,
 * with its type. Other records: nothing.
 */
ZTMATH_API void BCDF_add_needed_slopes(BCDF *record);

/* Makes all slopes unit length by BCDF_CALC_unitize_slope, which raises where one is too short: that
   one is then zero, and those before it are done. */
ZTMATH_API void BCDF_unitize_slopes(BCDF *record);

/* ---- Curvatures ------------------------------------------------------------------------------ */

/*
 * Stores a curvature at a point.
 *
 * type    0: the vector as it is; 1: with length 1 / radius in the direction of the automatic
 *         curvature or, if that is shorter than 1e-10, of VEC3_ask_perpendicular of the unit slope
 *         at the point; others: nothing
 * vector  may be null for type 1
 *
 * Reports "Point With Assigned Curvature Has No Slope" where a slope is looked for in vain, and raises
 * as BCDF_CALC_unitize_slope does where it is too short; the curvature is then zero.
 */
ZTMATH_API void BCDF_change_curvature(BCDF *record, int type, const double vector[3], int position,
                                      double radius);

/* Stores a curvature as it is. */
ZTMATH_API void BCDF_replace_curvature(BCDF *record, const double vector[3], int position,
                                       int type);

/* Removes curvatures. Type codes move as those of BCDF_remove_slopes. */
ZTMATH_API void BCDF_remove_curvatures(BCDF *record, int first, int number);

/* Computes all curvatures of type 1 anew, with the radius they have. */
ZTMATH_API void BCDF_update_curvatures(BCDF *record);

/* ---- Settings -------------------------------------------------------------------------------- */

/* Gives the record weights (BCDF_CALC_weights): it is a least-squares record from then on. Raises
   1005312 "Periodic Least Squares Splines Are Not Allowed". */
ZTMATH_API void BCDF_add_weights(BCDF *record);

/* Overwrites one weight; one outside is reported as PNTLST_replace_points does. Nothing for an
   interpolation record. */
ZTMATH_API void BCDF_replace_weight(BCDF *record, int position, double weight);

/* Stores the order. Reports "Maximum Order For Spline Exceeded" from 26 on and "Order Must Be Greater
   Than 1" below 2, and stores it all the same. */
ZTMATH_API void BCDF_change_order(BCDF *record, int order);

/* Make the record a least-squares record, if it is none (BCDF_convert_to_least_squares), and set
   one of tolerance and segment count, the other to 0. Where the conversion raised a report about a
   periodic record, neither is set. */
ZTMATH_API void BCDF_change_tolerance(BCDF *record, double tolerance);
ZTMATH_API void BCDF_change_number_of_segments(BCDF *record, int number);

ZTMATH_END_DECLS

#endif
