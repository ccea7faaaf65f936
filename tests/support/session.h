// What tests set up around calls: the checking level, and an eye on memory.
#pragma once

#include "support/prelude.h"
#include "syss/host.h"

namespace ztmath_test {

/// Gives a variable a value while it lives, and then what it had before.
template <class Value>
class Kept {
  public:
    Kept(Value& variable, const Value& value)
        : variable_(variable), before_(std::exchange(variable, value)) {}
    ~Kept() { variable_ = before_; }
    Kept& operator=(Kept&&) = delete;

  private:
    Value& variable_;
    const Value before_;
};

/// Sets the checking level while it lives.
struct CheckingLevel : Kept<int> {
    explicit CheckingLevel(int level) : Kept(MACH__checking_level, level) {}
};

/// Fails the test if blocks of the platform are out when it ends that were not when it began.
class NoBlocksLeft {
  public:
    NoBlocksLeft() : before_(SYSS_block_count()) {}
    ~NoBlocksLeft() { EXPECT_EQ(SYSS_block_count(), before_) << "blocks left over"; }
    NoBlocksLeft& operator=(NoBlocksLeft&&) = delete;

  private:
    std::size_t before_;
};

}  // namespace ztmath_test
