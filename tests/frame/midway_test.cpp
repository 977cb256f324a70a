// What the library does when the middleware or the event loop changes the descriptor in the middle of a lifecycle call:
// flags, state, numbers and counts are read again at each step.

#include "frame_test.h"

namespace {

class Midway : public FrameTest {};

LogLine flag_set_already(const char *name, uint32_t flag, uint32_t found)
{
    return logged(4, "gorvaNet_addBase", "Set Flag[%s-%X] in ctx(%p) already set[%X] text[%s]\n", name, flag,
                  static_cast<void *>(&gorvaNet_base), found, "");
}

LogLine flag_clear_already(const char *name, uint32_t flag, uint32_t found)
{
    return logged(4, "gorvaNet_delBase", "Unset Flag[%s-%X] in ctx(%p) not set[%X] text[%s]\n", name, flag,
                  static_cast<void *>(&gorvaNet_base), found, "");
}

LogLine state_set_already(const char *function, const char *name, int state)
{
    return logged(4, function, "Set State[%s-%d] in ctx(%p) already set\n", name, state,
                  static_cast<void *>(&gorvaNet_base));
}

const char cmd_flag[] = "GORVANET_FLAGS_BASE_REG_CMD";
const char ntfy_flag[] = "GORVANET_FLAGS_BASE_REG_NTFY";

// Runs `action` while the middleware hands out the block for so many methods.
template <typename Action> void while_asking(uintptr_t methods, Action action)
{
    answer("zebCore_getBase_msgMngt", [=](const Words &words) {
        if (words[2] == methods)
            action();
        return hand_out_block(words);
    });
}

// Runs `action` while the middleware takes back the block with this number, and then answers `status`.
template <typename Action> void while_releasing(uintptr_t number, Action action, uintptr_t status = 0)
{
    answer("zebCore_putBase_msgMngt", [=](const Words &words) {
        if (words[0] != number)
            return uintptr_t{0};
        action();
        return status;
    });
}

template <typename Action> void while_hooking(Action action)
{
    answer("ruvo_addEvtBase", [=](const Words &) {
        action();
        return 0;
    });
}

} // namespace

TEST_F(Midway, ACommandFlagThatIsSetAlreadyIsAWarning)
{
    while_asking(12, [] { gorvaNet_base.flags = 0x81; });
    EXPECT_EQ(gorvaNet_addBase(), 0u);
    EXPECT_EQ(calls_made(), (Calls{asks_for_cmd(), asks_for_ntfy(), hooks_event_loop()}));
    EXPECT_EQ(take_log(), LogLines{flag_set_already(cmd_flag, 1, 0x81)});
    EXPECT_EQ(frame(), (Frame{.cmd = 0x0101, .ntfy = 0x0102, .flags = 0x83, .state = 1}));
}

TEST_F(Midway, ANotificationFlagThatIsSetAlreadyIsAWarning)
{
    while_asking(1, [] { gorvaNet_base.flags = 0x02; });
    EXPECT_EQ(gorvaNet_addBase(), 0u);
    EXPECT_EQ(take_log(), LogLines{flag_set_already(ntfy_flag, 2, 2)});
    EXPECT_EQ(frame(), (Frame{.cmd = 0x0101, .ntfy = 0x0102, .flags = 0x02, .state = 1}));
    take_calls();
}

TEST_F(Midway, BothFlagsSetEarlyAreTwoWarnings)
{
    while_asking(12, [] { gorvaNet_base.flags = 3; });
    EXPECT_EQ(gorvaNet_addBase(), 0u);
    EXPECT_EQ(take_log(), (LogLines{flag_set_already(cmd_flag, 1, 3), flag_set_already(ntfy_flag, 2, 3)}));
    EXPECT_EQ(frame(), started);
    take_calls();
}

TEST_F(Midway, AWarningIsInTheLogBeforeTheNextCallOfTheBus)
{
    answer("zebCore_getBase_msgMngt", [](const Words &words) {
        EXPECT_EQ(take_log(), words[2] == 12 ? LogLines{} : LogLines{flag_set_already(cmd_flag, 1, 3)});
        gorvaNet_base.flags = 3;
        return hand_out_block(words);
    });
    while_hooking([] { EXPECT_EQ(take_log(), LogLines{flag_set_already(ntfy_flag, 2, 3)}); });
    EXPECT_EQ(gorvaNet_addBase(), 0u);
    EXPECT_EQ(calls_made(), (Calls{asks_for_cmd(), asks_for_ntfy(), hooks_event_loop()}));

    answer("zebCore_putBase_msgMngt", [](const Words &words) {
        EXPECT_EQ(take_log(), words[0] == 0x0101 ? LogLines{} : LogLines{flag_clear_already(cmd_flag, 1, 2)});
        gorvaNet_base.flags = 2;
        return 0;
    });
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    EXPECT_EQ(calls_made(), (Calls{releases(0x0101), releases(0x0102)}));
}

TEST_F(Midway, ARefusedBlockWarnsOfNoFlag)
{
    answer("zebCore_getBase_msgMngt", [](const Words &) {
        gorvaNet_base.flags = 3;
        return 0xffff;
    });
    EXPECT_EQ(gorvaNet_addBase(), 1u);
    EXPECT_EQ(take_log(), LogLines{logged(3, "gorvaNet_addBase", "Add command message management failed\n")});
    EXPECT_EQ(frame().flags, 3u);
    take_calls();
}

TEST_F(Midway, AnInterfaceDroppedDuringTheStartStaysDropped)
{
    while_asking(1, [] { gorvaNet_cbEvtMsgMngt_unreg_msgCmd(0x0101); });
    EXPECT_EQ(gorvaNet_addBase(), 0u);
    EXPECT_EQ(calls_made(), (Calls{asks_for_cmd(), asks_for_ntfy(), hooks_event_loop()}));
    EXPECT_EQ(frame(), (Frame{.cmd = 0x0101, .ntfy = 0x0102, .flags = 2, .state = 1}));
}

TEST_F(Midway, AStateThatIsInitAlreadyIsAWarning)
{
    while_hooking([] { gorvaNet_base.state = 1; });
    EXPECT_EQ(gorvaNet_addBase(), 0u);
    EXPECT_EQ(take_log(), LogLines{state_set_already("gorvaNet_addBase", "GORVANET_STATE_BASE_INIT", 1)});
    EXPECT_EQ(frame(), started);
    take_calls();
}

TEST_F(Midway, AnyOtherStateIsOverwrittenWithoutAWarning)
{
    while_hooking([] { gorvaNet_base.state = 7; });
    EXPECT_EQ(gorvaNet_addBase(), 0u);
    EXPECT_EQ(frame(), started);
    take_calls();

    while_releasing(0x0102, [] { gorvaNet_base.state = 7; });
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    EXPECT_EQ(frame(), Frame{});
    take_calls();
}

TEST_F(Midway, TheStateIsNotCheckedAgainWhenTheHookFails)
{
    answer("ruvo_addEvtBase", [](const Words &) {
        gorvaNet_base.state = 1;
        return 4;
    });
    EXPECT_EQ(gorvaNet_addBase(), 4u);
    EXPECT_EQ(take_log(), LogLines{logged(3, "gorvaNet_addBase", "Add event base failed(%d)\n", 4)});
    EXPECT_EQ(frame(), started);
    take_calls();
}

TEST_F(Midway, TheCountOfTheNotificationInterfaceIsReadWhenItsTurnComes)
{
    while_asking(12, [] { gorvaNet_base.ntfy.count = 0; });
    EXPECT_EQ(gorvaNet_addBase(), 0u);
    EXPECT_EQ(calls_made(), (Calls{asks_for_cmd(), hooks_event_loop()}));
    EXPECT_EQ(frame(), (Frame{.cmd = 0x0101, .ntfy = 0xffff, .flags = 1, .state = 1}));

    SetUp();
    gorvaNet_base.ntfy.count = 0;
    while_asking(12, [] { gorvaNet_base.ntfy.count = 1; });
    EXPECT_EQ(gorvaNet_addBase(), 0u);
    EXPECT_EQ(calls_made(), (Calls{asks_for_cmd(), asks_for_ntfy(), hooks_event_loop()}));
    EXPECT_EQ(frame(), started);
}

TEST_F(Midway, TheNameOfTheNotificationInterfaceIsReadWhenItsTurnComes)
{
    while_asking(12, [] { gorvaNet_base.ntfy.name = "Renamed"; });
    EXPECT_EQ(gorvaNet_addBase(), 0u);
    EXPECT_EQ(calls_made(), (Calls{asks_for_cmd(), asks_for_ntfy(), hooks_event_loop()}));
    EXPECT_STREQ(reinterpret_cast<const char *>(blocks()[1][0]), "Renamed");
}

TEST_F(Midway, AStopWithinTheHookIsRefused)
{
    while_hooking([] { EXPECT_EQ(gorvaNet_delBase(), 3u); });
    EXPECT_EQ(gorvaNet_addBase(), 0u);
    EXPECT_EQ(take_log(),
              LogLines{logged(3, "gorvaNet_delBase", "Check State[%s-%X] Ctx[ptr(%p) state(%X)] text[%s]\n",
                              "GORVANET_STATE_BASE_INIT", 1u, static_cast<void *>(&gorvaNet_base), 0u, "")});
    EXPECT_EQ(frame(), started);
    take_calls();
}

TEST_F(Midway, ACommandInterfaceDroppedDuringItsReleaseIsAWarning)
{
    start();
    while_releasing(0x0101, [] { gorvaNet_cbEvtMsgMngt_unreg_msgCmd(0x0101); });
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    EXPECT_EQ(calls_made(), (Calls{releases(0x0101), releases(0x0102)}));
    EXPECT_EQ(take_log(), LogLines{flag_clear_already(cmd_flag, 1, 2)});
    EXPECT_EQ(frame(), Frame{});
}

TEST_F(Midway, ANotificationInterfaceDroppedDuringItsReleaseIsAWarning)
{
    start();
    while_releasing(0x0102, [] { gorvaNet_cbEvtMsgMngt_unreg_msgNtfy(0x0102); });
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    EXPECT_EQ(take_log(), LogLines{flag_clear_already(ntfy_flag, 2, 0)});
    EXPECT_EQ(frame(), Frame{});
    take_calls();
}

TEST_F(Midway, ANotificationInterfaceDroppedDuringTheOthersReleaseIsSkipped)
{
    start();
    while_releasing(0x0101, [] { gorvaNet_cbEvtMsgMngt_unreg_msgNtfy(0x0102); });
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    EXPECT_EQ(calls_made(), Calls{releases(0x0101)});
    EXPECT_EQ(frame(), (Frame{.cmd = 0xffff, .ntfy = 0x0102, .flags = 0, .state = 0}));
}

TEST_F(Midway, ANumberOfTheNotificationInterfaceThatChangesIsTheOneReleased)
{
    start();
    while_releasing(0x0101, [] { gorvaNet_base.ntfy.num = 0x0999; });
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    EXPECT_EQ(calls_made(), (Calls{releases(0x0101), releases(0x0999)}));
}

TEST_F(Midway, AFailureLineShowsTheNumberAsItIsThen)
{
    start();
    while_releasing(
        0x0101, [] { gorvaNet_base.ntfy.num = 0x0999; }, 8);
    EXPECT_EQ(gorvaNet_delBase(), 8u);
    EXPECT_EQ(take_log(),
              LogLines{logged(3, "gorvaNet_delBase", "Put command message management(%u) failed(%d)\n", 0x0999u, 8)});
    EXPECT_EQ(calls_made(), Calls{releases(0x0101)});
}

TEST_F(Midway, AFailedReleaseLeavesADroppedFlagClearAndWarnsOfNothing)
{
    start();
    while_releasing(
        0x0101, [] { gorvaNet_cbEvtMsgMngt_unreg_msgCmd(0x0101); }, 8);
    EXPECT_EQ(gorvaNet_delBase(), 8u);
    EXPECT_EQ(take_log(),
              LogLines{logged(3, "gorvaNet_delBase", "Put command message management(%u) failed(%d)\n", 0x0102u, 8)});
    EXPECT_EQ(frame(), (Frame{.cmd = 0x0101, .ntfy = 0x0102, .flags = 2, .state = 1}));
    take_calls();
}

TEST_F(Midway, AStateThatIsWaitInitAlreadyIsAWarning)
{
    start();
    while_releasing(0x0102, [] { gorvaNet_base.state = 0; });
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    EXPECT_EQ(take_log(), LogLines{state_set_already("gorvaNet_delBase", "GORVANET_STATE_BASE_WAIT_INIT", 0)});
    EXPECT_EQ(frame(), Frame{});
    take_calls();
}

// The stop within the stop releases both: the outer one finds its own flag clear, the other's too, and the state set.
TEST_F(Midway, AStopWithinAReleaseLeavesTheOuterOneWithWarnings)
{
    start();
    bool inner = false;
    answer("zebCore_putBase_msgMngt", [&inner](const Words &) {
        if (!inner) {
            inner = true;
            gorvaNet_cbEvtBase(&gorvaNet_base, 0);
        }
        return 0;
    });
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    EXPECT_EQ(calls_made(), (Calls{releases(0x0101), releases(0x0101), releases(0x0102)}));
    EXPECT_EQ(take_log(), (LogLines{flag_clear_already(cmd_flag, 1, 0),
                                    state_set_already("gorvaNet_delBase", "GORVANET_STATE_BASE_WAIT_INIT", 0)}));
    EXPECT_EQ(frame(), Frame{});
}
