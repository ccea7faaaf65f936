// The shared block as a host of the older generation sees it: bytes at fixed offsets.
#pragma once

#include "support/prelude.h"
#include "ztmath/acom.h"

namespace ztmath_test {

using BlockBytes = std::array<unsigned char, 5240>;

inline BlockBytes block_bytes() {
    BlockBytes bytes;
    std::memcpy(bytes.data(), &acom_, bytes.size());
    return bytes;
}

inline void set_block_bytes(const BlockBytes& bytes) {
    std::memcpy(&acom_, bytes.data(), bytes.size());
}

/// A word of the block, or of a copy of it, by offset.
template <class T>
T word_at(std::size_t offset, const BlockBytes& bytes = block_bytes()) {
    T value;
    std::memcpy(&value, bytes.data() + offset, sizeof value);
    return value;
}

template <class T>
void put_at(BlockBytes& bytes, std::size_t offset, T value) {
    std::memcpy(bytes.data() + offset, &value, sizeof value);
}

template <class T>
void set_word_at(std::size_t offset, T value) {
    BlockBytes bytes = block_bytes();
    put_at(bytes, offset, value);
    set_block_bytes(bytes);
}

constexpr std::size_t gca_offset(int k) {
    return 4780 + 4 * static_cast<std::size_t>(k);
}

/// Gives the block back as it was.
class KeepBlock {
  public:
    KeepBlock() = default;
    ~KeepBlock() { set_block_bytes(before_); }
    KeepBlock(const KeepBlock&) = delete;
    KeepBlock& operator=(const KeepBlock&) = delete;

  private:
    BlockBytes before_ = block_bytes();
};

}  // namespace ztmath_test
