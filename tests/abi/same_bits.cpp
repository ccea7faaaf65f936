// Prints, for each row of the interface table, a hash of the bits of many results: on the library
// as any compiler builds it, at any level of optimisation, the output must be the same.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "interface/table.h"

namespace {

using namespace ztmath_test;

/// FNV-1a over the bits of numbers; which NaN a NaN is may depend on the order of operands.
class Hash {
  public:
    void add(double number) {
        std::uint64_t bits = 0x7FF8;
        if (!std::isnan(number)) std::memcpy(&bits, &number, sizeof bits);
        for (int i = 0; i < 8; ++i)
            value_ = (value_ ^ (bits >> 8 * i & 0xFF)) * 0x100000001B3;
    }
    std::uint64_t value() const { return value_; }

  private:
    std::uint64_t value_ = 0xCBF29CE484222325;
};

std::uint64_t hash_of(const Call& call) {
    Random random;
    Hash hash;
    std::size_t count = 1;
    for (const std::size_t length : call.inputs)
        count += length;
    const int repeats = std::clamp(rounds(20000) / static_cast<int>(count), 10, 2000);
    for (int round = 0; round < repeats; ++round)
        for (const Draw draw : draws) {
            const Outcome outcome = outcome_of(call, draw_inputs(call, random, draw));
            hash.add(outcome.result);
            for (const auto& array : outcome.outputs)
                for (const double number : array)
                    hash.add(number);
        }
    return hash.value();
}

}  // namespace

int main() {
    for (const Call& call : interface_table())
        std::printf("%-36s %016jx\n", call.name.c_str(),
                    static_cast<std::uintmax_t>(hash_of(call)));
}
