/*
 * syss.h - the system services that libztmath stands on: reports, memory, the checking level and
 * callback lists.
 *
 * libztmath calls nothing else of its host. The default platform library, libsyss, serves these
 * names; a host that has its own services exports the same names from a library with the same
 * soname and puts it in libsyss' place. What the default library offers beyond them is in
 * <syss/host.h>.
 *
 * Any of the calls but SM_free, which is made on the way out too, may leave by a C++ exception.
 * libztmath gives back its memory on the way.
 */
#ifndef SYSS_SYSS_H
#define SYSS_SYSS_H

#include <stddef.h>

#if defined(__GNUC__)
#define SYSS_API __attribute__((visibility("default")))
#define SYSS_PRINTF(text, first) __attribute__((format(printf, text, first)))
#else
#define SYSS_API
#define SYSS_PRINTF(text, first)
#endif

#ifdef __cplusplus
#define SYSS_BEGIN_DECLS extern "C" {
#define SYSS_END_DECLS }
#else
#define SYSS_BEGIN_DECLS
#define SYSS_END_DECLS
#endif

SYSS_BEGIN_DECLS

/* ---- Reports ------------------------------------------------------------------------------------
 *
 * module  the reporting source module, a bare name such as "vec3"
 * line    a number that is fixed for each report and distinct within its module
 */

/* Reports input that cannot be served. code tells the reason to the caller's program, message to a
   person. May return: the library then goes on with its outputs in a defined state. */
SYSS_API void ERROR_raise(const char *module, int line, int code, const char *message);

/* Reports a failed assertion or another broken internal expectation. May return. */
SYSS_API void ERROR_internal(const char *module, int line, const char *format, ...)
    SYSS_PRINTF(3, 4);

/* Records a remark that is no failure: a repaired value, an iteration that did not converge. */
SYSS_API void ERROR_note(const char *module, int line, const char *format, ...) SYSS_PRINTF(3, 4);

/* Writes one line of detail to the host's log. The format brings its own line end. */
SYSS_API void ERROR_lprintf(const char *format, ...) SYSS_PRINTF(1, 2);

/* ---- Memory -------------------------------------------------------------------------------------
 *
 * libztmath does not test results: an allocation that cannot be served must not return.
 */

/* Returns a block of size bytes, contents undefined. A size of 0 yields a block of length 0. */
SYSS_API void *SM_alloc(size_t size);

/* Returns a zero-filled block of count * size bytes. */
SYSS_API void *SM_calloc(size_t count, size_t size);

/* Returns a zero-filled block of count * size bytes that outlives transient memory. */
SYSS_API void *SM_calloc_persistent(size_t count, size_t size);

/* Grows or shrinks a block, contents kept up to the smaller size; a null block is allocated. When
   the block cannot be grown it stays as it was. */
SYSS_API void *SM_realloc(void *block, size_t size);

/* Releases a block of any of the calls above; null is ignored. */
SYSS_API void SM_free(void *block);

/* Returns the size of a block in bytes, 0 for null. */
SYSS_API size_t SM_length(void *block);

/* ---- The rest -------------------------------------------------------------------------------- */

/* Formats at most size - 1 characters and a null; returns the length the whole text would have. */
SYSS_API int STR_snprintf(char *buffer, size_t size, const char *format, ...) SYSS_PRINTF(3, 4);

/* Returns the platform's number for a reason of the library. Reason 2: the display of the work
   coordinate system changed; its data is the new status (const int *). */
SYSS_API int ZT_REASON_ask_reason_number(int reason);

/* Tells every listener registered for a reason, in the order of registration. */
SYSS_API void CALLBACK_call_list(int reason, void *data);

/* Above 0, libztmath evaluates its assertions and argument checks. Read at every check, never
   written by the library. */
extern SYSS_API int MACH__checking_level;

SYSS_END_DECLS

#endif
