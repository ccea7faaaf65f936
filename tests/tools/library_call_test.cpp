// Calls of the library that fail.
#include "library_call.h"
#include "support/prelude.h"

#include <syss/host.h>

namespace {

using namespace tool;

template <class Body>
std::string failure_of(Body body) {
    try {
        call_library(body);
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.code, ExitCode::library);
        return failure.message;
    }
    return "";
}

TEST(LibraryCall, TurnsEveryFailureIntoAMessage) {
    EXPECT_EQ(failure_of([] { ERROR_raise("bcdf", 1, 42, "No such curve."); }),
              "bcdf: No such curve. (reason 42)");
    EXPECT_EQ(failure_of([] { SM_alloc(SIZE_MAX); }), "out of memory");
    EXPECT_EQ(failure_of([] { ERROR_internal("lsfit", 1, "No points."); }), "lsfit: No points.");
}

TEST(LibraryCall, LetsRemarksPassAndRestoresTheHandler) {
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(failure_of([] { ERROR_note("mtx3", 7, "repaired %d", 3); }), "");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "ztmath: note from mtx3: repaired 3\n");
    EXPECT_EQ(SYSS_set_report_handler({nullptr, nullptr}).call, nullptr);
}

}  // namespace
