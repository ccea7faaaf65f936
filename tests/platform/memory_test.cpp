// Memory of the platform library.
#include <new>
#include <thread>

#include "support/support.h"
#include "syss/host.h"

namespace {

using namespace ztmath_test;

/// Sets the memory limit while it lives.
class MemoryLimit {
  public:
    explicit MemoryLimit(std::size_t limit) : before_(SYSS_set_memory_limit(limit)) {}
    ~MemoryLimit() { SYSS_set_memory_limit(before_); }
    MemoryLimit& operator=(MemoryLimit&&) = delete;

  private:
    std::size_t before_;
};

bool is_clear(void* block) {
    const auto* bytes = static_cast<const unsigned char*>(block);
    return std::all_of(bytes, bytes + SM_length(block), [](unsigned char b) { return b == 0; });
}

TEST(Memory, BlocksKnowTheirLengthAreCountedAndClearedOnDemand) {
    const NoBlocksLeft watch;
    const std::size_t before = SYSS_block_count();
    for (const char* where : {"in fresh memory", "where dirty blocks lay"}) {
        SCOPED_TRACE(where);
        const std::tuple<void*, std::size_t, bool> made[] = {
            {SM_alloc(7), 7, false},
            {SM_alloc(0), 0, false},
            {SM_calloc(500, 8), 4000, true},
            {SM_calloc(0, SIZE_MAX), 0, true},
            {SM_calloc_persistent(SIZE_MAX, 0), 0, true},
            {SM_calloc_persistent(20, 8), 160, true},
            {SM_realloc(nullptr, 9), 9, false}};
        EXPECT_EQ(SYSS_block_count(), before + std::size(made));
        for (const auto& [block, length, clear] : made) {
            ASSERT_NE(block, nullptr);
            EXPECT_EQ(SM_length(block), length);
            EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % alignof(std::max_align_t), 0U);
            EXPECT_TRUE(!clear || is_clear(block));
            std::memset(block, 0xEE, length);
            SM_free(block);
        }
    }
    SM_free(nullptr);
    EXPECT_EQ(SM_length(nullptr), 0U);
}

TEST(Memory, ResizingKeepsContentsUpToTheSmallerLength) {
    const NoBlocksLeft watch;
    Random random;
    std::string mirror;
    char* block = nullptr;
    for (int round = 0; round < rounds(2000); ++round) {
        const auto length =
            static_cast<std::size_t>(random.integer(0, random.integer(0, 3) == 0 ? 20000 : 300));
        mirror.resize(std::min(mirror.size(), length));
        block = static_cast<char*>(SM_realloc(block, length));
        ASSERT_EQ(SM_length(block), length);
        ASSERT_TRUE(std::equal(mirror.begin(), mirror.end(), block));
        mirror.resize(length);
        std::ranges::generate(mirror, [&] { return static_cast<char>(random.integer(0, 255)); });
        std::copy(mirror.begin(), mirror.end(), block);
    }
    SM_free(block);
}

TEST(Memory, AppendingOneByOneMovesABlockSeldom) {
    const NoBlocksLeft watch;
    constexpr std::size_t steps = 4000;
    using Owned = std::unique_ptr<void, void (*)(void*)>;
    std::vector<Owned> in_the_way;  // the block cannot grow where it is
    void* block = SM_alloc(8);
    int moves = 0;
    for (std::size_t n = 2; n <= steps; ++n) {
        in_the_way.emplace_back(SM_alloc(8), SM_free);
        void* grown = SM_realloc(block, 8 * n);
        moves += grown != block;
        block = grown;
        ASSERT_EQ(SM_length(block), 8 * n) << "the slack shows";
    }
    EXPECT_LT(moves, 40);
    SM_free(block);
}

TEST(Memory, SizesBeyondAllMemoryAreRefusedAndLeaveTheBlock) {
    const NoBlocksLeft watch;
    const ReportRecorder quiet;
    void* block = SM_calloc(1, 5);
    const std::function<void()> refused[] = {
        [] { SM_alloc(SIZE_MAX - 8); },         [] { SM_alloc(SIZE_MAX / 2 + 1); },
        [] { SM_calloc(SIZE_MAX / 2 + 1, 2); }, [] { SM_calloc_persistent(SIZE_MAX / 4 + 1, 4); },
        [&] { SM_realloc(block, SIZE_MAX); },   [&] { SM_realloc(block, SIZE_MAX / 2 + 1); },
    };
    for (const auto& allocate : refused)
        EXPECT_THROW(allocate(), std::bad_alloc) << "case " << &allocate - refused;
    EXPECT_EQ(SM_length(block), 5U);
    EXPECT_TRUE(is_clear(block));
    EXPECT_EQ(quiet.reports().size(), std::size(refused));
    const MemoryLimit limit(10);
    SM_free(SM_alloc(5));  // would be refused if what was refused stood in the books
    SM_free(block);
}

TEST(Memory, TheLimitCountsTheLengthsOfAllBlocks) {
    const NoBlocksLeft watch;
    const ReportRecorder quiet;
    ASSERT_EQ(SYSS_block_count(), 0U);
    const MemoryLimit limit(100);
    void* first = SM_alloc(60);
    EXPECT_THROW(SM_alloc(41), std::bad_alloc);
    void* second = SM_alloc(40);
    EXPECT_THROW(SM_realloc(first, 61), std::bad_alloc);
    EXPECT_EQ(SM_length(first), 60U);

    second = SM_realloc(second, 10);  // what a shrunk block gives back can be had
    first = SM_realloc(first, 90);
    EXPECT_THROW(SM_realloc(second, 11), std::bad_alloc);
    SM_free(second);
    first = SM_realloc(first, 100);
    EXPECT_THROW(SM_calloc(1, 1), std::bad_alloc);
    SM_free(SM_alloc(0));

    EXPECT_EQ(SYSS_set_memory_limit(50), 100U);  // below what is out: nothing more, but shrinking
    EXPECT_THROW(SM_alloc(0), std::bad_alloc);
    first = SM_realloc(first, 30);
    SM_free(SM_alloc(20));
    SM_free(first);
}

TEST(Memory, ThreadsShareTheBooks) {
    const NoBlocksLeft watch;
    ASSERT_EQ(SYSS_block_count(), 0U);
    const auto work = [] {
        for (std::size_t i = 0; i < 2000; ++i)
            SM_free(SM_realloc(SM_alloc(i % 97), i % 89));
    };
    { const std::jthread a(work), b(work), c(work), d(work); }
    const MemoryLimit limit(10);
    SM_free(SM_alloc(10));  // would be refused if a byte were left in the books
}

}  // namespace
