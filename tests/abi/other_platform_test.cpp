// The library on another platform than its own: every call of the interface table, left by an
// exception from each of its allocations and reports and by a long jump from each report that is
// raised, must leave no block behind and serve the next call as if nothing had been.
#include "abi/other_platform.h"

#include <dlfcn.h>

#include <csetjmp>

#include "interface/table.h"
#include "support/curve_record.h"
#include "syss/syss.h"

namespace {

using namespace ztmath_test;

OtherPlatform* platform() {
    using Access = OtherPlatform* (*)();
    static const auto access = reinterpret_cast<Access>(dlsym(RTLD_DEFAULT, "other_platform"));
    return access != nullptr ? access() : nullptr;
}

long chances_before_leaving;  // counts down
bool by_jump;                 // from raised reports only
std::jmp_buf way_out;
std::map<Chance, long> exceptions;

void leave_when_due(Chance chance) {
    if (by_jump && chance != Chance::raised) return;
    if (chances_before_leaving-- != 0) return;
    if (by_jump) std::longjmp(way_out, 1);
    ++exceptions[chance];
    throw Interrupted{};
}

class AnotherPlatform : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_NE(platform(), nullptr) << "not running on the other platform";
        ASSERT_EQ(dlsym(RTLD_DEFAULT, "SYSS_block_count"), nullptr);
        MACH__checking_level = 1;
    }
    void TearDown() override { *platform() = {}; }
};

/// A call of the library, which keeps its storage elsewhere, so that a long jump loses nothing.
using Body = std::function<void()>;

/// Both return whether the call was left.
bool left_by_exception(const Body& call) {
    try {
        call();
        return false;
    } catch (const Interrupted&) {
        return true;
    }
}

bool left_by_long_jump(const Body& call) {
    const bool left = setjmp(way_out) != 0;
    if (!left) call();
    return left;
}

constexpr long bound = 5000;  // calls of the platform within one call of the library

/// Leaves a call at its first, second, ... chance until it runs through; returns how often.
long leave_everywhere(const Body& call, bool jump) {
    const long before = platform()->blocks_out;
    by_jump = jump;
    for (long at = 0; at < bound; ++at) {
        chances_before_leaving = at;
        platform()->on_chance = leave_when_due;
        const bool left = jump ? left_by_long_jump(call) : left_by_exception(call);
        platform()->on_chance = nullptr;
        release_held();
        EXPECT_EQ(platform()->blocks_out, before) << "left at chance " << at;
        if (!left || testing::Test::HasFailure()) return at;
    }
    ADD_FAILURE() << "the call never runs through";
    return bound;
}

std::vector<Arrays> inputs_of(const Call& call, Random& random) {
    std::vector<Arrays> all;
    for (const Draw draw : draws)
        all.push_back(draw_inputs(call, random, draw));
    for (const double value : {std::numeric_limits<double>::quiet_NaN(), HUGE_VAL, 0.0}) {
        all.push_back(draw_inputs(call, random, Draw::regular));
        for (auto& array : all.back())
            std::fill(array.begin(), array.end(), value);
    }
    return all;
}

TEST_F(AnotherPlatform, MayLeaveEveryCallAtEveryChance) {
    Random random;
    long jumps = 0;
    for (const Call& call : interface_table()) {
        SCOPED_TRACE(call.name);
        for (const Arrays& inputs : inputs_of(call, random)) {
            const Outcome undisturbed = outcome_of(call, inputs);
            Arrays outputs = undisturbed.outputs;
            const auto in = pointers_to(inputs);
            const auto out = pointers_to(outputs);
            const Body body = [&] {
                ++calls_made;
                call.run(in.data(), out.data());
            };
            leave_everywhere(body, false);
            jumps += leave_everywhere(body, true);
            EXPECT_TRUE(same_bits(outcome_of(call, inputs), undisturbed));
            ASSERT_FALSE(HasFailure());
        }
    }
    tell_calls();
    EXPECT_GT(exceptions[Chance::allocation], 100);
    EXPECT_GT(exceptions[Chance::report], 100);
    EXPECT_GT(jumps, 10);
}

TEST_F(AnotherPlatform, MayLackMemoryThatPersists) {
    Record record = new_record({0, 0, 0, 1, 0, 0, 2, 1, 0, 3, 0, 1});
    const double slope[] = {1, 2, 3};
    BCDF_replace_slope(record.get(), slope, 1, 1);
    const long before = platform()->blocks_out;
    ASSERT_GT(before, 0) << "blocks are counted";
    BCDF* kept = nullptr;
    for (long at = 0; kept == nullptr && at < bound; ++at) {
        platform()->persistent_before_null = at;
        platform()->reports = 0;
        kept = BCDF_make_bcdf_data_persistent(record.get());
        EXPECT_EQ(platform()->reports, kept == nullptr ? 1 : 0);
        EXPECT_EQ(platform()->blocks_out, before);
    }
    EXPECT_LT(platform()->persistent_before_null, 1) << "no block more than needed";
    ASSERT_NE(kept, nullptr);
    record.release();
    record.reset(kept);
}

}  // namespace
