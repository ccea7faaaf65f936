// Curve defining data: the record as a whole.
#include "ztmath/bcdf.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

#include "support/curve_record.h"
#include "support/reports.h"
#include "support/session.h"

namespace {

using namespace ztmath_test;

using Values = std::vector<double>;

const Values corner{0, 0, 0, 3, 4, 0, 3, 4, 12, 8, 4, 24};

Values values_of(const PNTLST* list) {
    if (list == nullptr) return {};
    return {list->points, list->points + list->num_points * list->dimension};
}

PNTLST* new_list(const Values& values, int dimension) {
    PNTLST* list = PNTLST_allocate_struct(dimension, static_cast<int>(values.size()) / dimension);
    list->num_points = list->points_allocated;
    PNTLST_replace_points(list, list->num_points, 0, values.data());
    return list;
}

/// A record with fixed slopes at some points.
Record sloped(const std::vector<int>& positions, const Values& points = corner,
              int periodicity = 0) {
    Record record = new_record(points, 3, periodicity);
    for (const int i : positions) {
        const double slope[3] = {0.0, 2.0 + i, 0.0};
        BCDF_replace_slope(record.get(), slope, i, 1);
    }
    return record;
}

/// All that a record says, as one row of numbers.
Values said_by(const BCDF* r) {
    Values all{r->ls_tolerance, 1.0 * r->ls_num_segments, 1.0 * r->order, 1.0 * r->periodicity};
    for (const PNTLST* list : {r->points, r->weights, r->parameters, r->slopes, r->slope_parameters,
                               r->curvatures, r->curvature_parameters}) {
        const Values more = values_of(list);
        all.push_back(static_cast<double>(more.size()));
        all.insert(all.end(), more.begin(), more.end());
    }
    for (int i = 0; i < BCDF_return_num_of_slopes(r); ++i)
        all.push_back(r->slope_types[i]);
    for (int i = 0; i < BCDF_return_num_of_crvatrs(r); ++i)
        all.push_back(r->curvature_types[i]);
    return all;
}

Record with_everything() {
    Record record = sloped({0, 1, 3});
    const double curvature[3] = {1.0, 0.0, 0.5};
    BCDF_replace_curvature(record.get(), curvature, 1, 1);
    record->ls_tolerance = 0.25;
    return record;
}

TEST(CurveRecord, CopiesAndKeepsAllButItsKnots) {
    const NoBlocksLeft watch;
    EXPECT_EQ(BCDF_copy_structure(nullptr), nullptr);
    EXPECT_EQ(BCDF_make_bcdf_data_persistent(nullptr), nullptr);
    BCDF_free_structure(nullptr);
    BCDF_free_all_but_points(nullptr);

    Record record = with_everything();
    double knots[] = {0, 1, 2};
    BCDF_attach_knot_sequence(record.get(), 3, knots);
    const Record copy(BCDF_copy_structure(record.get()));
    const Values said = said_by(record.get());
    EXPECT_EQ(said_by(copy.get()), said);
    int number = -1;
    EXPECT_EQ(BCDF_return_knot_sequence(copy.get(), &number), nullptr);
    EXPECT_EQ(number, 0);

    const std::size_t length = SM_length(record->points->points);
    record.reset(BCDF_make_bcdf_data_persistent(record.release()));
    EXPECT_EQ(said_by(record.get()), said);
    EXPECT_EQ(SM_length(record->points->points), length);
    EXPECT_EQ(BCDF_return_knot_sequence(record.get(), &number), knots);
    BCDF_detach_knot_sequence(record.get());
    EXPECT_EQ(BCDF_return_knot_sequence(record.get(), &number), nullptr);

    double* points = record->points->points;
    BCDF_free_all_but_points(record.release());
    EXPECT_EQ(Values(points, points + corner.size()), corner);
    SM_free(points);
}

TEST(CurveRecord, HandsOutAndCopiesItsArrays) {
    const NoBlocksLeft watch;
    const Record record = with_everything();
    const BCDF* r = record.get();
    int n = -1;
    int d = -1;
    const auto expect = [&](const double* array, const PNTLST* list, const double* own) {
        EXPECT_EQ(n, list->num_points);
        EXPECT_EQ(Values(array, array + n * list->dimension), values_of(list));
        EXPECT_EQ(array == list->points, own != nullptr);
    };
    const auto expect_own = [&](double* a, const PNTLST* list) { expect(a, list, a); };
    const auto expect_copy = [&](double* a, const PNTLST* list) {
        expect(a, list, nullptr);
        SM_free(a);
    };
    expect_own(BCDF_return_df_point_array(r, &n, &d), r->points);
    EXPECT_EQ(d, BCDF_return_dimension(r));
    expect_own(BCDF_return_param_array(r, &n), r->parameters);
    expect_own(BCDF_return_slope_array(r, &n, &d), r->slopes);
    expect_own(BCDF_return_slope_pars_array(r, &n), r->slope_parameters);
    expect_own(BCDF_return_crvatr_array(r, &n, &d), r->curvatures);
    expect_own(BCDF_return_crvatr_pars_array(r, &n), r->curvature_parameters);
    EXPECT_EQ(BCDF_return_weight_array(r, &n), nullptr);
    expect_copy(BCDF_copy_points(r, &n, &d), r->points);
    expect_copy(BCDF_copy_parameters(r, &n), r->parameters);
    expect_copy(BCDF_copy_slopes(r, &n, &d), r->slopes);
    expect_copy(BCDF_copy_slope_pars(r, &n), r->slope_parameters);
    EXPECT_EQ(BCDF_return_slope_type_array(r), r->slope_types);
    EXPECT_EQ(BCDF_return_crvatr_type_array(r), r->curvature_types);
    int* slope_types = BCDF_copy_slope_type_array(r);
    int* curvature_types = BCDF_copy_crvatr_type_array(r);
    EXPECT_EQ(slope_types[2], 1);
    EXPECT_EQ(curvature_types[0], 1);
    SM_free(slope_types);
    SM_free(curvature_types);
    EXPECT_EQ(BCDF_copy_slopes(new_record(corner).get(), &n, &d), nullptr);
    EXPECT_EQ(n + d, 0);

    double v[3];
    int type = -1;
    BCDF_copy_single_3d_slope(r, 1, v, &type);
    EXPECT_EQ(v[1], 3.0);
    EXPECT_EQ(type, 1);
    BCDF_copy_single_3d_crvatr(r, 0, v, &type);
    EXPECT_EQ(v[2], 0.5);
    const Record weighted = new_record({2, 4, 6, 2, 0, 0, 0, 1}, 4);
    BCDF_copy_single_3d_point(weighted.get(), 0, v);
    EXPECT_EQ(Values(v, v + 3), (Values{1, 2, 3}));
    EXPECT_EQ(BCDF_calc_df_polygon_length(r), 5.0 + 12.0 + 13.0);
    EXPECT_EQ(BCDF_return_num_of_points(r), 4);
    EXPECT_EQ(BCDF_return_num_of_crvatrs(r), 1);
    EXPECT_EQ(BCDF_return_periodicity(r), 0);
    EXPECT_EQ(BCDF_return_num_of_constraints(r), 8);
    const Record closed = sloped({0, 2}, corner, 1);
    EXPECT_EQ(BCDF_return_num_of_constraints(closed.get()), 5);
}

TEST(CurveRecord, CreatorsTakeWhatTheyAreGiven) {
    const NoBlocksLeft watch;
    const auto create = [](int fits, PNTLST* points, PNTLST* weights, PNTLST* slopes = nullptr) {
        return Record(BCDF_create_from_pntlst(0, 5, fits, points, nullptr, weights, slopes, nullptr,
                                              nullptr, nullptr, nullptr, nullptr));
    };
    const Record plain = create(0, new_list(corner, 3), new_list({1, 1, 1, 1}, 1));
    EXPECT_EQ(BCDF_is_least_squares(plain.get()), 0);
    EXPECT_EQ(values_of(plain->parameters), (Values{0, 5, 17, 30}));
    EXPECT_EQ(BCDF_ask_max_npoles_for_fit(plain.get()), 0);
    const Record fit = create(1, new_list(corner, 3), new_list({4, 3, 2, 1}, 1));
    EXPECT_EQ(values_of(fit->weights), (Values{4, 3, 2, 1}));
    EXPECT_EQ(BCDF_ask_max_npoles_for_fit(fit.get()), 4);
    fit->periodicity = 1;
    EXPECT_EQ(BCDF_ask_max_npoles_for_fit(fit.get()), 3);
    int n = 0;
    EXPECT_EQ(BCDF_return_weight_array(fit.get(), &n), fit->weights->points);

    PNTLST* points = new_list(corner, 3);
    double* array = points->points;
    PNTLST_free_all_but_points(points);
    const Record over(BCDF_create_df_from_pts(array, 4, 3, 1));
    EXPECT_EQ(over->points->points, array);
    EXPECT_EQ(BCDF_return_order(over.get()), 4);
    EXPECT_EQ(values_of(over->weights), (Values{2.5, 8.5, 12.5, 6.5}));
}

/// Lists stay the caller's when creation is left, whatever it was about to do.
TEST(CurveRecord, CreatorsThatFailTakeNothing) {
    const NoBlocksLeft watch;
    const CheckingLevel checking(1);
    struct Left {};
    const std::unique_ptr<PNTLST, Release> points(new_list(corner, 3));
    const std::unique_ptr<PNTLST, Release> weights(new_list({1, 1, 1, 1}, 1));
    const auto create = [&](int periodicity, PNTLST* p, PNTLST* w, PNTLST* slopes) {
        return BCDF_create_from_pntlst(periodicity, 4, 1, p, nullptr, w, slopes, nullptr, nullptr,
                                       nullptr, nullptr, nullptr);
    };
    {
        const ReportRecorder leaving([](const Report&) { throw Left{}; });
        EXPECT_THROW(create(1, points.get(), nullptr, nullptr), Left);
    }
    ReportRecorder recorder;
    EXPECT_EQ(create(0, nullptr, weights.get(), nullptr), nullptr);
    EXPECT_EQ(create(0, points.get(), weights.get(), weights.get()), nullptr);
    EXPECT_EQ(recorder.take(),
              (Reports{raised("bcdf_gen", 1005304, "The Point List Is NULL"),
                       raised("bcdf_gen", 1005306, "Slope Position Array Is NULL")}));
    // Where the host goes on, a fit that cannot be periodic interpolates.
    EXPECT_EQ(BCDF_is_least_squares(new_record(corner, 3, 1, 1).get()), 0);
}

TEST(CurveRecord, KnowsSplinesWithSlopesAtTheirEnds) {
    struct Case {
        std::vector<int> slopes;
        int order, periodicity, spline, continuity;
    };
    for (const Case& c : {Case{{0, 3}, 4, 0, 1, 2},
                          {{0, 1, 3}, 4, 0, 1, 1},
                          {{0, 3}, 4, 1, 1, 1},
                          {{0, 3}, 3, 0, 0, 1},
                          {{0}, 4, 0, 0, 2},
                          {{1, 3}, 4, 0, 0, 2},
                          {{0, 2}, 4, 0, 0, 2},
                          {{}, 6, 0, 0, 4}}) {
        const Record record = sloped(c.slopes, corner, c.periodicity);
        record->order = c.order;
        EXPECT_EQ(BCDF_is_zt_spline(record.get()), c.spline);
        EXPECT_EQ(BCDF_ask_continuity(record.get()), c.continuity);
    }
    EXPECT_EQ(BCDF_is_zt_spline(with_everything().get()), 0);  // a curvature
}

TEST(CurveRecord, NormalisesParametersAndBack) {
    const Record record = with_everything();
    BCDF* r = record.get();
    EXPECT_EQ(BCDF_normalize(r), 30.0);
    EXPECT_EQ(values_of(r->parameters), (Values{0, 5.0 / 30, 17.0 / 30, 1}));
    EXPECT_EQ(values_of(r->slope_parameters), (Values{0, 5.0 / 30, 1}));
    EXPECT_EQ(values_of(r->curvature_parameters), Values{5});
    r->parameters->points[0] = 9.0;  // forced to 0 on the way back
    BCDF_unnormalize(r, 30.0);
    EXPECT_EQ(values_of(r->parameters), (Values{0, 5, 17, 30}));
    EXPECT_EQ(values_of(r->slope_parameters), (Values{0, 5, 30}));
    EXPECT_EQ(BCDF_normalize_parameters(r), 30.0);
    EXPECT_EQ(values_of(r->curvature_parameters), Values{5.0 / 30});
    BCDF_unnormalize_parameters(r, 60.0);
    EXPECT_EQ(values_of(r->curvature_parameters), Values{10});
    BCDF_scale_slopes(r, -2.0);
    EXPECT_EQ(values_of(r->slopes), (Values{0, -4, 0, 0, -6, 0, 0, -10, 0}));
}

TEST(CurveRecord, DropsTheFourthCoordinateOfSlopesWithoutDividing) {
    const Record record = new_record({2, 4, 6, 2, 0, 0, 0, 1, 5, 0, 0, 0.5}, 4);
    record->slopes = new_list({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}, 4);
    BCDF_convert_4d_to_3d(record.get());
    EXPECT_EQ(values_of(record->points), (Values{1, 2, 3, 0, 0, 0, 10, 0, 0}));
    EXPECT_EQ(values_of(record->slopes), (Values{1, 2, 3, 5, 6, 7, 9, 10, 11}));
}

TEST(CurveRecord, ReducesItsSlopesForAFit) {
    struct Case {
        std::vector<int> slopes;
        Values sites;  // where slopes are left
    };
    for (const Case& c : {Case{{1, 2}, {}},
                          {{0, 1, 2, 3}, {0, 30}},
                          {{0, 3}, {0, 30}},
                          {{0}, {0, 30}},
                          {{3}, {0, 30}},
                          {{0, 1, 2}, {0, 17, 30}},  // the last interior one stays
                          {{1, 2, 3}, {0, 17, 30}}}) {
        const Record record = sloped(c.slopes);
        BCDF_make_least_squares_slopes(record.get());
        EXPECT_EQ(values_of(record->slope_parameters), c.sites);
        for (std::size_t k = 0; k < c.sites.size(); ++k) {
            const double* s = record->slopes->points + 3 * k;
            EXPECT_NEAR(std::hypot(s[0], s[1], s[2]), 1.0, 1e-15);
        }
    }
}

TEST(CurveRecord, BecomesALeastSquaresRecord) {
    const NoBlocksLeft watch;
    const Record record = with_everything();
    record->ls_num_segments = 5;
    BCDF_convert_to_least_squares(record.get());
    EXPECT_EQ(values_of(record->weights), (Values{2.5, 8.5, 12.5, 6.5}));
    EXPECT_EQ(values_of(record->slope_parameters), (Values{0, 30}));
    EXPECT_EQ(record->curvatures, nullptr);
    EXPECT_EQ(BCDF_return_ls_tolerance(record.get()), 0.0);
    EXPECT_EQ(BCDF_return_ls_num_of_segments(record.get()), 0);
    record->ls_tolerance = 0.5;
    BCDF_convert_to_least_squares(record.get());  // nothing more to do
    EXPECT_EQ(record->ls_tolerance, 0.5);

    const Record weighted = new_record({0, 0, 0, 2, 6, 8, 0, 2}, 4);
    BCDF_convert_to_least_squares(weighted.get());
    EXPECT_EQ(values_of(weighted->points), (Values{0, 0, 0, 3, 4, 0}));
    EXPECT_EQ(values_of(weighted->parameters), (Values{0, 5}));
    const Record closed = sloped({}, corner, 1);
    BCDF_convert_to_least_squares(closed.get());
    EXPECT_EQ(closed->periodicity, 0);
}

TEST(CurveRecord, ReportsOnlyWithChecking) {
    ReportRecorder recorder;
    const Record interpolation = new_record(corner);
    const auto run = [](BCDF* r) {
        BCDF bare{};
        PNTLST narrow{nullptr, 1, 1, 2};
        double pair[] = {1, 2};
        narrow.points = pair;
        BCDF flat{};
        flat.points = &narrow;
        double v[3] = {9, 9, 9};
        int n = 9;
        int d = 9;
        EXPECT_EQ(BCDF_return_order(nullptr), 0);
        EXPECT_EQ(BCDF_is_least_squares(nullptr), 0);
        EXPECT_EQ(BCDF_return_knot_sequence(nullptr, &n), nullptr);
        EXPECT_EQ(BCDF_return_ls_tolerance(nullptr), 0.0);
        EXPECT_EQ(BCDF_return_ls_num_of_segments(r), 0);
        BCDF_copy_single_3d_point(&bare, 0, v);
        BCDF_copy_single_3d_point(r, 4, v);
        EXPECT_EQ(v[0], 0.0);
        BCDF_copy_single_3d_point(&flat, 0, v);
        BCDF_copy_single_3d_slope(r, 0, v, &n);
        BCDF_copy_single_3d_crvatr(r, 0, v, &n);
        EXPECT_EQ(BCDF_copy_points(&bare, &n, &d), nullptr);
        EXPECT_EQ(BCDF_copy_parameters(&bare, &n), nullptr);
        EXPECT_EQ(BCDF_normalize(&bare), 0.0);
        BCDF_unnormalize_parameters(&bare, 2.0);
    };
    const auto null = [] { return internal("bcdf", "Defining Data Structure Is NULL"); };
    const auto no_parameters = [] { return internal("bcdf", "The Parameter Array Is NULL"); };
    const Reports expected{
        null(),
        null(),
        null(),
        null(),
        internal("bcdf", "Weights List Has A NULL Value"),
        raised("bcdf", 1005304, "No Points Allocated In Defining Data Structure."),
        raised("bcdf", 1005302, "Point Position Too Large For Point Array."),
        raised("bcdf", 1005313, "Point Dimension Is Not 3 Or 4."),
        raised("bcdf", 1005305, "No Slope Allocated In Defining Data Structure."),
        raised("bcdf", 1005315, "An Invalid Curvature Position Was Given By Calling Routine"),
        raised("bcdf", 1005304, "Point Array Is NULL"),
        raised("bcdf", 1005303, "Parameter Array Is NULL"),
        no_parameters(),
        no_parameters()};
    for (const int level : {0, 1}) {
        const CheckingLevel checking(level);
        run(interpolation.get());
        EXPECT_EQ(recorder.take(), level > 0 ? expected : Reports{});
    }
    const CheckingLevel checking(1);
    const Record one = sloped({0});
    double v[3];
    int type = 0;
    BCDF_copy_single_3d_slope(one.get(), 1, v, &type);
    one->points->dimension = 1;
    BCDF_convert_to_least_squares(one.get());
    const Reports rest = recorder.take();
    EXPECT_EQ(rest.at(0),
              raised("bcdf", 1005315, "An Invalid Slope Position Was Given By Calling Routine"));
    EXPECT_EQ(rest.at(1), internal("bcdf", "Points Are An Invalid Dimension"));
}

}  // namespace
