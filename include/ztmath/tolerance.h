/*
 * tolerance.h - the session's tolerances: how they are derived and asked for.
 *
 * Lengths are in the working unit, millimetres. Until sys21_ has run after sys10_, every tolerance
 * reads -939.0, the sentinel for "unset". Nothing here reports.
 */
#ifndef ZTMATH_TOLERANCE_H
#define ZTMATH_TOLERANCE_H

#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/* Returns the number tolerance: dimensionless; 1.0e-4, or 1.0e-10 with the fine-tolerance switch. */
ZTMATH_API double EQ_ask_number_tolerance(void);

/* Returns the length tolerance: number tolerance times model scale. */
ZTMATH_API double EQ_ask_length_tolerance(void);

/* Returns the length tolerance squared. */
ZTMATH_API double EQ_ask_length_squared_tolerance(void);

/*
 * Derives the tolerances in acom_ from its fine-tolerance switch GCA(31) and model scale: number,
 * length, squared length, and the wide squared tolerance, 1.0e8 times the squared one. Any model
 * scale is taken as it stands.
 */
ZTMATH_API void sys21_(void);

/*
 * Scales a value by a tolerance word.
 *
 * value   the value
 * index   which word, from 0, by position in acom_.tolerances: 0 number, 1 length, 2 squared
 *         length, 7 wide squared; the others, up to 15, belong to routines of the older generation
 * result  out: tolerance word times value; 0.0 when the index is outside the table. May alias value
 */
ZTMATH_API void sys22_(const double *value, const int *index, double *result);

ZTMATH_END_DECLS

#endif
