// Curve defining data: the record as a whole.
#include "ztmath/bcdf.h"

#include "support/curve_record.h"

namespace {

using namespace ztmath_test;

const Values corner{0, 0, 0, 3, 4, 0, 3, 4, 12, 8, 4, 24};

/// A record with fixed slopes at some points.
Record sloped(const std::vector<int>& positions, int periodicity = 0) {
    Record record = new_record(corner, 3, periodicity);
    for (const int i : positions)
        BCDF_replace_slope(record, Vector{0, 2.0 + i, 0}.data(), i, 1);
    return record;
}

Record with_everything() {
    Record record = sloped({0, 1, 3});
    BCDF_replace_curvature(record, Vector{1, 0, 0.5}.data(), 1, 1);
    record->ls_tolerance = 0.25;
    return record;
}

TEST(CurveRecord, KeepsItsKnotsButDoesNotCopyThem) {
    const NoBlocksLeft watch;
    EXPECT_EQ(BCDF_copy_structure(nullptr), nullptr);
    EXPECT_EQ(BCDF_make_bcdf_data_persistent(nullptr), nullptr);
    BCDF_free_structure(nullptr);
    BCDF_free_all_but_points(nullptr);

    Record record = with_everything();
    double knots[] = {0, 1, 2};
    const auto knots_of = [](BCDF* r) { return answered(BCDF_return_knot_sequence, r); };
    const std::pair<double*, int> all(knots, 3), none(nullptr, 0);
    BCDF_attach_knot_sequence(record, 3, knots);
    EXPECT_EQ(knots_of(Record(BCDF_copy_structure(record))), none);
    const std::size_t length = SM_length(record);
    record.reset(BCDF_make_bcdf_data_persistent(record.release()));
    EXPECT_EQ(SM_length(record), length);
    EXPECT_EQ(knots_of(record), all);
    BCDF_detach_knot_sequence(record);
    EXPECT_EQ(knots_of(record), none);
}

/// What it hands out is its own, but for copies; the random edits tell what is in them.
TEST(CurveRecord, HandsOutItsArrays) {
    const Record r = with_everything(), untyped = with_everything();
    int n = -1, d = -1;
    EXPECT_EQ(BCDF_return_df_point_array(r, &n, &d), r->points->points);
    EXPECT_EQ(BCDF_return_param_array(r, &n), r->parameters->points);
    EXPECT_EQ(BCDF_return_slope_array(r, &n, &d), r->slopes->points);
    EXPECT_EQ(BCDF_return_crvatr_pars_array(r, &n), r->curvature_parameters->points);
    EXPECT_EQ(BCDF_return_slope_pars_array(r, &n), r->slope_parameters->points);
    EXPECT_EQ(std::pair(n, d), std::pair(3, BCDF_return_dimension(r)));
    EXPECT_EQ(BCDF_return_slope_type_array(r), r->slope_types);
    EXPECT_EQ(BCDF_return_crvatr_array(r, &n, &d), r->curvatures->points);
    EXPECT_EQ(BCDF_return_crvatr_type_array(r), r->curvature_types);
    EXPECT_EQ(BCDF_copy_slopes(new_record(corner), &n, &d), nullptr);
    EXPECT_EQ(BCDF_return_weight_array(r, &n), nullptr);
    EXPECT_EQ(n + d, 0);
    SM_free(std::exchange(untyped->slope_types, nullptr));
    EXPECT_EQ(BCDF_copy_slope_type_array(untyped), nullptr);
    BCDF_remove_slopes(untyped, 0, 1);
    BCDF_unitize_slopes(untyped);
    EXPECT_EQ(untyped->slope_types, nullptr);

    Vector v;
    int type = -1;
    BCDF_copy_single_3d_slope(r, 1, v.data(), &type);
    EXPECT_EQ(std::pair(v, type), std::pair(Vector{0, 3, 0}, 1));
    BCDF_copy_single_3d_slope(untyped, 0, v.data(), &type);
    EXPECT_EQ(std::pair(v, type), std::pair(Vector{0, 1, 0}, 0));
    BCDF_copy_single_3d_crvatr(r, 0, v.data(), &type);
    EXPECT_EQ(std::pair(v, type), std::pair(Vector{1, 0, 0.5}, 1));
    BCDF_replace_slope(untyped, v.data(), 3, 4);
    EXPECT_EQ(taken(BCDF_copy_slope_type_array(untyped), 2), (Values{1, 4}));
    const Record weighted = new_record({2, 4, 6, 2, 0, 0, 0, 1}, 4);
    for (const auto& [dimension, point] :
         {std::pair{4, Vector{1, 2, 3}}, {2, {2, 4}}, {1, {2}}, {0, {}}}) {
        weighted->points->dimension = dimension;
        EXPECT_EQ(written(BCDF_copy_single_3d_point, weighted, 0), point);
    }
    r->periodicity = 1;
    EXPECT_EQ(BCDF_return_num_of_constraints(r), 7);
}

TEST(CurveRecord, CreatorsTakeWhatTheyAreGiven) {
    const NoBlocksLeft watch;
    const CheckingLevel checking(1);
    const auto weighted = [](int fits, const Values& weights) {
        return Record(
            created(fits, fits, new_list(corner).release(), new_list(weights, 1).release()));
    };
    const Record plain = weighted(0, {1, 1, 1, 1}), fit = weighted(1, {4, 3, 2, 1});
    EXPECT_EQ(BCDF_is_least_squares(plain), 0);
    EXPECT_EQ(BCDF_ask_max_npoles_for_fit(plain), 0);
    EXPECT_EQ(values_of(fit->weights), (Values{4, 3, 2, 1}));
    EXPECT_EQ(BCDF_ask_max_npoles_for_fit(fit), 3);
    fit->periodicity = 0;
    EXPECT_EQ(BCDF_ask_max_npoles_for_fit(fit), 4);

    Record left = with_everything();
    double* const array = left->points->points;
    BCDF_free_all_but_points(left.release());
    const Record over(BCDF_create_df_from_pts(array, 4, 3, 1));
    EXPECT_EQ(over->points->points, array);
    EXPECT_EQ(values_of(over->points), corner);
    EXPECT_EQ(BCDF_return_order(over), 4);
    EXPECT_EQ(values_of(over->weights), (Values{2.5, 8.5, 12.5, 6.5}));
}

/// Lists stay the caller's when creation is left, whatever it was about to do.
TEST(CurveRecord, CreatorsThatFailTakeNothing) {
    const NoBlocksLeft watch;
    struct Left {};
    const List points = new_list(corner), weights = new_list({1, 1, 1, 1}, 1);
    const Checked checked{
        {raised("bcdf_gen", 1005304, "The Point List Is NULL"),
         raised("bcdf_gen", 1005306, "Slope Position Array Is NULL"),
         raised("bcdf_gen", 1005312, "Periodic Least Squares Splines Are Not Allowed")}};
    {
        const ReportRecorder leaving([](const Report&) { throw Left{}; });
        EXPECT_THROW(created(1, 1, points), Left);
    }
    EXPECT_EQ(created(0, 1, nullptr, weights), nullptr);
    EXPECT_EQ(created(0, 1, points, weights, weights), nullptr);
    // Where the host goes on, a fit that cannot be periodic interpolates.
    for (const int periodicity : {0, 1, 2})
        EXPECT_EQ(BCDF_is_least_squares(new_record(corner, 3, periodicity, 1)), periodicity != 1);
}

TEST(CurveRecord, KnowsSplinesWithSlopesAtTheirEnds) {
    const std::tuple<int, int, int, int, std::vector<int>> cases[] = {
        {4, 0, 1, 2, {0, 3}}, {4, 0, 1, 1, {0, 1, 3}}, {4, 1, 1, 1, {0, 3}}, {3, 0, 0, 1, {0, 3}},
        {4, 0, 0, 2, {0}},    {4, 0, 0, 2, {1, 3}},    {4, 0, 0, 2, {0, 2}}, {6, 0, 0, 4, {}}};
    for (const auto& [order, periodicity, spline, continuity, slopes] : cases) {
        const Record record = sloped(slopes, periodicity);
        record->order = order;
        EXPECT_EQ(BCDF_is_zt_spline(record), spline);
        EXPECT_EQ(BCDF_ask_continuity(record), continuity);
    }
    EXPECT_EQ(BCDF_is_zt_spline(with_everything()), 0);  // a curvature
}

TEST(CurveRecord, NormalisesParametersAndBack) {
    const Record r = with_everything();
    EXPECT_EQ(BCDF_normalize_parameters(r), 30.0);
    EXPECT_EQ(values_of(r->parameters), (Values{0, 5.0 / 30, 17.0 / 30, 1}));
    EXPECT_EQ(values_of(r->slope_parameters), (Values{0, 5.0 / 30, 1}));
    EXPECT_EQ(values_of(r->curvature_parameters), Values{5.0 / 30});
    r->parameters->points[0] = 9.0;  // forced to 0 on the way back
    BCDF_unnormalize(r, 30.0);
    EXPECT_EQ(values_of(r->parameters), (Values{0, 5, 17, 30}));
    EXPECT_EQ(values_of(r->slope_parameters), (Values{0, 5, 30}));
    BCDF_unnormalize_parameters(r, 60.0);
    EXPECT_EQ(BCDF_normalize(r), 1800.0);
    EXPECT_EQ(values_of(r->curvature_parameters), Values{10}) << "by one of each";
    r->parameters->points[0] = 2.0;
    for (const int number : {1, 0}) {
        r->parameters->num_points = number;
        EXPECT_EQ(BCDF_normalize_parameters(r), 2.0 * number);
        EXPECT_EQ(values_of(r->curvature_parameters), Values{5}) << "by no last parameter";
    }
}

TEST(CurveRecord, DropsTheFourthCoordinateOfSlopesWithoutDividing) {
    const Record record = new_record({2, 4, 6, 2, 0, 0, 0, 1, 5, 0, 0, 0.5}, 4);
    for (const double fourth : {9.0, 0.0}) {  // new, and over another
        BCDF_replace_slope(record, Vector{5, 6, 7}.data(), 1, 1);
        EXPECT_EQ(values_of(record->slopes), (Values{5, 6, 7, 0}));
        EXPECT_EQ(record->slopes->points_allocated, 1);
        record->slopes->points[3] = fourth;
    }
    const Record wide = with_slopes(new_record(Values(10), 5), {{0, {5, 6, 7}}});
    EXPECT_EQ(values_of(wide->slopes), (Values{5, 6, 7, 0, 0}));
    BCDF_remove_slopes(record, 0, 1);
    record->slopes = new_list({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}, 4).release();
    BCDF_convert_4d_to_3d(record);
    EXPECT_EQ(values_of(record->slopes), (Values{1, 2, 3, 5, 6, 7, 9, 10, 11}));
}

TEST(CurveRecord, ReducesItsSlopesForAFit) {
    // Which points have slopes, and where slopes are left; the last interior one stays.
    const std::pair<std::vector<int>, Values> cases[] = {
        {{1, 2}, {}},   {{0, 1, 2, 3}, {0, 30}},  {{0, 3}, {0, 30}},       {{0}, {0, 30}},
        {{3}, {0, 30}}, {{0, 1, 2}, {0, 17, 30}}, {{1, 2, 3}, {0, 17, 30}}};
    for (const auto& [slopes, sites] : cases) {
        const Record record = sloped(slopes);
        BCDF_make_least_squares_slopes(record);
        EXPECT_EQ(values_of(record->slope_parameters), sites);
        for (int k = 0; k < std::ssize(sites); ++k)
            EXPECT_NEAR(length(vector_in(record->slopes, k)), 1.0, 1e-15);
    }
}

TEST(CurveRecord, BecomesALeastSquaresRecord) {
    const Record record = with_everything(), closed = sloped({}, 1),
                 weighted = new_record({0, 0, 0, 2, 6, 8, 0, 2}, 4);
    record->ls_num_segments = 5;
    for (BCDF* each : {record.get(), closed.get(), weighted.get()})
        BCDF_convert_to_least_squares(each);
    EXPECT_EQ(record->curvatures, nullptr);
    EXPECT_EQ(BCDF_return_ls_tolerance(record), 0.0);
    EXPECT_EQ(BCDF_return_ls_num_of_segments(record), 0);
    EXPECT_EQ(closed->periodicity, 0);
    EXPECT_EQ(values_of(weighted->parameters), (Values{0, 5}));
    record->ls_tolerance = 0.5;
    BCDF_convert_to_least_squares(record);  // nothing more to do
    EXPECT_EQ(record->ls_tolerance, 0.5);
}

TEST(CurveRecord, ReportsOnlyWithChecking) {
    const auto run = [] {
        const Record r = new_record(corner), one = sloped({0}), narrow = new_record(corner);
        narrow->points->dimension = 1;
        BCDF bare{};
        double v[3] = {9, 9, 9};
        int n = 9, d = 9;
        EXPECT_EQ(BCDF_calc_df_polygon_length(r), 5.0 + 12.0 + 13.0);
        EXPECT_EQ(BCDF_return_dimension(&bare), 0);
        for (const auto ask : {BCDF_return_order, BCDF_return_periodicity, BCDF_is_least_squares})
            EXPECT_EQ(ask(nullptr), 0);
        EXPECT_EQ(BCDF_return_knot_sequence(nullptr, &n), nullptr);
        EXPECT_EQ(BCDF_return_ls_tolerance(nullptr), 0.0);
        EXPECT_EQ(BCDF_return_ls_num_of_segments(r), 0);
        BCDF_copy_single_3d_point(&bare, 0, v);
        BCDF_copy_single_3d_point(r, 4, v);
        EXPECT_EQ(v[0], 0.0);
        BCDF_copy_single_3d_point(narrow, 0, v);
        BCDF_copy_single_3d_slope(r, 0, v, &n);
        EXPECT_EQ(n, 0);
        BCDF_copy_single_3d_slope(one, 1, v, &n);
        BCDF_copy_single_3d_crvatr(r, 0, v, &n);
        EXPECT_EQ(BCDF_copy_points(&bare, &n, &d), nullptr);
        EXPECT_EQ(BCDF_copy_parameters(&bare, &n), nullptr);
        EXPECT_EQ(BCDF_normalize(&bare), 0.0);
        BCDF_convert_to_least_squares(narrow);
        BCDF_unnormalize_parameters(&bare, 2.0);
        BCDF_convert_to_least_squares(r);
    };
    const Report null = internal("bcdf", "Defining Data Structure Is NULL");
    const Report no_parameters = internal("bcdf", "The Parameter Array Is NULL");
    expect_reports_when_checking(
        run, {null, null, null, null, internal("bcdf", "Weights List Has A NULL Value"),
              raised("bcdf", 1005304, "No Points Allocated In Defining Data Structure."),
              raised("bcdf", 1005302, "Point Position Too Large For Point Array."),
              raised("bcdf", 1005313, "Point Dimension Is Not 3 Or 4."),
              raised("bcdf", 1005305, "No Slope Allocated In Defining Data Structure."),
              raised("bcdf", 1005315, "An Invalid Slope Position Was Given By Calling Routine"),
              raised("bcdf", 1005315, "An Invalid Curvature Position Was Given By Calling Routine"),
              raised("bcdf", 1005304, "Point Array Is NULL"),
              raised("bcdf", 1005303, "Parameter Array Is NULL"), no_parameters,
              internal("bcdf", "Points Are An Invalid Dimension"), no_parameters});
}

}  // namespace
