// The work coordinate system: queries, mappings, listeners.
#include "ztmath/wcs.h"

#include "support/support.h"
#include "syss/host.h"

namespace {

using namespace ztmath_test;

void set_wcs(const Matrix& matrix, const Vector& origin) {
    std::ranges::copy(matrix, acom_.wcs_matrix);
    std::ranges::copy(origin, acom_.wcs_origin);
}

/// What a query writes; it returns 0.
template <std::size_t n>
constexpr auto asked =
    [](int (*ask)(double*)) { return built<std::array<double, n>, 0>(true, ask); };

TEST(Wcs, IsReadInPieces) {
    const KeepBlock keep;
    const Matrix axes = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    const Vector origin = {10, 11, 12};
    set_wcs(axes, origin);
    EXPECT_EQ(asked<12>(WCS_ask_coordinate_system),
              (std::array<double, 12>{10, 11, 12, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_EQ(asked<9>(WCS_ask_matrix), axes);
    EXPECT_EQ(asked<3>(WCS_ask_origin), origin);
    EXPECT_EQ(asked<3>(WCS_ask_z_axis), (Vector{7, 8, 9}));
    EXPECT_EQ(asked<6>(WCS_ask_work_plane), (std::array<double, 6>{10, 11, 12, 7, 8, 9}));
    Matrix matrix;
    Vector point;
    v6051_(matrix.data(), point.data());
    EXPECT_EQ((std::pair{matrix, point}), (std::pair{axes, origin}));

    const BlockBytes expected = bytes_of();
    set_wcs({}, origin);
    WCS__set_matrix_values(axes.data());
    EXPECT_EQ(bytes_of(), expected) << "taken as it stands";
    WCS_ask_coordinate_system(acom_.wcs_matrix);  // over itself
    EXPECT_EQ(std::to_array(acom_.wcs_matrix), (Matrix{10, 11, 12, 1, 2, 3, 4, 5, 6}));
}

TEST(Wcs, MapsIntoItsFrameAndBack) {
    const KeepBlock keep;
    set_wcs({1, 2, 3, 4, 5, 6, 7, 8, 9}, {10, 20, 30});
    using Mapping = void (*)(const double*, double*);
    const std::tuple<Mapping, Mapping, Vector> rows[] = {{mapvaw_, map11_, {321, 654, 987}},
                                                         {mapvwa_, map10_, {741, 852, 963}},
                                                         {mappaw_, map13_, {181, 334, 487}},
                                                         {mappwa_, map12_, {751, 872, 993}}};
    for (const auto& [map, same, there] : rows)
        for (const Mapping either : {map, same})
            EXPECT_EQ(written(either, Vector{1, 10, 100}), there);
}

TEST(Wcs, ListenersAreToldOfItsDisplayStatus) {
    const KeepBlock keep;
    std::vector<std::pair<int, int>> heard;  // and what is stored by then
    const SYSS_listener_t listener = [](int, void* data, void* context) {
        static_cast<decltype(heard)*>(context)->emplace_back(*static_cast<const int*>(data),
                                                             WCS_ask_wcs_display());
    };
    const int reason = ZT_REASON_ask_reason_number(2);
    SYSS_add_listener(reason, listener, &heard);
    WCS_set_wcs_display(77);
    EXPECT_EQ(heard, (decltype(heard){{77, 77}})) << "stored before anybody is told, once";
    SYSS_remove_listener(reason, listener, &heard);
}

}  // namespace
