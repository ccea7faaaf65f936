#include "ztmath/bcdf_gen.h"

#include "support/curve_record.h"

namespace {

using namespace ztmath_test;

constexpr Vector up = {0, 1, 0}, along = {1, 0, 0};
constexpr Vector almost_across = {0, 1e-7, 1}, across = {0, 0.99e-7, 1};  // of a curvature up

/// Points 0, 1, 2 ... on the x axis, which are their parameters.
Record row_of(int n, int periodicity = 0, int least_squares = 0) {
    Values points(3 * static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i)
        points[3 * i] = i;
    return new_record(points, 3, periodicity, least_squares);
}

/// Puts a slope at the first point, and a curvature.
void bend(BCDF* record, const Vector& slope) {
    BCDF_replace_slope(record, slope.data(), 0, 1);
    BCDF_replace_curvature(record, up.data(), 0, 0);
}

TEST(CurveValidation, FindsTheFirstFault) {
    const Checked silent{};
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
        {1005320, 4, 0, 0, [](BCDF* r) { BCDF_change_slope(r, 0, nullptr, 0), r->order = 2; }},
        {1005320, 4, 0, 0, [](BCDF* r) { bend(r, across), r->order = 3; }},
        {1005318, 4, 0, 0, [](BCDF* r) { BCDF_replace_curvature(r, up.data(), 0, 0); }},
        {1005319, 4, 0, 0, [](BCDF* r) { bend(r, almost_across); }},
        {0, 4, 0, 0, [](BCDF* r) { bend(r, across); }},
        {0, 10, 0, 1, [](BCDF*) {}},
        {0, 4, 0, 1, [](BCDF* r) { r->ls_num_segments = 1; }},
        {1005005, 10, 0, 1, [](BCDF* r) { r->ls_num_segments = 8; }},
        {1005005, 10, 0, 1, [](BCDF* r) { r->ls_num_segments = -1; }},
        {1005006, 10, 0, 1, [](BCDF* r) { r->ls_tolerance = -1; }},
        {1005321, 3, 0, 1, [](BCDF* r) { BCDF_change_slope(r, 0, nullptr, 0); }},
    };
    for (const auto& [finding, points, periodicity, least_squares, spoil] : cases) {
        const Record record = row_of(points, periodicity, least_squares);
        spoil(record);
        EXPECT_EQ(BCDF_check_defining_data(record), finding) << points << " points";
        record->points->num_points = points;
    }
}

TEST(CurveValidation, PointsOverlapWithinTheLengthTolerance) {
    const Kept tolerance(acom_.tolerances[ZTMATH_LENGTH_TOLERANCE], 0.25);
    const Checked silent{};
    const Record record = new_record({0, 0, 0, 1, 0, 0, 1.25, 0, 0, 2, 0, 0});
    const std::tuple<int, int, int, double> cases[] = {
        {1, 1, 1, 0.25}, {1, 1, 1, 1.1}, {1, 1, 0, 0.5}, {1, 0, 0, 0}, {1, 3, 0, 3}, {1, 2, 1, 2},
        {1, 4, 1, 2},    {2, 1, 0, 0},   {2, 0, 0, 0},   {2, 3, 0, 0}, {3, 0, 1, 0}, {4, 0, 0, 0}};
    for (const auto& [mode, position, overlaps, x] : cases)
        EXPECT_EQ(called(BCDF_check_overlap_points, record, mode, position, Vector{x}), overlaps);
    record->points->points[6] = 0.2;
    EXPECT_EQ(BCDF_check_overlap_points(record, 2, 1, up.data()), 1);
    record->points->points[9] = 1.1;
    EXPECT_EQ(BCDF_check_overlap_points(record, 2, 2, up.data()), 1);
    EXPECT_EQ(BCDF_check_consecutive_dup_pts(record), 0);
    record->points->points[3] = -0.2;
    EXPECT_EQ(BCDF_check_consecutive_dup_pts(record), 1);
}

TEST(CurveSearches, StopAtTheirLimits) {
    const Checked checked{{internal("bcdf_gen", "Point With Assigned Curvature Has No Slope"),
                           internal("bcdf_gen", "Bcurve Defining Data Structure Corrupt")}};
    const Record bare = row_of(6, 1);
    EXPECT_EQ(BCDF_num_of_knots_needed(bare, 5), 12);
    EXPECT_EQ(BCDF_num_of_knots_needed(bare, 0), 10);
    EXPECT_EQ(answered(BCDF_create_crvatr_pos_array, bare).first, nullptr);
    const Record record = with_slopes(row_of(6, 1), {{0, up}, {1, up}, {2, along}, {3, up}});
    BCDF_replace_curvature(record, up.data(), 2, 1);
    for (const auto search :
         {BCDF_slope_at_point, BCDF_curvature_at_point, BCDF_curvature_at_slope}) {
        EXPECT_EQ(answered(search, record, 9), (std::pair{0, -1}));
        EXPECT_EQ(answered(search, bare, 1), (std::pair{0, -1}));
    }
    double& site = record->slope_parameters->points[2];
    for (const double given : {2.0, 2.5}) {  // which is at no point
        site = given;
        int at = -1;
        Vector slope;
        EXPECT_EQ(BCDF_slope_at_curvature(record, 0, &at, slope.data()), site == 2);
        EXPECT_EQ(slope, site == 2 ? along : Vector{});
        EXPECT_EQ(BCDF_point_at_slope(record, 2), site == 2 ? 2 : 6);
    }
    site = 2 + 2e-10;
    int number = 0;
    EXPECT_EQ(taken(BCDF_create_slope_pos_array(record, &number), number), (Values{1, 2, 0, 0}))
        << "at its end where a point is missing";
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
            ASSERT_EQ(answered(BCDF_slope_at_point, record, i),
                      walked(s, t[i], nearest, not_before));
            ASSERT_EQ(answered(BCDF_parameter_in_list, record, s[i]),
                      walked(t, s[i], near, std::greater()));
            ASSERT_EQ(BCDF_point_at_slope(record, i), walked(t, s[i], near, near).second);
            ASSERT_EQ(answered(BCDF_curvature_at_slope, record, i),
                      walked(c, s[i], near, std::greater_equal()));
            ASSERT_EQ(answered(BCDF_curvature_at_point, record, i),
                      walked(c, t[i], near, std::greater_equal()));
        }
        const Record one_by_one(BCDF_copy_structure(record));
        const int first = random.integer(0, n - 1), number = random.integer(1, n - first);
        BCDF_remove_slopes(record, first, number);
        for (int k = 0; k < number; ++k)
            BCDF_remove_slopes(one_by_one, first, 1);
        ASSERT_EQ(values_of(record->curvatures), values_of(one_by_one->curvatures));
    }
}

TEST(CurveEditing, PointsTakeTheirSlopesWithThemAndNoOther) {
    const Record record = with_slopes(row_of(6), {{1, {1, 0, 0}}, {2, {2, 0, 0}}, {3, {3, 0, 0}}});
    record->slope_parameters->points[1] += 0.25;  // at no point now
    BCDF_remove_defining_points(record, 1, 3);
    EXPECT_EQ(values_of(record->slopes), (Values{2, 0, 0}));
    BCDF_add_params(record, nullptr);
    EXPECT_EQ(values_of(record->slope_parameters), Values{2.25});
    const Record one = row_of(1), ring = row_of(3, 1);
    BCDF_toggle_periodicity(one);
    EXPECT_EQ(one->points->num_points, 2) << "closed by itself";
    BCDF_remove_defining_points(ring, 0, 1);
    EXPECT_EQ(vector_in(ring->points, 1), (Vector{1, 0, 0})) << "two that are one";
    BCDF_replace_defining_point(ring, up.data(), 0, 3);
    ring->parameters->points[1] = 9;
    BCDF_remove_defining_points(ring, 0, 0);
    EXPECT_EQ(values_of(ring->parameters).back(), 1) << "new, though nothing went";
    // Where the array has room behind the last point, a point of weight 1 comes to stand there.
    const Record weighted = new_record({0, 0, 0, 2, 0, 0, 0, 2}, 4);
    weighted->points->num_points = 1;
    BCDF_replace_defining_point(weighted, up.data(), 1, 3);
    weighted->points->num_points = 2;
    EXPECT_EQ(values_of(weighted->points), (Values{0, 0, 0, 2, 0, 1, 0, 1}));
}

TEST(CurveEditing, ReportsAndGoesOn) {
    const Checked checked{
        {internal("bcdf_gen", "Maximum Order For Spline Exceeded"),
         internal("bcdf_gen", "Order Must Be Greater Than 1"),
         raised("bcdf_gen", 1005316, "Error While Removing Points"),
         internal("bcdf_gen", "Point With Assigned Curvature Has No Slope"),
         internal("bcdf_gen", "Periodic Least Squares Curves Are Not Allowed"),
         raised("bcdf_gen", 1005312, "Periodic Least Squares Splines Are Not Allowed"),
         internal("bcdf_gen", "The Parameter List Has A NULL Value")}};
    const Record record = row_of(5);
    EXPECT_EQ(answered(BCDF_parameter_in_list, record, 0.0).first, 1);
    for (const int type : {-1, 6})
        BCDF_change_slope(record, type, along.data(), 2);
    EXPECT_EQ(record->slopes, nullptr) << "of no type there is none";
    for (const int order : {25, 26, 2, 1}) {
        BCDF_change_order(record, order);
        EXPECT_EQ(record->order, order);
    }
    BCDF_remove_defining_points(record, -1, 2);
    BCDF_remove_defining_points(record, 3, 3);
    EXPECT_EQ(record->points->num_points, 5);
    BCDF_change_curvature(record, 1, nullptr, 2, 1.0);
    EXPECT_EQ(record->curvatures->num_points, 1);
    BCDF_add_weights(record);
    BCDF_replace_weight(record, 4, 3.0);
    EXPECT_EQ(record->weights->points[4], 3.0);
    BCDF_toggle_periodicity(record);
    BCDF_add_weights(record);
    BCDF_toggle_periodicity(record);
    EXPECT_EQ(record->weights->num_points, 5);
    const Kept<PNTLST*> none(record->parameters, nullptr);
    EXPECT_EQ(answered(BCDF_parameter_in_list, record, 0.0).first, 0);
}

/// Slope k of a row of points after an update.
Vector updated(int points, int k, const std::vector<Slope>& slopes) {
    const Record record = with_slopes(row_of(points), slopes);
    BCDF_update_slopes(record);
    return vector_in(record->slopes, k);
}

TEST(CurveEditing, NeededAndUpdatedSlopes) {
    const Kept tolerance(acom_.tolerances[ZTMATH_LENGTH_TOLERANCE], 1e-6);
    for (const int end : {0, 1}) {
        const Record two = with_slopes(row_of(2), {{end, {1, 1, 0}, 3}});
        BCDF_add_needed_slopes(two);
        EXPECT_EQ(values_of(two->slopes),
                  end == 0 ? (Values{1, 1, 0, 1, -1, 0}) : (Values{1, -1, 0, 1, 1, 0}));
        EXPECT_EQ(two->slope_types[1 - end], 3);
    }
    // By type: renewed, kept, as long as the mean speed, kept, turned to the automatic side; and as
    // long as an arc that turns by 120 degrees, the most that counts.
    const double expected[] = {1, -2, -1, -2, 1, -4};
    for (int type = 0; type < 6; ++type) {
        const Slope back = {2, {-2, 0, 0}, type};
        EXPECT_NEAR(updated(5, 0, {back})[0], expected[type], 1e-14) << type;
        const Vector between = updated(5, 1, {back, {0, along}, {4, along}});
        EXPECT_NEAR(between[0], expected[type], 1e-14) << type;
    }
    EXPECT_GT(updated(3, 0, {{1, up, 4}})[1], 0.0) << "not against the automatic one";
    for (const int end : {4, 0}) {
        const int k = end == 0 ? 0 : 1;
        const Slope beside = {end == 0 ? 1 : 3, {4, 0, 0}};
        const Record record = with_slopes(row_of(5), {beside, {end, along, 0}});
        BCDF_update_end_slopes(record);
        EXPECT_NEAR(vector_in(record->slopes, k)[0], -2.0, 1e-14);
        for (const double x : {1.0, -0.25})
            EXPECT_LT(updated(5, k, {beside, {end, {x, 0, 0}, 4}})[0], 0.0)
                << "in the automatic sense";
    }
}

TEST(CurveEditing, ToleranceAndNumberOfSegmentsReplaceEachOther) {
    const Report refused =
        raised("bcdf_gen", 1005312, "Periodic Least Squares Splines Are Not Allowed");
    const Checked checked{{refused, refused}};
    for (const int fits : {0, 1}) {  // which a ring does not
        const Record r = row_of(5, 1 - fits);
        BCDF_change_tolerance(r, 0.5);
        EXPECT_EQ(std::pair(r->ls_tolerance, r->ls_num_segments), std::pair(fits * 0.5, 0));
        EXPECT_EQ(r->weights != nullptr, fits);
        BCDF_change_number_of_segments(r, 7);
        EXPECT_EQ(std::pair(r->ls_tolerance, r->ls_num_segments), std::pair(0.0, fits * 7));
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
        const Record record = with_slopes(row_of(4), {{1, along}});
        BCDF_replace_curvature(record, curvature.data(), 1, 7);
        BCDF_replace_slope(record, slope.data(), 1, 1);
        EXPECT_LT(distance(vector_in(record->curvatures, 0), turned), 1e-15);
        EXPECT_EQ(record->curvature_types[0], 7);
    }
    const Record bent = new_record({0, 1, 0, 1, 0, 0, 2, 1, 0});
    BCDF_replace_curvature(bent, Vector{0, 0, 3}.data(), 1, 1);
    BCDF_update_curvatures(bent);
    EXPECT_LT(distance(vector_in(bent->curvatures, 0), Vector{0, 3, 0}), 1e-14);
}

}  // namespace
