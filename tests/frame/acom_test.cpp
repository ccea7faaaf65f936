// The shared block: layout and initialisation, by byte offset throughout.
#include <variant>

#include "support/support.h"
#include "ztmath/session.h"
#include "ztmath/tolerance.h"

namespace {

using namespace ztmath_test;

/// `count` words from an offset that an initialisation sets, and to what.
struct Words {
    std::size_t offset, count;
    std::variant<double, int> value;
};

Words gca_words(std::size_t first, std::size_t last, int value) {
    return {4780 + 4 * first, last - first + 1, value};
}

// From 1040 on the model scale and the 25 words after it, the tolerances among them.
const std::vector<Words> set_in_every_mode = {
    {320, 12, 0.0},     {416, 27, -939.0},    {1032, 1, 0.0},         {1040, 26, -939.0},
    {1248, 15, -939.0}, {1368, 9, -939.0},    {2032, 514, 0},         {4344, 2, -939},
    {4356, 2, -939},    gca_words(24, 24, 6), gca_words(51, 51, -939)};

const std::vector<Words> set_unless_the_session_is_kept = {
    {632, 50, -939.0},    {4088, 43, -939},     {4352, 1, -939},
    {4364, 105, -939},    gca_words(2, 8, 0),   gca_words(10, 22, 0),
    gca_words(26, 26, 0), gca_words(28, 28, 0), gca_words(30, 50, 0)};

/// Sets a pattern, and tells what the words make of it.
BlockBytes patterned(const std::vector<Words>& words) {
    std::memset(&acom_, 0xA5, sizeof acom_);
    BlockBytes expected = bytes_of();
    for (const auto& [offset, count, value] : words)
        for (std::size_t i = 0; i < count; ++i)
            std::visit(
                [&, at = offset](auto word) {
                    std::memcpy(&expected[at + sizeof word * i], &word, sizeof word);
                },
                value);
    return expected;
}

TEST(SharedBlock, IsInitialisedToTheByteInEveryMode) {
    const KeepBlock keep;
    for (const int mode : {1, 0, 2, -1}) {
        std::vector<Words> words = set_in_every_mode;
        if (mode != 1) std::ranges::copy(set_unless_the_session_is_kept, std::back_inserter(words));
        const BlockBytes expected = patterned(words);
        sys10_(&mode);
        EXPECT_EQ(bytes_of(), expected) << mode;
    }
    const BlockBytes expected = patterned({{4260, 20, 0}});
    b120a_();
    EXPECT_EQ(bytes_of(), expected);
}

TEST(Tolerances, AreDerivedFromScaleAndSwitch) {
    const KeepBlock keep;
    const std::tuple<int, double, double, double, double, double> rows[] = {
        {-7, 1000.0, 1.0e-10, 1.0e-7, 1.0e-14, 1.0e-6},
        {0, 25.4, 1.0e-4, 0.00254, 6.4516e-6, 645.16},
        {0, -939.0, 1.0e-4, -0.0939, 0.00881721, 881721.0},
    };
    for (const auto& [fine, scale, number, length, squared, wide] : rows) {
        SCOPED_TRACE(scale);
        patterned({});
        acom_.model_scale = scale;
        gca(31) = fine;
        const ZTMATH_acom_t before = acom_;
        sys21_();
        EXPECT_EQ(ACOM_ask_MEC(), scale);
        EXPECT_EQ(EQ_ask_number_tolerance(), number);
        EXPECT_DOUBLE_EQ(EQ_ask_length_tolerance(), length);
        EXPECT_DOUBLE_EQ(EQ_ask_length_squared_tolerance(), squared);
        EXPECT_DOUBLE_EQ(acom_.tolerances[7], wide);
        for (const int i : {0, 1, 2, 7})
            acom_.tolerances[i] = before.tolerances[i];
        EXPECT_EQ(bytes_of(), bytes_of(before)) << "nothing else has changed";
    }
}

TEST(Tolerances, ScaleValuesByPosition) {
    const KeepBlock keep;
    std::iota(std::begin(acom_.tolerances), std::end(acom_.tolerances), 100.0);
    acom_.words_1248[0] = 116.0;  // one beyond the table
    for (const int i : {0, 1, 7, 15, -1, 16, INT_MIN, INT_MAX}) {
        double value = 0.5;
        sys22_(&value, &i, &value);
        EXPECT_EQ(value, 0 <= i && i < 16 ? (100.0 + i) * 0.5 : 0.0) << i;
    }
}

}  // namespace
