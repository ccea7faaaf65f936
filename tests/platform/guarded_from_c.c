/* What a host written in C99 does with the platform library. */
#include "guarded_from_c.h"

#include <setjmp.h>

static void raising_body(void* data) {
    int* reached = data;
    *reached += 1;
    ERROR_raise("c_module", 42, 17, "raised in C");
    *reached += 10;
}

SYSS_outcome_t raise_guarded_in_c(SYSS_failure_t* failure, int* reached) {
    *reached = 0;
    return SYSS_call_guarded(raising_body, reached, failure);
}

static jmp_buf way_out;
static int seen_code;

static void jumping_handler(const SYSS_report_t* report, void* data) {
    (void)data;
    seen_code = report->code;
    longjmp(way_out, 1);
}

int leave_by_long_jump_in_c(int code) {
    const SYSS_report_handler_t handler = {jumping_handler, 0};
    const SYSS_report_handler_t before = SYSS_set_report_handler(handler);
    if (setjmp(way_out) == 0) {
        ERROR_raise("c_module", 43, code, "left by a long jump");
        seen_code = -1;
    }
    SYSS_set_report_handler(before);
    return seen_code;
}
