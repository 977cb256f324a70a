// Each method again and again over the loopback host: heap, open descriptors and log stay as they are. A thousand times
// in the suite's run, a million times in the long form.

#include "bus.h"
#include "round.h"
#include "support/log.h"
#include "support/long_form.h"
#include "support/memory.h"

#include <filesystem>

namespace {

class Soak : public EndToEnd, public testing::WithParamInterface<Trip> {};

// What must not grow.
struct Use {
    long blocks;
    size_t blocks_of_library;
    ptrdiff_t descriptors;

    bool operator==(const Use &) const = default;
};

std::ostream &operator<<(std::ostream &out, const Use &use)
{
    return out << use.blocks << " blocks, " << use.blocks_of_library << " blocks of the library, " << use.descriptors
               << " descriptors";
}

Use use_now()
{
    std::filesystem::directory_iterator descriptors("/proc/self/fd");
    ptrdiff_t open_descriptors = std::distance(begin(descriptors), end(descriptors));
    descriptors = {};
    return {blocks_of_process(), live_blocks().size(), open_descriptors};
}

// Some rounds of random content, in turn.
constexpr size_t contents = 16;

TEST_P(Soak, LeavesTheProcessAsItIs)
{
    RandomContent content(20191109);
    std::vector<Round> rounds;
    for (size_t i = 0; i < contents; i++)
        rounds.push_back(random_round(content));

    auto travel = [&](uint32_t times) {
        for (uint32_t i = 0; i < times && !HasFailure(); i++) {
            now = &rounds[i % contents];
            GetParam().send(client, service, *now);
            ASSERT_TRUE(carry_everything());
            ASSERT_EQ(take_freed().size(), GetParam().bodies);
        }
    };
    auto arrived = [&] {
        unsigned sum = 0;
        for (const Round &round : rounds)
            sum += round.requests + round.answers + round.notifications;
        return sum;
    };

    // What the process keeps for later it has after these.
    travel(4 * contents);
    const unsigned arrived_before = arrived();
    const Use before = use_now();
    const uint32_t times = by_form(1000, 1000000);
    travel(times);
    EXPECT_EQ(use_now(), before);
    EXPECT_EQ(take_log(), LogLines{});
    EXPECT_EQ(arrived() - arrived_before, times * GetParam().bodies / 2);
    add_to_figure("round trips over the loopback host leave heap, descriptors and log as they are", times);
}

INSTANTIATE_TEST_SUITE_P(Of, Soak, testing::ValuesIn(trips), [](const auto &trip) { return trip.param.name; });

} // namespace
