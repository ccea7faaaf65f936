// Calls on different data may run side by side while nobody writes the shared block.
#include <gtest/gtest.h>

#include <thread>

#include "interface/table.h"
#include "syss/host.h"

namespace {

using namespace ztmath_test;

/// What a thread of its own sees: every call of the table that writes nothing shared.
struct Share {
    std::vector<Arrays> inputs;
    std::vector<Outcome> alone;
    std::size_t different = 0;

    void run_beside_others() {
        std::size_t next = 0;
        for (const Call& call : interface_table())
            if (!call.writes_shared) {
                different += !same_bits(outcome_of(call, inputs[next]), alone[next]);
                ++next;
            }
    }
};

Share share_of(Random& random, Draw draw) {
    Share share;
    for (const Call& call : interface_table())
        if (!call.writes_shared) {
            share.inputs.push_back(draw_inputs(call, random, draw));
            share.alone.push_back(outcome_of(call, share.inputs.back()));
        }
    return share;
}

TEST(Threads, ComputeWhatTheyWouldAlone) {
    const auto before = SYSS_set_report_handler({[](const SYSS_report_t*, void*) {}, nullptr});
    Random random;
    for (int round = 0; round < rounds(3); ++round) {
        std::vector<Share> shares;
        for (const Draw draw : {Draw::regular, Draw::regular, Draw::whole_numbers, Draw::any_size})
            shares.push_back(share_of(random, draw));
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
