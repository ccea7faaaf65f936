// A fuzz target defines fuzz::run; the rest is the same for all of them.
#pragma once

#include <cstdio>
#include <cstdlib>

#include "bytes.h"
#include "syss/host.h"

namespace fuzz {

/// Calls the library with what the bytes say.
void run(Bytes& bytes);

/// Ends the program, for the fuzzer to keep the input, when what must hold does not.
inline void require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

}  // namespace fuzz

/// Every run starts from the same state and leaves no block behind; reports are passed over.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    SYSS_set_report_handler({[](const SYSS_report_t*, void*) {}, nullptr});
    const std::size_t before = SYSS_block_count();
    fuzz::Bytes bytes(data, size);
    MACH__checking_level = bytes.flag() ? 1 : 0;
    fuzz::run(bytes);
    fuzz::require(SYSS_block_count() == before, "no block is left over");
    return 0;
}
