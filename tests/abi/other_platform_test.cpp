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

long reports_before_interruption;  // counts down
bool by_jump;                      // from raised reports only
std::jmp_buf way_out;

void leave_when_due(Kind kind) {
    if (by_jump && kind != Kind::raised) return;
    if (reports_before_interruption-- != 0) return;
    if (by_jump) std::longjmp(way_out, 1);
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

/// Each returns whether the call was interrupted.
using Interruption = bool (*)(const Body& call, long at);

bool left_by_exception(const Body& call) {
    try {
        call();
        return false;
    } catch (const Interrupted&) {
        return true;
    }
}

bool refused(const Body& call, long at) {
    platform()->allocations_before_refusal = at;
    const bool interrupted = left_by_exception(call);
    platform()->allocations_before_refusal = -1;
    return interrupted;
}

void leave_at(long report, bool jump) {
    reports_before_interruption = report;
    by_jump = jump;
    platform()->on_report = leave_when_due;
}

bool reported_by_exception(const Body& call, long at) {
    leave_at(at, false);
    const bool interrupted = left_by_exception(call);
    platform()->on_report = nullptr;
    return interrupted;
}

bool raised_by_long_jump(const Body& call, long at) {
    leave_at(at, true);
    const bool interrupted = setjmp(way_out) != 0;
    if (!interrupted) call();
    platform()->on_report = nullptr;
    return interrupted;
}

constexpr Interruption interruptions[] = {refused, reported_by_exception, raised_by_long_jump};
constexpr long bound = 5000;  // calls of the platform within one call of the library

/// Interrupts a call at its first, second, ... chance until it runs through; returns how often.
long interrupt_everywhere(Interruption interrupt, const Body& call) {
    const long before = platform()->blocks_out;
    for (long at = 0; at < bound; ++at) {
        const bool interrupted = interrupt(call, at);
        release_held();
        EXPECT_EQ(platform()->blocks_out, before) << "left at chance " << at;
        if (!interrupted) return at;
        if (testing::Test::HasFailure()) return at;
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
    long interrupted[std::size(interruptions)] = {};
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
            for (std::size_t i = 0; i < std::size(interruptions); ++i)
                interrupted[i] += interrupt_everywhere(interruptions[i], body);
            EXPECT_TRUE(same_bits(outcome_of(call, inputs), undisturbed));
            ASSERT_FALSE(HasFailure());
        }
    }
    tell_calls();
    EXPECT_GT(interrupted[0], 100) << "allocations refused";
    EXPECT_GT(interrupted[1], 100) << "reports left by exceptions";
}

TEST_F(AnotherPlatform, MayLackMemoryThatPersists) {
    Record record = new_record({0, 0, 0, 1, 0, 0, 2, 1, 0, 3, 0, 1});
    const double slope[] = {1, 2, 3};
    BCDF_replace_slope(record.get(), slope, 1, 1);
    const long before = platform()->blocks_out;
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

TEST_F(AnotherPlatform, WouldSeeABlockThatIsLeftBehind) {
    const std::tuple<Interruption, long, bool, bool> rows[] = {
        {refused, 0, true, false},
        {reported_by_exception, 0, true, true},
        {reported_by_exception, 1, true, true},  // the note
        {raised_by_long_jump, 0, true, true},
        {raised_by_long_jump, 1, false, false}};  // the note is not raised
    for (const auto& [interrupt, at, interrupted, leaves] : rows) {
        const long before = platform()->blocks_out;
        void* block = nullptr;
        const auto careless = [&block] {
            block = SM_alloc(8);
            ERROR_raise("careless", 1, 1, "raised");
            ERROR_note("careless", 2, "noted");
            SM_free(std::exchange(block, nullptr));
        };
        EXPECT_EQ(interrupt(careless, at), interrupted);
        EXPECT_EQ(platform()->blocks_out - before, leaves ? 1 : 0) << "left at " << at;
        SM_free(block);
    }
}

}  // namespace
