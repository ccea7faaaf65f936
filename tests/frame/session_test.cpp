// Session settings: accessors and their assertions.
#include "ztmath/session.h"

#include "support/support.h"
#include "ztmath/wcs.h"

namespace {

using namespace ztmath_test;

TEST(Settings, AreWordsOfTheBlock) {
    const KeepBlock keep;
    const std::tuple<int, std::function<int()>, std::function<void(int)>> settings[] = {
        {6, DISPLAY_ask_system_color, DISPLAY_set_system_color},
        {9, cu0007_, [](int value) { cu0008_(&value); }},
        {29, ACOM_ask_application, ACOM_set_application},
        {41, WCS_ask_view_names_skeleton, nullptr},
        {42, WCS_ask_skeleton, nullptr},
        {45, WCS_ask_matrix_tag, WCS__set_matrix_tag},
        {49, WCS_ask_wcs_display, WCS_set_wcs_display},
        {50, WCS_ask_tag, WCS_set_tag},
        {51, ACOM_ask_MESW, nullptr},
        {114, DISPLAY_ask_view_of_last_cursor, DISPLAY_set_view_of_last_cursor},
    };
    for (const auto& [element, ask, set] : settings) {
        gca(element) = -5;
        EXPECT_EQ(ask(), -5) << element;
        if (!set) continue;
        ZTMATH_acom_t expected = acom_;
        expected.gca[element - 1] = 216;
        set(216);
        EXPECT_EQ(bytes_of(), bytes_of(expected)) << element;
    }
}

TEST(Settings, AnswerYesOrNo) {
    const KeepBlock keep;
    const std::tuple<int, int (*)(), int> rows[] = {{30, inquib_, 1},
                                                    {73, QUIB_in_batch, 2},
                                                    {47, WCS_is_linked_to_view, 0},
                                                    {48, WCS_is_permanent, 1},
                                                    {49, WCS_is_temporary, 1}};
    for (const auto& [element, ask, yes] : rows)
        for (const int value : {-3, 0, 1, 2}) {
            gca(element) = value;
            EXPECT_EQ(ask(), value == yes) << "GCA(" << element << ") = " << value;
        }
    for (const int linked : {1, 0, 5}) {
        WCS_set_linked_to_view(linked);
        EXPECT_EQ(gca(47), linked == 0);
    }
}

TEST(Settings, GridCountsAndFactorsComeInPairs) {
    const KeepBlock keep;
    gca(16) = 12;
    gca(17) = 34;
    PX_set_default_face_grid_counts(&gca(16));
    EXPECT_EQ((std::pair{gca(17), gca(18)}), (std::pair{12, 34}));

    std::iota(pxsfac_, pxsfac_ + 4, 1);
    pxsfac_read_pszt_(pxsfac_, pxsfac_ + 2);  // over itself
    EXPECT_EQ(std::to_array(pxsfac_), (std::array{3, 4, 1, 2}));
}

TEST(Settings, OutOfRangeAreAssertedWhenCheckingAndStoredAllTheSame) {
    const KeepBlock keep;
    using Counts = std::array<int, 2>;
    const std::tuple<void (*)(int), int (*)(), std::vector<int>> settings[] = {
        {DISPLAY_set_system_color, DISPLAY_ask_system_color, {0, 1, 216, 217}},
        {DISPLAY_set_view_of_last_cursor, DISPLAY_ask_view_of_last_cursor, {0, -1}},
        {WCS_set_wcs_display, WCS_ask_wcs_display, {0, 1, 2, -1}}};
    const auto run = [&] {
        for (const auto& [set, ask, values] : settings)
            for (const int value : values) {
                set(value);
                EXPECT_EQ(ask(), value);
            }
        for (const Counts& counts : {Counts{-1, 0}, {0, -2}}) {
            PX_set_default_face_grid_counts(counts.data());
            EXPECT_EQ(written<Counts>(PX_ask_default_face_grid_counts), counts);
        }
    };
    const char* const bad_status = "display_status == 0 || display_status == 1";
    Reports expected;
    for (const char* text :
         {"color >= DISPLAY_MIN_COLOR", "GCA(6) >= DISPLAY_MIN_COLOR", "color <= DISPLAY_MAX_COLOR",
          "GCA(6) <= DISPLAY_MAX_COLOR", "in_vsn != DSS_NO_VIEW", bad_status, bad_status,
          "u_and_v_grid_counts[0] >= 0", "GCA(17) >= 0", "u_and_v_grid_counts[1] >= 0",
          "GCA(18) >= 0"})
        expected.push_back(assertion("libztmath_main", text));
    expect_reports_when_checking(run, expected);
}

}  // namespace
