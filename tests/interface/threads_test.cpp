// Calls on different data may run side by side while nobody writes the shared block.
#include <thread>

#include "interface/table.h"
#include "syss/host.h"

namespace {

using namespace ztmath_test;

/// What a call gives when no other one runs.
struct Case {
    const Call& call;
    Arrays inputs;
    Outcome alone;
};

/// Of every call of the table that writes nothing shared.
std::vector<Case> draw_cases(Random& random, Draw draw) {
    std::vector<Case> cases;
    for (const Call& call : interface_table()) {
        if (call.writes_shared) continue;
        const Arrays inputs = draw_inputs(call, random, draw);
        cases.push_back({call, inputs, outcome_of(call, inputs)});
    }
    return cases;
}

TEST(Threads, ComputeWhatTheyWouldAlone) {
    const auto before = SYSS_set_report_handler({[](const SYSS_report_t*, void*) {}, nullptr});
    Random random;
    for (int round = 0; round < rounds(3); ++round) {
        std::vector<std::vector<Case>> shares;
        for (const Draw draw : {Draw::regular, Draw::regular, Draw::whole_numbers, Draw::any_size})
            shares.push_back(draw_cases(random, draw));
        std::atomic<int> different = 0;
        std::vector<std::thread> threads;
        threads.reserve(shares.size());
        for (const auto& share : shares)
            threads.emplace_back([&share, &different] {
                for (const auto& [call, inputs, alone] : share)
                    if (!same_bits(outcome_of(call, inputs), alone)) ++different;
            });
        for (std::thread& thread : threads)
            thread.join();
        EXPECT_EQ(different, 0);
    }
    SYSS_set_report_handler(before);
    tell_calls();
}

}  // namespace
