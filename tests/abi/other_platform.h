// A second platform library, as a host might bring its own: how the test that runs on it makes it
// fail. The function that gives the controls is found by name in the process, so that nothing links
// against it.
#pragma once

namespace ztmath_test {

/// What the other platform throws.
struct Interrupted {};

enum class Kind { raised, internal, note, log };

struct OtherPlatform {
    long blocks_out = 0;
    long allocations_before_refusal = -1;  // -1: none is refused
    long persistent_before_null = -1;      // blocks; -1: all are there
    long reports = 0;
    void (*on_report)(Kind kind) = nullptr;  // may throw or jump
};

}  // namespace ztmath_test
