// Roll, pitch and yaw.
#include "support/support.h"
#include "ztmath/mtx3.h"

namespace {

using namespace ztmath_test;

Matrix matrix_of(const Vector& angles) {
    return written<Matrix>(MTX3_init_roll_pitch_yaw, angles[0], angles[1], angles[2]);
}

Vector angles_of(const Matrix& m) {
    Vector angles;
    MTX3_ask_roll_pitch_yaw(m.data(), &angles[0], &angles[1], &angles[2]);
    return angles;
}

std::vector<Vector> all_angles_of(const Matrix& m) {
    int count = -1;
    Vector triples[8];
    MTX3_ask_all_roll_pitch_yaw(m.data(), &count, triples[0].data());
    return {triples, triples + count};
}

/// The distance of angles on the circle.
double turn_between(const Vector& a, const Vector& b) {
    Vector turn;
    for (std::size_t i = 0; i < 3; ++i)
        turn[i] = std::remainder(a[i] - b[i], 2 * pi);
    return distance(turn, {});
}

Matrix rotation_about(std::size_t axis, double angle) {
    return written<Matrix>(MTX3_rot_about_axis, angle, row(identity, axis));
}

TEST(RollPitchYaw, AreTurnsAboutXThenYThenZAndComeBack) {
    Random random;
    for (int round = 0; round < rounds(5000); ++round) {
        const Vector a = {random.uniform(-10, 10), random.uniform(-pi / 2, pi / 2),
                          random.uniform(-10, 10)};
        const Matrix turns = product(rotation_about(2, a[2]),
                                     product(rotation_about(1, a[1]), rotation_about(0, a[0])));
        ASSERT_LT(distance(matrix_of(a), turns), 1.0e-15);
        double least = 1;  // a pair's smaller member is rebuilt from the larger one
        for (const double angle : a)
            least = std::fmin(least, std::fabs(std::sin(2 * angle)) / 2);
        if (least < 1.0e-3) continue;
        const double rounding = 6.0e-15 / least / least;
        ASSERT_LT(turn_between(angles_of(turns), a), rounding);
        const auto all = all_angles_of(turns);
        ASSERT_EQ(all.size(), 2U);
        ASSERT_LT(std::min(turn_between(all[0], a), turn_between(all[1], a)), rounding);
    }
}

TEST(RollPitchYaw, AreCleanedTowardsRightAngles) {
    // A pair counts as a right angle from a cosine or sine of 0.9999999999 on: within 1.41e-5.
    for (const double quarter : {0.0, pi / 2, -pi / 2, pi})
        for (const double off : {1.0e-11, -1.0e-8, 1.40e-5, -1.40e-5}) {
            const Vector angles = angles_of(matrix_of({quarter + off, 0.3, quarter - off}));
            EXPECT_LT(turn_between(angles, {quarter, 0.3, quarter}), 1.0e-15) << quarter << off;
        }
    const Vector beyond = {1.43e-5, 0.3, -1.43e-5};
    EXPECT_LT(turn_between(angles_of(matrix_of(beyond)), beyond), 1.0e-10);

    // Kept: a cosine of exactly 0 beside a sine of 0 counts as -1.
    EXPECT_EQ(angles_of({}), (Vector{pi, -pi / 2, 0}));
    const double edge = 0.9999999999;  // itself no right angle
    EXPECT_GT(angles_of({0.8, 0, 0, 0.6, 1, 0, 0, 0.3, edge})[0], 1.4e-5);
    EXPECT_LT(angles_of({0.8, 0, 0, 0.6, 1, 0, 0, edge, 0.3})[0], pi / 2 - 1.4e-5);
    EXPECT_EQ(angles_of({0.8, 0, 0, 0.6, 1, 0, 0, 0.3, 1e-10})[0], pi / 2) << "as small as may be";
    const double sine = std::sin(0.005), cosine = std::cos(0.005);  // of length 1, and so exact
    EXPECT_EQ(angles_of({0.8, 0, 0, 0.6, 1, 0, 0, sine, cosine})[0], std::atan2(sine, cosine));
    // A pair of length other than 1 is rebuilt from its larger member.
    EXPECT_DOUBLE_EQ(angles_of({0.8, 0, 0, 0.6, 1, 0, 0, 0.3, 0.6})[0], std::atan2(0.8, 0.6));
    EXPECT_DOUBLE_EQ(angles_of({0.8, 0, 0, 0.6, 1, 0, 0, 0.6, 0.6})[0], std::atan2(0.6, 0.8));
}

TEST(RollPitchYaw, AtAPitchOfARightAngleGiveAllTheTurnToRoll) {
    for (const double up : {1.0, -1.0})
        for (const double turn : {0.0, 0.4, -2.5, 3.1}) {
            // m0 and m3 are exactly 0 here; m1 and m4 hold the difference or sum of roll and yaw.
            const double s = std::sin(turn), c = std::cos(turn);
            const Vector angles = angles_of({0, s * up, c * up, 0, c, -s, -up, 0, 0});
            EXPECT_LT(turn_between(angles, {turn, up * pi / 2, 0}), 1.0e-14) << up << ' ' << turn;
        }
    // The squared cosine of pitch decides, 1e-20 itself counting as a right angle.
    const double next = 1.0e-10;  // its square, rounded, is above 1e-20
    const double edge = std::nextafter(next, 0);
    const double aside = 8.68e-19;  // with which it is 1e-20
    EXPECT_EQ(angles_of({edge, 0, 1, aside, 1, 0, -1, 0, 0})[0], 0.0);
    EXPECT_EQ(angles_of({next, 0, 1, 0, 1, 0, -1, 0, 0})[0], pi) << "m7 and m8 are read here";
}

TEST(AllRollPitchYaw, StandInAFixedOrder) {
    const std::pair<Vector, std::vector<Vector>> rows[] = {
        {{0.1, 0.2, 0.3}, {{0.1, 0.2, 0.3}, {pi + 0.1, pi - 0.2, pi + 0.3}}},
        {{pi / 2, 0.2, 0.3},
         {{pi / 2, 0.2, 0.3}, {-pi / 2, pi - 0.2, pi + 0.3}, {3 * pi / 2, pi - 0.2, pi + 0.3}}},
        {{0.7, pi / 2, 0.2}, {{0.5, pi / 2, 0}, {0, pi / 2, -0.5}}},  // only roll - yaw counts
        {{2.7, pi / 2, 0.2}, {{2.5 - 2 * pi, pi / 2, 0}, {0, pi / 2, 2 * pi - 2.5}}},
        {{0.7, -pi / 2, 0.2}, {{0.9, -pi / 2, 0}, {0, -pi / 2, 0.9}}},  // only roll + yaw
        {{2.7, -pi / 2, 0.2}, {{2.9, -pi / 2, 0}, {0, -pi / 2, 2.9}}},
        {{0.2, pi / 2, 0.2}, {{0, pi / 2, 0}}},  // both zero is one triple
    };
    for (const auto& [angles, expected] : rows) {
        const auto all = all_angles_of(matrix_of(angles));
        ASSERT_EQ(all.size(), expected.size()) << testing::PrintToString(angles);
        for (std::size_t i = 0; i < all.size(); ++i)
            EXPECT_LT(distance(all[i], expected[i]), 1.0e-9) << testing::PrintToString(angles);
    }
    // Upwards and downwards, a third element that is off by the tolerance is still the cosine's.
    for (const double up : {1, -1}) {
        const Matrix m = {0, -up, 1e-10 + up * std::cos(pi / 2), 0, 0, 1, -up, 0, 0};
        EXPECT_EQ(all_angles_of(m).at(0), (Vector{-pi / 2, up * pi / 2, 0}));
    }
}

TEST(AllRollPitchYaw, TestSixElementsWithinTheTolerance) {
    for (const std::size_t i : {0, 1, 2, 4, 5, 8})
        for (const double off : {0.99e-10, -0.99e-10, 1.01e-10, -1.01e-10}) {
            Matrix m = matrix_of({0.1, 0.2, 0.3});
            m[i] += off;
            EXPECT_EQ(all_angles_of(m).size(), std::fabs(off) < 1.0e-10 ? 2U : 0U) << i;
        }
    EXPECT_EQ(all_angles_of({1, 1e-10, 0, 0, 1, 0, 0, 0, 1}).size(), 2U);
    const double upmost = 1 - 1e-14, rest = std::cos(std::asin(upmost));  // itself no right angle
    EXPECT_EQ(all_angles_of({0, upmost, rest, 0, rest, -upmost, -1, 0, 0}).size(), 2U);
    Matrix beyond = matrix_of({pi / 2, 0.2, 0.3});
    beyond[7] *= 1 + 1e-15;
    EXPECT_EQ(all_angles_of(beyond).size(), 3U) << "a sine of more than 1";
    // Pitch is taken as a right angle beyond a sine of 0.9999999999, itself not included.
    const double edge = 0.9999999999, cosine = std::sqrt(1 - edge * edge);
    Matrix m = {cosine, 0, edge, 0, 1, 0, -edge, 0, cosine};
    EXPECT_EQ(all_angles_of(m).size(), 2U);
    m[6] = -std::nextafter(edge, 1);
    EXPECT_TRUE(all_angles_of(m).empty()) << "no longer a rotation at exactly a right angle";
}

}  // namespace
