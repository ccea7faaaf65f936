#include "ztmath/bcdf_gen.h"

#include "support/curve_record.h"
#include "support/reports.h"
#include "support/shared_block.h"

namespace {

using namespace ztmath_test;

constexpr double up[3] = {0, 1, 0};
constexpr double along[3] = {1, 0, 0};

/// Points 0, 1, 2 ... on the x axis, which are their parameters.
Record row_of(int n, int periodicity = 0, int least_squares = 0) {
    std::vector<double> points;
    for (int i = 0; i < n; ++i)
        points.insert(points.end(), {double(i), 0, 0});
    return new_record(points, 3, periodicity, least_squares);
}

TEST(CurveValidation, FindsTheFirstFault) {
    const ReportRecorder recorder;
    const CheckingLevel checking(1);
    const std::tuple<int, int, int, int, void (*)(BCDF*)> cases[] = {
        {1005321, 1, 0, 0, [](BCDF*) {}},
        {1005321, 2, 1, 0, [](BCDF*) {}},
        {0, 2, 0, 0, [](BCDF* r) { r->order = 2; }},
        {0, 3, 1, 0, [](BCDF* r) { r->order = 2; }},
        {1005311, 3, 0, 0, [](BCDF*) {}},
        {1005311, 4, 1, 0, [](BCDF*) {}},
        {0, 3, 0, 0, [](BCDF* r) { BCDF_add_needed_slopes(r); }},
        {1005317, 4, 0, 0, [](BCDF* r) { r->points->num_points = 2147483600; }},
        {1005322, 4, 0, 0, [](BCDF* r) { r->parameters->points[1] = 0; }},
        {1005322, 4, 0, 0, [](BCDF* r) { r->parameters->points[3] = 2; }},
        {0, 4, 0, 0, [](BCDF* r) { BCDF_add_needed_slopes(r), r->order = 3; }},
        {1005320, 4, 0, 0, [](BCDF* r) { BCDF_replace_slope(r, along, 0, 1), r->order = 2; }},
        {1005320, 4, 0, 0, [](BCDF* r) { BCDF_replace_curvature(r, up, 0, 0), r->order = 3; }},
        {1005318, 4, 0, 0, [](BCDF* r) { BCDF_replace_curvature(r, up, 0, 0); }},
        {0, 10, 0, 1, [](BCDF*) {}},
        {0, 4, 0, 1, [](BCDF* r) { r->ls_num_segments = 1; }},
        {1005005, 10, 0, 1, [](BCDF* r) { r->ls_num_segments = 8; }},
        {1005005, 10, 0, 1, [](BCDF* r) { r->ls_num_segments = -1; }},
        {1005006, 10, 0, 1, [](BCDF* r) { r->ls_tolerance = -1; }},
        {1005321, 3, 0, 1, [](BCDF* r) { BCDF_replace_slope(r, along, 0, 1); }},
    };
    for (const auto& [finding, points, periodicity, least_squares, spoil] : cases) {
        const Record record = row_of(points, periodicity, least_squares);
        spoil(record.get());
        EXPECT_EQ(BCDF_check_defining_data(record.get()), finding) << points << " points";
        record->points->num_points = points;
    }
    const Record record = row_of(4);
    BCDF_replace_curvature(record.get(), up, 0, 0);
    for (const double y : {0.99e-7, 1e-7}) {
        BCDF_replace_slope(record.get(), Vector{0, y, 1}.data(), 0, 1);
        BCDF_replace_curvature(record.get(), up, 0, 0);
        EXPECT_EQ(BCDF_check_defining_data(record.get()), y < 1e-7 ? 0 : 1005319);
    }
    EXPECT_EQ(recorder.reports(), Reports{});
}

TEST(CurveValidation, PointsOverlapWithinTheLengthTolerance) {
    const KeepBlock keep;
    acom_.tolerances[ZTMATH_LENGTH_TOLERANCE] = 0.25;
    const CheckingLevel checking(1);
    const ReportRecorder recorder;
    const Record record = new_record({0, 0, 0, 1, 0, 0, 1.25, 0, 0, 2, 0, 0});
    const std::tuple<int, int, int, double> cases[] = {
        {1, 1, 1, 0.25}, {1, 1, 1, 1.1}, {1, 1, 0, 0.5}, {1, 0, 0, 0}, {1, 3, 0, 3}, {1, 2, 1, 2},
        {1, 4, 1, 2},    {2, 1, 0, 0},   {2, 0, 0, 0},   {2, 3, 0, 0}, {3, 0, 1, 0}, {4, 0, 0, 0}};
    for (const auto& [mode, position, overlaps, x] : cases)
        EXPECT_EQ(BCDF_check_overlap_points(record.get(), mode, position, Vector{x, 0, 0}.data()),
                  overlaps);
    record->points->points[6] = 0.2;
    EXPECT_EQ(BCDF_check_overlap_points(record.get(), 2, 1, up), 1);
    record->points->points[9] = 1.1;
    EXPECT_EQ(BCDF_check_overlap_points(record.get(), 2, 2, up), 1);
    EXPECT_EQ(BCDF_check_consecutive_dup_pts(record.get()), 0);
    record->points->points[3] = -0.2;
    EXPECT_EQ(BCDF_check_consecutive_dup_pts(record.get()), 1);
    EXPECT_EQ(recorder.reports(), Reports{});
}

/// Whether a search finds, and where it ends; -1 where there is nothing to search.
template <class Search, class Key>
std::pair<int, int> found(Search search, const Record& record, Key key) {
    int at = -1;
    const int finds = search(record.get(), key, &at);
    return {finds, at};
}

TEST(CurveSearches, StopAtTheirLimits) {
    const Record record = row_of(6, 1), plain = row_of(2);
    EXPECT_EQ(BCDF_num_of_knots_needed(record.get(), 5), 12);
    EXPECT_EQ(BCDF_num_of_knots_needed(record.get(), 0), 10);
    int number = -1;
    EXPECT_EQ(BCDF_create_crvatr_pos_array(record.get(), &number), nullptr);
    for (int i = 0; i < 4; ++i)
        BCDF_replace_slope(record.get(), along, i, 1);
    BCDF_replace_curvature(record.get(), up, 2, 1);
    for (const auto search :
         {BCDF_slope_at_point, BCDF_curvature_at_point, BCDF_curvature_at_slope}) {
        EXPECT_EQ(found(search, record, 9), (std::pair{0, -1}));
        EXPECT_EQ(found(search, plain, 1), (std::pair{0, -1}));
    }
    record->slope_parameters->points[2] += 2e-10;
    int* positions = BCDF_create_slope_pos_array(record.get(), &number);
    EXPECT_EQ(std::vector<int>(positions, positions + number), (std::vector<int>{1, 2, 0, 0}))
        << "at its end where a point is missing";
    SM_free(positions);
}

/// What a walk from the first value on finds, and where it stops.
std::pair<int, int> walked(const Values& values, double to, auto matches, auto ends) {
    for (int k = 0; k < std::ssize(values); ++k)
        if (matches(values[k], to) || ends(values[k], to)) return {matches(values[k], to), k};
    return {0, int(values.size())};
}

/// Whatever order short lists are in; long ones ascend, but for neighbours.
TEST(CurveSearches, EndWherePlainWalksDo) {
    const auto near = [](double v, double at) { return std::fabs(v - at) <= 1e-10; };
    const double some[] = {0, 1e-10, -1e-10, 2e-10, 5e-10, 1, 2, 5, NAN, HUGE_VAL};
    Random random;
    const auto any = [&] { return some[random.integer(0, 9)]; };
    for (int round = 0; round < rounds(3000); ++round) {
        const int n = round == 0 ? 2000 : random.integer(2, 6);
        Values lists[3], vectors(3 * n);  // parameters of points, slopes, curvatures
        std::iota(vectors.begin(), vectors.end(), 0.0);
        for (int k = 0; k < 3 * n; ++k)  // slopes are out of order by half of their tolerance
            lists[k / n].push_back(n > 6 ? k % n / 2 + (k + k / n) % 2 * 5e-8 : any());
        const auto& [t, s, c] = lists;
        const Record record = row_of(n);
        std::copy(t.begin(), t.end(), record->parameters->points);
        record->slopes = new_list(vectors).release();
        record->slope_parameters = new_list(s, 1).release();
        record->curvatures = new_list(vectors).release();
        record->curvature_parameters = new_list(c, 1).release();
        const double span = std::fabs(t.back() - t.front()), eps = 1e-10 * span;
        const auto not_before = [&](double v, double at) { return v >= at - eps; };
        for (int i = 0; i < n; ++i) {
            const double before = i > 0 ? t[i - 1] : t[i] - span;
            const double next = i < n - 1 ? t[i + 1] : t[i] + span;
            const auto nearest = [&](double v, double at) {
                const double d = std::fabs(v - at);
                return d <= eps && d < std::fabs(v - before) && d < std::fabs(v - next);
            };
            ASSERT_EQ(found(BCDF_slope_at_point, record, i), walked(s, t[i], nearest, not_before));
            ASSERT_EQ(found(BCDF_parameter_in_list, record, s[i]),
                      walked(t, s[i], near, std::greater()));
            ASSERT_EQ(BCDF_point_at_slope(record.get(), i), walked(t, s[i], near, near).second);
            ASSERT_EQ(found(BCDF_curvature_at_slope, record, i),
                      walked(c, s[i], near, std::greater_equal()));
            ASSERT_EQ(found(BCDF_curvature_at_point, record, i),
                      walked(c, t[i], near, std::greater_equal()));
        }
        const Record one_by_one(BCDF_copy_structure(record.get()));
        const int first = random.integer(0, n - 1), number = random.integer(1, n - first);
        BCDF_remove_slopes(record.get(), first, number);
        for (int k = 0; k < number; ++k)
            BCDF_remove_slopes(one_by_one.get(), first, 1);
        ASSERT_EQ(values_of(record->curvatures), values_of(one_by_one->curvatures));
    }
}

TEST(CurveSearches, ReportSlopesThatAreMissing) {
    const CheckingLevel checking(1);
    const ReportRecorder recorder;
    const Record record = row_of(6);
    BCDF_replace_slope(record.get(), along, 2, 1);
    BCDF_replace_curvature(record.get(), up, 2, 1);
    for (const double site : {2.0, 2.5}) {
        record->slope_parameters->points[0] = site;
        int at = -1;
        Vector slope;
        EXPECT_EQ(BCDF_slope_at_curvature(record.get(), 0, &at, slope.data()), site == 2);
        EXPECT_EQ(slope, (Vector{site == 2 ? 1.0 : 0.0, 0, 0}));
        EXPECT_EQ(BCDF_point_at_slope(record.get(), 0), site == 2 ? 2 : 6);
    }
    const Reports expected = {internal("bcdf_gen", "Point With Assigned Curvature Has No Slope"),
                              internal("bcdf_gen", "Bcurve Defining Data Structure Corrupt")};
    EXPECT_EQ(recorder.reports(), expected);
}

TEST(CurveEditing, PointsTakeTheirSlopesWithThemAndNoOther) {
    const Record record = row_of(6);
    for (const int at : {1, 2, 3})
        BCDF_replace_slope(record.get(), Vector{1.0 * at, 0, 0}.data(), at, 1);
    record->slope_parameters->points[1] += 0.25;  // at no point now
    BCDF_remove_defining_points(record.get(), 1, 3);
    ASSERT_EQ(BCDF_return_num_of_slopes(record.get()), 1);
    EXPECT_EQ(record->slopes->points[0], 2.0);
    BCDF_add_params(record.get(), nullptr);
    EXPECT_EQ(record->slope_parameters->points[0], 2.25);
    const Record one = row_of(1), ring = row_of(3, 1);
    BCDF_toggle_periodicity(one.get());
    EXPECT_EQ(one->points->num_points, 2) << "closed by itself";
    BCDF_remove_defining_points(ring.get(), 0, 1);
    EXPECT_EQ(vector_in(ring->points, 1), (Vector{1, 0, 0})) << "two that are one";
    BCDF_replace_defining_point(ring.get(), up, 0, 3);
    ring->parameters->points[1] = 9;
    BCDF_remove_defining_points(ring.get(), 0, 0);
    EXPECT_EQ(values_of(ring->parameters).back(), 1) << "new, though nothing went";
    // Where the array has room behind the last point, a point of weight 1 comes to stand there.
    const Record weighted = new_record({0, 0, 0, 2, 0, 0, 0, 2}, 4);
    weighted->points->num_points = 1;
    BCDF_replace_defining_point(weighted.get(), up, 1, 3);
    weighted->points->num_points = 2;
    EXPECT_EQ(values_of(weighted->points), (Values{0, 0, 0, 2, 0, 1, 0, 1}));
}

TEST(CurveEditing, ReportsAndGoesOn) {
    ReportRecorder recorder;
    const CheckingLevel checking(1);
    const Record record = row_of(5);
    for (const int type : {-1, 6})
        BCDF_change_slope(record.get(), type, along, 2);
    EXPECT_EQ(record->slopes, nullptr) << "of no type there is none";
    for (const int order : {25, 26, 2, 1}) {
        BCDF_change_order(record.get(), order);
        EXPECT_EQ(record->order, order);
    }
    BCDF_remove_defining_points(record.get(), -1, 2);
    BCDF_remove_defining_points(record.get(), 3, 3);
    EXPECT_EQ(record->points->num_points, 5);
    BCDF_change_curvature(record.get(), 1, nullptr, 2, 1.0);
    EXPECT_EQ(record->curvatures->num_points, 1);
    BCDF_add_weights(record.get());
    BCDF_replace_weight(record.get(), 4, 3.0);
    EXPECT_EQ(record->weights->points[4], 3.0);
    BCDF_toggle_periodicity(record.get());
    BCDF_add_weights(record.get());
    BCDF_toggle_periodicity(record.get());
    EXPECT_EQ(record->weights->num_points, 5);
    int at = 0;
    PNTLST* parameters = std::exchange(record->parameters, nullptr);
    EXPECT_EQ(BCDF_parameter_in_list(record.get(), 0.0, &at), 0);
    record->parameters = parameters;
    const Reports expected = {
        internal("bcdf_gen", "Maximum Order For Spline Exceeded"),
        internal("bcdf_gen", "Order Must Be Greater Than 1"),
        raised("bcdf_gen", 1005316, "Error While Removing Points"),
        internal("bcdf_gen", "Point With Assigned Curvature Has No Slope"),
        internal("bcdf_gen", "Periodic Least Squares Curves Are Not Allowed"),
        raised("bcdf_gen", 1005312, "Periodic Least Squares Splines Are Not Allowed"),
        internal("bcdf_gen", "The Parameter List Has A NULL Value")};
    EXPECT_EQ(recorder.take(), expected);
    EXPECT_EQ(BCDF_parameter_in_list(record.get(), 0.0, &at) + recorder.reports().size(), 1U);
}

TEST(CurveEditing, NeededAndUpdatedSlopes) {
    const KeepBlock keep;
    acom_.tolerances[ZTMATH_LENGTH_TOLERANCE] = 1e-6;
    for (const int end : {0, 1}) {
        const Record two = row_of(2);
        BCDF_replace_slope(two.get(), Vector{1, 1, 0}.data(), end, 3);
        BCDF_add_needed_slopes(two.get());
        EXPECT_EQ(vector_in(two->slopes, 1 - end), (Vector{1, -1, 0}));
        EXPECT_EQ(two->slope_types[1 - end], 3);
    }
    // By type: renewed, kept, as long as the mean speed, kept, turned to the automatic side; and as
    // long as an arc that turns by 120 degrees, the most that counts.
    const double expected[] = {1, -2, -1, -2, 1, -4};
    for (int type = 0; type < 6; ++type)
        for (const int at : {0, 1}) {  // by itself, and between slopes at the ends
            const Record record = row_of(5);
            BCDF_replace_slope(record.get(), Vector{-2, 0, 0}.data(), 2, type);
            for (const int end : {0, 4})
                if (at == 1) BCDF_replace_slope(record.get(), along, end, 1);
            BCDF_update_slopes(record.get());
            EXPECT_NEAR(vector_in(record->slopes, at)[0], expected[type], 1e-14) << type;
        }
    const Record square = row_of(3);
    BCDF_replace_slope(square.get(), up, 1, 4);
    BCDF_update_slopes(square.get());
    EXPECT_GT(vector_in(square->slopes, 0)[1], 0.0) << "not against the automatic one";
    for (const int end : {4, 0}) {
        const Record record = row_of(5);
        const auto x_at_end = [&] { return vector_in(record->slopes, end == 0 ? 0 : 1)[0]; };
        BCDF_replace_slope(record.get(), along, end, 0);
        BCDF_replace_slope(record.get(), Vector{4, 0, 0}.data(), end == 0 ? 1 : 3, 1);
        BCDF_update_end_slopes(record.get());
        EXPECT_NEAR(x_at_end(), -2.0, 1e-14);
        for (const double x : {1.0, -0.25}) {
            BCDF_replace_slope(record.get(), Vector{x, 0, 0}.data(), end, 4);
            BCDF_update_slopes(record.get());
            EXPECT_LT(x_at_end(), 0.0) << "in the automatic sense";
        }
    }
}

TEST(CurveEditing, ToleranceAndNumberOfSegmentsReplaceEachOther) {
    const ReportRecorder recorder;
    const CheckingLevel checking(1);
    for (const int fits : {0, 1}) {  // which a ring does not
        const Record record = row_of(5, 1 - fits);
        BCDF_change_tolerance(record.get(), 0.5);
        EXPECT_EQ(record->ls_tolerance, fits * 0.5);
        EXPECT_EQ(record->weights != nullptr, fits);
        EXPECT_EQ(record->ls_num_segments, 0);
        BCDF_change_number_of_segments(record.get(), 7);
        EXPECT_EQ(record->ls_num_segments, fits * 7);
        EXPECT_EQ(record->ls_tolerance, 0);
    }
}

/// A curvature turns with its slope about z only, to the side that is tried first.
TEST(CurveEditing, CurvaturesTurnWithTheirSlopes) {
    const Vector cases[][3] = {
        {{0, 3, 0}, {0, 5, 0}, {-3, 0, 0}},      {{0, -3, 0}, {0, 5, 0}, {-3, 0, 0}},
        {{3, 4, 0}, {-4, 3, 1}, {3, 4, 0}},      {{0, 1e-10, 0}, {0, 5, 0}, {-1e-10, 0, 0}},
        {{0, 3, 0}, {3, 4, 12}, {-2.4, 1.8, 0}}, {{0, 0, 3}, {0, 0, 5}, {0, 0, 3}},
        {{3, 4, 0}, {0, 5, 0}, {3.2, -2.4, 0}},  {{0, 9e-11, 0}, {0, 5, 0}, {0, 9e-11, 0}}};
    for (const auto& [curvature, slope, turned] : cases) {
        const Record record = row_of(4);
        BCDF_replace_slope(record.get(), along, 1, 1);
        BCDF_replace_curvature(record.get(), curvature.data(), 1, 7);
        BCDF_replace_slope(record.get(), slope.data(), 1, 1);
        EXPECT_LT(distance(vector_in(record->curvatures, 0), turned), 1e-15);
        EXPECT_EQ(record->curvature_types[0], 7);
    }
    const Record bent = new_record({0, 1, 0, 1, 0, 0, 2, 1, 0});
    BCDF_replace_curvature(bent.get(), Vector{0, 0, 3}.data(), 1, 1);
    BCDF_update_curvatures(bent.get());
    EXPECT_LT(distance(vector_in(bent->curvatures, 0), Vector{0, 3, 0}), 1e-14);
}

}  // namespace
