// The shared block in tests.
#pragma once

#include "support/session.h"
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
struct KeepBlock : Kept<ZTMATH_acom_t> {
    KeepBlock() : Kept(acom_, acom_) {}
};

}  // namespace ztmath_test
