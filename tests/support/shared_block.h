// The shared block in tests.
#pragma once

#include "support/prelude.h"
#include "ztmath/acom.h"

namespace ztmath_test {

/// Element k of the table GCA, which counts from 1.
inline int& gca(int k) {
    return acom_.gca[k - 1];
}

using BlockBytes = std::array<unsigned char, sizeof acom_>;

/// The block as it stands, or stood.
inline BlockBytes bytes_of(const ZTMATH_acom_t& block = acom_) {
    return std::bit_cast<BlockBytes>(block);
}

/// Gives the block back as it was.
class KeepBlock {
  public:
    KeepBlock() = default;
    ~KeepBlock() { acom_ = before_; }
    KeepBlock(const KeepBlock&) = delete;
    KeepBlock& operator=(const KeepBlock&) = delete;

  private:
    ZTMATH_acom_t before_ = acom_;
};

}  // namespace ztmath_test
