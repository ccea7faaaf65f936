// Prints, for each row of the interface table, a hash of the bits of many results: on the library
// as any compiler builds it, at any level of optimisation, the output must be the same.
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <numeric>

#include "interface/table.h"

namespace {

using namespace ztmath_test;

/// FNV-1a over the bits of numbers; which NaN a NaN is may depend on the order of operands.
void add(double number, std::uint64_t& hash) {
    const auto bits = std::isnan(number) ? 0x7FF8 : std::bit_cast<std::uint64_t>(number);
    for (int i = 0; i < 8; ++i)
        hash = (hash ^ (bits >> 8 * i & 0xFF)) * 0x100000001B3;
}

std::uint64_t hash_of(const Call& call) {
    Random random;
    std::uint64_t hash = 0xCBF29CE484222325;
    const std::size_t count = std::reduce(call.inputs.begin(), call.inputs.end(), std::size_t{1});
    const int repeats = std::clamp(rounds(20000) / static_cast<int>(count), 10, 2000);
    for (int round = 0; round < repeats; ++round)
        for (const Draw draw : draws) {
            const Outcome outcome = outcome_of(call, draw_inputs(call, random, draw));
            add(outcome.result, hash);
            for (const auto& array : outcome.outputs)
                for (const double number : array)
                    add(number, hash);
        }
    return hash;
}

}  // namespace

int main() {
    for (const Call& call : interface_table())
        std::printf("%-36s %016jx\n", call.name.c_str(),
                    static_cast<std::uintmax_t>(hash_of(call)));
}
