// A second platform library, as a host might bring its own: how the test that runs on it makes it
// fail. The function that gives the controls is found by name in the process, so that nothing links
// against it.
#pragma once

namespace ztmath_test {

/// What the other platform throws.
struct Interrupted {};

/// Where a call of the platform may be left instead of returning.
enum class Chance { allocation, raised, report };

struct OtherPlatform {
    long blocks_out = 0;
    long persistent_before_null = -1;  // blocks; -1: all are there
    long reports = 0;
    void (*on_chance)(Chance chance) = nullptr;  // may throw or jump
};

}  // namespace ztmath_test
