/*
 * session.h - the session's settings other than the work coordinate system: initialisation,
 * application and batch flags, colour and cursor view, face grid counts, and the buffer of display
 * identifiers.
 *
 * All of it lives in acom_ (acom.h), except the registered display function. Settings are not made
 * or refused by range: with the checking level above 0 a value out of range is reported by an
 * assertion of module "libztmath_main" and stored all the same. Routines whose names end in an
 * underscore take scalars by address.
 */
#ifndef ZTMATH_SESSION_H
#define ZTMATH_SESSION_H

#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/*
 * Initialises acom_. Words that hold nothing yet become -939 or -939.0, tolerances and model scale
 * among them; the display buffer is emptied; GCA(24) becomes 6.
 *
 * mode  1 keeps the settings of a running session: GCA(2) to GCA(50) but GCA(24), and the other
 * words that any other mode resets
 */
ZTMATH_API void sys10_(const int *mode);

/* Returns the model scale, acom_.model_scale. */
ZTMATH_API double ACOM_ask_MEC(void);

/* Returns the model mode word, GCA(51). */
ZTMATH_API int ACOM_ask_MESW(void);

/* Returns and sets the number of the current application, GCA(29). */
ZTMATH_API int ACOM_ask_application(void);
ZTMATH_API void ACOM_set_application(int application);

/* Returns 1 when the session runs in batch (GCA(73) is 2), else 0. */
ZTMATH_API int QUIB_in_batch(void);

/* Returns 1 inside the system's programming language interpreter (GCA(30) is 1), else 0. */
ZTMATH_API int inquib_(void);

/* Returns and sets the flag word GCA(9), whole. */
ZTMATH_API int cu0007_(void);
ZTMATH_API void cu0008_(const int *value);

/* Returns and sets the system colour, GCA(6), 1 to 216. Both assert the range of what they return
   or store: "GCA(6) >= DISPLAY_MIN_COLOR", "GCA(6) <= DISPLAY_MAX_COLOR"; "color >=
   DISPLAY_MIN_COLOR", "color <= DISPLAY_MAX_COLOR". */
ZTMATH_API int DISPLAY_ask_system_color(void);
ZTMATH_API void DISPLAY_set_system_color(int color);

/* Returns and sets the number of the view that the cursor was last in, GCA(114). Setting 0, no
   view, fails the assertion "in_vsn != DSS_NO_VIEW". */
ZTMATH_API int DISPLAY_ask_view_of_last_cursor(void);
ZTMATH_API void DISPLAY_set_view_of_last_cursor(int in_vsn);

/* Returns and sets the default face grid counts in u and v, GCA(17) and GCA(18). Negative counts
   fail the assertions "GCA(17) >= 0", "GCA(18) >= 0"; "u_and_v_grid_counts[0] >= 0",
   "u_and_v_grid_counts[1] >= 0". */
ZTMATH_API void PX_ask_default_face_grid_counts(int counts[2]);
ZTMATH_API void PX_set_default_face_grid_counts(const int counts[2]);

/* Four integers shared with the host by position. */
extern ZTMATH_API int pxsfac_[4];

/* Copies pxsfac_[2] and pxsfac_[3] to first, pxsfac_[0] and pxsfac_[1] to second. */
ZTMATH_API void pxsfac_read_pszt_(int first[2], int second[2]);

/* Clears 20 integers of acom_, words_4260. */
ZTMATH_API void b120a_(void);

/* ---- Display identifiers ------------------------------------------------------------------------
 *
 * Identifiers of displayed objects are buffered, up to 512, and flushed through a function of the
 * host, which finds them in acom_.display_ids. A count that the host wrote outside 0 to 512 is
 * taken as the nearer bound.
 */

/*
 * Registers the function that a flush calls, null for none. It is called without arguments and may
 * itself use the buffer: identifiers it appends are lost with the flush, a flush it asks for does
 * not call it again. It may leave by an exception, which leaves the buffer as it is then, but not by
 * a long jump.
 *
 * Returns the function registered before, null the first time.
 */
ZTMATH_API void (*MCS_register_display_fn(void (*fn)(void)))(void);

/* Empties the buffer without calling the display function. */
ZTMATH_API void d7390_(void);

/* Appends an identifier; a full buffer is flushed first. */
ZTMATH_API void d7391_(const int *id);

/* Flushes: calls the display function, if there is one and the buffer is not empty, while all
   identifiers are still in place; afterwards the buffer is empty. */
ZTMATH_API void d7392_(void);

/* Removes every occurrence of an identifier, keeping the order of the others. */
ZTMATH_API void a406_(const int *id);

ZTMATH_END_DECLS

#endif
