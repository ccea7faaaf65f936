#include "interface/table.h"

#include "interface/row.h"

namespace ztmath_test {

namespace {

/// Words before and behind each output, where a sanitizer does not watch over its bounds.
#ifdef __SANITIZE_ADDRESS__
constexpr int guards = 0;
#else
constexpr int guards = 4;
#endif

}  // namespace

const std::vector<Call>& interface_table() {
    static const std::vector<Call> table = joined({arc_spline_calls(), curve_calls(), facet_calls(),
                                                   fit_calls(), kit_calls(), solve_calls(),
                                                   rows_of<0, nullptr,
#include "plain.inc"
                                                           >(),
                                                   frame_calls()});
    return table;
}

Arrays draw_inputs(const Call& call, Random& random, Draw draw) {
    const auto number = [&]() -> double {
        if (draw == Draw::whole_numbers) return random.integer(-2, 2);
        if (draw == Draw::any_size) return random.normal() * std::pow(10, random.uniform(-12, 12));
        return random.normal();
    };
    Arrays inputs;
    for (const std::size_t length : call.inputs) {
        inputs.emplace_back(length);
        std::generate(inputs.back().begin(), inputs.back().end(), number);
    }
    if (draw == Draw::regular && call.prepare != nullptr) call.prepare(random, inputs);
    return inputs;
}

Outcome outcome_of(const Call& call, const Arrays& inputs, double fill) {
    Arrays guarded;
    std::vector<double*> out;
    for (const std::size_t length : call.outputs) {
        guarded.emplace_back(length + 2 * guards, fill);
        out.push_back(guarded.back().data() + guards);
    }
    ++calls_made;
    Outcome outcome{call.run(pointers_to(inputs).data(), out.data()), {}};
    const auto is_untouched = [&](double word) { return same_bits(word, fill); };
    for (const auto& array : guarded) {
        if (!std::all_of(array.begin(), array.begin() + guards, is_untouched) ||
            !std::all_of(array.end() - guards, array.end(), is_untouched))
            throw std::logic_error(call.name + " writes beside its outputs");
        outcome.outputs.emplace_back(array.begin() + guards, array.end() - guards);
    }
    return outcome;
}

bool same_bits(const Outcome& a, const Outcome& b) {
    const auto same = [](double x, double y) { return same_bits(x, y); };
    const auto all_same = [&](const auto& x, const auto& y) {
        return std::ranges::equal(x, y, same);
    };
    return same(a.result, b.result) && std::ranges::equal(a.outputs, b.outputs, all_same);
}

}  // namespace ztmath_test
