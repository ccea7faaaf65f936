// The buffer of display identifiers, seen through the block as the display function sees it.
#include "support/support.h"
#include "ztmath/session.h"

namespace {

using namespace ztmath_test;

using Ids = std::vector<int>;

Ids buffered() {
    return {acom_.display_ids, acom_.display_ids + std::clamp(acom_.display_count, 0, 512)};
}

void append(int first, int count = 1) {
    for (int id = first; id < first + count; ++id)
        d7391_(&id);
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
    append(1, 512);
    EXPECT_TRUE(shown.empty()) << "neither of nothing, nor before it has to be";
    append(513);
    Ids full(512);
    std::iota(full.begin(), full.end(), 1);
    EXPECT_EQ(buffered(), Ids{513});
    d7392_();
    EXPECT_EQ(shown, (std::vector<Ids>{full, {513}}));
    append(8);
    d7390_();
    EXPECT_EQ(buffered(), Ids{});

    EXPECT_EQ(MCS_register_display_fn(nullptr), &show);
    append(1, 513);
    EXPECT_EQ(buffered(), Ids{513});
    d7392_();
    EXPECT_EQ(buffered(), Ids{});
    EXPECT_EQ(shown.size(), 2U);
}

TEST_F(DisplayBuffer, RemovesEveryOccurrence) {
    for (const int id : {5, 1, 5, 2, 3, 5})
        append(id);
    a406_(&acom_.display_ids[0]);  // an identifier of the buffer itself
    EXPECT_EQ(buffered(), (Ids{1, 2, 3}));
}

TEST_F(DisplayBuffer, ServesADisplayFunctionThatUsesItAndThrows) {
    MCS_register_display_fn([] {
        append(700);
        show();
        d7392_();
        throw std::runtime_error("display");
    });
    append(1, 512);
    EXPECT_THROW(append(513), std::runtime_error);
    ASSERT_EQ(shown.size(), 1U) << "not from within itself";
    EXPECT_EQ(shown[0].size(), 512U);
    EXPECT_EQ(shown[0][0], 1) << "what is flushed stays in place";
    MCS_register_display_fn(show);
    append(1);
    d7392_();
    EXPECT_EQ(shown.size(), 2U) << "flushing works again";
}

TEST_F(DisplayBuffer, TakesAnyCountOfTheHost) {
    for (const int written : {INT_MIN, INT_MAX}) {
        append(1, 512);
        acom_.display_count = written;
        a406_(&acom_.display_ids[511]);
        EXPECT_EQ(acom_.display_count, written > 0 ? 511 : 0);
        acom_.display_count = written;
        append(9);
        EXPECT_EQ(buffered(), Ids{9});
    }
}

}  // namespace
