// What the fuzzer hands over, read as numbers; when the bytes run out, zeros follow.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <limits>

namespace fuzz {

class Bytes {
  public:
    Bytes(const std::uint8_t* data, std::size_t size) : at_(data), left_(size) {}

    bool empty() const { return left_ == 0; }

    template <class T>
    T take() {
        T value{};
        const std::size_t size = std::min(sizeof value, left_);
        if (size > 0) std::memcpy(&value, at_, size);
        at_ += size;
        left_ -= size;
        return value;
    }

    int integer(int low, int high) { return low + take<std::uint16_t>() % (high - low + 1); }
    bool flag() { return (take<std::uint8_t>() & 1) != 0; }

    /// A number: mostly a small whole one or a fraction, so that points coincide and lines are
    /// parallel; now and then any double, or one with a meaning of its own.
    double number() {
        constexpr double special[] = {std::numeric_limits<double>::quiet_NaN(),
                                      HUGE_VAL,
                                      -HUGE_VAL,
                                      -0.0,
                                      1.0e19,
                                      1.0e160,
                                      1.0e-160,
                                      1.0e-10,
                                      std::numeric_limits<double>::denorm_min()};
        const int kind = take<std::uint8_t>();
        if (kind < 128) return take<std::int8_t>() / 4.0;
        if (kind < 200) return take<std::int16_t>() / 64.0;
        if (kind < 240) return take<double>();
        return special[static_cast<std::size_t>(kind) % std::size(special)];
    }

  private:
    const std::uint8_t* at_;
    std::size_t left_;
};

}  // namespace fuzz
