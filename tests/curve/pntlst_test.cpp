// Point lists.
#include "ztmath/pntlst.h"

#include "support/curve_record.h"

namespace {

using namespace ztmath_test;

/// Points that come in may be the list's own, whose array moves.
TEST(PointList, GrowsByTheNumberOfPointsAndByWhatItHolds) {
    const List list = new_list({0, 1, 2, 3, 4}, 1);
    PNTLST_insert_points(list, 2, 1, list->points + 3);
    EXPECT_EQ(list->num_points, 7);
    EXPECT_EQ(Values(list->points, list->points + 6), (Values{0, 3, 4, 2, 3, 4}))
        << "the tail moves by one place, however many come in";
    PNTLST_concat_one_point(list, list->points);
    EXPECT_EQ(list->points_allocated, 17) << "5 + 2 + 2 * 5, and room for one more";
    const List full = new_list({0, 1, 2}, 1);
    PNTLST_concat_one_point(full, full->points + 1);
    EXPECT_EQ(full->points_allocated, 4);
    PNTLST_replace_points(full, 2, 1, full->points);
    EXPECT_EQ(values_of(full), (Values{0, 0, 1, 1}));
}

TEST(PointList, ConvertsHomogeneousPoints) {
    const List list = new_list({2, 4, 6, 2, -1, 0, 3, -1}, 4);
    EXPECT_EQ(PNTLST_calc_point_distance(list, 0, 1), std::sqrt(9.0 + 16 + 9 + 9));
    for (int twice = 0; twice < 2; ++twice) {
        PNTLST_convert_4d_to_3d(list);
        EXPECT_EQ(values_of(list), (Values{1, 2, 3, 1, 0, -3}));
    }
    EXPECT_EQ(list->points_allocated, 2);
    // An array is exchanged for one of the list's own only where its points are too narrow.
    double given[] = {2, 4, 6, 2};
    const List as_given(PNTLST_create_from_list_of_pts(given, 1, 4)),
        empty(PNTLST_create_from_list_of_pts(given, 0, 1));
    for (PNTLST* each : {as_given.get(), empty.get()}) {
        PNTLST_convert_4d_to_3d(each);
        EXPECT_EQ(each->points, given);
        each->points = nullptr;
    }
    const List wider(PNTLST_allocate_struct(1, 4));
    PNTLST_convert_4d_to_3d(wider);
    EXPECT_GE(SM_length(wider->points), 4 * 3 * sizeof(double)) << "for points to come";
    for (const int dimension : {2, -1}) {
        const List narrow = new_list({2, 4}, 2);
        narrow->dimension = dimension;
        PNTLST_convert_4d_to_3d(narrow);
        EXPECT_EQ(narrow->points[1] == HUGE_VAL, dimension == 2);
    }
}

TEST(PointList, OwnsAnArrayAsItsCapacitySays) {
    EXPECT_EQ(PNTLST_allocate_struct(3, 0), nullptr);
    EXPECT_EQ(PNTLST_get_from_func(0, 3, nullptr), nullptr);
    EXPECT_EQ(PNTLST_copy_structure(nullptr), nullptr);
    PNTLST_free_structure(nullptr);
    PNTLST_free_all_but_points(nullptr);
    PNTLST_remove_points(nullptr, 0, 1);

    double foreign[] = {7.0};
    List list(PNTLST_create_from_list_of_pts(foreign, 0, 1));
    PNTLST_concat_one_point(list, foreign);  // into an array of the list's own
    EXPECT_NE(list->points, foreign);
    const List copy(PNTLST_copy_structure(list));
    EXPECT_EQ(values_of(copy), Values{7.0});
    PNTLST_remove_points(list, 5, 1);  // all of them, whatever the position
    const List empty(PNTLST_copy_structure(list));
    EXPECT_EQ(empty->num_points, 0);
    PNTLST_allocate_points(list, 0);
    EXPECT_EQ(list->points, nullptr);
    EXPECT_EQ(list->points_allocated, 0);

    const List made(PNTLST_get_from_func(2, 1, [](int n, double* points) {
        std::iota(points, points + n, 0.0);
        return n;
    }));
    EXPECT_EQ(values_of(made), (Values{0, 1}));
}

TEST(PointList, ReportsOnlyWithCheckingAndStaysInsideItsArray) {
    const auto run = [] {
        const List list = new_list({0, 1, 2, 3, 9}, 1);
        list->num_points = list->points_allocated = 4;
        double out[3] = {-1, -1, -1};
        const double given[8] = {50, 51, 52, 53, 54, 55, 56, 57};
        PNTLST_copy_single_point(list, -1, out);
        PNTLST_copy_single_point(list, 4, out + 1);
        list->dimension = 0;
        PNTLST_copy_single_point(list, 4, out + 2);
        list->dimension = 1;
        EXPECT_EQ(Values(out, out + 3), (Values{0, 0, -1}));
        EXPECT_EQ(PNTLST_calc_point_distance(list, 0, 4), 0.0);
        PNTLST_replace_points(list, 8, 3, given);
        PNTLST_replace_points(list, 2, -1, given);
        EXPECT_EQ(values_of(list), (Values{51, 1, 2, 50}));
        EXPECT_EQ(list->points[4], 9) << "beside the array";
        PNTLST_remove_points(list, 3, 2);
        EXPECT_EQ(values_of(list), (Values{51, 1}));
        PNTLST_convert_4d_to_3d(list);
        EXPECT_EQ(list->dimension, 3);
        PNTLST_remove_points(new_list({0}, 1), 0, 1);
        PNTLST_remove_points(list, 0, 3);
        EXPECT_EQ(list->num_points, 0);
        PNTLST_convert_4d_to_3d(new_list({0, 0, 0, 1}, 4));
    };
    const Report invalid = internal("pntlst_gen", "Invalid Point Position Given");
    expect_reports_when_checking(
        run,
        {invalid, invalid, invalid, raised("pntlst_gen", 1005337, "Invalid Point Position Given"),
         internal("pntlst_gen", "Too Many Points To Replace"),
         internal("pntlst_gen", "Dimension Of The Input Points Is Not Valid"),
         internal("pntlst_gen", "Too Many Points To Remove")});
}

}  // namespace
