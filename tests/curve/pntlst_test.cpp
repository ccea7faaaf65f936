// Point lists.
#include "ztmath/pntlst.h"

#include "support/curve_record.h"
#include "support/random.h"
#include "support/reports.h"
#include "support/session.h"

namespace {

using namespace ztmath_test;

List counting(int number, int dimension) {
    return List(PNTLST_get_from_func(number, dimension, [](int n, double* array) {
        for (int i = 0; i < n; ++i)
            array[i] = i;
        return n;
    }));
}

/// Random edits beside a plain vector, with points of the list itself handed in.
TEST(PointList, EditsAsAPlainVectorDoes) {
    const NoBlocksLeft watch;
    Random random;
    List list = counting(1, 1);
    Values model{0.0};
    for (int round = 0; round < rounds(2000); ++round) {
        const int n = list->num_points;
        const int capacity = list->points_allocated;
        const int position = random.integer(0, n);
        const double* own = n > 0 ? list->points + n - 1 : nullptr;
        const double fresh = round;
        const double* given = own != nullptr && random.integer(0, 1) == 0 ? own : &fresh;
        const double value = *given;
        switch (random.integer(0, 3)) {
            case 0:
                PNTLST_insert_points(list.get(), 1, position, given);
                model.insert(model.begin() + position, value);
                ASSERT_EQ(list->points_allocated,
                          capacity < n + 1 ? n + 1 + 2 * capacity : capacity);
                break;
            case 1:
                PNTLST_concat_one_point(list.get(), given);
                model.push_back(value);
                ASSERT_EQ(list->points_allocated, std::max(capacity, n + 1));
                break;
            case 2:
                if (n == 0) break;
                PNTLST_replace_points(list.get(), n - position, position, list->points);
                std::copy_backward(model.begin(), model.end() - position, model.end());
                break;
            default: {
                const int number = std::min(n - position, 2);
                PNTLST_remove_points(list.get(), position, number);
                model.erase(model.begin() + position, model.begin() + position + number);
            }
        }
        ASSERT_EQ(values_of(list.get()), model);
    }
}

TEST(PointList, MovesTheTailByOnePlaceHoweverManyPointsComeIn) {
    List list = counting(5, 1);
    const double two[] = {10.0, 11.0};
    PNTLST_insert_points(list.get(), 2, 1, two);
    ASSERT_EQ(list->num_points, 7);
    EXPECT_EQ(list->points_allocated, 17);
    EXPECT_EQ(Values(list->points, list->points + 6), (Values{0, 10, 11, 2, 3, 4}));
}

TEST(PointList, ConvertsHomogeneousPoints) {
    List list(PNTLST_allocate_struct(4, 3));
    const double points[] = {2, 4, 6, 2, -1, 0, 3, -1};
    PNTLST_insert_points(list.get(), 1, 0, points + 4);
    PNTLST_insert_points(list.get(), 1, 0, points);
    EXPECT_EQ(PNTLST_calc_point_distance(list.get(), 0, 1), std::sqrt(9.0 + 16 + 9 + 9));
    for (int twice = 0; twice < 2; ++twice) {
        PNTLST_convert_4d_to_3d(list.get());
        EXPECT_EQ(values_of(list.get()), (Values{1, 2, 3, 1, 0, -3}));
    }
    EXPECT_EQ(list->points_allocated, 3);
    // An array is exchanged for one of the list's own only where its points are too narrow.
    double given[] = {2, 4, 6, 2};
    const List as_given(PNTLST_create_from_list_of_pts(given, 1, 4)),
        empty(PNTLST_create_from_list_of_pts(given, 0, 1));
    for (PNTLST* each : {as_given.get(), empty.get()}) {
        PNTLST_convert_4d_to_3d(each);
        EXPECT_EQ(each->points, given);
        each->points = nullptr;
    }
    for (const int dimension : {2, -1}) {
        const List narrow = new_list({2, 4}, 2);
        narrow->dimension = dimension;
        PNTLST_convert_4d_to_3d(narrow.get());
        EXPECT_EQ(narrow->points[1] == HUGE_VAL, dimension == 2);
    }
    EXPECT_EQ(PNTLST_calc_point_distance(list.get(), 1, 1), 0.0);
}

TEST(PointList, OwnsAnArrayAsItsCapacitySays) {
    const NoBlocksLeft watch;
    EXPECT_EQ(PNTLST_allocate_struct(3, 0), nullptr);
    EXPECT_EQ(PNTLST_get_from_func(0, 3, nullptr), nullptr);
    EXPECT_EQ(PNTLST_copy_structure(nullptr), nullptr);
    PNTLST_free_structure(nullptr);
    PNTLST_free_all_but_points(nullptr);
    PNTLST_remove_points(nullptr, 0, 1);

    double foreign[] = {7.0};
    List list(PNTLST_create_from_list_of_pts(foreign, 0, 1));
    PNTLST_concat_one_point(list.get(), foreign);  // into an array of the list's own
    EXPECT_NE(list->points, foreign);
    const List copy(PNTLST_copy_structure(list.get()));
    EXPECT_EQ(values_of(copy.get()), Values{7.0});
    PNTLST_remove_points(list.get(), 5, 1);  // all of them, whatever the position
    const List empty(PNTLST_copy_structure(list.get()));
    EXPECT_EQ(empty->num_points, 0);
    PNTLST_allocate_points(list.get(), 0);
    EXPECT_EQ(list->points, nullptr);

    List shared = counting(2, 1);
    double* array = shared->points;
    PNTLST_free_all_but_points(shared.release());
    EXPECT_EQ(array[1], 1.0);
    SM_free(array);
}

TEST(PointList, ReportsOnlyWithCheckingAndStaysInsideItsArray) {
    const auto run = [] {
        const List list = new_list({0, 1, 2, 3}, 1);
        double out[3] = {-1, -1, -1};
        const double given[8] = {50, 51, 52, 53, 54, 55, 56, 57};
        PNTLST_copy_single_point(list.get(), -1, out);
        PNTLST_copy_single_point(list.get(), 4, out + 1);
        EXPECT_EQ(Values(out, out + 3), (Values{0, 0, -1}));
        EXPECT_EQ(PNTLST_calc_point_distance(list.get(), 0, 4), 0.0);
        PNTLST_replace_points(list.get(), 8, 3, given);
        PNTLST_replace_points(list.get(), 2, -1, given);
        EXPECT_EQ(values_of(list.get()), (Values{51, 1, 2, 50}));
        PNTLST_remove_points(list.get(), 3, 2);
        EXPECT_EQ(values_of(list.get()), (Values{51, 1}));
        PNTLST_convert_4d_to_3d(list.get());
        EXPECT_EQ(list->dimension, 3);
        PNTLST_remove_points(new_list({0}, 1).get(), 0, 1);
        PNTLST_remove_points(list.get(), 0, 3);
        EXPECT_EQ(list->num_points, 0);
    };
    const Report invalid = internal("pntlst_gen", "Invalid Point Position Given");
    expect_reports_when_checking(
        run, {invalid, invalid, raised("pntlst_gen", 1005337, "Invalid Point Position Given"),
              internal("pntlst_gen", "Too Many Points To Replace"),
              internal("pntlst_gen", "Dimension Of The Input Points Is Not Valid"),
              internal("pntlst_gen", "Too Many Points To Remove")});
}

}  // namespace
