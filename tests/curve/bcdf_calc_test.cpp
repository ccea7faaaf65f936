#include "ztmath/bcdf_calc.h"

#include "support/curve_record.h"
#include "support/reports.h"
#include "support/session.h"
#include "support/shared_block.h"

namespace {

using namespace ztmath_test;

Vector on_circle(double angle) {
    return {std::cos(angle), std::sin(angle), 0.0};
}
Vector tangent(double angle) {
    return {-std::sin(angle), std::cos(angle), 0.0};
}

/// Points of a circle, with its tangents as slopes of a type.
Record circle(const Values& angles, int type, int order = 4) {
    Values points;
    for (const double angle : angles)
        points.insert(points.end(), {std::cos(angle), std::sin(angle), 0.0});
    Record record = new_record(points);
    record->order = order;
    for (int i = 0; i < int(angles.size()); ++i)
        BCDF_replace_slope(record.get(), tangent(angles[i]).data(), i, type);
    return record;
}

TEST(CurveCalculations, ParametersAndWeights) {
    const ReportRecorder recorder;
    const CheckingLevel checking(1);
    const auto parameters = [](const Values& points, int dimension, double exponent) {
        Values t(points.size() / dimension);
        BCDF_CALC_parameters(int(t.size()), dimension, points.data(), exponent, t.data());
        return t;
    };
    EXPECT_EQ(parameters({0, 0, 0, 3, 4, 0, 3, 4, 12}, 3, 1.0), (Values{0, 5, 17}));
    EXPECT_EQ(parameters({0, 0, 0, 0, 0, 0, 0, 16}, 4, 0.5), (Values{0, 4}));
    EXPECT_EQ(parameters({0, 0, 0, 0, 0, 0, 0, 16}, 4, 1.5), (Values{0, 64}));
    // Points that are one get steps of n - 1.
    EXPECT_EQ(parameters({1, 1, 1, 1, 1, 1, 1, 1, 1}, 3, 1.0), (Values{0, 2, 4}));
    Values t = {0, 1, 3, 7}, w(3);
    BCDF_CALC_weights(3, t.data(), w.data());
    EXPECT_EQ(w, (Values{0.5, 1.5, 1}));
    EXPECT_EQ(BCDF_CALC_single_weight(3, t.data(), 0), 0.5);
    EXPECT_EQ(BCDF_CALC_single_weight(3, t.data(), 2), 1.0);
    EXPECT_EQ(BCDF_CALC_single_weight(2, t.data(), 1), 0.5);
    EXPECT_EQ(BCDF_CALC_single_weight(2, t.data(), 2), 0.0);
    EXPECT_EQ(BCDF_CALC_single_weight(1, t.data(), 0), 0.0);
    EXPECT_EQ(recorder.reports(), Reports{internal("bcdf_calc", "Not Enough Parameters")});
    BCDF_CALC_weights(1, t.data(), w.data());
    EXPECT_EQ(w[0], 0.0);
    const double same[3] = {1, 1, 2};
    EXPECT_EQ(BCDF_CALC_quadratic_apprx(same, same, same, same, 0, 0.0, 0, t.data()), 1);
    EXPECT_EQ(t, (Values{0, 1, 3, 7}));
    const double start[3] = {}, middle[3] = {1, 1, 1}, end[3] = {9, 9, 9};
    EXPECT_EQ(BCDF_CALC_quadratic_apprx(start, middle, end, t.data(), 0, 2.0, 0, w.data()), 0);
    EXPECT_EQ(w, (Values{4, 4, 4}));
    double d[6];
    BCDF_CALC_quadratic_apprx(start, middle, end, t.data(), 0, 2.0, 1, d);
    EXPECT_DOUBLE_EQ(d[3], 4);
    EXPECT_EQ(values_of(new_record({0, 0, 0, 3, 4, 0}, 3, 0, 1)->weights), (Values{2.5, 2.5}));
    const Record one = new_record({0, 0, 0}, 3, 0, 1);
    BCDF_replace_weight(one.get(), 0, 7);
    BCDF_add_weights(one.get());
    EXPECT_EQ(values_of(one->weights), Values{0});
}

/// Points of a parabola have its derivatives everywhere, whatever slopes of it are given beside.
TEST(CurveCalculations, AutomaticDerivativesReproduceQuadratics) {
    Random random;
    for (int round = 0; round < rounds(200); ++round) {
        const Vector a = random.vector(), b = random.vector();
        const auto slope = [&](double t) { return moved(b, 2 * t, a); };
        const auto derivatives_at = [&](const Record& record, int i) {
            Values out(6);
            BCDF_CALC_auto_derivatives(record.get(), i, 2, out.data());
            return distance(Vector{out[0], out[1], out[2]}, slope(record->parameters->points[i])) +
                   distance(Vector{out[3], out[4], out[5]}, scaled(a, 2));
        };
        const auto through = [&](const Values& parameters, const Values& parabola_at) {
            Values points;
            for (const double t : parabola_at)
                for (std::size_t j = 0; j < 3; ++j)
                    points.push_back(t * b[j] + t * t * a[j]);
            Record record = new_record(points);
            BCDF_add_params(record.get(), parameters.data());
            return record;
        };
        const Values t = {0.5, 1, random.uniform(1.75, 2.5), 3, 4.5};  // 1.5 is singular in mode 1
        for (const int mode : {0, 1, 2}) {
            const auto condition = [&](int i) {
                return mode + i == 3 ? slope(t[i]) : moved(scaled(b, t[i]), t[i] * t[i], a);
            };
            double out[9];
            BCDF_CALC_quadratic_apprx(condition(0).data(), condition(1).data(), condition(2).data(),
                                      t.data(), mode, 4.0, 2, out);
            for (std::size_t j = 0; j < 3; ++j) {
                ASSERT_NEAR(out[j], 4 * b[j] + 16 * a[j], 1e-11);
                ASSERT_NEAR(out[3 + j], b[j] + 8 * a[j], 1e-11);
                ASSERT_NEAR(out[6 + j], 2 * a[j], 1e-11);
            }
        }
        const Record record = through(t, t);
        for (const int type : {-1, 0, 1, 3}) {
            for (const int i : {1, 3})
                if (type >= 0) BCDF_replace_slope(record.get(), slope(t[i]).data(), i, type);
            for (int i = 0; i < 5; ++i)
                ASSERT_LT(derivatives_at(record, i), 1e-9);
        }
        // Of a periodic record the point before the closing one comes before point 0.
        const Record ring = through({0, 1, 2, 3, 5}, {0, 1, 7, -2, 0});
        ring->periodicity = 1;
        ASSERT_LT(derivatives_at(ring, 0), 1e-9);
    }
}

/// A direction beside an end is mirrored, as a circle has it, and bends as one; outwards at the
/// last point.
TEST(CurveCalculations, EndsBesideADirectionBelongToACircle) {
    const Values angles = {0.3, 0.9, 1.2, 2.0};
    for (const int type : {2, 4, 5})
        for (const int end : {0, 3}) {
            const Record record = circle(angles, type);
            Values d(6);
            Vector curvature;
            BCDF_CALC_auto_derivatives(record.get(), end, 2, d.data());
            BCDF_CALC_auto_curvature(record.get(), end, curvature.data());
            EXPECT_LT(distance(Vector{d[0], d[1], d[2]}, tangent(angles[end])), 1e-14);
            EXPECT_LT(distance(curvature, scaled(on_circle(angles[end]), end == 0 ? -1 : 1)),
                      1e-14);
        }
}

TEST(CurveCalculations, TypesAndMethodsGiveTheirLengths) {
    const Record record = new_record({0, 0, 0, 3, 0, 0, 3, 4, 0, 0, 4, 0});
    const double t[] = {0, 2, 5, 6};
    BCDF_add_params(record.get(), t);
    Vector a;
    const Record two = new_record({0, 0, 0, 3, 0, 0});
    BCDF_add_params(two.get(), t + 1);
    BCDF_CALC_auto_slope(two.get(), 1, a.data());
    EXPECT_EQ(a, (Vector{1, 0, 0}));
    BCDF_CALC_auto_slope(record.get(), 1, a.data());
    const struct {
        int type, position, periodicity;
        double length;
    } cases[] = {{0, 1, 0, 7},       {1, 1, 0, 7},       {6, 1, 0, 7},
                 {2, 0, 0, 3.0 / 2}, {2, 1, 0, 7.0 / 5}, {2, 3, 0, 3.0},
                 {2, 0, 1, 6.0 / 3}, {2, 3, 1, 3.0},     {3, 1, 0, length(a)}};
    for (const auto& c : cases) {
        record->periodicity = c.periodicity;
        Vector v = {0, -7, 0};
        BCDF_CALC_normalized_slope(record.get(), c.type, c.position, v.data());
        EXPECT_NEAR(v[1], -c.length, 1e-14) << c.type << ' ' << c.position;
    }
    const double span = 4, chord = 10, none = 0;
    const double lengths[] = {7, 0, 7, length(a), 2.5, 2.5, 7};
    for (int method = 0; method < 7; ++method) {
        Vector v = {0, 0, -7}, kept = v;
        h813_(a.data(), &span, &chord, &method, v.data());
        EXPECT_NEAR(v[2], -lengths[method], 1e-14) << method;
        Vector shortest = {0, 0, -1e-10};  // without a direction
        if (method > 1) h813_(a.data(), &span, &chord, &method, shortest.data());
        EXPECT_TRUE(method < 2 || shortest[2] == -1e-10) << method;
        const double hair = 1e-10, one = 1;
        if (method > 3) h813_(a.data(), &none, &chord, &method, kept.data());
        if (method > 3) h813_(a.data(), &one, &hair, &method, kept.data());
        EXPECT_EQ(kept[2], -7.0);
    }
}

/// Between points i and i + 1: the cubic or, with the circle's curvature, the quintic of Hermite.
Vector hermite(const Record& record, int i, double s) {
    const double* t = record->parameters->points;
    const double h = t[i + 1] - t[i], r = 1 - s;
    const bool quintic = record->order > 4;
    const Vector p = vector_in(record->points, i), q = vector_in(record->points, i + 1);
    const Vector u = vector_in(record->slopes, i), v = vector_in(record->slopes, i + 1);
    const double share = r * r * (quintic ? r * (1 + 3 * s + 6 * s * s) : 1 + 2 * s);
    const double start = h * s * r * r * (quintic ? r * (1 + 3 * s) : 1);
    const double end = -h * s * s * r * (quintic ? s * (1 + 3 * r) : 1);
    const double bend = quintic ? 0.5 * h * h * s * s * r * r : 0;
    return moved(moved(moved(moved(q, share, moved(p, -1, q)), start, u), end, v), -bend,
                 moved(scaled(p, r * dot(u, u)), s * dot(v, v), q));
}

double deviation(const Record& record) {
    BCDF_update_slopes(record.get());
    double most = 0;
    for (int i = 0; i + 1 < record->points->num_points; ++i)
        for (int k = 1; k < 32; ++k)
            most = std::fmax(most, std::fabs(length(hermite(record, i, k / 32.0)) - 1));
    return most;
}

/// The middle of one arc lies on the circle; many arcs come closer to it than uncorrected ones.
TEST(CurveCalculations, CorrectedSlopesComeCloserToCircles) {
    Random random;
    for (const int order : {4, 5, 6}) {
        for (const double turn : {0.1, 1.0, 2.0, M_PI, 4.0}) {
            const Record arc = circle({0.0, turn}, 5, order);
            BCDF_update_slopes(arc.get());
            EXPECT_NEAR(length(hermite(arc, 0, 0.5)), 1.0, 1e-12) << order << ' ' << turn;
        }
        double worst_gain = HUGE_VAL;
        for (int round = 0; round < rounds(100); ++round) {
            Values angles = {0.0};
            while (angles.size() < 8)
                angles.push_back(angles.back() + random.uniform(0.3, 0.9));
            const double uncorrected = deviation(circle(angles, 2, order));
            for (const int type : {4, 5})
                worst_gain =
                    std::fmin(worst_gain, uncorrected / deviation(circle(angles, type, order)));
        }
        EXPECT_GT(worst_gain, 4.0) << "order " << order;
    }
}

TEST(CurveCalculations, EndsBendFromTheLeastThatHasADirection) {
    for (const double aside : {std::nextafter(1e-10, 0.0), 1e-10}) {
        const Record record = new_record({0, 0, 0, 1, 0, 0, 3, 0, 0});
        BCDF_replace_slope(record.get(), Vector{1, aside, 0}.data(), 1, 2);
        Values d(6);
        BCDF_CALC_auto_derivatives(record.get(), 0, 2, d.data());
        EXPECT_EQ(d[4], aside < 1e-10 ? 0 : 1);
        const Record bent = new_record({0, aside / 2, 0, 1, 0, 0, 2, aside / 2, 0});
        BCDF_add_params(bent.get(), Values{0, 1, 2}.data());
        BCDF_change_curvature(bent.get(), 1, nullptr, 1, 0.5);
        EXPECT_EQ(vector_in(bent->curvatures, 0)[1], aside < 1e-10 ? 0 : 2);
    }
}

/// Straight on, each side asks for its own speed; square to the chord a quintic for 8/5 of it.
TEST(CurveCalculations, CorrectedSlopesOfQuinticsWhereTheRuleDividesByZero) {
    const Record record = new_record({0, 0, 0, 3, 0, 0, 4, 0, 0});
    const double t[] = {0, 3, 5};
    BCDF_add_params(record.get(), t);
    record->order = 5;
    Vector on = {7, 0, 0}, square = {1e-10, 1, 0};
    BCDF_CALC_normalized_slope(record.get(), 5, 1, on.data());
    EXPECT_DOUBLE_EQ(on[0], (9 * 1.0 + 2 * 0.5) / 11);
    BCDF_CALC_normalized_slope(record.get(), 5, 0, square.data());
    EXPECT_DOUBLE_EQ(square[1], 1.6);
    for (const double chord :
         {1e-10, std::nextafter(1e-10, 0.0)}) {  // the last without a direction
        const Record shortest = new_record({0, 0, 0, chord, 0, 0});
        BCDF_add_params(shortest.get(), Values{0, 0.125}.data());
        BCDF_CALC_normalized_slope(shortest.get(), 5, 0, (square = {0, 7, 0}).data());
        EXPECT_DOUBLE_EQ(square[1], chord < 1e-10 ? 8e-10 : 16e-10);
    }
    BCDF_CALC_normalized_slope(new_record(Values(9)).get(), 5, 1, (square = {0, 7, 0}).data());
    EXPECT_EQ(square[1], 7) << "among points that are one";
}

/// The closing point of a ring is its first one, whichever of the two has the slope.
TEST(CurveCalculations, RingsMayStartAnywhere) {
    const Values turns = {0, 0.7, 1.9, 2.6, 4.1, 5.5};
    const auto ring = [&](int start, int type) {
        Values angles;
        for (int i = start; i <= start + 6; ++i)
            angles.push_back(turns[i % 6]);
        Record record = circle(angles, type);
        BCDF_remove_slopes(record.get(), 6, 1);
        for (int i = 0; i < 6; ++i)  // not the circle's own
            BCDF_replace_slope(record.get(), tangent(1.1 * angles[i]).data(), i, type);
        record->periodicity = 1;
        return record;
    };
    for (const int type : {4, 5})
        for (int start = 0; start < 6; ++start)
            for (int i = 0; i < 6; ++i) {
                Vector expected = tangent(turns[(start + i) % 6]), found = expected;
                BCDF_CALC_normalized_slope(ring(0, type).get(), type, (start + i) % 6,
                                           expected.data());
                BCDF_CALC_normalized_slope(ring(start, type).get(), type, i, found.data());
                EXPECT_LT(distance(found, expected), 1e-14) << type << ' ' << start << ' ' << i;
            }
}

TEST(CurveCalculations, MirroredAndUnitSlopes) {
    const KeepBlock keep;
    set_word_at(1128, 1e-3);  // the length tolerance
    const CheckingLevel checking(1);
    ReportRecorder recorder;
    const Vector s = {1, 1, 0}, origin = {}, far = {2, 0, 0}, near = {1e-3, 0, 0};
    Vector out;
    BCDF_CALC_mirror_slope(s.data(), origin.data(), far.data(), out.data());
    EXPECT_EQ(out, (Vector{1, -1, 0}));
    BCDF_CALC_mirror_slope(s.data(), origin.data(), near.data(), out.data());
    EXPECT_EQ(out, s);
    BCDF_CALC_unitize_slope(far.data(), out.data());
    EXPECT_EQ(out, (Vector{1, 0, 0}));
    BCDF_CALC_unitize_slope(Vector{1e-10, 0, 0}.data(), out.data());
    EXPECT_EQ(out, origin);
    const Record record = new_record({2, 0, 0, 4, 3, 0});
    BCDF_CALC_auto_slope(record.get(), 2, out.data());
    BCDF_CALC_normalized_slope(record.get(), 2, -1, out.data());
    EXPECT_EQ(BCDF_CALC_denormalize_param(record.get(), 0.5), std::sqrt(13.0) / 2);
    record->parameters->num_points = 0;
    EXPECT_EQ(BCDF_CALC_denormalize_param(record.get(), 0.5), 0);
    const Reports expected = {
        raised("bcdf_calc", 1005314, "The Input Slope Has Zero Length"),
        raised("bcdf_calc", 1005315, "An Invalid Point Position Was Given By Calling Routine"),
        raised("bcdf_calc", 1005315, "The Point Position Is Not Valid For The Array Of Points")};
    EXPECT_EQ(recorder.reports(), expected);
}

}  // namespace
