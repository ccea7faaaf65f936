// Predicates on planes.
#include "ztmath/pln3.h"

#include "support/support.h"

namespace {

using namespace ztmath_test;

using Plane = std::array<double, 6>;

constexpr Plane z_is_1 = {5, 6, 1, 0, 0, 2};

TEST(Pln3, MeasuresLengthsWhateverTheNormal) {
    for (const double z : {0.5, 1.5})
        for (const double tolerance : {0.5, std::nextafter(0.5, 0)})
            EXPECT_EQ(called(PLN3_is_point_on_plane, z_is_1, Vector{-3, 4, z}, tolerance),
                      tolerance == 0.5);
    EXPECT_EQ(called(PLN3_is_point_on_plane, Plane{}, Vector{}, HUGE_VAL), 0) << "no plane";
}

TEST(Pln3, CoincidenceIsOfPointsAndEqualityOfNormalVectors) {
    const std::tuple<Plane, int, int> rows[] = {
        {{0, 0, 1, 0, 0, -2}, 1, 0},     // turned over
        {{0, 0, 1, 0, 0, 3}, 1, 0},      // scaled
        {{0, 0, 1, 0, 0, 2.25}, 1, 1},   // scaled within the tolerance
        {{0, 0, 1.01, 0, 0, 2}, 1, 1},   // shifted within the tolerance
        {{0, 0, 1.02, 0, 0, 2}, 0, 0},   // beyond
        {{0, 0, 1, 0, 0.5, 2}, 0, 0},    // turned beyond the tolerances
        {{0, 0, 1, 0, 0.099, 2}, 1, 1},  // within
    };
    for (const auto& [other, coincident, equal] : rows) {
        EXPECT_EQ(called(PLN3_is_coincident, z_is_1, other, 0.0125, 0.05), coincident);
        EXPECT_EQ(called(PLN3_is_equal, z_is_1, other, 0.0125, 0.25), equal);
    }
}

TEST(Pln3, SegmentToleranceBoundsTheProductOfTheDistances) {
    const std::tuple<double, double, double, int> rows[] = {
        {0, 2, 0, 1},  {1, 9, 0, 1},  {3, 9, 16, 1}, {3, 9, 15.9, 0},
        {0, 2, -1, 1}, {1, 9, -1, 0}, {NAN, 2, 1, 0}};
    for (const auto& [z1, z2, tolerance, expected] : rows)
        EXPECT_EQ(called(PLN3_is_segment_intersecting, z_is_1, Vector{1, 2, z1}, Vector{-5, 3, z2},
                         tolerance),
                  expected)
            << z1 << " " << z2 << " " << tolerance;
}

}  // namespace
