// The work coordinate system: queries, mappings, listeners.
#include "ztmath/wcs.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "support/random.h"
#include "support/rotation.h"
#include "support/shared_block.h"
#include "syss/host.h"

namespace {

using namespace ztmath_test;

/// Makes the WCS from a matrix and an origin, by offset.
void set_wcs(const Matrix& matrix, const Vector& origin) {
    BlockBytes bytes = block_bytes();
    for (std::size_t i = 0; i < 9; ++i)
        put_at(bytes, 1440 + 8 * i, matrix[i]);
    for (std::size_t i = 0; i < 3; ++i)
        put_at(bytes, 1512 + 8 * i, origin[i]);
    set_block_bytes(bytes);
}

TEST(Wcs, IsReadInPieces) {
    const KeepBlock keep;
    set_wcs({1, 2, 3, 4, 5, 6, 7, 8, 9}, {10, 11, 12});
    const std::array<double, 12> csys = {10, 11, 12, 1, 2, 3, 4, 5, 6, 7, 8, 9};

    std::array<double, 12> out{};
    EXPECT_EQ(WCS_ask_coordinate_system(out.data()), 0);
    EXPECT_EQ(out, csys);
    Matrix matrix{};
    EXPECT_EQ(WCS_ask_matrix(matrix.data()), 0);
    EXPECT_EQ(matrix, (Matrix{1, 2, 3, 4, 5, 6, 7, 8, 9}));
    Vector origin{};
    EXPECT_EQ(WCS_ask_origin(origin.data()), 0);
    EXPECT_EQ(origin, (Vector{10, 11, 12}));
    Vector axis{};
    EXPECT_EQ(WCS_ask_z_axis(axis.data()), 0);
    EXPECT_EQ(axis, (Vector{7, 8, 9}));
    std::array<double, 6> plane{};
    EXPECT_EQ(WCS_ask_work_plane(plane.data()), 0);
    EXPECT_EQ(plane, (std::array<double, 6>{10, 11, 12, 7, 8, 9}));
    matrix = {};
    origin = {};
    v6051_(matrix.data(), origin.data());
    EXPECT_EQ(matrix, (Matrix{1, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_EQ(origin, (Vector{10, 11, 12}));

    EXPECT_EQ(WCS_ask_coordinate_system(acom_.wcs_matrix), 0);  // over itself
    for (std::size_t i = 0; i < 12; ++i)
        EXPECT_EQ(word_at<double>(1440 + 8 * i), csys[i]);
}

TEST(Wcs, MatrixIsTakenAsItStands) {
    const KeepBlock keep;
    set_wcs({}, {10, 11, 12});
    BlockBytes expected = block_bytes();
    for (std::size_t i = 0; i < 9; ++i)
        put_at(expected, 1440 + 8 * i, 1.0 - static_cast<double>(i));
    const Matrix values = {1, 0, -1, -2, -3, -4, -5, -6, -7};
    WCS__set_matrix_values(values.data());
    EXPECT_EQ(block_bytes(), expected);
}

using Mapping = void (*)(const double*, double*);

Vector mapped(Mapping map, const Vector& in) {
    Vector out;
    map(in.data(), out.data());
    return out;
}

TEST(Wcs, MapsIntoItsFrameAndBack) {
    const KeepBlock keep;
    set_wcs({1, 2, 3, 4, 5, 6, 7, 8, 9}, {10, 20, 30});
    const Vector v = {1, 10, 100};
    EXPECT_EQ(mapped(mapvaw_, v), (Vector{321, 654, 987}));
    EXPECT_EQ(mapped(mapvwa_, v), (Vector{741, 852, 963}));
    EXPECT_EQ(mapped(mappaw_, v), (Vector{181, 334, 487}));
    EXPECT_EQ(mapped(mappwa_, v), (Vector{751, 872, 993}));

    Random random;
    for (int round = 0; round < rounds(1000); ++round) {
        set_wcs(random_rotation(random), random.vector());
        const Vector p = random.vector();
        const struct {
            Mapping map, inverse, same;
        } rows[] = {{mapvaw_, mapvwa_, map11_},
                    {mapvwa_, mapvaw_, map10_},
                    {mappaw_, mappwa_, map13_},
                    {mappwa_, mappaw_, map12_}};
        for (const auto& row : rows) {
            const Vector there = mapped(row.map, p);
            const Vector back = mapped(row.inverse, there);
            for (std::size_t i = 0; i < 3; ++i)
                ASSERT_NEAR(back[i], p[i], 1.0e-14);
            EXPECT_EQ(mapped(row.same, p), there);
            Vector in_place = p;
            row.map(in_place.data(), in_place.data());
            EXPECT_EQ(in_place, there);
        }
    }
}

struct Heard {
    int calls = 0, status = 0, stored = 0;
};

TEST(Wcs, ListenersAreToldOfItsDisplayStatus) {
    const KeepBlock keep;
    Heard heard;
    const SYSS_listener_t listener = [](int, void* data, void* context) {
        auto& ear = *static_cast<Heard*>(context);
        ++ear.calls;
        ear.status = *static_cast<const int*>(data);
        ear.stored = WCS_ask_wcs_display();
    };
    const int reason = ZT_REASON_ask_reason_number(2);
    SYSS_add_listener(reason, listener, &heard);
    for (const int status : {1, 0, 77}) {
        WCS_set_wcs_display(status);
        EXPECT_EQ(heard.status, status);
        EXPECT_EQ(heard.stored, status) << "stored before anybody is told";
    }
    EXPECT_EQ(heard.calls, 3);
    EXPECT_EQ(SYSS_remove_listener(reason, listener, &heard), 1);
}

}  // namespace
