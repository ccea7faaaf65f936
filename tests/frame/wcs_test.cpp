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

/// What a query writes; it returns 0.
template <std::size_t n>
std::array<double, n> asked(int (*ask)(double*)) {
    std::array<double, n> out{};
    EXPECT_EQ(ask(out.data()), 0);
    return out;
}

TEST(Wcs, IsReadInPieces) {
    const KeepBlock keep;
    const Matrix axes = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    const Vector origin = {10, 11, 12};
    const std::array<double, 12> csys = {10, 11, 12, 1, 2, 3, 4, 5, 6, 7, 8, 9};
    set_wcs(axes, origin);
    EXPECT_EQ(asked<12>(WCS_ask_coordinate_system), csys);
    EXPECT_EQ(asked<9>(WCS_ask_matrix), axes);
    EXPECT_EQ(asked<3>(WCS_ask_origin), origin);
    EXPECT_EQ(asked<3>(WCS_ask_z_axis), (Vector{7, 8, 9}));
    EXPECT_EQ(asked<6>(WCS_ask_work_plane), (std::array<double, 6>{10, 11, 12, 7, 8, 9}));
    Matrix matrix;
    Vector point;
    v6051_(matrix.data(), point.data());
    EXPECT_EQ(matrix, axes);
    EXPECT_EQ(point, origin);

    EXPECT_EQ(WCS_ask_coordinate_system(acom_.wcs_matrix), 0);  // over itself
    for (std::size_t i = 0; i < 12; ++i)
        EXPECT_EQ(word_at<double>(1440 + 8 * i), csys[i]);
}

TEST(Wcs, MatrixIsTakenAsItStands) {
    const KeepBlock keep;
    const Matrix values = {1, 0, -1, -2, -3, -4, -5, -6, -7};
    const Vector origin = {10, 11, 12};
    set_wcs(values, origin);
    const BlockBytes expected = block_bytes();
    set_wcs({}, origin);
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
            ASSERT_LE(distance(mapped(row.inverse, there), p), 1.0e-14);
            EXPECT_EQ(mapped(row.same, p), there);
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
