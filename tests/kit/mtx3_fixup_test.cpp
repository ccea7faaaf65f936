// The fix-up of frames, which the interface does not reach by itself.
#include "kit/mtx3_privileged.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>

#include "support/random.h"
#include "support/reports.h"
#include "support/rotation.h"
#include "support/session.h"

namespace {

using namespace ztmath_test;

struct Fixed {
    bool done;
    Matrix matrix;
};

Fixed fixed(const Matrix& m) {
    ztmath::Mat3 value = ztmath::load_mat3(m.data());
    const bool done = ztmath::fixup(value);
    Fixed result{done, {}};
    ztmath::store(value, result.matrix.data());
    return result;
}

/// The log line and the note for an element that moved.
void append_moved(Reports& reports, int index, double before, double after) {
    char text[200];
    std::snprintf(text, sizeof text, "Element %d of matrix modified from %25.15f to %25.15f", index,
                  before, after);
    reports.push_back(log_line("MTX3_fixup: " + std::string(text) + "\n"));
    reports.push_back(note("mtx3_privileged", text));
}

TEST(Mtx3Fixup, SnapsElementsOfXAndYWithinTheTolerance) {
    const ReportRecorder recorder;
    const double edge = 1.0e-10;
    const auto x_after = [](double first, double second) {
        return fixed({first, second, 0, 0, 0, 1, 9, 9, 9}).matrix;
    };
    EXPECT_EQ(x_after(1, -edge)[1], 0.0);
    EXPECT_EQ(recorder.reports(), Reports{});  // not moved by more
    EXPECT_EQ(x_after(1, std::nextafter(edge, 1))[1], std::nextafter(edge, 1));
    EXPECT_EQ(x_after(1 - 0.99e-10, 0.5)[0], x_after(1, 0.5)[0]);
    EXPECT_NE(x_after(1 - 1.01e-10, 0.5)[0], x_after(1, 0.5)[0]);
    EXPECT_EQ(x_after(-1 - 0.99e-10, 0.5)[0], x_after(-1, 0.5)[0]);
}

TEST(Mtx3Fixup, MakesAFrameAndReportsWhatItMoved) {
    Random random;
    for (int round = 0; round < rounds(1000); ++round) {
        const CheckingLevel checking(round % 2);
        Matrix m = random_rotation(random);
        const double drift = std::pow(10, random.uniform(-14, -2));
        for (double& element : m)
            element += drift * random.uniform(-1, 1);
        const ReportRecorder recorder;
        const auto [done, frame] = fixed(m);
        ASSERT_TRUE(done);
        ASSERT_LT(rotation_defect(frame), 2.0e-15);
        ASSERT_LT(distance(frame, m), 1.0e-9 + 10 * drift);
        Reports expected;
        for (int i = 0; i < 6; ++i) {
            const auto k = static_cast<std::size_t>(i);
            if (std::fabs(frame[k] - m[k]) > 1.0e-10) append_moved(expected, i, m[k], frame[k]);
        }
        ASSERT_EQ(recorder.reports(), expected) << "made at every level";
    }
}

TEST(Mtx3Fixup, StopsAtANullRowAndNotesItWhenChecking) {
    for (const int level : {0, 1}) {
        const CheckingLevel checking(level);
        const ReportRecorder recorder;
        EXPECT_FALSE(fixed({1.0e-10, -1.0e-10, 0, 0, 1, 0, 0, 0, 1}).done);
        EXPECT_FALSE(fixed({0, 2, 0, 0, 0, 1.0e-10, 0, 0, 1}).done);
        const Reports noted = {note("mtx3_privileged", "X vector of matrix is zero"),
                               note("mtx3_privileged", "Y vector of matrix is zero")};
        EXPECT_EQ(recorder.reports(), level > 0 ? noted : Reports{});
    }
}

TEST(Mtx3Fixup, SucceedsWithoutAFrameWhereXAndYAreParallel) {
    const ReportRecorder recorder;
    const auto [done, frame] = fixed({0, 3, 0, 0, -2, 0, 0, 0, 1});
    EXPECT_TRUE(done);
    EXPECT_EQ(frame, (Matrix{0, 1, 0, 0, 0, 0, 0, 0, 0}));
    Reports expected;
    append_moved(expected, 1, 3, 1);
    append_moved(expected, 4, -2, 0);
    EXPECT_EQ(recorder.reports(), expected);
}

}  // namespace
