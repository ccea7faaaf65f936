// Rotation matrices and frames.
#include "ztmath/mtx3.h"

#include "support/support.h"
#include "ztmath/vec3.h"

namespace {

using namespace ztmath_test;

constexpr auto frame_of = [](auto build, const auto&... directions) {
    return built<Matrix, 1>(true, build, directions...);
};

TEST(Mtx3Frames, KeepTheDirectionsTheyAreBuiltFrom) {
    const CheckingLevel on(1);
    const ReportRecorder recorder;
    Random random;
    for (int round = 0; round < rounds(3000); ++round) {
        const Matrix r = random_rotation(random);
        const double size = std::exp(random.uniform(-15, 15));
        const Vector x = scaled(row(r, 0), size);
        const Vector y = scaled(row(r, 1), 3 / size);
        const Vector z = scaled(row(r, 2), 2);

        ASSERT_LT(distance(frame_of(MTX3_init, x, y), r), 1.0e-15);
        ASSERT_LT(distance(frame_of(MTX3_init_y_z, y, z), r), 1.0e-15);
        ASSERT_EQ(frame_of(MTX3_init_x_y_z, x, y, scaled(z, -1)), frame_of(MTX3_init, x, y))
            << "z is tested and not used, whichever way it points";

        const Vector across = written(VEC3_ask_perpendicular, x);
        ASSERT_LT(distance(frame_of(MTX3_init_x, x), frame_of(MTX3_init, x, across)), 1.0e-15);
        const Matrix of_z = frame_of(MTX3_init_z, z);
        ASSERT_LT(rotation_defect(of_z), 2.0e-15);
        ASSERT_LT(distance(row(of_z, 2), row(r, 2)), 1.0e-15);
    }
    EXPECT_EQ(recorder.reports(), Reports{});
}

TEST(Mtx3Frames, AcceptDirectionsThatArePerpendicularWithinTheTolerance) {
    const Vector x = {1, 0, 0}, z = {0, 0, 1}, null = {0, 1.0e-10, 0};
    const std::pair<Vector, int> rows[] = {{{1.0e-10, 1, 0}, 1},     {{up(1.0e-10), 1, 0}, 0},
                                           {{-1.0e-10, 1, 0}, 1},    {{-up(1.0e-10), 1, 0}, 0},
                                           {{0, up(1.0e-10), 0}, 1}, {null, 0}};
    for (const auto& [y, accepted] : rows) {
        for (const auto build : {MTX3_init, MTX3_init_y_z, MTX2_init}) {
            built<Matrix, 1>(accepted, build, x, y);
            built<Matrix, 1>(accepted, build, y, x);
        }
        const Vector three[] = {x, y, z, x, y};
        for (const Vector* turn : {three, three + 1, three + 2})
            built<Matrix, 1>(accepted, MTX3_init_x_y_z, turn[0], turn[1], turn[2]);
    }
    built<Matrix, 1>(false, MTX3_init_x, null);
    built<Matrix, 1>(false, MTX3_init_z, null);
    EXPECT_EQ(frame_of(MTX3_init, x, Vector{1.0e-11, 1, 0}), identity) << "Y is rebuilt";
    EXPECT_EQ(written<Matrix>(MTX3_rot_about_axis, NAN, Vector{0, 0, 1.0e-10}), identity);
}

TEST(Mtx3Frames, OfZChooseXByTheSteepnessOfZ) {
    const auto x_of = [](double y) {  // Z has a length of exactly 1
        return row(frame_of(MTX3_init_z, Vector{0, y, std::sqrt(1 - y * y)}), 0);
    };
    EXPECT_EQ(x_of(0.9), (Vector{1, 0, 0})) << "along the absolute Y axis crossed with Z";
    EXPECT_LT(distance(x_of(up(0.9)), {0, std::sqrt(0.19), -0.9}), 1.0e-15) << "Z crossed with X";
    EXPECT_EQ(x_of(-0.9), (Vector{1, 0, 0}));
    EXPECT_EQ(x_of(-1), (Vector{0, 0, 1}));
}

TEST(Mtx3Frames, AreTakenAsTheyStandOrOfEitherHandedness) {
    EXPECT_EQ(written<Matrix>(MTX3_init_no_check, Vector{1, 2, 3}, Vector{4, 5, 7}),
              (Matrix{1, 2, 3, 4, 5, 7, -1, 5, -3}));
    const std::array up_axis = {0.0, 2.0}, right_axis = {3.0, 0.0};
    EXPECT_EQ((written<std::array<double, 4>>(MTX2_init, up_axis, right_axis)),
              (std::array{0.0, 1.0, 1.0, 0.0}));
}

TEST(Mtx3, AssertsThatWhatItBuildsIsOrthonormal) {
    const Vector x = {1, 0, 0}, bad = {0, NAN, 0};
    const CheckingLevel on(1);
    const ReportRecorder recorder;
    written<Matrix>(MTX3_rot_about_axis, HUGE_VAL, x);
    written<Matrix>(MTX3_init, x, bad);
    written<Matrix>(MTX3_init_roll_pitch_yaw, NAN, 0, 0);
    const Report not_finite = assertion("vec3", "VEC3_is_finite (u)");
    const Report not_normal = assertion("mtx3", "MTX3_is_ortho_normal (r)");
    EXPECT_EQ(recorder.reports(), (Reports{not_normal, not_finite, not_finite, not_normal,
                                           assertion("mtx3", "MTX3_is_ortho_normal (rot_mat)")}));
}

TEST(Mtx3IsOrthoNormal, HasAFixedToleranceOnRowsAndPairs) {
    for (std::size_t i = 0; i < 9; ++i)
        for (const double sign : {1, -1}) {
            const auto is_normal_within = [&](double difference) {
                Matrix m = identity;
                m[i] += sign * difference;
                return MTX3_is_ortho_normal(m.data());
            };
            // The square of an element on the diagonal is off by twice what it is off itself.
            EXPECT_EQ(is_normal_within(i % 4 == 0 ? 4.9e-15 : 1.0e-14), 1) << i;
            EXPECT_EQ(is_normal_within(i % 4 == 0 ? 5.1e-15 : up(1.0e-14)), 0) << i;
        }
    EXPECT_EQ(called(MTX3_is_ortho_normal, Matrix{1, 0, 0, 0, 1, 0, 0, 0, -1}), 1) << "left-handed";
}

TEST(Mtx3IsEqual, ComparesElementsAndOrthonormality) {
    for (std::size_t i = 0; i < 9; ++i) {
        Matrix a{}, b{};  // neither is orthonormal
        b[i] = -0.5;
        EXPECT_EQ(called(MTX3_is_equal, a, b, 0.5), 1);
        EXPECT_EQ(called(MTX3_is_equal, a, b, std::nextafter(0.5, 0)), 0);
    }
    const Matrix drifted = {1, 0, 0, 0, 1 + 1.0e-13, 0, 0, 0, 1};
    EXPECT_EQ(called(MTX3_is_equal, drifted, identity, 1), 0);
    EXPECT_EQ(called(MTX3_is_identity, drifted, 1), 0);
    EXPECT_EQ(called(MTX3_is_identity, identity, 0), 1);
    EXPECT_EQ(called(MTX3_is_identity, Matrix{-1, 0, 0, 0, -1, 0, 0, 0, 1}, 1.9), 0);
}

TEST(Mtx3Multiply, CarriesTheRowsOfTheSecondThroughTheFirst) {
    const Matrix turn = {0, 1, 0, -1, 0, 0, 0, 0, 1}, any = {1, 2, 3, 4, 5, 6, 7, 8, 10};
    for (const auto& [a, b] : {std::pair{turn, any}, {any, turn}}) {
        EXPECT_EQ((built<Matrix, 0>(true, MTX3_multiply, a, b)), product(b, a));
        EXPECT_EQ((built<Matrix, 0>(true, MTX3_multiply_t, a, b)), product(b, transposed(a)));
    }
    // Two matrices that pass as orthonormal make one that does not, and it is repaired.
    const double s = 1 + 4.0e-15;
    for (const auto multiply : {MTX3_multiply, MTX3_multiply_t}) {
        const Matrix r = {s, 0, 0, 0, s, 0, 0, 0, s};
        EXPECT_EQ((built<Matrix, 1>(true, multiply, r, r)), identity);
        EXPECT_EQ((built<Matrix, 0>(true, multiply, identity, identity)), identity);
    }
}

TEST(Mtx3OrthoNormalize, BringsADriftedRotationBack) {
    Random random;
    for (int round = 0; round < rounds(5000); ++round) {
        const Matrix r = random_rotation(random);
        // Where cosines and sines of the angles are far from 0 the repair is well conditioned.
        const auto small = [&](std::size_t i) { return std::fabs(r[i]) < 0.05; };
        if (small(0) || small(3) || small(6) || small(7) || small(8)) continue;
        const double drift = std::pow(10, random.uniform(-16, -2));
        Matrix drifted = r;
        for (double& element : drifted)
            element += drift * random.uniform(-1, 1);
        const auto [done, m] = changed(MTX3_ortho_normalize, drifted);
        ASSERT_EQ(done, !called(MTX3_is_ortho_normal, drifted));
        ASSERT_EQ(m != drifted, done == 1);
        ASSERT_EQ(called(MTX3_is_ortho_normal, m), 1);
        ASSERT_LT(distance(m, r), 1.0e-15 + 60 * drift) << "drift " << drift;
    }
}

Matrix repaired(Matrix m) {
    EXPECT_EQ(MTX3_ortho_normalize(m.data()), 1);
    return m;
}

TEST(Mtx3OrthoNormalize, KeepsPerpendicularXAndZAndSnapsRowsToTheAxes) {
    const double small = 0.9e-10;
    const Matrix rows[][2] = {
        {{2, 0, 0, 5, 6, 7, 0, 0, 0.5}, identity},
        // X is short and still counts.
        {{0, 1.1e-14, 0, 9, 9, 9, 0, 0, 1.0e6}, {0, 1, 0, -1, 0, 0, 0, 0, 1}},
        // No longer than this, X and Z do not: yaw is read from Y, and no roll is half a turn.
        {{0, 1.0e-14, 0, 9, 9, 9, 0, 0, 1.0e6}, {0, -1, 0, 1, 0, 0, 0, 0, 1}},
        {{1.0e6, 0, 0, 9, 9, 9, 0, 1.0e-14, 0}, {1, 0, 0, 0, -1, 0, 0, 0, -1}},
        // A pitch of a right angle once the first element is 0, and roll is not read below.
        {{1.0e-10, 0, 1, 0, 1, 0, -1, 0, 0}, {0, 0, 1, 0, 1, 0, -1, 0, 0}},
        {{1e-11, 0.6, 0.8, 0, 0.8, -0.6, -1, 0, 0}, {0, 0.6, 0.8, 0, 0.8, -0.6, -1, 0, 0}},
        {{1e-11, -0.6, -0.8, 0, 0.8, -0.6, 1, 0, 0}, {0, -0.6, -0.8, 0, 0.8, -0.6, 1, 0, 0}},
        // As perpendicular as they have to be, to the bit: Y alone is made anew.
        {{2, 0, 0, 9, 9, 9, 5e-15, 0, 1}, {1, 0, -5e-15, 0, 1, 0, 5e-15, 0, 1}},
        {{}, {0, 0, 1, 0, -1, 0, 1, 0, 0}},  // a matrix of nothing becomes a rotation too
    };
    for (const auto& [m, expected] : rows)
        EXPECT_EQ(repaired(m), expected);
    const Matrix lost = {1.0e-12, 0, 0, 0, 1, 0, 0, 0, 1.0e-12};
    EXPECT_EQ(called(MTX3_is_ortho_normal, repaired(lost)), 0) << "neither way makes a frame of it";
    const Matrix m = {1 + small, small, 1.0e-3, small, 1 - small, small, 1.0e-3, -small, 0.999999};
    EXPECT_EQ(row(repaired(m), 0), row(identity, 0)) << "after an element snapped to 1 come zeros";
    // So what the angles are read from is gone, unless the element is 1 as it stands.
    const double one = 1 - small;
    const Vector y = row(identity, 1);
    EXPECT_EQ(row(repaired({0.8, 0, 0.1, 0.3, one, 0, 0.1, 0, 0.9}), 1), y);
    EXPECT_NE(row(repaired({0.8, 0, 0.1, 0.3, 1, 0, 0.1, 0, 0.9}), 1), y);
    EXPECT_EQ(row(repaired({0.8, 0.1, 0.1, 0.1, 0.8, 0.1, 0.3, one, 0.4}), 2), y);
    EXPECT_EQ(row(repaired({1e-11, 0.2, one, 0, 0.6, 0.3, -1, 0, 0}), 1), y);
    for (const double up : {1, -1}) {
        EXPECT_EQ(row(repaired({1e-11, 0.2, 1, 0, up * one, 0.3, -1, 0, 0}), 1), scaled(y, up));
        // The angles are read from what has snapped: here 45 degrees.
        EXPECT_NEAR(repaired({up, 0, 0, up * one, 0, 0, -1, 0, -1})[0], up * std::sqrt(0.5), 1e-15);
    }
}

}  // namespace
