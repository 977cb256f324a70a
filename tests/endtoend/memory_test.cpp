// Memory is refused to the library at every combination of places on the way of a message over the loopback host: what
// cannot go on ends there, nothing is left behind, and the next message arrives.

#include "bus.h"
#include "round.h"
#include "support/log.h"
#include "support/memory.h"

namespace {

class WithoutMemory : public EndToEnd, public testing::WithParamInterface<Trip> {
protected:
    // The host's reports of what could not be delivered are not looked at.
    void SetUp() override
    {
        testing::internal::CaptureStderr();
        EndToEnd::SetUp();
    }

    void TearDown() override
    {
        EndToEnd::TearDown();
        testing::internal::GetCapturedStderr();
    }

    // Sends one message and gives what arrived of it: 0, 1 (a request or notification) or 2 (the answer, too).
    unsigned travel(uint32_t refused)
    {
        Round round = random_round(content);
        now = &round;
        refuse_allocations(refused);
        GetParam().send(client, service, round);
        EXPECT_TRUE(carry_everything());
        return round.requests + round.answers + round.notifications;
    }

    RandomContent content{20150227};
};

// Each direction takes three blocks: the body that is sent, its encoding, and the body that arrives.
TEST_P(WithoutMemory, NothingIsLeftBehindAndTheNextMessageArrives)
{
    const unsigned directions = GetParam().bodies / 2;
    for (uint32_t refused = 0; refused < 1u << (3 * directions); refused++) {
        SCOPED_TRACE(testing::Message() << "refused: bits of " << refused);
        const bool request_arrives = (refused & 7) == 0;
        const bool answer_arrives = refused == 0 && directions == 2;
        EXPECT_EQ(travel(refused), unsigned{request_arrives} + unsigned{answer_arrives});
        EXPECT_EQ(take_log().size(), refused ? 1u : 0u);
        ASSERT_EQ(live_blocks(), std::vector<void *>{});

        EXPECT_EQ(travel(0), directions);
        ASSERT_EQ(live_blocks(), std::vector<void *>{});
        take_freed();
    }
}

INSTANTIATE_TEST_SUITE_P(Of, WithoutMemory, testing::ValuesIn(trips), [](const auto &trip) { return trip.param.name; });

} // namespace
