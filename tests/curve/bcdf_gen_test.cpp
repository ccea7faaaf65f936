#include "ztmath/bcdf_gen.h"

#include <gtest/gtest.h>

#include <span>

#include "support/curve_record.h"
#include "support/reports.h"
#include "support/session.h"
#include "support/shared_block.h"
#include "ztmath/bcdf_calc.h"

namespace {

using namespace ztmath_test;
using Values = std::vector<double>;

constexpr double up[3] = {0, 1, 0};
constexpr double along[3] = {1, 0, 0};

/// Points 0, 1, 2 ... on the x axis, which are their parameters.
Record row_of(int n, int dimension = 3, int periodicity = 0, int least_squares = 0) {
    Values points;
    for (int i = 0; i < n; ++i) {
        points.insert(points.end(), {static_cast<double>(i), 0, 0});
        if (dimension == 4) points.push_back(1 + i / 8.0);
    }
    Record record = new_record(points, dimension, periodicity, least_squares);
    Values parameters;
    for (int i = 0; i < n; ++i)
        parameters.push_back(i);
    BCDF_add_params(record.get(), parameters.data());
    return record;
}

/// Slopes (1, 0, 0) and curvatures (0, 1, 0) of codes 10, 11, 12 ... at all points.
Record full_row_of(int n) {
    Record record = row_of(n);
    for (int i = 0; i < n; ++i) {
        BCDF_replace_slope(record.get(), along, i, 10 + i);
        BCDF_replace_curvature(record.get(), up, i, 10 + i);
    }
    return record;
}

Values parameters_of(const Record& record) {
    const double* t = record->parameters->points;
    return {t, t + record->parameters->num_points};
}

std::vector<int> codes(const int* types, int number) {
    return {types, types + number};
}

TEST(CurveValidation, FindsTheFirstFault) {
    ReportRecorder recorder;
    const CheckingLevel checking(1);
    struct Case {
        int finding;
        Record record;
        void (*spoil)(BCDF* record);
    };
    const auto nothing = [](BCDF*) {};
    const auto end_slopes = [](BCDF* r) {
        BCDF_replace_slope(r, along, 0, 1);
        BCDF_replace_slope(r, along, 2, 1);
    };
    Case cases[] = {
        {1005321, row_of(1), nothing},
        {1005321, row_of(2, 3, 1), nothing},
        {1005311, row_of(3), nothing},
        {1005311, row_of(4, 3, 1), nothing},
        {0, row_of(3), end_slopes},
        {1005317, row_of(4), [](BCDF* r) { r->points->num_points = 2147483600; }},
        {1005322, row_of(4), [](BCDF* r) { r->parameters->points[2] = 1; }},
        {1005320, row_of(3),
         [](BCDF* r) {
             BCDF_replace_slope(r, along, 0, 1);
             r->order = 2;
         }},
        {1005320, row_of(4),
         [](BCDF* r) {
             BCDF_replace_curvature(r, up, 0, 0);
             r->order = 3;
         }},
        {1005318, row_of(4), [](BCDF* r) { BCDF_replace_curvature(r, up, 0, 0); }},
        {0, full_row_of(4), [](BCDF* r) { r->slopes->points[4] = 0.99e-7; }},
        {1005319, full_row_of(4), [](BCDF* r) { r->slopes->points[4] = 1e-7; }},
        {0, row_of(10, 3, 0, 1), nothing},
        {0, row_of(10, 3, 0, 1), [](BCDF* r) { r->ls_num_segments = 7; }},
        {1005005, row_of(10, 3, 0, 1), [](BCDF* r) { r->ls_num_segments = 8; }},
        {1005005, row_of(10, 3, 0, 1), [](BCDF* r) { r->ls_num_segments = -1; }},
        {1005006, row_of(10, 3, 0, 1), [](BCDF* r) { r->ls_tolerance = -1; }},
        {1005321, row_of(3, 3, 0, 1), end_slopes},
    };
    int i = 0;
    for (const Case& c : cases) {
        const int points = c.record->points->num_points;
        c.spoil(c.record.get());
        EXPECT_EQ(BCDF_check_defining_data(c.record.get()), c.finding) << "case " << i++;
        c.record->points->num_points = points;
    }
    EXPECT_EQ(recorder.take(), Reports{});
}

TEST(CurveValidation, Overlaps) {
    const KeepBlock keep;
    set_word_at(1128, 0.25);  // the length tolerance
    const Record record = new_record({0, 0, 0, 1, 0, 0, 1.25, 0, 0, 2, 0, 0});
    const auto overlaps = [&](int mode, int position, const Vector& point = {}) {
        return BCDF_check_overlap_points(record.get(), mode, position, point.data());
    };
    EXPECT_EQ(overlaps(1, 1, {0.25, 0, 0}), 1);
    EXPECT_EQ(overlaps(1, 1, {1.1, 0, 0}), 1);
    EXPECT_EQ(overlaps(1, 1, {0.5, 0, 0}), 0);
    EXPECT_EQ(overlaps(1, 0, {0, 0, 0}), 0);
    EXPECT_EQ(overlaps(1, 4, {2, 0, 0}), 1);
    EXPECT_EQ(overlaps(2, 1), 0);
    EXPECT_EQ(overlaps(2, 0), 0);
    EXPECT_EQ(overlaps(3, 0), 1);
    EXPECT_EQ(overlaps(4, 0), 0);
    record->points->points[6] = 0.2;
    EXPECT_EQ(overlaps(2, 1), 1);
    EXPECT_EQ(BCDF_check_consecutive_dup_pts(record.get()), 0);
}

TEST(CurveSearches, StopWhereAWalkStops) {
    ReportRecorder recorder;
    const CheckingLevel checking(1);
    const Record record = full_row_of(4);
    int at = -1;
    EXPECT_EQ(BCDF_parameter_in_list(record.get(), 1 + 0.9e-10, &at), 1);
    EXPECT_EQ(at, 1);
    EXPECT_EQ(BCDF_parameter_in_list(record.get(), 1.5, &at), 0);
    EXPECT_EQ(at, 2);
    EXPECT_EQ(BCDF_parameter_in_list(record.get(), 9, &at), 0);
    EXPECT_EQ(at, 4);
    EXPECT_EQ(BCDF_num_of_knots_needed(record.get(), 5), 12 + 4);
    const Record ring = row_of(6, 3, 1);
    EXPECT_EQ(BCDF_num_of_knots_needed(ring.get(), 5), 12);
    EXPECT_EQ(BCDF_num_of_knots_needed(ring.get(), 0), 10);
    BCDF_replace_weight(ring.get(), 0, 1.0);  // has none

    int number = 0;
    record->slope_parameters->points[2] = 2.5;
    int* positions = BCDF_create_slope_pos_array(record.get(), &number);
    EXPECT_EQ(codes(positions, number), (std::vector<int>{1, 2, 0, 0}));
    SM_free(positions);
    positions = BCDF_create_crvatr_pos_array(record.get(), &number);
    EXPECT_EQ(codes(positions, number), (std::vector<int>{1, 2, 3, 4}));
    SM_free(positions);
    EXPECT_EQ(BCDF_create_slope_pos_array(ring.get(), &number), nullptr);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(recorder.take(), Reports{});

    // Near is 1e-10 of the whole span here.
    record->slope_parameters->points[2] = 2 + 2e-10;
    EXPECT_EQ(BCDF_slope_at_point(record.get(), 2, &at), 1);
    record->slope_parameters->points[2] = 2 + 4e-10;
    EXPECT_EQ(BCDF_slope_at_point(record.get(), 2, &at), 0);
    EXPECT_EQ(at, 2);

    Vector slope;
    EXPECT_EQ(BCDF_slope_at_curvature(record.get(), 2, &at, slope.data()), 0);
    EXPECT_EQ(BCDF_point_at_slope(record.get(), 2), 4);
    const Report corrupt = internal("bcdf_gen", "Bcurve Defining Data Structure Corrupt");
    const Reports expected = {internal("bcdf_gen", "Point With Assigned Curvature Has No Slope"),
                              corrupt};
    EXPECT_EQ(recorder.take(), expected);
}

/// As many codes move as vectors went, and points go one by one.
TEST(CurveEditing, CodesStrayBehindRemovals) {
    const Record one = full_row_of(7);
    BCDF_remove_slopes(one.get(), 1, 2);
    EXPECT_EQ(codes(one->slope_types, 5), (std::vector<int>{10, 13, 14, 13, 14}));
    EXPECT_EQ(codes(one->curvature_types, 5), (std::vector<int>{10, 12, 12, 13, 14}));
    const Record two = full_row_of(7);
    BCDF_remove_defining_points(two.get(), 2, 2);
    EXPECT_EQ(codes(two->slope_types, 5), (std::vector<int>{10, 11, 13, 13, 14}));
    EXPECT_EQ(two->curvatures->num_points, 5);
    EXPECT_EQ(parameters_of(two), (Values{0, 1, 4, 5, 6}));
    const Record three = full_row_of(4);
    BCDF_remove_curvatures(three.get(), 1, 2);
    EXPECT_EQ(codes(three->curvature_types, 2), (std::vector<int>{10, 13}));
    BCDF_remove_slopes(three.get(), 3, 9);
    EXPECT_EQ(three->curvatures->num_points, 1);
    BCDF_remove_slopes(three.get(), 0, 3);
    EXPECT_EQ(three->slope_types, nullptr);
    EXPECT_EQ(three->curvatures, nullptr);
}

/// Parameters are renewed by removal of the first point or of the last but one, not of the last.
TEST(CurveEditing, RemovalRenewsParametersAtItsOwnEnds) {
    struct Case {
        int position, number;
        Values parameters;
    };
    const Case cases[] = {{0, 1, {0, 1, 2, 3}}, {3, 1, {0, 1, 2, 4}}, {4, 1, {0, 1, 2, 3}}};
    for (const auto& [position, number, parameters] : cases) {
        const Record record = row_of(5);
        record->order = 5;
        for (double& x : std::span(record->points->points, 15))
            x *= 10;
        BCDF_remove_defining_points(record.get(), position, number);
        Values expected = parameters;
        if (position != 4)
            for (double& t : expected)
                t *= 10;
        EXPECT_EQ(parameters_of(record), expected) << position;
    }

    // In a periodic record the place of the closing point is taken over, but not its weight.
    const Record ring = row_of(6, 4, 1);
    BCDF_remove_defining_points(ring.get(), 0, 1);
    EXPECT_EQ(vector_in(ring->points, 4), (Vector{1, 0, 0}));
    EXPECT_EQ(ring->points->points[4 * 3 + 3], 1.125);
    EXPECT_EQ(ring->points->points[4 * 4 + 3], 1.625);
    BCDF_remove_defining_points(ring.get(), 4, 1);
    EXPECT_EQ(vector_in(ring->points, 0), (Vector{4, 0, 0}));
    EXPECT_EQ(ring->points->points[3], 1.125);
}

TEST(CurveEditing, ReportsAndGoesOn) {
    ReportRecorder recorder;
    const CheckingLevel checking(1);
    const auto fails = [](const char* text) { return Reports{internal("bcdf_gen", text)}; };
    const Record record = row_of(5);
    BCDF_change_order(record.get(), 25);
    BCDF_change_order(record.get(), 2);
    EXPECT_EQ(recorder.take(), Reports{});
    BCDF_change_order(record.get(), 26);
    EXPECT_EQ(recorder.take(), fails("Maximum Order For Spline Exceeded"));
    BCDF_change_order(record.get(), 1);
    EXPECT_EQ(recorder.take(), fails("Order Must Be Greater Than 1"));
    EXPECT_EQ(record->order, 1);
    BCDF_remove_defining_points(record.get(), 3, 3);
    EXPECT_EQ(recorder.take(), Reports{raised("bcdf_gen", 1005316, "Error While Removing Points")});
    EXPECT_EQ(record->points->num_points, 5);
    BCDF_change_curvature(record.get(), 1, nullptr, 2, 1.0);
    EXPECT_EQ(recorder.take(), fails("Point With Assigned Curvature Has No Slope"));
    BCDF_remove_curvatures(record.get(), 0, 1);

    BCDF_add_weights(record.get());
    BCDF_replace_weight(record.get(), 4, 3.0);
    EXPECT_EQ(record->weights->points[4], 3.0);
    BCDF_toggle_periodicity(record.get());
    EXPECT_EQ(recorder.take(), fails("Periodic Least Squares Curves Are Not Allowed"));
    EXPECT_EQ(record->points->num_points, 6);
    BCDF_add_weights(record.get());
    EXPECT_EQ(recorder.take(), Reports{raised("bcdf_gen", 1005312,
                                              "Periodic Least Squares Splines Are Not Allowed")});
    int at = 0;
    PNTLST* parameters = std::exchange(record->parameters, nullptr);
    EXPECT_EQ(BCDF_parameter_in_list(record.get(), 0.0, &at), 0);
    EXPECT_EQ(recorder.take(), fails("The Parameter List Has A NULL Value"));
    record->parameters = parameters;
}

TEST(CurveEditing, NeededAndUpdatedSlopes) {
    const KeepBlock keep;
    set_word_at(1128, 1e-6);  // the length tolerance
    const Vector slope = {1, 1, 0}, image = {1, -1, 0};
    for (const int end : {0, 1}) {
        const Record two = row_of(2);
        BCDF_replace_slope(two.get(), slope.data(), end, 3);
        BCDF_add_needed_slopes(two.get());
        ASSERT_EQ(two->slopes->num_points, 2);
        EXPECT_EQ(vector_in(two->slopes, 1 - end), image);
        EXPECT_EQ(two->slope_types[1 - end], 3);
    }
    // A least-squares record wants the other end only; order 5 nothing.
    const Record fit = row_of(5, 3, 0, 1);
    BCDF_add_needed_slopes(fit.get());
    EXPECT_EQ(fit->slopes, nullptr);
    BCDF_replace_slope(fit.get(), slope.data(), 0, 1);
    BCDF_add_needed_slopes(fit.get());
    EXPECT_EQ(fit->slopes->num_points, 2);
    BCDF_unitize_slopes(fit.get());
    EXPECT_NEAR(length(vector_in(fit->slopes, 0)), 1.0, 1e-15);
    BCDF_change_tolerance(fit.get(), 0.5);
    EXPECT_EQ(fit->ls_tolerance, 0.5);

    // By type: renewed, kept, as long as the mean speed, kept, turned to the automatic side; and as
    // long as an arc that turns by 120 degrees, the most that counts.
    const double expected[] = {1, -2, -1, -2, 1, -4};
    for (int type = 0; type < 6; ++type) {
        const Record record = row_of(5);
        BCDF_replace_slope(record.get(), Vector{-2, 0, 0}.data(), 2, type);
        BCDF_update_slopes(record.get());
        EXPECT_NEAR(vector_in(record->slopes, 0)[0], expected[type], 1e-14) << type;
    }
    // The ends follow what their neighbours have.
    const Record record = row_of(5);
    BCDF_replace_slope(record.get(), along, 0, 0);
    BCDF_replace_slope(record.get(), Vector{4, 0, 0}.data(), 1, 1);
    BCDF_update_end_slopes(record.get());
    EXPECT_NEAR(vector_in(record->slopes, 0)[0], -2.0, 1e-14);
}

/// A curvature turns with its slope about z only.
TEST(CurveEditing, CurvaturesTurnWithTheirSlopes) {
    const auto turned = [](const Vector& slope, const Vector& curvature, const Vector& to) {
        const Record record = row_of(4);
        BCDF_replace_slope(record.get(), slope.data(), 1, 1);
        BCDF_replace_curvature(record.get(), curvature.data(), 1, 7);
        BCDF_replace_slope(record.get(), to.data(), 1, 1);
        EXPECT_EQ(record->curvature_types[0], 7);
        return vector_in(record->curvatures, 0);
    };
    EXPECT_EQ(turned({2, 0, 0}, {0, 3, 0}, {0, 5, 0}), (Vector{-3, 0, 0}));
    EXPECT_EQ(turned({2, 0, 0}, {0, -3, 0}, {0, 5, 0}), (Vector{-3, 0, 0}));
    EXPECT_EQ(turned({2, 0, 0}, {0, 3, 0}, {4, 0, 1}), (Vector{0, 3, 0}));
    EXPECT_EQ(turned({2, 0, 0}, {0, 0, 3}, {0, 0, 5}), (Vector{0, 0, 3}));

    const Record record = row_of(4);
    BCDF_replace_slope(record.get(), along, 1, 1);
    BCDF_change_curvature(record.get(), 1, nullptr, 1, 4.0);
    EXPECT_EQ(vector_in(record->curvatures, 0), (Vector{0, 0.25, 0}));
    BCDF_update_curvatures(record.get());
    EXPECT_EQ(vector_in(record->curvatures, 0), (Vector{0, 0.25, 0}));
}

TEST(CurveEditing, ReplacedPointsKeepTheWidthOfTheRecord) {
    const Values point = {2, 4, 6, 2};
    const Record narrow = row_of(4, 3, 1), wide = row_of(4, 4);
    BCDF_replace_defining_point(narrow.get(), point.data(), 0, 4);
    EXPECT_EQ(vector_in(narrow->points, 0), (Vector{1, 2, 3}));
    EXPECT_EQ(vector_in(narrow->points, 3), (Vector{1, 2, 3}));
    wide->points->points[7] = 0.5;
    BCDF_replace_defining_point(wide.get(), point.data(), 1, 3);
    EXPECT_EQ(Values(wide->points->points + 4, wide->points->points + 8), (Values{1, 2, 3, 0.5}));
}

}  // namespace
