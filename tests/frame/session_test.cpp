// Session settings: accessors and their assertions.
#include "ztmath/session.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <tuple>

#include "support/reports.h"
#include "support/session.h"
#include "support/shared_block.h"
#include "ztmath/wcs.h"

namespace {

using namespace ztmath_test;

struct Setting {
    int element;
    std::function<int()> ask;
    std::function<void(int)> set{};
};

TEST(Settings, AreWordsOfTheBlock) {
    const KeepBlock keep;
    const Setting settings[] = {
        {6, DISPLAY_ask_system_color, DISPLAY_set_system_color},
        {9, cu0007_, [](int value) { cu0008_(&value); }},
        {29, ACOM_ask_application, ACOM_set_application},
        {41, WCS_ask_view_names_skeleton},
        {42, WCS_ask_skeleton},
        {45, WCS_ask_matrix_tag, WCS__set_matrix_tag},
        {49, WCS_ask_wcs_display, WCS_set_wcs_display},
        {50, WCS_ask_tag, WCS_set_tag},
        {51, ACOM_ask_MESW},
        {114, DISPLAY_ask_view_of_last_cursor, DISPLAY_set_view_of_last_cursor},
    };
    for (const Setting& setting : settings) {
        set_word_at(gca_offset(setting.element), -5);
        EXPECT_EQ(setting.ask(), -5) << setting.element;
        if (!setting.set) continue;
        BlockBytes expected = block_bytes();
        put_at(expected, gca_offset(setting.element), 216);
        setting.set(216);
        EXPECT_EQ(block_bytes(), expected) << setting.element;
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
    PX_ask_default_face_grid_counts(asked.data());
    EXPECT_EQ((Pair{word_at<int>(gca_offset(17)), word_at<int>(gca_offset(18))}), set);
    EXPECT_EQ(asked, set);
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
    const auto set_counts = [](int u, int v) {
        PX_set_default_face_grid_counts(Pair{u, v}.data());
    };
    const auto ask_counts = [] {
        Pair counts;
        PX_ask_default_face_grid_counts(counts.data());
    };
    const char* const bad_status = "display_status == 0 || display_status == 1";
    const struct {
        std::function<void()> act;
        int element, stored;
        std::vector<std::string> failed{};
    } rows[] = {
        {[] { DISPLAY_set_system_color(0); }, 6, 0, {"color >= DISPLAY_MIN_COLOR"}},
        {[] { DISPLAY_ask_system_color(); }, 6, 0, {"GCA(6) >= DISPLAY_MIN_COLOR"}},
        {[] { DISPLAY_set_system_color(217); }, 6, 217, {"color <= DISPLAY_MAX_COLOR"}},
        {[] { DISPLAY_ask_system_color(); }, 6, 217, {"GCA(6) <= DISPLAY_MAX_COLOR"}},
        {[] { DISPLAY_set_system_color(216), DISPLAY_ask_system_color(); }, 6, 216},
        {[] { DISPLAY_set_system_color(1), DISPLAY_ask_system_color(); }, 6, 1},
        {[] { DISPLAY_set_view_of_last_cursor(0); }, 114, 0, {"in_vsn != DSS_NO_VIEW"}},
        {[] { DISPLAY_ask_view_of_last_cursor(); }, 114, 0},
        {[] { DISPLAY_set_view_of_last_cursor(-1); }, 114, -1},
        {[] { WCS_set_wcs_display(2); }, 49, 2, {bad_status}},
        {[] { WCS_set_wcs_display(-1); }, 49, -1, {bad_status}},
        {[] { WCS_set_wcs_display(0); }, 49, 0},
        {[] { WCS_set_wcs_display(1); }, 49, 1},
        {[&] { set_counts(-1, 0); }, 17, -1, {"u_and_v_grid_counts[0] >= 0"}},
        {ask_counts, 17, -1, {"GCA(17) >= 0"}},
        {[&] { set_counts(0, -2); }, 18, -2, {"u_and_v_grid_counts[1] >= 0"}},
        {ask_counts, 18, -2, {"GCA(18) >= 0"}},
    };
    for (const int level : {0, -1, 1, 2})
        for (const auto& row : rows) {
            const CheckingLevel checking(level);
            const ReportRecorder recorder;
            row.act();
            EXPECT_EQ(word_at<int>(gca_offset(row.element)), row.stored);
            Reports expected;
            if (level > 0)
                for (const std::string& text : row.failed)
                    expected.push_back(assertion("libztmath_main", text));
            EXPECT_EQ(recorder.reports(), expected) << "row " << &row - rows << ", level " << level;
        }
}

}  // namespace
