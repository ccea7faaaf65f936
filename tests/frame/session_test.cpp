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
        set_word_at(gca_offset(element), -5);
        EXPECT_EQ(ask(), -5) << element;
        if (!set) continue;
        BlockBytes expected = block_bytes();
        put_at(expected, gca_offset(element), 216);
        set(216);
        EXPECT_EQ(block_bytes(), expected) << element;
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
            set_word_at(gca_offset(element), value);
            EXPECT_EQ(ask(), value == yes) << "GCA(" << element << ") = " << value;
        }
    for (const int linked : {1, 0, 5}) {
        WCS_set_linked_to_view(linked);
        EXPECT_EQ(word_at<int>(gca_offset(47)), linked == 0);
    }
}

using Pair = std::array<int, 2>;

TEST(Settings, GridCountsAndFactorsComeInPairs) {
    const KeepBlock keep;
    const Pair set = {12, 34};
    Pair asked, second;
    PX_set_default_face_grid_counts(set.data());
    EXPECT_EQ((Pair{word_at<int>(gca_offset(17)), word_at<int>(gca_offset(18))}), set);
    PX_set_default_face_grid_counts(&acom_.gca[15]);  // GCA(16) and GCA(17)
    EXPECT_EQ(word_at<int>(gca_offset(18)), 12);

    for (int i = 0; i < 4; ++i)
        pxsfac_[i] = i + 1;
    pxsfac_read_pszt_(asked.data(), second.data());
    EXPECT_EQ(asked, (Pair{3, 4}));
    EXPECT_EQ(second, (Pair{1, 2}));
    pxsfac_read_pszt_(pxsfac_, pxsfac_ + 2);  // over itself
    EXPECT_EQ((Pair{pxsfac_[2], pxsfac_[3]}), (Pair{1, 2}));
}

TEST(Settings, OutOfRangeAreAssertedWhenCheckingAndStoredAllTheSame) {
    const KeepBlock keep;
    const auto color = [](int value) {
        DISPLAY_set_system_color(value);
        EXPECT_EQ(DISPLAY_ask_system_color(), value);
    };
    const auto view = [](int value) {
        DISPLAY_set_view_of_last_cursor(value);
        EXPECT_EQ(DISPLAY_ask_view_of_last_cursor(), value);
    };
    const auto counts = [](const Pair& set) {
        Pair asked;
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
        {view, 114, 0, {"in_vsn != DSS_NO_VIEW"}},
        {view, 114, -1, {}},
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
            EXPECT_EQ(word_at<int>(gca_offset(element)), value);
            Reports expected;
            for (const std::string& text : failed)
                if (level > 0) expected.push_back(assertion("libztmath_main", text));
            EXPECT_EQ(recorder.reports(), expected) << "GCA(" << element << ") = " << value;
        }
}

}  // namespace
