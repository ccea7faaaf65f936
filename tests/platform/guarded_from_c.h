/* Guarded calls made from C, for report_test.cpp. */
#pragma once

#include "syss/host.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Raises from a C frame inside a guard: *reached grows by 1 before the report, by 10 after it. */
SYSS_outcome_t raise_guarded_in_c(SYSS_failure_t* failure, int* reached);

/* Raises with a handler that leaves by a long jump; returns the code that the handler saw. */
int leave_by_long_jump_in_c(int code);

#ifdef __cplusplus
}
#endif
