/* What a host written in C99 does with the platform library. */
#include "guarded_from_c.h"

#include <setjmp.h>
#include <stdint.h>

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

struct inner_call {
    SYSS_failure_t* failure;
    SYSS_outcome_t outcome;
};

static void greedy_body(void* data) {
    (void)data;
    SM_alloc(SIZE_MAX);
}

static void nesting_body(void* data) {
    struct inner_call* call = data;
    call->outcome = SYSS_call_guarded(greedy_body, 0, call->failure);
}

int run_out_of_memory_in_c(SYSS_failure_t* failure) {
    struct inner_call call = {failure, SYSS_COMPLETED};
    if (SYSS_call_guarded(nesting_body, &call, 0) != SYSS_COMPLETED) return -1;
    return (int)call.outcome;
}

struct escape {
    jmp_buf way_out;
    int code;
};

static void jumping_handler(const SYSS_report_t* report, void* data) {
    struct escape* escape = data;
    escape->code = report->code;
    longjmp(escape->way_out, 1);
}

int leave_by_long_jump_in_c(int code) {
    struct escape escape;
    SYSS_report_handler_t handler;
    SYSS_report_handler_t before;
    handler.call = jumping_handler;
    handler.data = &escape;
    escape.code = 0;
    before = SYSS_set_report_handler(handler);
    if (setjmp(escape.way_out) == 0) {
        ERROR_raise("c_module", 43, code, "left by a long jump");
        escape.code = -1;
    }
    SYSS_set_report_handler(before);
    return escape.code;
}
