// A set of the numbers below n that finds the next member without looking at the others one by one.
#pragma once

#include <bit>
#include <cstdint>

#include "frame/work_array.h"

namespace ztmath {

class IndexSet {
  public:
    /// An empty set.
    explicit IndexSet(int n) : words_(total_words(n), Zeroed{}) {
        std::ptrdiff_t start = 0;
        for (std::ptrdiff_t size = n; levels_ == 0 || size > 1; ++levels_) {
            size = words_for(size);
            start_[levels_] = start;
            start += size;
            size_[levels_] = size;
        }
    }

    void insert(int i) {
        std::ptrdiff_t at = i;
        for (int level = 0; level < levels_; ++level, at >>= 6)
            word(level, at >> 6) |= bit(at);
    }

    void erase(int i) {
        std::ptrdiff_t at = i;
        for (int level = 0; level < levels_; ++level, at >>= 6)
            if ((word(level, at >> 6) &= ~bit(at)) != 0) return;
    }

    /// The least member that is at least i, or -1.
    int next(int i) const {
        std::ptrdiff_t at = i;
        for (int level = 0; level < levels_ && (at >> 6) < size_[level]; ++level) {
            const std::uint64_t rest = word(level, at >> 6) & (~std::uint64_t{0} << (at & 63));
            if (rest != 0)
                return least_below(level, (at & ~std::ptrdiff_t{63}) + std::countr_zero(rest));
            at = (at >> 6) + 1;
        }
        return -1;
    }

  private:
    static std::ptrdiff_t words_for(std::ptrdiff_t n) { return (n + 63) >> 6; }

    static std::ptrdiff_t total_words(std::ptrdiff_t n) { return 2 * words_for(n) + 8; }

    static std::uint64_t bit(std::ptrdiff_t at) { return std::uint64_t{1} << (at & 63); }

    std::uint64_t& word(int level, std::ptrdiff_t k) const { return words_[start_[level] + k]; }

    /// The least member below the bit `at` of a level.
    int least_below(int level, std::ptrdiff_t at) const {
        while (--level >= 0)
            at = (at << 6) + std::countr_zero(word(level, at));
        return static_cast<int>(at);
    }

    SmArray<std::uint64_t> words_;
    int levels_ = 0;
    std::ptrdiff_t start_[8];
    std::ptrdiff_t size_[8];
};

}  // namespace ztmath
