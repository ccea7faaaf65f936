// Session settings: accessors and their assertions.
#include "ztmath/session.h"

#include "support/reports.h"
#include "support/shared_block.h"
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
    const auto color = [](int value) {
        DISPLAY_set_system_color(value);
        DISPLAY_ask_system_color();
    };
    const auto counts = [](const std::array<int, 2>& set) {
        std::array<int, 2> asked;
        PX_set_default_face_grid_counts(set.data());
        PX_ask_default_face_grid_counts(asked.data());
        EXPECT_EQ(asked, set);
    };
    const auto u_count = [&](int u) { counts({u, 0}); };
    const auto v_count = [&](int v) { counts({0, v}); };
    const char* const bad_status = "display_status == 0 || display_status == 1";
    const std::tuple<std::function<void(int)>, int, int, std::vector<std::string>> rows[] = {
        {color, 6, 0, {"color >= DISPLAY_MIN_COLOR", "GCA(6) >= DISPLAY_MIN_COLOR"}},
        {color, 6, 217, {"color <= DISPLAY_MAX_COLOR", "GCA(6) <= DISPLAY_MAX_COLOR"}},
        {color, 6, 216, {}},
        {color, 6, 1, {}},
        {DISPLAY_set_view_of_last_cursor, 114, 0, {"in_vsn != DSS_NO_VIEW"}},
        {DISPLAY_set_view_of_last_cursor, 114, -1, {}},
        {WCS_set_wcs_display, 49, 2, {bad_status}},
        {WCS_set_wcs_display, 49, -1, {bad_status}},
        {WCS_set_wcs_display, 49, 0, {}},
        {WCS_set_wcs_display, 49, 1, {}},
        {u_count, 17, -1, {"u_and_v_grid_counts[0] >= 0", "GCA(17) >= 0"}},
        {v_count, 18, -2, {"u_and_v_grid_counts[1] >= 0", "GCA(18) >= 0"}},
    };
    for (const int level : {0, -1, 1, 2})
        for (const auto& [set_and_ask, element, value, failed] : rows) {
            const CheckingLevel checking(level);
            const ReportRecorder recorder;
            set_and_ask(value);
            EXPECT_EQ(gca(element), value);
            Reports expected;
            for (const std::string& text : failed)
                if (level > 0) expected.push_back(assertion("libztmath_main", text));
            EXPECT_EQ(recorder.reports(), expected) << "GCA(" << element << ") = " << value;
        }
}

}  // namespace
