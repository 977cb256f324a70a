// The ways into the lifecycle: gorvanet_initialize and the event loop's callback.

#include "frame_test.h"

namespace {

class Initialize : public FrameTest {};
class Event : public FrameTest {};

LogLine add_failed(int status)
{
    return logged(3, "gorvanet_initialize", "Add Base failed(%d)\n", status);
}

LogLine unknown_event(int event)
{
    return logged(3, "gorvaNet_cbEvtBase", "Unknown event(%d)\n", event);
}

const LogLine delete_failed = logged(3, "gorvaNet_cbEvtBase", "Delete Base\n");

} // namespace

TEST_F(Initialize, StartsTheInterface)
{
    EXPECT_EQ(gorvanet_initialize(), 0u);
    EXPECT_EQ(calls_made(), (Calls{asks_for_cmd(), asks_for_ntfy(), hooks_event_loop()}));
    EXPECT_EQ(frame(), started);
}

TEST_F(Initialize, ASecondOneReturnsThreeAndSaysSoTwice)
{
    start();
    EXPECT_EQ(gorvanet_initialize(), 3u);
    EXPECT_EQ(take_log(),
              (LogLines{logged(3, "gorvaNet_addBase", "Check State[%s-%X] Ctx[ptr(%p) state(%X)] text[%s]\n",
                               "GORVANET_STATE_BASE_WAIT_INIT", 0u, static_cast<void *>(&gorvaNet_base), 1u, ""),
                        add_failed(3)}));
    EXPECT_EQ(frame(), started);
}

TEST_F(Initialize, ARefusedBlockIsReportedWithOne)
{
    refuse_block(12);
    EXPECT_EQ(gorvanet_initialize(), 1u);
    EXPECT_EQ(calls_made(), Calls{asks_for_cmd()});
    EXPECT_EQ(take_log(),
              (LogLines{logged(3, "gorvaNet_addBase", "Add command message management failed\n"), add_failed(1)}));
}

TEST_F(Initialize, TheEventLoopsOwnCodeComesThrough)
{
    answer("ruvo_addEvtBase", 0xffffff9c);
    EXPECT_EQ(gorvanet_initialize(), 0xffffff9cu);
    EXPECT_EQ(calls_made(), (Calls{asks_for_cmd(), asks_for_ntfy(), hooks_event_loop()}));
    EXPECT_EQ(take_log(),
              (LogLines{logged(3, "gorvaNet_addBase", "Add event base failed(%d)\n", -100), add_failed(-100)}));
}

TEST_F(Initialize, ACorruptedMagicAbortsUnderTheNameOfAddBase)
{
    gorvaNet_base.magic = 0x24142722;
    EXPECT_TRUE(aborts([] { gorvanet_initialize(); }));
    EXPECT_EQ(take_log(), LogLines{logged(0, "gorvaNet_addBase", "Magic[%s-%X] Ctx[ptr(%p) magic(%X)] text[%s]\n",
                                          "GORVANET_MAGIC_BASE", 0x24142720u, static_cast<void *>(&gorvaNet_base),
                                          0x24142722u, "")});
}

TEST_F(Initialize, MayBeRepeatedAfterARelease)
{
    start();
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    take_calls();
    EXPECT_EQ(gorvanet_initialize(), 0u);
    EXPECT_EQ(calls_made(), (Calls{asks_for_cmd(), asks_for_ntfy(), hooks_event_loop()}));
    EXPECT_EQ(frame(), (Frame{.cmd = 0x0103, .ntfy = 0x0104, .flags = 3, .state = 1}));
}

TEST_F(Event, ZeroTearsTheInterfaceDown)
{
    start();
    gorvaNet_cbEvtBase(&gorvaNet_base, 0);
    EXPECT_EQ(calls_made(), (Calls{releases(0x0101), releases(0x0102)}));
    EXPECT_EQ(frame(), Frame{});
}

TEST_F(Event, ReachesTheCallbackThatTheEventLoopWasGiven)
{
    EXPECT_EQ(gorvanet_initialize(), 0u);
    Call hook = take_calls().back();
    auto callback = reinterpret_cast<void (*)(void *, int32_t)>(hook.words[0]);
    callback(reinterpret_cast<void *>(hook.words[1]), 0);
    EXPECT_EQ(calls_made(), (Calls{releases(0x0101), releases(0x0102)}));
    EXPECT_EQ(frame(), Frame{});
}

TEST_F(Event, TheContextIsIgnored)
{
    for (uintptr_t context : {uintptr_t{0}, uintptr_t{1}, uintptr_t{0xffffffff}}) {
        SetUp();
        start();
        gorvaNet_cbEvtBase(reinterpret_cast<void *>(context), 0);
        EXPECT_EQ(calls_made(), (Calls{releases(0x0101), releases(0x0102)}));
        EXPECT_EQ(frame(), Frame{});
    }
}

TEST_F(Event, ZeroBeforeTheStartIsRefusedAndReported)
{
    gorvaNet_cbEvtBase(&gorvaNet_base, 0);
    EXPECT_EQ(take_log(),
              (LogLines{logged(3, "gorvaNet_delBase", "Check State[%s-%X] Ctx[ptr(%p) state(%X)] text[%s]\n",
                               "GORVANET_STATE_BASE_INIT", 1u, static_cast<void *>(&gorvaNet_base), 0u, ""),
                        delete_failed}));
    EXPECT_EQ(frame(), Frame{});
}

TEST_F(Event, ABlockThatTheMiddlewareKeepsIsReported)
{
    start();
    keep_block(0x0102, 9);
    gorvaNet_cbEvtBase(&gorvaNet_base, 0);
    EXPECT_EQ(calls_made(), (Calls{releases(0x0101), releases(0x0102)}));
    EXPECT_EQ(take_log(), (LogLines{logged(3, "gorvaNet_delBase",
                                           "Put notification message management(%u) failed(%d)\n", 0x0102u, 9),
                                    delete_failed}));
    EXPECT_EQ(frame(), (Frame{.cmd = 0xffff, .ntfy = 0x0102, .flags = 2, .state = 1}));
}

TEST_F(Event, AnyOtherIsUnknownAndLeavesTheRegistrationsAlone)
{
    start();
    BaseWords before = words_of_base();
    for (int event : {1, 2, -1, 256, 65536, INT32_MAX, INT32_MIN}) {
        gorvaNet_cbEvtBase(&gorvaNet_base, event);
        EXPECT_EQ(take_log(), LogLines{unknown_event(event)});
    }
    EXPECT_EQ(words_of_base(), before);
}

TEST_F(Event, ErrorsOfMessagesDoNothing)
{
    start();
    BaseWords before = words_of_base();
    gorvaNet_cbEvtMsgError();
    EXPECT_EQ(words_of_base(), before);
}
