#include "ztmath/bcdf_calc.h"

#include "support/curve_record.h"

namespace {

using namespace ztmath_test;

Vector on_circle(double angle) {
    return {std::cos(angle), std::sin(angle), 0.0};
}
Vector tangent(double angle) {
    return {-std::sin(angle), std::cos(angle), 0.0};
}

/// Points of a circle, with its tangents as slopes of a type, or others by a factor of the angle.
Record circle(const Values& angles, int type, double factor = 1.0) {
    Values points;
    std::vector<Slope> slopes;
    for (const double angle : angles) {
        points.insert(points.end(), {std::cos(angle), std::sin(angle), 0.0});
        slopes.push_back({int(slopes.size()), tangent(factor * angle), type});
    }
    return with_slopes(new_record(points), slopes);
}

Record record_at(const Values& parameters, const Values& points) {
    Record record = new_record(points);
    BCDF_add_params(record, parameters.data());
    return record;
}

std::pair<Vector, Vector> automatic_derivatives(const Record& record, int position) {
    const auto d = written<std::array<double, 6>>(BCDF_CALC_auto_derivatives, record, position, 2);
    return {{d[0], d[1], d[2]}, {d[3], d[4], d[5]}};
}

Vector normalized(const Record& record, int type, int position, Vector v) {
    BCDF_CALC_normalized_slope(record, type, position, v.data());
    return v;
}

TEST(CurveCalculations, ParametersAndWeights) {
    const Checked checked{{internal("bcdf_calc", "Not Enough Parameters")}};
    for (const auto& [dimension, exponent, points, parameters] :
         {std::tuple{3, 1.0, Values{0, 0, 0, 3, 4, 0, 3, 4, 12}, Values{0, 5, 17}},
          {4, 1.5, {0, 0, 0, 0, 0, 0, 0, 16}, {0, 64}},
          {3, 1.0, Values(9, 1), {0, 2, 4}},  // points that are one
          {3, 1.0, {1, 1, 1}, {0}}}) {
        Values t(parameters.size(), 7);
        BCDF_CALC_parameters(int(t.size()), dimension, points.data(), exponent, t.data());
        EXPECT_EQ(t, parameters);
    }
    const Values t = {0, 1, 3, 7};
    for (const Values& expected : {Values{0.5, 1.5, 1}, {0.5, 0.5}, {0}}) {
        Values weights(expected.size(), 7);
        BCDF_CALC_weights(int(weights.size()), t.data(), weights.data());
        EXPECT_EQ(weights, expected);
    }
    for (const auto& [n, position, weight] :
         {std::tuple{3, 0, 0.5}, {3, 2, 1.0}, {2, 1, 0.5}, {2, 2, 0.0}, {1, 0, 0.0}})
        EXPECT_EQ(BCDF_CALC_single_weight(n, t.data(), position), weight);
}

TEST(CurveCalculations, QuadraticsHaveAsManyDerivativesAsAreAskedFor) {
    const Values t = {0, 1, 3};  // of t^2 + t + 1
    const double start[3] = {1, 1, 1}, middle[3] = {3, 3, 3}, end[3] = {13, 13, 13};
    const double at_2[] = {7, 5, 2};
    for (const int k : {-1, 0, 1, 2}) {
        Values d(12, 8);
        EXPECT_EQ(BCDF_CALC_quadratic_apprx(start, middle, end, t.data(), 0, 2.0, k, d.data()), 0);
        for (int j = 0; j <= k; ++j)
            EXPECT_DOUBLE_EQ(d[3 * j], at_2[j]);
        EXPECT_EQ(d[3 * k + 3], 8);
        EXPECT_EQ(BCDF_CALC_quadratic_apprx(start, middle, end, end, 0, 2.0, k, &d[9]), 1);
        EXPECT_EQ(d[9], 8) << "left alone where parameters are one";
    }
}

/// Points of a parabola have its derivatives everywhere, whatever slopes of it are given beside.
TEST(CurveCalculations, AutomaticDerivativesReproduceQuadratics) {
    Random random;
    for (int round = 0; round < rounds(200); ++round) {
        const Vector a = random.vector(), b = random.vector();
        const auto slope = [&](double t) { return moved(b, 2 * t, a); };
        const auto error_at = [&](const Record& record, int i) {
            const auto [first, second] = automatic_derivatives(record, i);
            return distance(first, slope(record->parameters->points[i])) +
                   distance(second, scaled(a, 2));
        };
        const auto parabola_at = [&](const Values& parameters) {
            Values points;
            for (const double t : parameters)
                for (std::size_t j = 0; j < 3; ++j)
                    points.push_back(t * b[j] + t * t * a[j]);
            return points;
        };
        const Values t = {0.5, 1, random.uniform(1.75, 2.5), 3, 4.5};
        const Record record = record_at(t, parabola_at(t));
        for (const int type : {-1, 0, 1, 3}) {
            for (const int i : {1, 3})
                if (type >= 0) BCDF_replace_slope(record, slope(t[i]).data(), i, type);
            for (int i = 0; i < 5; ++i)
                ASSERT_LT(error_at(record, i), 1e-9);
        }
        // Of a periodic record the point before the closing one comes before point 0.
        const Record ring = record_at({0, 1, 2, 3, 5}, parabola_at({0, 1, 7, -2, 0}));
        ring->periodicity = 1;
        ASSERT_LT(error_at(ring, 0), 1e-9);
    }
}

/// A direction beside an end is mirrored, as a circle has it, and bends as one; outwards at the
/// last point.
TEST(CurveCalculations, EndsBesideADirectionBelongToACircle) {
    const Values angles = {0.3, 0.9, 1.2, 2.0};
    for (const int type : {2, 4, 5})
        for (const int end : {0, 3}) {
            const Record record = circle(angles, type);
            const Vector slope = written(BCDF_CALC_auto_slope, record, end);
            const Vector curvature = written(BCDF_CALC_auto_curvature, record, end);
            const Vector bent = scaled(on_circle(angles[end]), end == 0 ? -1 : 1);
            EXPECT_LT(distance(slope, tangent(angles[end])), 1e-14);
            EXPECT_LT(distance(curvature, bent), 1e-14);
        }
}

TEST(CurveCalculations, EndsBendFromTheLeastThatHasADirection) {
    for (const double aside : {std::nextafter(1e-10, 0.0), 1e-10}) {
        const Record record =
            with_slopes(new_record({0, 0, 0, 1, 0, 0, 3, 0, 0}), {{1, {1, aside, 0}, 2}});
        EXPECT_EQ(automatic_derivatives(record, 0).second[1], aside < 1e-10 ? 0 : 1);
        const Record bent = record_at({0, 1, 2}, {0, aside / 2, 0, 1, 0, 0, 2, aside / 2, 0});
        BCDF_change_curvature(bent, 1, nullptr, 1, 0.5);
        EXPECT_EQ(vector_in(bent->curvatures, 0)[1], aside < 1e-10 ? 0 : 2);
    }
}

TEST(CurveCalculations, TypesAndMethodsGiveTheirLengths) {
    const Record two = record_at({2, 5}, {1, 0, 0, 4, 0, 0});
    EXPECT_EQ(written(BCDF_CALC_auto_slope, two, 1), (Vector{1, 0, 0}));
    const Record record = record_at({0, 2, 5, 6}, {0, 0, 0, 3, 0, 0, 3, 4, 0, 0, 4, 0});
    const Vector a = written(BCDF_CALC_auto_slope, record, 1);
    const std::tuple<int, int, int, double> cases[] = {
        {0, 1, 0, 7},   {1, 1, 0, 7},       {6, 1, 0, 7},   {2, 0, 0, 3.0 / 2},  {2, 1, 0, 7.0 / 5},
        {2, 3, 0, 3.0}, {2, 0, 1, 6.0 / 3}, {2, 3, 1, 3.0}, {3, 1, 0, length(a)}};
    for (const auto& [type, position, periodicity, expected] : cases) {
        record->periodicity = periodicity;
        EXPECT_NEAR(normalized(record, type, position, {0, -7, 0})[1], -expected, 1e-14)
            << type << ' ' << position;
    }
    // The last three have no direction to be long in, or no length.
    const std::tuple<int, double, double, double, double> calls[] = {
        {0, 4, 10, 7, 7},   {1, 4, 10, 7, 0},   {2, 4, 10, 7, 7}, {3, 4, 10, 7, length(a)},
        {4, 4, 10, 7, 2.5}, {5, 4, 10, 7, 2.5}, {6, 4, 10, 7, 7}, {3, 4, 10, 1e-10, 1e-10},
        {4, 0, 10, 7, 7},   {5, 1, 1e-10, 7, 7}};
    for (const auto& [method, span, chord, given, expected] : calls) {
        Vector v = {0, 0, -given};
        h813_(a.data(), &span, &chord, &method, v.data());
        EXPECT_NEAR(v[2], -expected, 1e-14) << method;
    }
}

/// Of a cubic or, with the circle's curvature, a quintic over an arc.
Vector middle_of(const Record& arc) {
    const double h = arc->parameters->points[1];
    const bool quintic = arc->order > 4;
    const Vector p = vector_in(arc->points, 0), q = vector_in(arc->points, 1);
    const Vector u = vector_in(arc->slopes, 0), v = vector_in(arc->slopes, 1);
    const Vector bent =
        moved(scaled(moved(p, 1, q), 0.5), h * (quintic ? 5.0 / 32 : 1.0 / 8), moved(u, -1, v));
    return quintic ? moved(bent, -h * h / 64, moved(scaled(p, dot(u, u)), dot(v, v), q)) : bent;
}

TEST(CurveCalculations, CorrectedSlopesPutTheMiddleOfAnArcOnItsCircle) {
    for (const int order : {4, 5, 6})
        for (const double turn : {0.1, 1.0, 2.0, M_PI, 4.0}) {
            const Record arc = circle({0.0, turn}, 5);
            arc->order = order;
            BCDF_update_slopes(arc);
            EXPECT_NEAR(length(middle_of(arc)), 1.0, 1e-12) << order << ' ' << turn;
        }
}

/// Straight on, each side asks for its own speed; square to the chord a quintic for 8/5 of it. A
/// curvature makes a quintic.
TEST(CurveCalculations, CorrectedSlopesWhereTheRuleDividesByZero) {
    const Record record = record_at({0, 0.0625, 0.5625}, {0, 0, 0, 4, 0, 0, 5, 0, 0});
    BCDF_replace_curvature(record, Vector{0, 0, 1}.data(), 0, 0);
    EXPECT_DOUBLE_EQ(normalized(record, 5, 1, {7, 0, 0})[0], (0.25 * 64 + 0.5 * 2) / 0.75);
    for (const double aside : {1e-10, 1.2e-10})  // which is computed, and cancels
        EXPECT_EQ(std::fabs(normalized(record, 5, 0, {aside, 1, 0})[1] - 64 * 1.6) < 1e-12,
                  aside == 1e-10);
    record->points->points[0] = -HUGE_VAL;
    record->parameters->points[0] = 0.0625;
    EXPECT_EQ(normalized(record, 5, 1, {7, 0, 0})[0], 2) << "a side without a span is none";
    record->points->points[0] = NAN;
    record->parameters->points[0] = 0;
    EXPECT_EQ(normalized(record, 5, 1, {7, 0, 0})[0], 4.5) << "half as one side has it";
    for (const double chord : {1e-10, std::nextafter(1e-10, 0.0)}) {  // the last has no direction
        const Record shortest = record_at({0, 0.125}, {0, 0, 0, chord, 0, 0});
        EXPECT_DOUBLE_EQ(normalized(shortest, 5, 0, {0, 7, 0})[1], chord < 1e-10 ? 8e-10 : 16e-10);
    }
    EXPECT_EQ(normalized(new_record(Values(9)), 5, 1, {0, 7, 0})[1], 7)
        << "among points that are one";
}

/// The closing point of a ring is its first one, whichever of the two has the slope; another point
/// has none.
TEST(CurveCalculations, RingsMayStartAnywhere) {
    const Values turns = {0, 0.7, 1.9, 2.6, 4.1, 5.5};
    const auto ring = [&](int start, int type, int without) {
        Values angles;
        for (int i = start; i <= start + 6; ++i)
            angles.push_back(turns[i % 6]);
        Record record = circle(angles, type, 1.1);
        for (int i = 6; i >= 0; --i)
            if (i == without || (start + i) % 6 == 3) BCDF_remove_slopes(record, i, 1);
        record->periodicity = 1;
        return record;
    };
    for (const int type : {4, 5})
        for (int start = 1; start < 6; ++start)
            for (int i = 0; i < 6; ++i) {
                const int same = (start + i) % 6;
                const Vector v = tangent(turns[same]);
                const Vector expected = normalized(ring(0, type, 0), type, same, v);
                EXPECT_LT(distance(normalized(ring(start, type, 6), type, i, v), expected), 1e-14);
            }
}

TEST(CurveCalculations, MirroredAndUnitSlopes) {
    const Kept tolerance(acom_.tolerances[ZTMATH_LENGTH_TOLERANCE], 1e-3);
    const Checked checked{
        {raised("bcdf_calc", 1005314, "The Input Slope Has Zero Length"),
         raised("bcdf_calc", 1005315, "An Invalid Point Position Was Given By Calling Routine"),
         raised("bcdf_calc", 1005315, "The Point Position Is Not Valid For The Array Of Points")}};
    const Vector s = {1, 1, 0}, origin = {}, far = {2, 0, 0}, near = {1e-3, 0, 0};
    EXPECT_EQ(written(BCDF_CALC_mirror_slope, s, origin, far), (Vector{1, -1, 0}));
    EXPECT_EQ(written(BCDF_CALC_mirror_slope, s, origin, near), s);
    EXPECT_EQ(written(BCDF_CALC_unitize_slope, far), (Vector{1, 0, 0}));
    EXPECT_EQ(written(BCDF_CALC_unitize_slope, Vector{1e-10, 0, 0}), origin);
    const Record record = record_at({2, 6}, {2, 0, 0, 4, 3, 0});
    EXPECT_EQ(written(BCDF_CALC_auto_slope, record, 2), origin);
    EXPECT_EQ(normalized(record, 2, -1, s), s);
    // Zero too where the host does not come back.
    const ReportRecorder leaving([](const Report& report) { throw report; });
    Values out(12, 7);
    EXPECT_THROW(BCDF_CALC_unitize_slope(origin.data(), &out[0]), Report);
    EXPECT_THROW(BCDF_CALC_auto_derivatives(record, 2, 2, &out[3]), Report);
    EXPECT_THROW(BCDF_CALC_auto_curvature(record, -1, &out[9]), Report);
    EXPECT_EQ(out, Values(12));
    BCDF_replace_slope(record, Vector{1e-10, 0, 0}.data(), 0, 1);
    EXPECT_THROW(BCDF_unitize_slopes(record), Report);
    EXPECT_EQ(vector_in(record->slopes, 0), origin);
    EXPECT_EQ(BCDF_CALC_denormalize_param(record, 0.25), 3);
    record->parameters->num_points = 0;
    EXPECT_EQ(BCDF_CALC_denormalize_param(record, 0.25), 0);
}

}  // namespace
