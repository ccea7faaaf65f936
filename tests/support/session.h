// What tests set up around calls: the checking level, and an eye on memory.
#pragma once

#include "support/prelude.h"
#include "syss/host.h"

namespace ztmath_test {

/// Sets the checking level while it lives.
class CheckingLevel {
  public:
    explicit CheckingLevel(int level) : before_(MACH__checking_level) {
        MACH__checking_level = level;
    }
    ~CheckingLevel() { MACH__checking_level = before_; }
    CheckingLevel(const CheckingLevel&) = delete;
    CheckingLevel& operator=(const CheckingLevel&) = delete;

  private:
    int before_;
};

/// Fails the test if blocks of the platform are out when it ends that were not when it began.
class NoBlocksLeft {
  public:
    NoBlocksLeft() : before_(SYSS_block_count()) {}
    ~NoBlocksLeft() { EXPECT_EQ(SYSS_block_count(), before_) << "blocks left over"; }
    NoBlocksLeft(const NoBlocksLeft&) = delete;
    NoBlocksLeft& operator=(const NoBlocksLeft&) = delete;

  private:
    std::size_t before_;
};

}  // namespace ztmath_test
