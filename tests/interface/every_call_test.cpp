// What holds for every call of the table.
#include "interface/table.h"
#include "support/support.h"

namespace {

using namespace ztmath_test;

using Limits = std::numeric_limits<double>;
constexpr double none = Limits::quiet_NaN();
constexpr double most = Limits::max();
constexpr double least = Limits::denorm_min();
constexpr double below_1e19 = 9999999999999997952.0;  // the last double before
constexpr double special_values[] = {none,  HUGE_VAL, -HUGE_VAL, 1.0e19, below_1e19, -1.0e19, most,
                                     -most, 1.0e160,  1.0e-160,  least,  -least,     0.0,     -0.0};

/// Calls with one output lying over one input, `shift` doubles from its start.
Outcome overlapped(const Call& call, const Arrays& inputs, std::size_t input, std::size_t output,
                   std::ptrdiff_t shift, const Outcome& separate, const Outcome& refilled) {
    const std::size_t margin = call.outputs[output];
    std::vector<double> shared(inputs[input].size() + 2 * margin, -3.5);
    const auto start = shared.begin() + static_cast<std::ptrdiff_t>(margin);
    std::copy(inputs[input].begin(), inputs[input].end(), start);
    const std::vector<double> before = shared;

    Outcome outcome{0.0, separate.outputs};
    auto in = pointers_to(inputs);
    auto out = pointers_to(outcome.outputs);
    in[input] = &*start;
    out[output] = &*start + shift;
    ++calls_made;
    outcome.result = call.run(in.data(), out.data());

    for (std::size_t i = 0; i < margin; ++i) {
        const auto at = margin + i + static_cast<std::size_t>(shift);
        const bool written = same_bits(separate.outputs[output][i], refilled.outputs[output][i]);
        // What the call leaves alone is what was there.
        outcome.outputs[output][i] = !written && same_bits(shared[at], before[at])
                                         ? separate.outputs[output][i]
                                         : shared[at];
    }
    return outcome;
}

TEST(EveryCall, GivesTheSameBitsWithAnyOutputOverAnyInput) {
    const KeepBlock keep;
    const ReportRecorder quiet;
    Random random;
    for (const Call& call : interface_table()) {
        if (!call.passes_on) continue;
        SCOPED_TRACE(call.name);
        for (int round = 0; round < rounds(3); ++round)
            for (const Draw draw : draws) {
                const Arrays inputs = draw_inputs(call, random, draw);
                const Outcome separate = outcome_of(call, inputs, 7.0);
                const Outcome refilled = outcome_of(call, inputs, -8.0);
                for (std::size_t i = 0; i < call.inputs.size(); ++i)
                    for (std::size_t o = 0; o < call.outputs.size(); ++o) {
                        const auto low = -static_cast<std::ptrdiff_t>(call.outputs[o]) + 1;
                        const auto high = static_cast<std::ptrdiff_t>(call.inputs[i]);
                        const auto step = 1 + (high - low) / 60;
                        for (auto shift = low; shift < high; shift += step)
                            ASSERT_TRUE(
                                same_bits(overlapped(call, inputs, i, o, shift, separate, refilled),
                                          separate))
                                << "output " << o << " over input " << i << ", shift " << shift;
                    }
            }
    }
    tell_calls();
}

bool is_assertion(const Report& report) {
    return report.text.rfind("Assertion failed: ", 0) == 0;
}

/// Calls at both checking levels: checking adds assertions and changes nothing else.
void expect_checking_adds_assertions_only(const Call& call, const Arrays& inputs) {
    ReportRecorder recorder;
    const auto at_level = [&](int level) {
        const CheckingLevel checking(level);
        return outcome_of(call, inputs);
    };
    const Outcome unchecked = at_level(0);
    const Reports silent = recorder.take();
    EXPECT_TRUE(std::none_of(silent.begin(), silent.end(), is_assertion));
    const Outcome checked = at_level(1);
    EXPECT_TRUE(same_bits(checked, unchecked));
    Reports rest = recorder.take();
    std::erase_if(rest, is_assertion);
    EXPECT_GE(rest.size(), silent.size());
}

TEST(EveryCall, EndsOnEverySpecialValueAndComputesAlikeAtEveryCheckingLevel) {
    const KeepBlock keep;
    const ReportRecorder quiet;
    Random random;
    for (const Call& call : interface_table()) {
        SCOPED_TRACE(call.name);
        const NoBlocksLeft watch;
        const Arrays ordinary = draw_inputs(call, random, Draw::regular);
        const Outcome before = outcome_of(call, ordinary);
        const std::size_t count = std::reduce(call.inputs.begin(), call.inputs.end());
        const std::size_t step = 1 + count / 40;  // of large inputs, some places
        for (std::size_t i = 0; i < call.inputs.size(); ++i)
            for (std::size_t k = 0; k < call.inputs[i];
                 k += static_cast<std::size_t>(random.integer(1, 2 * static_cast<int>(step) - 1))) {
                Arrays inputs = draw_inputs(call, random, Draw::regular);
                for (const double value : special_values) {
                    inputs[i][k] = value;
                    expect_checking_adds_assertions_only(call, inputs);
                }
            }
        for (const double value : special_values)
            for (int round = 0; round < rounds(4); ++round) {
                Arrays inputs = draw_inputs(call, random, Draw::whole_numbers);
                for (auto& array : inputs)
                    for (double& number : array)
                        if (round == 0 || random.integer(0, 1) == 0) number = value;
                expect_checking_adds_assertions_only(call, inputs);
            }
        EXPECT_TRUE(same_bits(outcome_of(call, ordinary), before));
        ASSERT_FALSE(HasFailure());
    }
    tell_calls();
}

}  // namespace
