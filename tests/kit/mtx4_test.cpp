// 4x4 transforms.
#include "ztmath/mtx4.h"

#include "support/support.h"
#include "ztmath/mc.h"
#include "ztmath/solve.h"

namespace {

using namespace ztmath_test;

using Transform = std::array<double, 16>;

constexpr Transform still = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

Transform rotation(const Vector& point, const Vector& axis, double angle, bool done = true) {
    return built<Transform, 0>(done, MTX4_rotation, point, axis, angle);
}

Transform mirror(const Vector& point, const Vector& normal, bool done = true) {
    return built<Transform, 0>(done, MTX4_mirror, point, normal);
}

/// The motion of frames that are given by two directions, none of them unit.
Transform motion(const Frame& from, const Frame& to, bool done = true) {
    return built<Transform, 0>(done, MTX4_csys_to_csys, from.origin,
                               scaled(row(from.axes, 0), 1.0e5), scaled(row(from.axes, 1), 0.3),
                               to.origin, scaled(row(to.axes, 0), 0.7),
                               scaled(row(to.axes, 1), 1.0e-5));
}

/// Where a transform of a last row that changes nothing takes a point, and a vector.
void expect_image(const Transform& m, const Vector& p, const Vector& expected) {
    EXPECT_EQ((std::array{m[12], m[13], m[14], m[15]}), (std::array{0.0, 0.0, 0.0, 1.0}));
    EXPECT_LT(distance(written(MC_apply_transform_to_point, m, p), expected), 3.0e-14);
    const Vector turned = written(MC_apply_transform_to_vector, m, p);
    EXPECT_LT(distance(moved(turned, 1, {m[3], m[7], m[11]}), expected), 3.0e-14);
}

TEST(Mtx4Builders, MakeTransformsThatDoWhatTheySay) {
    const CheckingLevel on(1);
    const ReportRecorder recorder;
    Random random;
    for (int round = 0; round < rounds(2000) && !testing::Test::HasFailure(); ++round) {
        const Frame frame(random), from(random), to(random);
        const Vector direction = scaled(row(frame.axes, 2), std::exp(random.uniform(-20, 20)));
        const Vector p = random.vector(), factors = random.vector();
        const double angle = random.uniform(-400, 400), radians = angle * pi / 180;
        const double c = std::cos(radians), s = std::sin(radians);
        expect_image(rotation(frame.origin, direction, angle), frame.at(p),
                     frame.at({c * p[0] - s * p[1], s * p[0] + c * p[1], p[2]}));
        expect_image(mirror(frame.origin, direction), frame.at(p), frame.at({p[0], p[1], -p[2]}));
        expect_image(motion(from, to), from.at(p), to.at(p));
        expect_image(written<Transform>(MC_calc_csys_to_csys_transform, from, to), from.at(p),
                     to.at(p));
        Vector scaled_up = frame.origin;
        for (std::size_t k = 0; k < 3; ++k)
            scaled_up[k] += factors[k] * (p[k] - frame.origin[k]);
        expect_image(written<Transform>(MTX4_scaling, frame.origin, factors), p, scaled_up);
    }
    EXPECT_EQ(recorder.reports(), Reports{});
}

TEST(Mtx4Builders, RefuseNullDirections) {
    const Vector null = {0.99e-10, 0, 0}, short_one = {1.01e-10, 0, 0}, o = {1, 2, 3};
    rotation(o, null, 30, false);
    rotation(o, short_one, 30);
    mirror(o, null, false);
    mirror(o, short_one);
    const Frame good(o, identity);
    for (const std::size_t axis : {0, 1}) {
        Frame bad = good;
        bad.axes[4 * axis] = 0;
        motion(good, bad, false);
        motion(bad, good, false);
    }
    // Directions that are not perpendicular stand for the absolute axes.
    const Frame skew({1, 0, 0}, {1, 1, 0, 1, 0, 0}), turned({0, 5, 0}, {0, 1, 0, -1, 0, 0});
    expect_image(motion(skew, turned), {3, 0, 0}, {0, 7, 0});
}

TEST(Mtx4Rotation, TakesItsOwnDegreeAndAssertsItsResult) {
    const Vector z = {0, 0, 1};
    EXPECT_EQ(rotation({1, 2, 3}, z, -90), rotation({1, 2, 3}, {0, 0, -1}, 90));
    EXPECT_EQ(rotation(z, z, 180)[4], std::sin(180 * 0.01745329251994328)) << "not of pi / 180";
    expect_reports_when_checking([&] { rotation(z, z, NAN); },
                                 {assertion("mtx3", "MTX3_is_ortho_normal (r)")});
}

TEST(Mtx4Multiply, SumsRowsOfTheSecondOverTheFirst) {
    Random random;
    const Transform a = random.vector<16>(), b = random.vector<16>();
    Transform transposed, expected{};
    for (std::size_t i = 0; i < 4; ++i)
        for (std::size_t j = 0; j < 4; ++j) {
            transposed[4 * j + i] = a[4 * i + j];
            for (std::size_t k = 0; k < 4; ++k)
                expected[4 * i + j] += b[4 * i + k] * a[4 * k + j];
        }
    EXPECT_EQ(written<Transform>(MTX4_multiply, a, b), expected);
    EXPECT_EQ(written<Transform>(MTX4_multiply_t, transposed, b), expected);
}

/// The inverse by the solver of systems of any size.
int solve_for_inverse(Transform lu, Transform& inverse) {
    const auto rows_of = [](Transform& m) { return std::array{&m[0], &m[4], &m[8], &m[12]}; };
    inverse = still;
    return SOLVE_lu_solver(rows_of(lu).data(), rows_of(inverse).data(), 4, 4);
}

TEST(Mtx4Invert, HasTheBitsOfTheDecomposition) {
    const double special[] = {0, 0, -0.0, 1, -1, 0.5, 1.0e-300, 1.0e300, HUGE_VAL, -HUGE_VAL, NAN};
    const auto same = [](double x, double y) {
        return std::isnan(x) ? std::isnan(y) : x == y && std::signbit(x) == std::signbit(y);
    };
    Random random;
    for (int round = 0; round < rounds(20000); ++round) {
        // Whole numbers tie pivots and make zero ones.
        Transform m;
        for (double& element : m) {
            element = round % 2 == 0 ? random.normal() : random.integer(-2, 2);
            if (random.integer(0, 20) < round % 3) element = special[random.integer(0, 10)];
        }
        Transform expected;
        const bool done = solve_for_inverse(m, expected) == 0;
        const auto out = built<Transform, 0>(done, MTX4_invert, m);
        ASSERT_TRUE(!done || std::equal(out.begin(), out.end(), expected.begin(), same))
            << testing::PrintToString(m);
    }
}

TEST(Mtx4IsEqual, ComparesElementsAndOrthonormality) {
    for (std::size_t i = 0; i < 16; ++i) {
        Transform a{}, b{};  // neither is orthonormal
        b[i] = -0.5;
        EXPECT_EQ(called(MTX4_is_equal, a, b, 0.5), 1);
        EXPECT_EQ(called(MTX4_is_equal, a, b, std::nextafter(0.5, 0)), 0) << i;
    }
    Transform m = still;
    m[0] = 1 + 1.0e-13;
    EXPECT_EQ(MTX4_is_identity(m.data(), 1), 0);
    EXPECT_EQ(MTX4_is_equal(m.data(), m.data(), 0), 1);
    EXPECT_EQ(MTX4_is_equal_transform(m.data(), still.data(), 1, 0, 0), 0);
    m = {1, 0, 0, 3, 0, 1, 0, 0, 0, 0, 1, 4, 2, 0, 0, 1.5};
    EXPECT_EQ(MTX4_is_ortho_normal(m.data()), 1);
    EXPECT_EQ(MTX4_is_identity(m.data(), 4), 1);
    EXPECT_EQ(MTX4_is_identity(m.data(), 3.9), 0);
    EXPECT_EQ(MTX4_is_equal_transform(m.data(), m.data(), 0, 0, 0), 1);
    EXPECT_EQ(MTX4_is_equal_transform(m.data(), still.data(), 0, 5, 0.5), 1);
    EXPECT_EQ(MTX4_is_equal_transform(m.data(), still.data(), 0, 4.9, 0.5), 0);
    EXPECT_EQ(MTX4_is_equal_transform(m.data(), still.data(), 0, 5, 0.4), 0);
}

TEST(Mtx4Repair, ChangesTheBlockOnly) {
    const Transform drifted = {1, 0, 1.0e-11, 3, 0, 1, 0, 5, 0, 0, 1, 7, 9, 11, 13, 15};
    const Transform repaired = {1, 0, 0, 3, 0, 1, 0, 5, 0, 0, 1, 7, 9, 11, 13, 15};
    const auto repair_both = [&] {
        EXPECT_EQ(changed(MTX4_ortho_normalize, drifted), (std::pair{1, repaired}));
        EXPECT_EQ(changed(MTX4_ortho_normalize, repaired), (std::pair{0, repaired}));
        EXPECT_EQ(changed(MTX4_fixup, drifted), (std::pair{1, repaired}));
    };
    expect_reports_when_checking(repair_both, {});
}

using Fixed = std::pair<int, Matrix>;

/// What the fix-up returns and makes of a block.
Fixed fixed(const Matrix& m) {
    const auto [done, t] = changed(MTX4_fixup, Transform{m[0], m[1], m[2], 0, m[3], m[4], m[5], 0,
                                                         m[6], m[7], m[8], 0, 0, 0, 0, 1});
    return {done, {t[0], t[1], t[2], t[4], t[5], t[6], t[8], t[9], t[10]}};
}

TEST(Mtx4Fixup, SnapsElementsOfXAndYWithinTheTolerance) {
    const ReportRecorder recorder;
    const double edge = 1.0e-10;
    const auto x_after = [](double first, double second) {
        return row(fixed({first, second, 0, 0, 0, 1, 9, 9, 9}).second, 0);
    };
    EXPECT_EQ(x_after(1, -edge)[1], 0.0);
    EXPECT_EQ(recorder.reports(), Reports{});  // not moved by more
    EXPECT_EQ(x_after(1, up(edge))[1], up(edge));
    for (const double one : {1, -1}) {
        const double snapped = x_after(one, 0.5)[0];
        EXPECT_DOUBLE_EQ(snapped, one * std::sqrt(0.8));
        EXPECT_EQ(x_after(one - 0.99e-10, 0.5)[0], snapped);
        EXPECT_NE(x_after(one - 1.01e-10, 0.5)[0], snapped);
    }
}

TEST(Mtx4Fixup, MakesAFrameAndReportsWhatItMovedAtEveryLevel) {
    const std::string moved[] = {
        "Element 1 of matrix modified from         3.000000000000000 to         1.000000000000000",
        "Element 4 of matrix modified from        -2.000000000000000 to         0.000000000000000",
        "Element 2 of matrix modified from         5.000000000000000 to         1.000000000000000",
        "Element 5 of matrix modified from         3.000000000000000 to         0.000000000000000"};
    Reports expected;
    for (const std::string& text : moved) {
        expected.push_back(log_line("MTX3_fixup: " + text + "\n"));
        expected.push_back(note("mtx3_privileged", text));
    }
    for (const int level : {0, 1}) {
        const CheckingLevel checking(level);
        const ReportRecorder recorder;
        EXPECT_EQ(fixed({0, 3, 0, 0, -2, 0, 0, 0, 1}), (Fixed{1, {0, 1, 0, 0, 0, 0, 0, 0, 0}}))
            << "parallel X and Y succeed without a frame";
        EXPECT_EQ(fixed({0, 0, 5, 1, 0, 3, 9, 9, 9}), (Fixed{1, {0, 0, 1, 1, 0, 0, 0, 1, 0}}));
        EXPECT_EQ(recorder.reports(), expected);
    }
}

TEST(Mtx4Fixup, StopsAtANullRowAndNotesItWhenChecking) {
    const auto stop = [] {
        EXPECT_EQ(fixed({1.0e-10, -1.0e-10, 0, 0, 1, 0, 0, 0, 1}),
                  (Fixed{0, {0, 0, 0, 0, 1, 0, 0, 0, 1}}));
        EXPECT_EQ(fixed({0, 2, 0, 0, 0, 1.0e-10, 0, 0, 1}),
                  (Fixed{0, {0, 1, 0, 0, 0, 0, 0, 0, 1}}));
    };
    expect_reports_when_checking(stop, {note("mtx3_privileged", "X vector of matrix is zero"),
                                        note("mtx3_privileged", "Y vector of matrix is zero")});
}

}  // namespace
