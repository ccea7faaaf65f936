/*
 * host.h - what the default platform library, libsyss, offers the host beyond <syss/syss.h>: where
 * reports go, how a raised report becomes a return value, who listens to a reason, and how much
 * memory is out.
 *
 * The checking level (MACH__checking_level) starts as the integer in the environment variable
 * SYSS_CHECKING_LEVEL, or 0. All calls may be made from any thread; guards are per thread.
 */
#ifndef SYSS_HOST_H
#define SYSS_HOST_H

#include <syss/syss.h>

SYSS_BEGIN_DECLS

/* ---- Reports --------------------------------------------------------------------------------- */

typedef enum {
    SYSS_REPORT_RAISED = 1,   /* ERROR_raise: input that cannot be served */
    SYSS_REPORT_INTERNAL = 2, /* ERROR_internal: a failed assertion or a broken expectation */
    SYSS_REPORT_NOTE = 3,     /* ERROR_note: a remark; the routine carries on */
    SYSS_REPORT_LOG = 4       /* ERROR_lprintf: a line for the log */
} SYSS_report_kind_t;

/* One report. The texts live until the handler returns; formatted texts end at 1023 characters. */
typedef struct {
    SYSS_report_kind_t kind;
    const char *module; /* "" for a log line */
    int line;           /* 0 for a log line */
    int code;           /* the reason of a raised report, else 0 */
    const char *text;
} SYSS_report_t;

typedef struct {
    void (*call)(const SYSS_report_t *report, void *data);
    void *data; /* handed to call */
} SYSS_report_handler_t;

/*
 * Sends all reports to a handler, in every thread; a null call restores the default, which writes a
 * line to standard error (raised reports inside a guarded call excepted: their text goes to the
 * guard). Returns the handler before. The handler runs in the reporting thread, before any
 * unwinding, and may itself leave by an exception; from ERROR_raise also by a long jump, as long as
 * the jump does not cross a guarded call.
 */
SYSS_API SYSS_report_handler_t SYSS_set_report_handler(SYSS_report_handler_t handler);

/* ---- Guarded calls --------------------------------------------------------------------------- */

typedef enum {
    SYSS_COMPLETED = 0,    /* the body returned */
    SYSS_RAISED = 1,       /* a report was raised; its code is in the failure record */
    SYSS_OUT_OF_MEMORY = 2 /* an allocation could not be served */
} SYSS_outcome_t;

/* What ended a guarded call. Texts that do not fit are cut. */
typedef struct {
    int code; /* the reason passed to ERROR_raise; 0 when memory ran out */
    int line;
    char module[64];
    char message[512];
} SYSS_failure_t;

/*
 * Calls body(data) and turns what is raised in it into a result.
 *
 * Inside the call ERROR_raise, and an allocation that cannot be served, unwind the stack up to
 * here: the library gives back its memory on the way, its outputs are as the routine's
 * documentation says. Other reports go to the handler and return. Exceptions of the host's own pass
 * through, except that any std::bad_alloc means that memory ran out. Guarded calls nest. Frames of C
 * code between the guard and the library need unwind tables (-fexceptions; the default on x86-64).
 *
 * Without a guard, ERROR_raise returns to the library once the report is delivered; an allocation
 * that cannot be served delivers its report and throws std::bad_alloc, never yielding null.
 *
 * failure  out: what was raised; untouched when the body returns; may be null
 */
SYSS_API SYSS_outcome_t SYSS_call_guarded(void (*body)(void *data), void *data,
                                          SYSS_failure_t *failure);

/* ---- Listeners ------------------------------------------------------------------------------- */

/* data: what CALLBACK_call_list was given; context: what the listener was added with. */
typedef void (*SYSS_listener_t)(int reason, void *data, void *context);

/* Adds a listener for a reason, after those already there. */
SYSS_API void SYSS_add_listener(int reason, SYSS_listener_t listener, void *context);

/* Removes the first entry with the same reason, listener and context; returns 1, or 0 if none is
   there. A listener that is removed while a list is being called is not told any more, one that is
   added then is told from the next call on. */
SYSS_API int SYSS_remove_listener(int reason, SYSS_listener_t listener, void *context);

/* ---- Memory ---------------------------------------------------------------------------------- */

/* Returns the number of blocks that are out. */
SYSS_API size_t SYSS_block_count(void);

/* Refuses every allocation that would bring the total length of all blocks above a limit in bytes,
   as if memory had run out; SIZE_MAX, the default, sets no limit. Returns the limit before. */
SYSS_API size_t SYSS_set_memory_limit(size_t limit);

SYSS_END_DECLS

#endif
