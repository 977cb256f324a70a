// The event loop: turns, posted functions, stop, and the end of everything.

#include "loopback_test.h"

namespace {

using LoopTest = LoopbackTest;

std::string order;

template <char letter> void append(void *)
{
    order += letter;
}

TEST_F(LoopTest, WithoutAnythingToDoIsIdle)
{
    EXPECT_EQ(gorvanet_loopback_run(), GORVANET_LOOPBACK_IDLE);
    EXPECT_EQ(gorvanet_loopback_turn(), GORVANET_LOOPBACK_IDLE);
}

TEST_F(LoopTest, CallsPostedFunctionsInOrderOnALaterTurn)
{
    order.clear();
    int data = 0;
    gorvanet_loopback_post([](void *given) { *static_cast<int *>(given) = 7; }, &data);
    gorvanet_loopback_post(
        [](void *) {
            gorvanet_loopback_post(append<'c'>, nullptr);
            order += 'a';
        },
        nullptr);
    gorvanet_loopback_post(append<'b'>, nullptr);
    EXPECT_EQ(data, 0);
    EXPECT_EQ(gorvanet_loopback_run(), GORVANET_LOOPBACK_IDLE);
    EXPECT_EQ(data, 7);
    EXPECT_EQ(order, "abc");
}

TEST_F(LoopTest, TakesOneTurnAtATime)
{
    order.clear();
    gorvanet_loopback_post(append<'a'>, nullptr);
    gorvanet_loopback_post(append<'b'>, nullptr);
    EXPECT_EQ(gorvanet_loopback_turn(), GORVANET_LOOPBACK_STOPPED);
    EXPECT_EQ(order, "a");
    EXPECT_EQ(gorvanet_loopback_turn(), GORVANET_LOOPBACK_STOPPED);
    EXPECT_EQ(order, "ab");
    EXPECT_EQ(gorvanet_loopback_turn(), GORVANET_LOOPBACK_IDLE);
}

TEST_F(LoopTest, StopsAfterThePresentTurn)
{
    order.clear();
    gorvanet_loopback_post(
        [](void *) {
            gorvanet_loopback_stop();
            order += 'a';
        },
        nullptr);
    gorvanet_loopback_post(append<'b'>, nullptr);
    EXPECT_EQ(gorvanet_loopback_run(), GORVANET_LOOPBACK_STOPPED);
    EXPECT_EQ(order, "a");
    EXPECT_EQ(gorvanet_loopback_run(), GORVANET_LOOPBACK_IDLE);
    EXPECT_EQ(order, "ab");
}

TEST_F(LoopTest, StopWithoutARunDoesNothing)
{
    order.clear();
    gorvanet_loopback_stop();
    gorvanet_loopback_post(append<'a'>, nullptr);
    EXPECT_EQ(gorvanet_loopback_run(), GORVANET_LOOPBACK_IDLE);
    EXPECT_EQ(order, "a");
}

TEST_F(LoopTest, AFunctionThatThrowsEndsTheProcess)
{
    gorvanet_loopback_post([](void *) { throw 1; }, nullptr);
    EXPECT_DEATH(
        {
            try {
                gorvanet_loopback_run();
            } catch (int) {
            }
        },
        "");
}

TEST_F(LoopTest, TearDownTellsEveryHookOnce)
{
    static std::vector<std::pair<void *, int32_t>> calls;
    calls.clear();
    auto hook = [](void *context, int32_t event) { calls.emplace_back(context, event); };
    int one = 0, two = 0;
    EXPECT_EQ(ruvo_addEvtBase(hook, &one), 0);
    EXPECT_EQ(ruvo_addEvtBase(hook, &two), 0);
    EXPECT_EQ(ruvo_addEvtBase(hook, &one), 0) << "hooking again changes nothing";
    EXPECT_EQ(gorvanet_loopback_tear_down(), 0);
    EXPECT_EQ(calls, (std::vector<std::pair<void *, int32_t>>{{&one, 0}, {&two, 0}}));
    EXPECT_EQ(gorvanet_loopback_tear_down(), 0);
    EXPECT_EQ(calls.size(), 2u);
}

TEST_F(LoopTest, HooksCannotRunTheLoopAndMayHookForTheNextLife)
{
    static uint32_t calls;
    calls = 0;
    struct Again {
        static void hook(void *, int32_t)
        {
            calls++;
            EXPECT_EQ(gorvanet_loopback_run(), GORVANET_LOOPBACK_BUSY);
            EXPECT_EQ(gorvanet_loopback_tear_down(), GORVANET_LOOPBACK_BUSY);
            if (calls == 1)
                ruvo_addEvtBase(hook, nullptr);
        }
    };
    EXPECT_EQ(ruvo_addEvtBase(Again::hook, nullptr), 0);
    EXPECT_EQ(gorvanet_loopback_tear_down(), 0);
    EXPECT_EQ(calls, 1u);
    EXPECT_EQ(gorvanet_loopback_tear_down(), 0);
    EXPECT_EQ(calls, 2u);
}

TEST_F(LoopTest, TearDownStopsTheLibrary)
{
    start();
    EXPECT_EQ(gorvaNet_base.state, GORVANET_STATE_BASE_INIT);
    EXPECT_EQ(gorvanet_loopback_tear_down(), 0);
    EXPECT_EQ(gorvaNet_base.state, GORVANET_STATE_BASE_WAIT_INIT);
    EXPECT_EQ(gorvaNet_base.flags, 0);
    EXPECT_EQ(gorvaNet_getCmdIntfNum(), GORVANET_NUM_NONE);
    EXPECT_TRUE(log_lines.empty());
    EXPECT_EQ(count(GORVANET_LOOPBACK_MISUSE), 0u);
}

TEST_F(LoopTest, TearDownMakesRoomForANewStart)
{
    start();
    void *old_client = client;
    serve();
    send();
    EXPECT_EQ(gorvanet_loopback_tear_down(), 0);
    start();
    EXPECT_NE(client, old_client);
    serve();
    send();
    gorvanet_loopback_run();
    EXPECT_EQ(results, std::vector<uint32_t>{42});
    seen.clear();
    EXPECT_EQ(zebIntf_getCore_user(old_client), nullptr);
    EXPECT_EQ(count(GORVANET_LOOPBACK_MISUSE), 1u) << "users of the life before stay unknown";
}

TEST_F(LoopTest, TearDownDropsPostedFunctions)
{
    order.clear();
    gorvanet_loopback_post(append<'a'>, nullptr);
    EXPECT_EQ(gorvanet_loopback_tear_down(), 0);
    EXPECT_EQ(gorvanet_loopback_run(), GORVANET_LOOPBACK_IDLE);
    EXPECT_EQ(order, "");
}

// Nothing of an unreg callback's doing reaches the next life.
TEST_F(LoopTest, TearDownDropsWhatUnregLeavesBehind)
{
    order.clear();
    MessageManagement *block = nullptr;
    zebCore_getBase_msgMngt("LeftOver", &block, 0);
    ASSERT_NE(block, nullptr);
    block->unreg = [](uint16_t) {
        gorvanet_loopback_post(append<'a'>, nullptr);
        EXPECT_NE(gorvanet_loopback_add_user("left over"), nullptr);
    };
    EXPECT_EQ(gorvanet_loopback_tear_down(), 0);
    EXPECT_EQ(gorvanet_loopback_run(), GORVANET_LOOPBACK_IDLE);
    EXPECT_EQ(order, "");
    EXPECT_NE(gorvanet_loopback_add_user("left over"), nullptr) << "the name is free";
}

TEST_F(LoopTest, TearDownEndsAnInterfaceThatRegistersAgain)
{
    static uint16_t number;
    static uint32_t calls;
    calls = 0;
    struct Again {
        static void add(uint16_t = 0)
        {
            ASSERT_LT(++calls, 10u);
            MessageManagement *block = nullptr;
            number = zebCore_getBase_msgMngt("Again", &block, 0);
            ASSERT_NE(block, nullptr);
            block->unreg = add;
        }
    };
    Again::add();
    EXPECT_EQ(gorvanet_loopback_tear_down(), 0);
    EXPECT_EQ(calls, 2u);
    EXPECT_EQ(zebCore_putBase_msgMngt(number, 0), GORVANET_LOOPBACK_UNKNOWN_NUMBER);
}

TEST_F(LoopTest, TearDownWithdrawsWhatIsStillRegistered)
{
    static std::vector<uint16_t> dropped;
    dropped.clear();
    MessageManagement *block = nullptr;
    uint16_t number = zebCore_getBase_msgMngt("LeftOver", &block, 0);
    ASSERT_NE(block, nullptr);
    block->unreg = [](uint16_t given) { dropped.push_back(given); };
    EXPECT_EQ(gorvanet_loopback_tear_down(), 0);
    EXPECT_EQ(dropped, std::vector<uint16_t>{number});
    EXPECT_EQ(zebCore_putBase_msgMngt(number, 0), GORVANET_LOOPBACK_UNKNOWN_NUMBER);
}

} // namespace
