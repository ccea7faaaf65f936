/*
 * pntlst.h - point lists: growable arrays of points of one width.
 *
 * A list knows nothing of what its coordinates mean; only the conversion from homogeneous
 * coordinates takes a point of width 4 for (w x, w y, w z, w). Positions count from 0. A point is
 * an array of as many doubles as the list's dimension says; arrays of points hold point after
 * point. Points handed in may be points of the list itself, whose array may move.
 *
 * Records and arrays come from SM_alloc and SM_realloc and go back through SM_free. Only the free
 * operations, PNTLST_copy_structure and PNTLST_remove_points accept a null list. Reports are made
 * by module "pntlst_gen" and only with checking. Whatever is asked for, nothing outside the list's
 * array is read or written: what lies outside of it reads as 0.0 and is not written.
 */
#ifndef ZTMATH_PNTLST_H
#define ZTMATH_PNTLST_H

#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

typedef struct {
    double *points;       /* point i starts at i * dimension */
    int num_points;       /* points in use */
    int points_allocated; /* capacity in points; 0: the list does not own its array */
    int dimension;        /* doubles per point: 3 Cartesian, 4 homogeneous, 1 scalar */
} PNTLST;

/* ---- Making and releasing -------------------------------------------------------------------- */

/* Makes an empty list with room for a number of points; null if that number is below 1. */
ZTMATH_API PNTLST *PNTLST_allocate_struct(int dimension, int number);

/*
 * Gives the array room for exactly `number` points, its contents kept as far as they fit. The
 * number of points in use is the caller's to look after. A number below 1 releases the array.
 */
ZTMATH_API void PNTLST_allocate_points(PNTLST *list, int number);

/*
 * Makes a list over the caller's array, without copying. The list owns the array from then on,
 * which must come from the SM_ calls; without points (number below 1) it does not.
 */
ZTMATH_API PNTLST *PNTLST_create_from_list_of_pts(double *points, int number, int dimension);

/*
 * Makes a list of `number` points and has their coordinates written.
 *
 * fill  called once with the number and the array of number * dimension doubles, contents
 *       undefined; its result is ignored. The list is released when it leaves by an exception
 *
 * Returns null, without calling fill, if the number is below 1.
 */
ZTMATH_API PNTLST *PNTLST_get_from_func(int number, int dimension,
                                        int (*fill)(int number, double *array));

/* Copies a list; its capacity is its number of points. Null for null. */
ZTMATH_API PNTLST *PNTLST_copy_structure(const PNTLST *list);

/* Releases a list, with its array if it owns one. */
ZTMATH_API void PNTLST_free_structure(PNTLST *list);

/* Releases the record only. The array stays with whoever holds it, to be freed by SM_free. */
ZTMATH_API void PNTLST_free_all_but_points(PNTLST *list);

/* ---- Reading --------------------------------------------------------------------------------- */

/*
 * Copies the coordinates of all points.
 *
 * number, dimension  out
 *
 * Returns a new array, which the caller frees with SM_free.
 */
ZTMATH_API double *PNTLST_copy_points(const PNTLST *list, int *number, int *dimension);

/*
 * Copies one point out. A position that is not one of a point is reported by ERROR_internal,
 * "Invalid Point Position Given".
 */
ZTMATH_API void PNTLST_copy_single_point(const PNTLST *list, int position, double *point);

/*
 * Returns the Euclidean distance of points i and j over all coordinates, the weight of a
 * homogeneous point included. A position that is not one of a point is raised: reason 1005337,
 * "Invalid Point Position Given"; the result is then 0.0.
 */
ZTMATH_API double PNTLST_calc_point_distance(const PNTLST *list, int i, int j);

/* ---- Editing --------------------------------------------------------------------------------- */

/*
 * Inserts points before a position.
 *
 * number    how many; nothing happens below 1
 * position  0 to the number of points; the nearer of these if it lies outside
 * points    number * dimension doubles
 *
 * Whatever the number, the points from the position on move up by one place only, so that for a
 * number above 1 the new points replace the number - 1 old ones behind the position, and the last
 * number - 1 places of the longer list hold whatever was in the array. An array without enough room
 * grows to the new number of points plus twice the old capacity.
 */
ZTMATH_API void PNTLST_insert_points(PNTLST *list, int number, int position, const double *points);

/* Appends one point; a full array grows by one point. */
ZTMATH_API void PNTLST_concat_one_point(PNTLST *list, const double *point);

/*
 * Overwrites points from a position on. More points than the list has from there are reported by
 * ERROR_internal, "Too Many Points To Replace", and written as far as the array reaches.
 */
ZTMATH_API void PNTLST_replace_points(PNTLST *list, int number, int position, const double *points);

/*
 * Removes points from a position on; nothing for a number below 1. As many points as the list has
 * are all of them, whatever the position. More are reported by ERROR_internal, "Too Many Points To
 * Remove", and leave it empty. The array keeps its size.
 */
ZTMATH_API void PNTLST_remove_points(PNTLST *list, int position, int number);

/*
 * Turns homogeneous points (w x, w y, w z, w) into Cartesian ones in place; nothing for dimension
 * 3. The capacity in points stays. A dimension other than 3 and 4 is reported by ERROR_internal,
 * "Dimension Of The Input Points Is Not Valid"; the three doubles at each point are divided by the
 * one behind them all the same, and the dimension becomes 3.
 */
ZTMATH_API void PNTLST_convert_4d_to_3d(PNTLST *list);

ZTMATH_END_DECLS

#endif
