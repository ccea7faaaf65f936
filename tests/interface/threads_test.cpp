// Calls on different data may run side by side while nobody writes the shared block.
#include <thread>

#include "interface/table.h"
#include "syss/host.h"

namespace {

using namespace ztmath_test;

/// What a thread of its own sees: every call of the table that writes nothing shared.
struct Share {
    Share(Random& random, Draw draw) {
        for (const Call& call : interface_table()) {
            if (call.writes_shared) continue;
            calls.push_back(&call);
            inputs.push_back(draw_inputs(call, random, draw));
            alone.push_back(outcome_of(call, inputs.back()));
        }
    }

    void run_beside_others() {
        for (std::size_t i = 0; i < calls.size(); ++i)
            different += !same_bits(outcome_of(*calls[i], inputs[i]), alone[i]);
    }

    std::vector<const Call*> calls;
    std::vector<Arrays> inputs;
    std::vector<Outcome> alone;
    std::size_t different = 0;
};

TEST(Threads, ComputeWhatTheyWouldAlone) {
    const auto before = SYSS_set_report_handler({[](const SYSS_report_t*, void*) {}, nullptr});
    Random random;
    for (int round = 0; round < rounds(3); ++round) {
        std::vector<Share> shares;
        for (const Draw draw : {Draw::regular, Draw::regular, Draw::whole_numbers, Draw::any_size})
            shares.emplace_back(random, draw);
        std::vector<std::thread> threads;
        for (Share& share : shares)
            threads.emplace_back(&Share::run_beside_others, &share);
        for (std::thread& thread : threads)
            thread.join();
        for (const Share& share : shares)
            EXPECT_EQ(share.different, 0u);
    }
    SYSS_set_report_handler(before);
    tell_calls();
}

}  // namespace
