// The buffer of display identifiers, seen through the block as the display function sees it.
#include "support/shared_block.h"
#include "ztmath/session.h"

namespace {

using namespace ztmath_test;

using Ids = std::vector<int>;

int count() {
    return word_at<int>(2032);
}

Ids buffered() {
    Ids ids;
    for (int i = 0; i < count() && i < 512; ++i)
        ids.push_back(word_at<int>(2036 + 4 * static_cast<std::size_t>(i)));
    return ids;
}

void append(int id) {
    d7391_(&id);
}

void append_all(int first, int last) {
    for (int id = first; id <= last; ++id)
        append(id);
}

std::vector<Ids> shown;  // what each call of a display function saw

void show() {
    shown.push_back(buffered());
}

/// Registers a display function and empties the buffer.
class DisplayBuffer : public testing::Test {
  protected:
    void SetUp() override {
        shown.clear();
        d7390_();
        MCS_register_display_fn(show);
    }
    void TearDown() override { MCS_register_display_fn(nullptr); }

  private:
    KeepBlock keep_;
};

TEST_F(DisplayBuffer, IsFlushedWhenFullOrAskedThroughAFunctionThatIsThere) {
    d7392_();
    EXPECT_TRUE(shown.empty()) << "nothing to show";
    append_all(1, 512);
    EXPECT_TRUE(shown.empty());
    append(513);
    Ids full(512);
    std::iota(full.begin(), full.end(), 1);
    EXPECT_EQ(buffered(), Ids{513});
    d7392_();
    EXPECT_EQ(shown, (std::vector<Ids>{full, {513}}));
    append(8);
    d7390_();
    EXPECT_EQ(count(), 0);

    EXPECT_EQ(MCS_register_display_fn(nullptr), &show);
    append_all(1, 513);
    EXPECT_EQ(buffered(), Ids{513});
    d7392_();
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(shown.size(), 2U);
}

TEST_F(DisplayBuffer, RemovesEveryOccurrence) {
    for (const int id : {5, 1, 5, 2, 3, 5})
        append(id);
    a406_(&acom_.display_ids[0]);  // an identifier of the buffer itself
    EXPECT_EQ(buffered(), (Ids{1, 2, 3}));
}

TEST_F(DisplayBuffer, ServesADisplayFunctionThatUsesIt) {
    MCS_register_display_fn([] {
        show();
        append_all(601, 605);
        d7392_();
        append(606);
    });
    append_all(1, 3);
    d7392_();
    EXPECT_EQ(shown, std::vector<Ids>{(Ids{1, 2, 3})});
    EXPECT_EQ(count(), 0);

    MCS_register_display_fn([] {
        append(700);
        show();
        throw std::runtime_error("display");
    });
    append_all(1, 512);
    EXPECT_THROW(append(513), std::runtime_error);
    ASSERT_EQ(shown.back().size(), 512U);
    EXPECT_EQ(shown.back().front(), 1) << "what is flushed stays in place";
    MCS_register_display_fn(show);
    d7392_();
    EXPECT_EQ(shown.size(), 3U) << "flushing works again";
}

TEST_F(DisplayBuffer, TakesAnyCountOfTheHost) {
    for (const int written : {-5, 513, 2147483647, -2147483647 - 1}) {
        SCOPED_TRACE(written);
        shown.clear();
        append_all(1, 512);
        const BlockBytes before = block_bytes();

        set_word_at(2032, written);
        append(9);
        EXPECT_EQ(buffered(), Ids{9});
        EXPECT_EQ(shown.size(), written > 0 ? 1U : 0U);

        set_block_bytes(before);
        set_word_at(2032, written);
        a406_(&acom_.display_ids[511]);
        EXPECT_EQ(count(), written > 0 ? 511 : 0);

        set_word_at(2032, written);
        d7392_();
        EXPECT_EQ(count(), 0);
        EXPECT_EQ(shown.size(), written > 0 ? 2U : 0U);
        for (std::size_t i = 4088; i < before.size(); ++i)
            ASSERT_EQ(block_bytes()[i], before[i]) << "byte " << i << " beyond the buffer";
    }
}

}  // namespace
