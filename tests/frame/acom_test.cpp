// The shared block: layout and initialisation, by byte offset throughout.
#include <variant>

#include "support/shared_block.h"
#include "ztmath/session.h"
#include "ztmath/tolerance.h"

namespace {

using namespace ztmath_test;

/// `count` words from an offset that an initialisation sets, and to what.
struct Run {
    std::size_t offset, count;
    std::variant<double, int> value;
};

Run gca_run(int first, int last, int value) {
    return {gca_offset(first), static_cast<std::size_t>(last - first + 1), value};
}

// From 1040 on the model scale and the 25 words after it, the tolerances among them.
const std::vector<Run> set_in_every_mode = {
    {320, 12, 0.0},     {416, 27, -939.0},  {1032, 1, 0.0},       {1040, 26, -939.0},
    {1248, 15, -939.0}, {1368, 9, -939.0},  {2032, 514, 0},       {4344, 2, -939},
    {4356, 2, -939},    gca_run(24, 24, 6), gca_run(51, 51, -939)};

const std::vector<Run> set_unless_the_session_is_kept = {
    {632, 50, -939.0},  {4088, 43, -939},   {4352, 1, -939},    {4364, 105, -939}, gca_run(2, 8, 0),
    gca_run(10, 22, 0), gca_run(26, 26, 0), gca_run(28, 28, 0), gca_run(30, 50, 0)};

void put_runs(const std::vector<Run>& runs, BlockBytes& bytes) {
    for (const Run& run : runs)
        for (std::size_t i = 0; i < run.count; ++i)
            std::visit([&](auto word) { put_at(bytes, run.offset + sizeof word * i, word); },
                       run.value);
}

void expect_block(const BlockBytes& expected, const char* after) {
    const BlockBytes found = block_bytes();
    for (std::size_t i = 0; i < found.size(); ++i)
        ASSERT_EQ(found[i], expected[i]) << "byte " << i << " after " << after;
}

BlockBytes patterned() {
    BlockBytes bytes;
    bytes.fill(0xA5);
    return bytes;
}

TEST(SharedBlock, IsInitialisedToTheByteInEveryMode) {
    const KeepBlock keep;
    for (const int mode : {1, 0, 2, -1}) {
        BlockBytes expected = patterned();
        put_runs(set_in_every_mode, expected);
        if (mode != 1) put_runs(set_unless_the_session_is_kept, expected);
        set_block_bytes(patterned());
        sys10_(&mode);
        expect_block(expected, "sys10_");
    }
    BlockBytes expected = patterned();
    put_runs({{4260, 20, 0}}, expected);
    set_block_bytes(patterned());
    b120a_();
    expect_block(expected, "b120a_");
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
        BlockBytes expected = patterned();
        put_at(expected, 1040, scale);
        put_at(expected, 4904, fine);
        set_block_bytes(expected);
        sys21_();
        EXPECT_EQ(ACOM_ask_MEC(), scale);
        EXPECT_EQ(EQ_ask_number_tolerance(), number);
        EXPECT_DOUBLE_EQ(EQ_ask_length_tolerance(), length);
        EXPECT_DOUBLE_EQ(EQ_ask_length_squared_tolerance(), squared);
        EXPECT_DOUBLE_EQ(word_at<double>(1176), wide);
        // Nothing else has changed.
        for (const std::size_t offset : {1120, 1128, 1136, 1176})
            put_at(expected, offset, word_at<double>(offset));
        expect_block(expected, "sys21_");
    }
}

TEST(Tolerances, ScaleValuesByPosition) {
    const KeepBlock keep;
    for (int i = 0; i < 17; ++i)  // one beyond the table
        set_word_at(1120 + 8 * static_cast<std::size_t>(i), 100.0 + i);
    for (const int i : {0, 1, 7, 15, -1, 16, -2147483647 - 1, 2147483647}) {
        double value = 0.5;
        sys22_(&value, &i, &value);
        EXPECT_EQ(value, 0 <= i && i < 16 ? (100.0 + i) * 0.5 : 0.0) << i;
    }
}

}  // namespace
