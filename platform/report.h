// Reports inside the platform library: how they are delivered, and how the raising ones leave.
#pragma once

#include <cstddef>

#include "syss/host.h"

namespace syss {

/// Delivers a report to the host's handler, or to standard error where there is none.
void deliver(const SYSS_report_t& report);

/// Reports that `size` bytes could not be had and unwinds with std::bad_alloc.
[[noreturn]] void out_of_memory(std::size_t size);

}  // namespace syss
