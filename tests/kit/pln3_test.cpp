// Predicates on planes.
#include "ztmath/pln3.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace {

using Plane = std::array<double, 6>;

constexpr Plane z_is_1 = {5, 6, 1, 0, 0, 2};

int on_plane(const Plane& plane, double z, double tolerance) {
    const double p[] = {-3, 4, z};
    return PLN3_is_point_on_plane(plane.data(), p, tolerance);
}

TEST(Pln3, MeasuresLengthsWhateverTheNormal) {
    for (const double z : {0.5, 1.5}) {
        EXPECT_EQ(on_plane(z_is_1, z, 0.5), 1);
        EXPECT_EQ(on_plane(z_is_1, z, std::nextafter(0.5, 0)), 0);
    }
    EXPECT_EQ(on_plane({0, 0, 0, 0, 0, 0}, 0, HUGE_VAL), 0) << "no plane";
}

TEST(Pln3, CoincidenceIsOfPointsAndEqualityOfNormalVectors) {
    struct {
        Plane other;
        int coincident, equal;
    } const rows[] = {
        {{0, 0, 1, 0, 0, -2}, 1, 0},     // turned over
        {{0, 0, 1, 0, 0, 3}, 1, 0},      // scaled
        {{0, 0, 1, 0, 0, 2.25}, 1, 1},   // scaled within the tolerance
        {{0, 0, 1.01, 0, 0, 2}, 1, 1},   // shifted within the tolerance
        {{0, 0, 1.02, 0, 0, 2}, 0, 0},   // beyond
        {{0, 0, 1, 0, 0.5, 2}, 0, 0},    // turned beyond the tolerances
        {{0, 0, 1, 0, 0.099, 2}, 1, 1},  // within
    };
    for (const auto& row : rows) {
        const double distance = 0.0125;
        EXPECT_EQ(PLN3_is_coincident(z_is_1.data(), row.other.data(), distance, 0.05),
                  row.coincident);
        EXPECT_EQ(PLN3_is_equal(z_is_1.data(), row.other.data(), distance, 0.25), row.equal);
    }
}

TEST(Pln3, SegmentToleranceBoundsTheProductOfTheDistances) {
    struct {
        double z1, z2, tolerance;
        int expected;
    } const rows[] = {{0, 2, 0, 1},  {1, 9, 0, 1},  {3, 9, 16, 1}, {3, 9, 15.9, 0},
                      {0, 2, -1, 1}, {1, 9, -1, 0}, {NAN, 2, 1, 0}};
    for (const auto& row : rows) {
        const double a[] = {1, 2, row.z1};
        const double b[] = {-5, 3, row.z2};
        EXPECT_EQ(PLN3_is_segment_intersecting(z_is_1.data(), a, b, row.tolerance), row.expected)
            << row.z1 << " " << row.z2 << " " << row.tolerance;
    }
}

}  // namespace
