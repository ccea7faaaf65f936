#include "interface/table.h"

#include <algorithm>
#include <cmath>

namespace ztmath_test {

const std::vector<Call>& interface_table() {
    static const std::vector<Call> table = [] {
        std::vector<Call> all;
        for (const auto rows :
             {arc_plane_calls, arc_spline_calls, arc_tangent_calls, curve_calls, curve_edit_calls,
              dgeom_calls, facet_calls, fit_calls, frame_calls, kit_calls, polygon_calls,
              root_calls, solve_calls, transform_calls}) {
            auto more = rows();
            all.insert(all.end(), more.begin(), more.end());
        }
        return all;
    }();
    return table;
}

Arrays draw_inputs(const Call& call, Random& random, Draw draw) {
    const auto number = [&]() -> double {
        switch (draw) {
            case Draw::regular:
                break;
            case Draw::whole_numbers:
                return random.integer(-2, 2);
            case Draw::any_size:
                return random.normal() * std::pow(10, random.uniform(-12, 12));
        }
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
    Outcome outcome{0.0, {}};
    for (const std::size_t length : call.outputs)
        outcome.outputs.emplace_back(length, fill);
    outcome.result = call.run(pointers_to(inputs).data(), pointers_to(outcome.outputs).data());
    return outcome;
}

bool same_bits(const Outcome& a, const Outcome& b) {
    if (!same_bits(a.result, b.result)) return false;
    for (std::size_t i = 0; i < a.outputs.size(); ++i)
        if (!std::equal(a.outputs[i].begin(), a.outputs[i].end(), b.outputs[i].begin(),
                        [](double x, double y) { return same_bits(x, y); }))
            return false;
    return true;
}

}  // namespace ztmath_test
