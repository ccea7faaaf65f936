#include "ztmath/bcdf_calc.h"

#include <gtest/gtest.h>

#include <numbers>

#include "support/curve_record.h"
#include "support/reports.h"
#include "support/session.h"
#include "support/shared_block.h"

namespace {

using namespace ztmath_test;

constexpr double pi = std::numbers::pi;

Vector on_circle(double angle) {
    return {std::cos(angle), std::sin(angle), 0.0};
}

Vector tangent(double angle) {
    return {-std::sin(angle), std::cos(angle), 0.0};
}

std::vector<double> flat(const std::vector<Vector>& points) {
    std::vector<double> all;
    for (const Vector& p : points)
        all.insert(all.end(), p.begin(), p.end());
    return all;
}

std::vector<double> circle_points(const std::vector<double>& angles) {
    std::vector<Vector> points;
    for (const double angle : angles)
        points.push_back(on_circle(angle));
    return flat(points);
}

Vector slope_at(const Record& record, int k) {
    return vector_in(record->slopes, k);
}

TEST(CurveCalculations, ParametersAndWeights) {
    const ReportRecorder recorder;
    const CheckingLevel checking(1);
    using Values = std::vector<double>;
    const auto parameters = [](const Values& points, int dimension, double exponent) {
        Values t(points.size() / static_cast<std::size_t>(dimension));
        BCDF_CALC_parameters(static_cast<int>(t.size()), dimension, points.data(), exponent,
                             t.data());
        return t;
    };
    EXPECT_EQ(parameters({0, 0, 0, 3, 4, 0, 3, 4, 12}, 3, 1.0), (Values{0, 5, 17}));
    EXPECT_EQ(parameters({0, 0, 0, 0, 0, 0, 0, 16}, 4, 0.5), (Values{0, 4}));
    // Points that are one get steps of n - 1.
    EXPECT_EQ(parameters({1, 1, 1, 1, 1, 1, 1, 1, 1}, 3, 1.0), (Values{0, 2, 4}));
    EXPECT_EQ(parameters({0, 2e-10}, 1, 1.0), (Values{0, 2e-10}));

    const Values t = {0, 1, 3};
    Values w(3);
    BCDF_CALC_weights(3, t.data(), w.data());
    EXPECT_EQ(w, (Values{0.5, 1.5, 1}));
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(BCDF_CALC_single_weight(3, t.data(), i), w[static_cast<std::size_t>(i)]);
    EXPECT_EQ(recorder.reports(), Reports{});
    EXPECT_EQ(BCDF_CALC_single_weight(1, t.data(), 0), 0.0);
    EXPECT_EQ(recorder.reports(), Reports{internal("bcdf_calc", "Not Enough Parameters")});

    const Record record = new_record(flat({{0, 0, 0}, {1, 0, 0}}), {2, 6});
    EXPECT_EQ(BCDF_CALC_denormalize_param(record.get(), 0.5), 4.0);
}

TEST(CurveCalculations, QuadraticsMeetTheirConditions) {
    Random random;
    for (int round = 0; round < rounds(300); ++round) {
        const Vector q[3] = {random.vector(), random.vector(), random.vector()};
        const double t[3] = {0.0, random.uniform(0.5, 1.5), random.uniform(2, 4)};
        for (int mode = 0; mode < 3; ++mode)
            for (int row = 0; row < 3; ++row) {
                double out[9];
                ASSERT_EQ(BCDF_CALC_quadratic_apprx(q[0].data(), q[1].data(), q[2].data(), t, mode,
                                                    t[row], 2, out),
                          0);
                const bool slope = mode == 3 - row;
                for (std::size_t j = 0; j < 3; ++j)
                    ASSERT_NEAR(out[j + (slope ? 3 : 0)], q[row][j], 1e-11) << mode << ' ' << row;
            }
    }
    double out[3] = {7, 7, 7};
    const double same[3] = {1, 1, 2};
    EXPECT_EQ(BCDF_CALC_quadratic_apprx(out, out, out, same, 0, 0.0, 0, out), 1);
    EXPECT_EQ(out[0], 7.0);
}

/// Points of a parabola have its derivatives everywhere, whatever slopes of it are given beside.
TEST(CurveCalculations, AutomaticDerivativesReproduceQuadratics) {
    Random random;
    for (int round = 0; round < rounds(200); ++round) {
        const Vector a = random.vector(), b = random.vector(), c = random.vector();
        const auto value = [&](double t) { return moved(moved(c, t, b), t * t, a); };
        const auto slope = [&](double t) { return moved(b, 2 * t, a); };
        const std::vector<double> t = {0, 1, random.uniform(1.5, 2.5), 3, 4.5};
        std::vector<Vector> points;
        for (const double at : t)
            points.push_back(value(at));
        const Record record = new_record(flat(points), t);
        for (const int type : {-1, 0, 1, 3}) {
            if (type >= 0)
                for (const int i : {1, 3})
                    BCDF_replace_slope(record.get(), slope(t[static_cast<std::size_t>(i)]).data(),
                                       i, type);
            for (int i = 0; i < 5; ++i) {
                double out[6];
                BCDF_CALC_auto_derivatives(record.get(), i, 2, out);
                ASSERT_LT(
                    distance(Vector{out[0], out[1], out[2]}, slope(t[static_cast<std::size_t>(i)])),
                    1e-10);
                ASSERT_LT(distance(Vector{out[3], out[4], out[5]}, scaled(a, 2)), 1e-10);
            }
        }
        // Of a periodic record the point before the closing one comes before point 0.
        points = {value(0), value(1), value(7), value(-2), value(0)};
        const Record ring = new_record(flat(points), {0, 1, 2, 3, 5});
        ring->periodicity = 1;
        Vector out;
        BCDF_CALC_auto_slope(ring.get(), 0, out.data());
        ASSERT_LT(distance(out, slope(0)), 1e-10);
    }
}

/// A slope of another type beside an end is mirrored, as a circle has it, and bends as
/// one; outwards at the last point.
TEST(CurveCalculations, EndsBesideADirectionBelongToACircle) {
    const std::vector<double> angles = {0.3, 0.9, 1.2, 2.0};
    for (const int type : {2, 4, 5}) {
        const Record record = new_record(circle_points(angles));
        for (const int i : {1, 2})
            BCDF_replace_slope(record.get(), tangent(angles[static_cast<std::size_t>(i)]).data(), i,
                               type);
        for (const int end : {0, 3}) {
            const double angle = angles[static_cast<std::size_t>(end)];
            double d[6];
            Vector curvature;
            BCDF_CALC_auto_derivatives(record.get(), end, 2, d);
            BCDF_CALC_auto_curvature(record.get(), end, curvature.data());
            EXPECT_LT(distance(Vector{d[0], d[1], d[2]}, tangent(angle)), 1e-14);
            EXPECT_LT(
                distance(Vector{d[3], d[4], d[5]}, scaled(on_circle(angle), end == 0 ? -1 : 1)),
                1e-14);
            EXPECT_NEAR(length(curvature), 1.0, 1e-14);
        }
    }
}

TEST(CurveCalculations, TypesAndMethodsGiveTheirLengths) {
    const Record record =
        new_record(flat({{0, 0, 0}, {3, 0, 0}, {3, 4, 0}, {0, 4, 0}}), {0, 2, 5, 6});
    const auto normalized = [&](int type, int position) {
        Vector v = {0, 7, 0};
        BCDF_CALC_normalized_slope(record.get(), type, position, v.data());
        return v;
    };
    const Vector as_given = {0, 7, 0};
    for (const int type : {0, 1, -1, 6})
        EXPECT_EQ(normalized(type, 1), as_given);
    Vector automatic;
    BCDF_CALC_auto_slope(record.get(), 1, automatic.data());
    EXPECT_NEAR(normalized(3, 1)[1], length(automatic), 1e-14);
    EXPECT_NEAR(normalized(2, 0)[1], 3.0 / 2, 1e-14);
    EXPECT_NEAR(normalized(2, 1)[1], 7.0 / 5, 1e-14);
    EXPECT_NEAR(normalized(2, 3)[1], 3.0, 1e-14);
    record->periodicity = 1;
    EXPECT_NEAR(normalized(2, 0)[1], 6.0 / 3, 1e-14);
    EXPECT_NEAR(normalized(2, 3)[1], 3.0, 1e-14);

    const double a[3] = {0, 0, 6};
    const double span = 4, chord = 10, none = 0;
    const auto legacy = [&](int method, const double& over, Vector v) {
        h813_(a, &over, &chord, &method, v.data());
        return v;
    };
    EXPECT_EQ(legacy(1, span, as_given), (Vector{0, 0, 6}));
    EXPECT_EQ(legacy(2, span, as_given), as_given);
    EXPECT_EQ(legacy(3, span, as_given), (Vector{0, 6, 0}));
    EXPECT_EQ(legacy(4, span, as_given), (Vector{0, 2.5, 0}));
    EXPECT_EQ(legacy(5, span, {0, -7, 0}), (Vector{0, -2.5, 0}));
    EXPECT_EQ(legacy(5, none, as_given), as_given);
    EXPECT_EQ(legacy(5, span, {0, 1e-11, 0}), (Vector{0, 1e-11, 0}));
    EXPECT_EQ(legacy(6, span, as_given), as_given);
}

/// Slopes of the circle at all points, of a type that gives them their length.
Record interpolated_circle(const std::vector<double>& angles, int type, int order) {
    Record record = new_record(circle_points(angles));
    record->order = order;
    for (int i = 0; i < static_cast<int>(angles.size()); ++i)
        BCDF_replace_slope(record.get(), tangent(angles[static_cast<std::size_t>(i)]).data(), i,
                           type);
    BCDF_update_slopes(record.get());
    return record;
}

/// Between points i and i + 1: the cubic or, with the circle's curvature, the quintic of Hermite.
Vector hermite(const Record& record, int i, double s, bool quintic) {
    const double* t = record->parameters->points;
    const double h = t[i + 1] - t[i];
    const Vector p = vector_in(record->points, i), q = vector_in(record->points, i + 1);
    const Vector u = slope_at(record, i), v = slope_at(record, i + 1);
    const auto combined = [&](double fp, double fu, double fv) {
        return moved(moved(moved(q, fp, moved(p, -1, q)), h * fu, u), h * fv, v);
    };
    if (!quintic)
        return combined((1 + 2 * s) * (1 - s) * (1 - s), s * (1 - s) * (1 - s), s * s * (s - 1));
    const double r = 1 - s;
    const Vector plain = combined(r * r * r * (1 + 3 * s + 6 * s * s), r * r * r * s * (1 + 3 * s),
                                  -s * s * s * r * (1 + 3 * r));
    const double bend_p = 0.5 * s * s * r * r * r * h * h * dot(u, u);
    const double bend_q = 0.5 * s * s * s * r * r * h * h * dot(v, v);
    return moved(moved(plain, -bend_p, p), -bend_q, q);
}

double deviation(const Record& record, bool quintic) {
    double most = 0;
    for (int i = 0; i + 1 < record->points->num_points; ++i)
        for (int k = 1; k < 32; ++k)
            most = std::fmax(most, std::fabs(length(hermite(record, i, k / 32.0, quintic)) - 1));
    return most;
}

/// The middle of one arc lies on the circle; many arcs come closer to it than uncorrected ones.
TEST(CurveCalculations, CorrectedSlopesComeCloserToCircles) {
    Random random;
    for (const int order : {4, 5, 6}) {
        const bool quintic = order > 4;
        for (const double turn : {0.1, 1.0, pi / 2, pi, 4.0})
            for (const int type : {4, 5}) {
                if (type == 4 && turn > 3) continue;  // its sense would be turned
                const Record arc = interpolated_circle({0.0, turn}, type, order);
                EXPECT_NEAR(length(hermite(arc, 0, 0.5, quintic)), 1.0, 1e-12)
                    << order << ' ' << turn;
            }
        double worst_gain = HUGE_VAL, most_corrected = 0, most_plain = 0;
        for (int round = 0; round < rounds(100); ++round) {
            std::vector<double> angles = {0.0};
            while (angles.size() < 8)
                angles.push_back(angles.back() + random.uniform(0.3, 0.9));
            const double plain = deviation(interpolated_circle(angles, 2, order), quintic);
            const double corrected = deviation(interpolated_circle(angles, 5, order), quintic);
            worst_gain = std::fmin(worst_gain, plain / corrected);
            most_corrected = std::fmax(most_corrected, corrected);
            most_plain = std::fmax(most_plain, plain);
        }
        EXPECT_GT(worst_gain, 2.0);
        RecordProperty("order_" + std::to_string(order), std::to_string(most_plain) + " " +
                                                             std::to_string(most_corrected) + " " +
                                                             std::to_string(worst_gain));
    }
}

TEST(CurveCalculations, MirroredAndUnitSlopes) {
    const KeepBlock keep;
    set_word_at(1128, 1e-3);  // the length tolerance
    const CheckingLevel checking(1);
    const Vector s = {1, 1, 0}, a = {0, 0, 0}, b = {2, 0, 0}, near_a = {1e-3, 0, 0};
    Vector out;
    BCDF_CALC_mirror_slope(s.data(), a.data(), b.data(), out.data());
    EXPECT_EQ(out, (Vector{1, -1, 0}));
    BCDF_CALC_mirror_slope(s.data(), a.data(), near_a.data(), out.data());
    EXPECT_EQ(out, s);
    ReportRecorder recorder;
    BCDF_CALC_unitize_slope(b.data(), out.data());
    EXPECT_EQ(out, (Vector{1, 0, 0}));
    EXPECT_EQ(recorder.take(), Reports{});
    const Vector null = {1e-10, 0, 0};
    BCDF_CALC_unitize_slope(null.data(), out.data());
    EXPECT_EQ(out, a);
    EXPECT_EQ(recorder.take(),
              Reports{raised("bcdf_calc", 1005314, "The Input Slope Has Zero Length")});

    const Record record = new_record(flat({a, b}));
    for (const int position : {-1, 2}) {
        out = s;
        BCDF_CALC_auto_slope(record.get(), position, out.data());
        EXPECT_EQ(out, a);
        out = s;
        BCDF_CALC_normalized_slope(record.get(), 2, position, out.data());
        EXPECT_EQ(out, s);
        const Reports expected = {
            raised("bcdf_calc", 1005315, "An Invalid Point Position Was Given By Calling Routine"),
            raised("bcdf_calc", 1005315,
                   "The Point Position Is Not Valid For The Array Of Points")};
        EXPECT_EQ(recorder.take(), expected);
    }
}

}  // namespace
