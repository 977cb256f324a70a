// gorvaNet_addBase: the start of the interface.

#include "frame_test.h"

#include <csignal>

namespace {

class AddBase : public FrameTest {};

// In an expectation: the name of the function that logs.
const char add_base[] = "gorvaNet_addBase";

LogLine wrong_state(uint32_t found)
{
    return logged(3, add_base, "Check State[%s-%X] Ctx[ptr(%p) state(%X)] text[%s]\n", "GORVANET_STATE_BASE_WAIT_INIT",
                  0u, static_cast<void *>(&gorvaNet_base), found, "");
}

LogLine wrong_magic(uint32_t found)
{
    return logged(0, add_base, "Magic[%s-%X] Ctx[ptr(%p) magic(%X)] text[%s]\n", "GORVANET_MAGIC_BASE", 0x24142720u,
                  static_cast<void *>(&gorvaNet_base), found, "");
}

const LogLine no_cmd_block = logged(3, add_base, "Add command message management failed\n");
const LogLine no_ntfy_block = logged(3, add_base, "Add notification message management failed\n");

LogLine no_hook(int status)
{
    return logged(3, add_base, "Add event base failed(%d)\n", status);
}

} // namespace

TEST_F(AddBase, RegistersTheCommandThenTheNotificationInterfaceThenTheEventLoopHook)
{
    EXPECT_EQ(gorvaNet_addBase(), 0u);
    EXPECT_EQ(calls_made(), (Calls{asks_for_cmd(), asks_for_ntfy(), hooks_event_loop()}));
    EXPECT_EQ(frame(), (Frame{.cmd = 0x0101, .ntfy = 0x0102, .flags = 3, .state = 1}));
}

TEST_F(AddBase, TheMiddlewareIsGivenTheInterfaceNames)
{
    std::string names;
    answer("zebCore_getBase_msgMngt", [&](const Words &words) {
        names += reinterpret_cast<const char *>(words[0]) + std::string(" ");
        return hand_out_block(words);
    });
    start();
    EXPECT_EQ(names, "GorvaNetCmd GorvaNetNtfy ");
}

TEST_F(AddBase, TheBlockPointerIsNullAtEachRequest)
{
    std::vector<uintptr_t> found;
    answer("zebCore_getBase_msgMngt", [&](const Words &words) {
        found.push_back(*reinterpret_cast<const uintptr_t *>(words[1]));
        return hand_out_block(words);
    });
    start();
    EXPECT_EQ(found, (std::vector<uintptr_t>{0, 0}));
}

TEST_F(AddBase, TheFlagsAreClearedBeforeTheFirstRequest)
{
    gorvaNet_base.flags = 0xff;
    Frame found{};
    answer("zebCore_getBase_msgMngt", [&](const Words &words) {
        if (words[2] == 12)
            found = frame();
        return hand_out_block(words);
    });
    start();
    EXPECT_EQ(found, Frame{});
    EXPECT_EQ(frame(), started);
}

TEST_F(AddBase, TheCommandInterfaceIsRegisteredBeforeTheOtherIsRequested)
{
    Frame found{};
    answer("zebCore_getBase_msgMngt", [&](const Words &words) {
        found = frame();
        return hand_out_block(words);
    });
    start();
    EXPECT_EQ(found, (Frame{.cmd = cmd_number, .ntfy = 0xffff, .flags = 1, .state = 0}));
}

TEST_F(AddBase, TheStateChangesOnlyWhenTheHookIsInPlace)
{
    Frame found{};
    answer("ruvo_addEvtBase", [&](const Words &) {
        found = frame();
        return 0;
    });
    start();
    EXPECT_EQ(found, (Frame{.cmd = cmd_number, .ntfy = ntfy_number, .flags = 3, .state = 0}));
    EXPECT_EQ(frame().state, 1u);
}

TEST_F(AddBase, AnyNumberButFfffIsANumber)
{
    for (uint16_t number : std::initializer_list<uint16_t>{0, 1, 0x7fff, 0x8000, 0xfffe}) {
        SetUp();
        answer("zebCore_getBase_msgMngt", [number](const Words &words) {
            hand_out_block(words);
            return uintptr_t{number};
        });
        EXPECT_EQ(gorvaNet_addBase(), 0u);
        EXPECT_EQ(frame(), (Frame{.cmd = number, .ntfy = number, .flags = 3, .state = 1}));
        take_calls();
    }
}

TEST_F(AddBase, WhenTheMiddlewareRefusesTheCommandBlockNothingElseIsTried)
{
    refuse_block(12);
    gorvaNet_base.cmd.num = 0x1234;
    EXPECT_EQ(gorvaNet_addBase(), 1u);
    EXPECT_EQ(calls_made(), Calls{asks_for_cmd()});
    EXPECT_EQ(take_log(), LogLines{no_cmd_block});
    EXPECT_EQ(frame(), Frame{}) << "the refusal's 0xffff is stored";
}

TEST_F(AddBase, WhenTheMiddlewareRefusesTheNotificationBlockTheCommandBlockStays)
{
    refuse_block(1);
    gorvaNet_base.ntfy.num = 0x1234;
    EXPECT_EQ(gorvaNet_addBase(), 1u);
    EXPECT_EQ(calls_made(), (Calls{asks_for_cmd(), asks_for_ntfy()}));
    EXPECT_EQ(take_log(), LogLines{no_ntfy_block});
    EXPECT_EQ(frame(), (Frame{.cmd = cmd_number, .ntfy = 0xffff, .flags = 1, .state = 0}));
}

TEST_F(AddBase, ANumberWithoutABlockIsARefusalThatKeepsTheNumber)
{
    give_number_without_block(12, 0x4321);
    EXPECT_EQ(gorvaNet_addBase(), 1u);
    EXPECT_EQ(calls_made(), Calls{asks_for_cmd()});
    EXPECT_EQ(take_log(), LogLines{no_cmd_block});
    EXPECT_EQ(frame(), (Frame{.cmd = 0x4321, .ntfy = 0xffff, .flags = 0, .state = 0}));

    give_number_without_block(1, 0x4322);
    EXPECT_EQ(gorvaNet_addBase(), 1u);
    EXPECT_EQ(calls_made(), (Calls{asks_for_cmd(), asks_for_ntfy()}));
    EXPECT_EQ(take_log(), LogLines{no_ntfy_block});
    EXPECT_EQ(frame(), (Frame{.cmd = 0x0101, .ntfy = 0x4322, .flags = 1, .state = 0}));
}

TEST_F(AddBase, TheEventLoopsOwnCodeIsReturnedAndBothRegistrationsStay)
{
    struct {
        uintptr_t status;
        int shown;
    } cases[] = {{5, 5}, {1, 1}, {3, 3}, {0xffffffff, -1}, {0x80000000, INT32_MIN}, {0x10000, 65536}};
    for (const auto &[status, shown] : cases) {
        SetUp();
        answer("ruvo_addEvtBase", status);
        EXPECT_EQ(gorvaNet_addBase(), status);
        EXPECT_EQ(calls_made(), (Calls{asks_for_cmd(), asks_for_ntfy(), hooks_event_loop()}));
        EXPECT_EQ(take_log(), LogLines{no_hook(shown)});
        EXPECT_EQ(frame(), (Frame{.cmd = cmd_number, .ntfy = ntfy_number, .flags = 3, .state = 0}));
    }
}

TEST_F(AddBase, AfterAFailureTheNextCallStartsOver)
{
    answer("ruvo_addEvtBase", 7);
    EXPECT_EQ(gorvaNet_addBase(), 7u);
    EXPECT_EQ(take_log(), LogLines{no_hook(7)});
    take_calls();

    refuse_block(1);
    EXPECT_EQ(gorvaNet_addBase(), 1u);
    EXPECT_EQ(take_log(), LogLines{no_ntfy_block}) << "the flags were cleared: no warning";
    EXPECT_EQ(calls_made(), (Calls{asks_for_cmd(), asks_for_ntfy()}));
    EXPECT_EQ(frame(), (Frame{.cmd = 0x0103, .ntfy = 0xffff, .flags = 1, .state = 0}));

    refuse_block(12);
    EXPECT_EQ(gorvaNet_addBase(), 1u);
    EXPECT_EQ(take_log(), LogLines{no_cmd_block});
    EXPECT_EQ(calls_made(), Calls{asks_for_cmd()});
    EXPECT_EQ(frame(), Frame{});

    answer("zebCore_getBase_msgMngt", hand_out_block);
    answer("ruvo_addEvtBase", 0);
    EXPECT_EQ(gorvaNet_addBase(), 0u);
    EXPECT_EQ(calls_made(), (Calls{asks_for_cmd(), asks_for_ntfy(), hooks_event_loop()}));
    EXPECT_EQ(frame(), (Frame{.cmd = 0x0104, .ntfy = 0x0105, .flags = 3, .state = 1}));
}

TEST_F(AddBase, AnInterfaceWithoutMethodsIsNotRegistered)
{
    gorvaNet_base.cmd.count = 0;
    EXPECT_EQ(gorvaNet_addBase(), 0u);
    EXPECT_EQ(calls_made(), (Calls{asks_for_ntfy(), hooks_event_loop()}));
    EXPECT_EQ(frame(), (Frame{.cmd = 0xffff, .ntfy = 0x0101, .flags = 2, .state = 1}));

    SetUp();
    gorvaNet_base.ntfy.count = 0;
    EXPECT_EQ(gorvaNet_addBase(), 0u);
    EXPECT_EQ(calls_made(), (Calls{asks_for_cmd(), hooks_event_loop()}));
    EXPECT_EQ(frame(), (Frame{.cmd = 0x0101, .ntfy = 0xffff, .flags = 1, .state = 1}));
}

TEST_F(AddBase, WithoutAnyMethodOnlyTheHookIsLeft)
{
    gorvaNet_base.cmd.count = 0;
    gorvaNet_base.ntfy.count = 0;
    gorvaNet_base.cmd.num = 0x1234;
    EXPECT_EQ(gorvaNet_addBase(), 0u);
    EXPECT_EQ(calls_made(), Calls{hooks_event_loop()});
    EXPECT_EQ(frame(), (Frame{.cmd = 0x1234, .ntfy = 0xffff, .flags = 0, .state = 1}));
}

TEST_F(AddBase, InAnyStateButWaitInitItIsRefusedAndNothingChanges)
{
    for (uint8_t state : std::initializer_list<uint8_t>{1, 2, 0x80, 0xff}) {
        gorvaNet_base.state = state;
        gorvaNet_base.flags = 0xfc;
        gorvaNet_base.cmd.num = 0x1234;
        BaseWords before = words_of_base();
        EXPECT_EQ(gorvaNet_addBase(), 3u);
        EXPECT_EQ(take_log(), LogLines{wrong_state(state)});
        EXPECT_EQ(words_of_base(), before);
    }
}

TEST_F(AddBase, ACorruptedMagicAbortsBeforeAnythingElse)
{
    for (uint32_t magic : {0u, 0x24142721u, 0xdeadbeefu}) {
        gorvaNet_base.magic = magic;
        gorvaNet_base.state = 1; // the magic is looked at first
        gorvaNet_base.flags = 0xff;
        BaseWords before = words_of_base();
        EXPECT_TRUE(aborts([] { gorvaNet_addBase(); }));
        EXPECT_EQ(take_log(), LogLines{wrong_magic(magic)});
        EXPECT_EQ(words_of_base(), before);
    }
}

TEST_F(AddBase, ACorruptedMagicEndsTheProcess)
{
    gorvaNet_base.magic = 0;
    EXPECT_EXIT(gorvaNet_addBase(), testing::KilledBySignal(SIGABRT), "");
}

TEST_F(AddBase, OnlyTheMagicOfTheDescriptorItselfIsChecked)
{
    gorvaNet_base.cmd.magic = 0;
    gorvaNet_base.ntfy.magic = 0;
    EXPECT_EQ(gorvaNet_addBase(), 0u);
    EXPECT_EQ(frame(), started);
    take_calls();
}

TEST_F(AddBase, NoBlockOfMemoryIsAllocated)
{
    start();
    EXPECT_EQ(allocations(), 0u);
}

// Each statement logs its own source line: the lines of the eight messages ascend as the steps do.
TEST_F(AddBase, EachMessageCarriesTheLineOfItsOwnStep)
{
    LogLines lines;
    auto add_with = [&](auto prepare) {
        SetUp();
        prepare();
        if (!aborts([] { gorvaNet_addBase(); }))
            take_calls();
        LogLines more = take_log();
        ASSERT_EQ(more.size(), 1u);
        lines.push_back(more[0]);
    };
    auto hand_out_with_flags_set = [](uintptr_t methods) {
        answer("zebCore_getBase_msgMngt", [methods](const Words &words) {
            if (words[2] == methods)
                gorvaNet_base.flags = 3;
            return hand_out_block(words);
        });
    };
    add_with([] { gorvaNet_base.magic = 0; });
    add_with([] { gorvaNet_base.state = 1; });
    add_with([] { refuse_block(12); });
    add_with([&] {
        hand_out_with_flags_set(12);
        gorvaNet_base.ntfy.count = 0;
    });
    add_with([] { refuse_block(1); });
    add_with([&] { hand_out_with_flags_set(1); });
    add_with([] { answer("ruvo_addEvtBase", 1); });
    add_with([] {
        answer("ruvo_addEvtBase", [](const Words &) {
            gorvaNet_base.state = 1;
            return 0;
        });
    });
    EXPECT_EQ(lines.size(), 8u);
    EXPECT_GT(lines[0].line, 0);
    EXPECT_TRUE(lines_ascend(lines));
}
