// Any function of the interface on any numbers.
#include "fuzz.h"
#include "interface/table.h"
#include "support/shared_block.h"

void fuzz::run(Bytes& bytes) {
    using namespace ztmath_test;
    const KeepBlock keep;
    const auto& table = interface_table();
    const Call& call = table[bytes.take<std::uint16_t>() % table.size()];
    Arrays inputs;
    for (const std::size_t length : call.inputs) {
        inputs.emplace_back(length);
        std::generate(inputs.back().begin(), inputs.back().end(), [&] { return bytes.number(); });
    }
    const Outcome first = outcome_of(call, inputs);
    require(same_bits(outcome_of(call, inputs), first), "the same call gives the same bits");
}
