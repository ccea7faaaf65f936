/*
 * acom.h - the block of session settings that the host and the library share by position.
 *
 * Both sides read and write acom_ directly; hosts of the older generation do so by byte offset, so
 * every offset below is fixed. The block is plain process-wide data: nobody may write it while
 * another thread is inside the library.
 *
 * Calling order: sys10_ once (session.h), then write model_scale and the fine-tolerance switch
 * GCA(31), then sys21_ (tolerance.h); sys21_ again whenever either of the two changes. Before
 * sys10_ the block is all zeros.
 */
#ifndef ZTMATH_ACOM_H
#define ZTMATH_ACOM_H

#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/* Places in acom_.tolerances. */
enum {
    ZTMATH_NUMBER_TOLERANCE = 0,
    ZTMATH_LENGTH_TOLERANCE = 1,
    ZTMATH_SQUARED_LENGTH_TOLERANCE = 2,
    ZTMATH_WIDE_SQUARED_TOLERANCE = 7
};

enum { ZTMATH_DISPLAY_BUFFER_CAPACITY = 512, ZTMATH_GCA_COUNT = 114 };

/* The block, 5240 bytes. Members named after their offset belong to routines of the older
   generation; the library only initialises them. */
typedef struct {
    double words_0[40];
    double words_320[12];
    double words_416[27];
    double words_632[50];
    double word_1032;
    double model_scale; /* 1040: the model's length scale, written by the host */
    double words_1048[9];
    double tolerances[16]; /* 1120: by the places above; derived by sys21_ */
    double words_1248[15];
    double words_1368[9];
    double wcs_matrix[9]; /* 1440: rows are the X, Y and Z axes in absolute coordinates */
    double wcs_origin[3]; /* 1512: in absolute coordinates */
    double words_1536[62];
    int display_count;                               /* 2032: identifiers buffered, 0 to 512 */
    int display_ids[ZTMATH_DISPLAY_BUFFER_CAPACITY]; /* 2036: in order of arrival */
    int word_4084;
    int words_4088[43];
    int words_4260[20];
    int word_4340;
    int words_4344[2];
    int word_4352;
    int words_4356[2];
    int words_4364[105];
    int gca[ZTMATH_GCA_COUNT]; /* 4784: the table GCA, whose element k, from 1, is gca[k - 1] */
} ZTMATH_acom_t;

/* The block itself. */
extern ZTMATH_API ZTMATH_acom_t acom_;

ZTMATH_END_DECLS

#endif
