// Doubles in lanes as values, so that a formula is written once for a number and for several.
//
// The functions are always inlined: how wide values are passed depends on what the processor is
// compiled for.
#pragma once

#include <cstdint>

#include "frame/vec.h"
#include "frame/wide_lanes.h"

namespace ztmath {

/// Whether something holds, in each lane.
template <class Lanes>
struct Holds {
    using Mask = decltype(Lanes{} < Lanes{});

    Mask mask;  // all bits or none

    [[gnu::always_inline]] friend Holds operator!(const Holds& a) { return {~a.mask}; }
};

/// A number that is the same in all lanes stays a double: as lanes it would be put together again
/// in every round of a loop.
template <class Lanes>
struct Doubles {
    Lanes lanes;

    [[gnu::always_inline]] friend Doubles operator+(const Doubles& a, const Doubles& b) {
        return {a.lanes + b.lanes};
    }
    [[gnu::always_inline]] friend Doubles operator+(double a, const Doubles& b) {
        return {a + b.lanes};
    }
    [[gnu::always_inline]] friend Doubles operator-(const Doubles& a, const Doubles& b) {
        return {a.lanes - b.lanes};
    }
    [[gnu::always_inline]] friend Doubles operator-(const Doubles& a, double b) {
        return {a.lanes - b};
    }
    [[gnu::always_inline]] friend Doubles operator-(double a, const Doubles& b) {
        return {a - b.lanes};
    }
    [[gnu::always_inline]] friend Doubles operator*(const Doubles& a, const Doubles& b) {
        return {a.lanes * b.lanes};
    }
    [[gnu::always_inline]] friend Doubles operator*(const Doubles& a, double b) {
        return {a.lanes * b};
    }
    [[gnu::always_inline]] friend Doubles operator*(double a, const Doubles& b) {
        return {a * b.lanes};
    }
    [[gnu::always_inline]] friend Doubles operator/(const Doubles& a, const Doubles& b) {
        return {a.lanes / b.lanes};
    }
    [[gnu::always_inline]] friend Holds<Lanes> operator<(const Doubles& a, const Doubles& b) {
        return {a.lanes < b.lanes};
    }
    [[gnu::always_inline]] friend Holds<Lanes> operator<(const Doubles& a, double b) {
        return {a.lanes < b};
    }
    [[gnu::always_inline]] friend Holds<Lanes> operator<=(const Doubles& a, double b) {
        return {a.lanes <= b};
    }
    [[gnu::always_inline]] friend Holds<Lanes> operator>(const Doubles& a, double b) {
        return {a.lanes > b};
    }
};

/// Points of the plane in lanes.
template <class Lanes>
struct Points2 {
    Doubles<Lanes> x, y;

    [[gnu::always_inline]] friend Points2 operator+(Vec2 a, const Points2& b) {
        return {a.x + b.x, a.y + b.y};
    }
    [[gnu::always_inline]] friend Points2 operator-(Vec2 a, const Points2& b) {
        return {a.x - b.x, a.y - b.y};
    }
    [[gnu::always_inline]] friend Points2 operator-(const Points2& a, Vec2 b) {
        return {a.x - b.x, a.y - b.y};
    }
    [[gnu::always_inline]] friend Doubles<Lanes> cross(Vec2 a, const Points2& b) {
        return a.x * b.y - a.y * b.x;
    }
    [[gnu::always_inline]] friend Doubles<Lanes> length_squared(const Points2& a) {
        return a.x * a.x + a.y * a.y;
    }
};

/// The bits of a word, as loads of lanes need them.
struct SingleBits {
    std::uint64_t of[64];

    constexpr SingleBits() : of() {
        for (int i = 0; i < 64; ++i)
            of[i] = std::uint64_t{1} << i;
    }
};
inline constexpr SingleBits single_bits;

/// Collects, for 64 indices that follow each other, a bit for each at which something holds.
template <class Lanes>
class BitCollector {
    using Mask = typename Holds<Lanes>::Mask;

  public:
    /// For the indices from i on, of which there are as many as lanes.
    [[gnu::always_inline]] void add(int i, const Holds<Lanes>& holds) {
        Mask singles;
        std::memcpy(&singles, single_bits.of + i, sizeof singles);
        found_ |= holds.mask & singles;
    }

    [[gnu::always_inline]] std::uint64_t bits() const {
        std::uint64_t all = 0;
        for (int lane = 0; lane < width_of<Lanes>; ++lane)
            all |= static_cast<std::uint64_t>(found_[lane]);
        return all;
    }

  private:
    Mask found_{};
};

}  // namespace ztmath
