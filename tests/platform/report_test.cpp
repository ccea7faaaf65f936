// Reports and guarded calls of the platform library.
#include <new>
#include <thread>

#include "platform/guarded_from_c.h"
#include "support/support.h"
#include "syss/host.h"

namespace {

using namespace ztmath_test;

SYSS_outcome_t guarded(std::function<void()> body, SYSS_failure_t* failure = nullptr) {
    const auto call = [](void* data) { (*static_cast<std::function<void()>*>(data))(); };
    return SYSS_call_guarded(call, &body, failure);
}

Report told_by(const SYSS_failure_t& failure) {
    return raised(failure.module, failure.code, failure.message);
}

std::string standard_error_of(const std::function<void()>& act) {
    testing::internal::CaptureStderr();
    act();
    return testing::internal::GetCapturedStderr();
}

void report_one_of_each() {
    ERROR_internal("m", 2, "internal %d", 5);
    ERROR_note("m", 3, "note %s %.2f", "of", 0.125);
    ERROR_lprintf("log %d\n", 7);
    ERROR_raise("m", 1, 17, "100% raised");
}

const Reports one_of_each = {internal("m", "internal 5"), note("m", "note of 0.12"),
                             log_line("log 7\n"), raised("m", 17, "100% raised")};

TEST(Reports, ReachTheHandlerWithAllTheySay) {
    ReportRecorder recorder;
    {
        const ReportRecorder inner;
        ERROR_lprintf("inner");
        EXPECT_EQ(inner.reports(), Reports{log_line("inner")});
    }
    report_one_of_each();
    EXPECT_EQ(recorder.lines(), (std::vector<int>{2, 3, 0, 1}));
    EXPECT_EQ(recorder.take(), one_of_each);

    const std::string long_text(3000, 'x');
    ERROR_raise("m", 1, 1, long_text.c_str());
    ERROR_note("m", 1, "%s", long_text.c_str());
    EXPECT_EQ(recorder.take(),
              (Reports{raised("m", 1, long_text), note("m", std::string(1023, 'x'))}));
}

TEST(Reports, GoToStandardErrorWithoutAHandler) {
    const std::string unguarded =
        "internal error in m (2): internal 5\n"
        "note from m (3): note of 0.12\n"
        "log 7\n";
    EXPECT_EQ(standard_error_of(report_one_of_each),
              unguarded + "error 17 in m (1): 100% raised\n");
    EXPECT_EQ(standard_error_of([] { guarded(report_one_of_each); }), unguarded);
}

TEST(Guard, TurnsARaisedReportIntoAResult) {
    ReportRecorder recorder;
    SYSS_failure_t failure{};
    EXPECT_EQ(guarded(report_one_of_each, &failure), SYSS_RAISED);
    EXPECT_EQ(failure.line, 1);
    EXPECT_EQ(told_by(failure), one_of_each.back());
    EXPECT_EQ(recorder.take(), one_of_each) << "the handler comes first";
    EXPECT_EQ(guarded([] { ERROR_raise("m", 1, 2, "no record wanted"); }), SYSS_RAISED);
    EXPECT_EQ(guarded([] { ERROR_note("m", 1, "nothing raised"); }, &failure), SYSS_COMPLETED);
    EXPECT_EQ(told_by(failure), one_of_each.back()) << "left alone";
    const std::string long_text(1000, 'y');
    guarded([&] { ERROR_raise(long_text.c_str(), 1, 2, long_text.c_str()); }, &failure);
    EXPECT_EQ(told_by(failure), raised(std::string(63, 'y'), 2, std::string(511, 'y')));
}

TEST(Guard, NestsAndEndsWithItsCall) {
    const ReportRecorder recorder;
    SYSS_failure_t inner{}, outer{};
    const auto nesting = [&] {
        EXPECT_EQ(guarded([] { ERROR_raise("m", 1, 1, "inner"); }, &inner), SYSS_RAISED);
        ERROR_raise("m", 2, 2, "outer");
    };
    EXPECT_EQ(guarded(nesting, &outer), SYSS_RAISED);
    EXPECT_STREQ(inner.message, "inner");
    EXPECT_STREQ(outer.message, "outer");

    EXPECT_EQ(guarded([] { std::jthread([] { ERROR_raise("m", 3, 3, "another thread"); }); }),
              SYSS_COMPLETED)
        << "a guard is its thread's own";
    ERROR_raise("m", 4, 4, "returns");
    EXPECT_EQ(recorder.reports().size(), 4U);
}

TEST(Guard, LetsTheHostsExceptionsThrough) {
    const std::function<void()> throwing[] = {
        [] { ERROR_raise("m", 1, 1, "x"); }, [] { ERROR_internal("m", 1, "x"); },
        [] { ERROR_note("m", 1, "x"); },     [] { ERROR_lprintf("x"); },
        [] { SM_alloc(SIZE_MAX); },
    };
    {
        const ReportRecorder recorder([](const Report&) { throw std::runtime_error("mine"); });
        for (const auto& act : throwing)
            EXPECT_THROW(guarded(act), std::runtime_error) << "case " << &act - throwing;
    }
    const ReportRecorder recorder;
    ERROR_raise("m", 1, 1, "no guard is left behind");
    EXPECT_EQ(recorder.reports().size(), 1U);
}

TEST(OutOfMemory, UnwindsWithAndWithoutAGuard) {
    const ReportRecorder recorder;
    EXPECT_THROW(SM_alloc(SIZE_MAX), std::bad_alloc);
    EXPECT_EQ(
        recorder.reports(),
        Reports{raised("libsyss", 0, "Out of memory: 18446744073709551615 bytes cannot be had")});

    SYSS_failure_t failure{5, 0, {}, {}};
    const auto nesting = [&] {
        EXPECT_EQ(guarded([] { SM_calloc(2, SIZE_MAX / 4); }, &failure), SYSS_OUT_OF_MEMORY);
    };
    EXPECT_EQ(guarded(nesting), SYSS_COMPLETED);
    EXPECT_EQ(failure.line, recorder.lines().back());
    EXPECT_EQ(told_by(failure), recorder.reports().back());
    EXPECT_EQ(guarded([] { throw std::bad_alloc(); }, &failure), SYSS_OUT_OF_MEMORY);
    EXPECT_STREQ(failure.message, "Out of memory");
}

TEST(Guard, ServesCallersInC) {
    const ReportRecorder recorder;
    SYSS_failure_t failure{};
    int reached = 0;
    EXPECT_EQ(raise_guarded_in_c(&failure, &reached), SYSS_RAISED);
    EXPECT_EQ(reached, 1);
    EXPECT_EQ(told_by(failure), raised("c_module", 17, "raised in C"));
    EXPECT_EQ(leave_by_long_jump_in_c(99), 99);
}

}  // namespace
