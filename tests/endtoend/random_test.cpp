// All thirteen methods, end to end over a host, again and again with random content: what arrives is what was sent, in
// both directions, and nothing is left behind.

#include "bus.h"
#include "round.h"
#include "support/memory.h"

namespace {

TEST_F(EndToEnd, EverythingArrivesAsItWasSentAndNothingIsLeftBehind)
{
    constexpr uint32_t seed = 20190222;
    RandomContent content(seed);
    for (unsigned i = 0; i < bus_rounds && !HasFailure(); i++) {
        SCOPED_TRACE("seed " + std::to_string(seed) + ", round " + std::to_string(i));
        Round round = random_round(content);
        now = &round;
        send_everything(round);
        ASSERT_TRUE(carry_everything());
        EXPECT_EQ(round.requests, 12U);
        EXPECT_EQ(round.answers, 9U);
        EXPECT_EQ(round.notifications, 1U);
        EXPECT_EQ(open_messages(), 0U);
        ASSERT_TRUE(live_blocks().empty());
        // 12 requests and 9 answers, each a sent body and a decoded one, and the same for the notification.
        ASSERT_EQ(take_freed().size(), 2U * (12 + 9 + 1));
    }
}

// Without a callback no answer is awaited, and none is sent.
TEST_F(EndToEnd, WithoutACallbackNothingComesBack)
{
    RandomContent content(1);
    Round round = random_round(content);
    now = &round;
    gorvaNet_sendReq_setMtu(client, nullptr, nullptr, &round, "service", round.first);
    ASSERT_TRUE(carry_everything());
    EXPECT_EQ(round.requests, 1U);
    EXPECT_EQ(round.answers, 0U);
    EXPECT_EQ(take_freed().size(), 2U);
}

} // namespace
