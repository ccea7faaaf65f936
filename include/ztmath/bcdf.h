/*
 * bcdf.h - B-curve defining data: the record of what a B-spline curve is made from, by
 * interpolation or by a least-squares fit.
 *
 * The record owns its seven point lists (pntlst.h) and its two arrays of type codes, which come
 * from the SM_ calls; the attached knot sequence belongs to whoever attached it. What is handed to
 * a creator as a list or array is the record's from the return on. Arrays from the BCDF_return_
 * calls are the record's own; arrays from the BCDF_copy_ calls are freed by the caller with
 * SM_free. Editing single points, slopes and curvatures, and validation: bcdf_gen.h; calculations:
 * bcdf_calc.h.
 *
 * Positions count from 0. Slopes and curvatures belong to points through their parameters, which
 * match when they differ by at most 1e-10. The BCDF_return_ calls, the copies of whole records and
 * the release accept a null record. Reports are made by module "bcdf", those of the creators by
 * "bcdf_gen", and, unless said, only with checking. After a raised report that returned, results
 * are null or 0 and vectors are zero.
 */
#ifndef ZTMATH_BCDF_H
#define ZTMATH_BCDF_H

#include <ztmath/export.h>
#include <ztmath/pntlst.h>

ZTMATH_BEGIN_DECLS

typedef struct {
    PNTLST *points;               /* dimension 3, or 4: (w x, w y, w z, w) */
    PNTLST *weights;              /* one least-squares weight per point; null: interpolation */
    PNTLST *parameters;           /* one per point, not decreasing */
    PNTLST *slopes;               /* first-derivative vectors, in the order of their parameters */
    PNTLST *slope_parameters;     /* for each slope, the parameter of its point */
    PNTLST *curvatures;           /* curvature vectors, at points that have a slope too */
    PNTLST *curvature_parameters; /* for each curvature, the parameter of its point */
    int *slope_types;             /* one code per slope: bcdf_gen.h */
    int *curvature_types;         /* one code per curvature */
    double ls_tolerance;          /* of the fit; 0.0: the number of segments governs */
    int ls_num_segments;          /* of the fit; 0: the tolerance governs */
    int order;                    /* 2 to 25; 4 is cubic */
    int periodicity;              /* 1: periodic, the closing point stored twice; 0: open */
    int num_knots;                /* of the attached sequence, 0: none */
    double *knots;                /* attached by the caller: neither copied nor freed */
} BCDF;

/* ---- Making ---------------------------------------------------------------------------------- */

/*
 * Makes a record of given lists and arrays, which it takes as they are. Any but the points may be
 * null.
 *
 * least_squares  1: a least-squares record with tolerance 0.0
 * parameters     null: by chord length
 * weights        taken for a least-squares record, and computed for one when null; otherwise freed
 *
 * Raises, by module "bcdf_gen", 1005304 "The Point List Is NULL" and, for slopes without slope
 * parameters, 1005306 "Slope Position Array Is NULL". The lists and arrays then stay the caller's,
 * as they do whenever the call is left by an exception.
 */
ZTMATH_API BCDF *BCDF_create_from_pntlst(int periodicity, int order, int least_squares,
                                         PNTLST *points, PNTLST *parameters, PNTLST *weights,
                                         PNTLST *slopes, PNTLST *slope_parameters, int *slope_types,
                                         PNTLST *curvatures, PNTLST *curvature_parameters,
                                         int *curvature_types);

/*
 * Makes an open record of order 4 over the caller's array of points, which it takes as
 * PNTLST_create_from_list_of_pts does; parameters by chord length, and weights when least_squares
 * is 1.
 */
ZTMATH_API BCDF *BCDF_create_df_from_pts(double *points, int number, int dimension,
                                         int least_squares);

/* ---- Reading -----------------------------------------------------------------------------------
 *
 * Without the list in question, numbers and dimensions are 0 and arrays null.
 */

/* The numbers of points, of slopes and of curvatures, and the dimension of the points. */
ZTMATH_API int BCDF_return_num_of_points(const BCDF *record);
ZTMATH_API int BCDF_return_dimension(const BCDF *record);
ZTMATH_API int BCDF_return_num_of_slopes(const BCDF *record);
ZTMATH_API int BCDF_return_num_of_crvatrs(const BCDF *record);

/* Points, slopes and curvatures together, less 1 for a periodic record. */
ZTMATH_API int BCDF_return_num_of_constraints(const BCDF *record);

/*
 * The least-squares fields. A null record is reported by ERROR_internal, "Defining Data Structure
 * Is NULL", an interpolation record, "Weights List Has A NULL Value".
 */
ZTMATH_API double BCDF_return_ls_tolerance(const BCDF *record);
ZTMATH_API int BCDF_return_ls_num_of_segments(const BCDF *record);

/* A null record is reported by ERROR_internal, "Defining Data Structure Is NULL". */
ZTMATH_API int BCDF_return_order(const BCDF *record);

/* 1 for a periodic record, 0 for an open one. */
ZTMATH_API int BCDF_return_periodicity(const BCDF *record);

/* The record's own arrays, with the number of points, parameters, slopes, ... and, where they vary,
   the doubles for each. */
ZTMATH_API double *BCDF_return_df_point_array(const BCDF *record, int *number, int *dimension);
ZTMATH_API double *BCDF_return_param_array(const BCDF *record, int *number);
ZTMATH_API double *BCDF_return_slope_array(const BCDF *record, int *number, int *dimension);
ZTMATH_API double *BCDF_return_slope_pars_array(const BCDF *record, int *number);
ZTMATH_API int *BCDF_return_slope_type_array(const BCDF *record);
ZTMATH_API double *BCDF_return_crvatr_array(const BCDF *record, int *number, int *dimension);
ZTMATH_API double *BCDF_return_crvatr_pars_array(const BCDF *record, int *number);
ZTMATH_API int *BCDF_return_crvatr_type_array(const BCDF *record);
ZTMATH_API double *BCDF_return_weight_array(const BCDF *record, int *number);

/* A null record is reported by ERROR_internal, "Defining Data Structure Is NULL". */
ZTMATH_API double *BCDF_return_knot_sequence(const BCDF *record, int *number);

/* Attaches a knot sequence, which stays the caller's, or detaches it. */
ZTMATH_API void BCDF_attach_knot_sequence(BCDF *record, int number, double *knots);
ZTMATH_API void BCDF_detach_knot_sequence(BCDF *record);

/* ---- Copying --------------------------------------------------------------------------------- */

/* Copies a record; the copy has no knot sequence. Null for null. */
ZTMATH_API BCDF *BCDF_copy_structure(const BCDF *record);

/* New arrays. Without points 1005304 "Point Array Is NULL", without parameters 1005303 "Parameter
   Array Is NULL" is raised. */
ZTMATH_API double *BCDF_copy_points(const BCDF *record, int *number, int *dimension);
ZTMATH_API double *BCDF_copy_parameters(const BCDF *record, int *number);

/* New arrays; null, and numbers 0, when there are no slopes or curvatures. */
ZTMATH_API double *BCDF_copy_slopes(const BCDF *record, int *number, int *dimension);
ZTMATH_API double *BCDF_copy_slope_pars(const BCDF *record, int *number);
ZTMATH_API int *BCDF_copy_slope_type_array(const BCDF *record);
ZTMATH_API int *BCDF_copy_crvatr_type_array(const BCDF *record);

/*
 * Copies a point out, divided by its weight when it is homogeneous.
 *
 * Raises 1005304 "No Points Allocated In Defining Data Structure.", 1005302 "Point Position Too
 * Large For Point Array." for a position that has no point, and 1005313 "Point Dimension Is Not 3
 * Or 4.".
 */
ZTMATH_API void BCDF_copy_single_3d_point(const BCDF *record, int position, double point[3]);

/*
 * Copies out the first three coordinates of a slope or curvature, and its type code. Positions are
 * those in the list of slopes or curvatures.
 *
 * Raises 1005305 "No Slope Allocated In Defining Data Structure.", and 1005315 "An Invalid Slope
 * Position Was Given By Calling Routine" or "An Invalid Curvature Position Was Given By Calling
 * Routine".
 */
ZTMATH_API void BCDF_copy_single_3d_slope(const BCDF *record, int position, double slope[3],
                                          int *type);
ZTMATH_API void BCDF_copy_single_3d_crvatr(const BCDF *record, int position, double curvature[3],
                                           int *type);

/* ---- Releasing and keeping ------------------------------------------------------------------- */

/* Releases a record with its lists and type arrays. */
ZTMATH_API void BCDF_free_structure(BCDF *record);

/* The same, but the array of the points stays, to be freed by its holder with SM_free. */
ZTMATH_API void BCDF_free_all_but_points(BCDF *record);

/*
 * Moves a record into memory of SM_calloc_persistent: each block is copied with the length that
 * SM_length tells, the copies are linked, and the record is released. An array that a list does not
 * own stays where it is. Null for null.
 *
 * An allocation that yields null is reported by ERROR_internal at every checking level, "Failed to
 * allocate permanent memory for transient conversion of %d bytes" with the length asked for. Null
 * is then returned, and the record stays as it was.
 */
ZTMATH_API BCDF *BCDF_make_bcdf_data_persistent(BCDF *record);

/* ---- Queries --------------------------------------------------------------------------------- */

/* Whether the record has weights: 1 or 0. A null record is reported by ERROR_internal, "Defining
   Data Structure Is NULL". */
ZTMATH_API int BCDF_is_least_squares(const BCDF *record);

/*
 * Whether the record defines a cubic with given slopes at both ends: order 4, no curvatures, at
 * least two slopes, the first at the first parameter and the last at the last. 1 or 0.
 */
ZTMATH_API int BCDF_is_zt_spline(const BCDF *record);

/*
 * The continuity of the curve at its points: order - 2. Records of BCDF_is_zt_spline have 1 when a
 * slope is given at an interior parameter, or when they are periodic.
 */
ZTMATH_API int BCDF_ask_continuity(const BCDF *record);

/* The largest number of poles a fit may use: the number of points, less 1 for a periodic record; 0
   for an interpolation record. */
ZTMATH_API int BCDF_ask_max_npoles_for_fit(const BCDF *record);

/* The length of the polygon of the points, weights included as in PNTLST_calc_point_distance. */
ZTMATH_API double BCDF_calc_df_polygon_length(const BCDF *record);

/* ---- Conversions of the whole record --------------------------------------------------------- */

/*
 * Makes the points Cartesian (PNTLST_convert_4d_to_3d), and slopes of dimension 4 slopes of
 * dimension 3 by dropping the fourth coordinate. Slopes are not divided by the weight.
 */
ZTMATH_API void BCDF_convert_4d_to_3d(BCDF *record);

/*
 * Makes an interpolation record a least-squares record: homogeneous points become Cartesian, with
 * slopes as BCDF_convert_4d_to_3d has them and new parameters by chord length; weights are added
 * (BCDF_add_weights, with its report about periodic records, after which a record without weights
 * stays an interpolation record); slopes are reduced by BCDF_make_least_squares_slopes; curvatures
 * go; the number of segments and the tolerance become 0; the record becomes open.
 *
 * Points of a dimension other than 3 and 4 are reported by ERROR_internal, "Points Are An Invalid
 * Dimension".
 */
ZTMATH_API void BCDF_convert_to_least_squares(BCDF *record);

/*
 * Reduces the slopes to unit slopes at both ends, or to none when there is none at either end. A
 * single end gets its counterpart as an automatic slope; if there were interior slopes too, the
 * last of them stays between the two.
 */
ZTMATH_API void BCDF_make_least_squares_slopes(BCDF *record);

/*
 * Divide the parameters by the last one, with the first one forced to 0.0 and the last one to 1.0;
 * and the slope parameters; the second, the curvature parameters too. The parameters are presumed
 * to begin at 0.0. Return the old last parameter. Without parameters "The Parameter Array Is NULL"
 * is reported by ERROR_internal.
 */
ZTMATH_API double BCDF_normalize(BCDF *record);
ZTMATH_API double BCDF_normalize_parameters(BCDF *record);

/* Multiply them again: the reverse of BCDF_normalize and of BCDF_normalize_parameters, with the
   same report. */
ZTMATH_API void BCDF_unnormalize(BCDF *record, double scale);
ZTMATH_API void BCDF_unnormalize_parameters(BCDF *record, double scale);

/* Multiplies every coordinate of every slope by a factor. */
ZTMATH_API void BCDF_scale_slopes(BCDF *record, double factor);

ZTMATH_END_DECLS

#endif
