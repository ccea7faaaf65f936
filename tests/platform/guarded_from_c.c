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
    return SYSS_call_guarded(raising_body, reached, failure);
}

static int seen_code;

static void jumping_handler(const SYSS_report_t* report, void* way_out) {
    seen_code = report->code;
    longjmp(*(jmp_buf*)way_out, 1);
}

int leave_by_long_jump_in_c(int code) {
    jmp_buf way_out;
    const SYSS_report_handler_t handler = {jumping_handler, &way_out};
    const SYSS_report_handler_t before = SYSS_set_report_handler(handler);
    if (setjmp(way_out) == 0) ERROR_raise("c_module", 43, code, "left by a long jump");
    SYSS_set_report_handler(before);
    return seen_code;
}
