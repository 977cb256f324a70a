// gorvaNet_delBase: the stop of the interface.

#include "frame_test.h"

namespace {

class DelBase : public FrameTest {};

const char del_base[] = "gorvaNet_delBase";

LogLine wrong_state(uint32_t found)
{
    return logged(3, del_base, "Check State[%s-%X] Ctx[ptr(%p) state(%X)] text[%s]\n", "GORVANET_STATE_BASE_INIT", 1u,
                  static_cast<void *>(&gorvaNet_base), found, "");
}

LogLine cmd_kept(uint32_t number, int status)
{
    return logged(3, del_base, "Put command message management(%u) failed(%d)\n", number, status);
}

LogLine ntfy_kept(uint32_t number, int status)
{
    return logged(3, del_base, "Put notification message management(%u) failed(%d)\n", number, status);
}

// Codes of the middleware, and how %d shows them.
struct {
    uintptr_t status;
    int shown;
} const codes[] = {{1, 1}, {3, 3}, {0x1234, 4660}, {0xffffffff, -1}, {0x80000000, INT32_MIN}, {0x10000, 65536}};

} // namespace

TEST_F(DelBase, ReleasesTheCommandThenTheNotificationInterface)
{
    start();
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    EXPECT_EQ(calls_made(), (Calls{releases(0x0101), releases(0x0102)}));
    EXPECT_EQ(frame(), (Frame{.cmd = 0xffff, .ntfy = 0xffff, .flags = 0, .state = 0}));
}

TEST_F(DelBase, BeforeAnyStartItIsRefusedAndNothingChanges)
{
    BaseWords before = words_of_base();
    EXPECT_EQ(gorvaNet_delBase(), 3u);
    EXPECT_EQ(take_log(), LogLines{wrong_state(0)});
    EXPECT_EQ(words_of_base(), before);
}

TEST_F(DelBase, InAnyStateButInitItIsRefusedAndNothingChanges)
{
    for (uint8_t state : std::initializer_list<uint8_t>{0, 2, 0x81, 0xff}) {
        gorvaNet_base.state = state;
        gorvaNet_base.flags = 3;
        gorvaNet_base.cmd.num = 0x1234;
        BaseWords before = words_of_base();
        EXPECT_EQ(gorvaNet_delBase(), 3u);
        EXPECT_EQ(take_log(), LogLines{wrong_state(state)});
        EXPECT_EQ(words_of_base(), before);
    }
}

TEST_F(DelBase, ASecondReleaseIsRefused)
{
    start();
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    take_calls();
    EXPECT_EQ(gorvaNet_delBase(), 3u);
    EXPECT_EQ(take_log(), LogLines{wrong_state(0)});
}

TEST_F(DelBase, TheMagicIsNotChecked)
{
    start();
    gorvaNet_base.magic = 0;
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    EXPECT_EQ(calls_made(), (Calls{releases(0x0101), releases(0x0102)}));
}

TEST_F(DelBase, WhenTheCommandBlockIsKeptEverythingStaysAndTheLineShowsTheNotificationNumber)
{
    for (const auto &[status, shown] : codes) {
        SetUp();
        start();
        keep_block(0x0101, status);
        EXPECT_EQ(gorvaNet_delBase(), status);
        EXPECT_EQ(calls_made(), Calls{releases(0x0101)});
        EXPECT_EQ(take_log(), LogLines{cmd_kept(0x0102, shown)});
        EXPECT_EQ(frame(), started);
    }
}

TEST_F(DelBase, TheNotificationNumberOfThatLineIsUnsigned)
{
    start();
    gorvaNet_base.ntfy.num = 0xffff;
    keep_block(0x0101, 1);
    EXPECT_EQ(gorvaNet_delBase(), 1u);
    take_calls();
    LogLines lines = take_log();
    EXPECT_EQ(lines, LogLines{cmd_kept(65535, 1)});
    EXPECT_EQ(lines.at(0).text, "Put command message management(65535) failed(1)\n");
}

TEST_F(DelBase, WhenTheNotificationBlockIsKeptTheCommandBlockIsGone)
{
    for (const auto &[status, shown] : codes) {
        SetUp();
        start();
        keep_block(0x0102, status);
        EXPECT_EQ(gorvaNet_delBase(), status);
        EXPECT_EQ(calls_made(), (Calls{releases(0x0101), releases(0x0102)}));
        EXPECT_EQ(take_log(), LogLines{ntfy_kept(0x0102, shown)});
        EXPECT_EQ(frame(), (Frame{.cmd = 0xffff, .ntfy = 0x0102, .flags = 2, .state = 1}));
    }
}

TEST_F(DelBase, AfterAFailureTheNextCallReleasesWhatIsLeft)
{
    start();
    keep_block(0x0102, 1);
    EXPECT_EQ(gorvaNet_delBase(), 1u);
    EXPECT_EQ(take_log(), LogLines{ntfy_kept(0x0102, 1)});
    take_calls();
    answer("zebCore_putBase_msgMngt", 0);
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    EXPECT_EQ(calls_made(), Calls{releases(0x0102)});
    EXPECT_EQ(frame(), Frame{});
}

TEST_F(DelBase, AnInterfaceWhoseFlagIsClearIsSkipped)
{
    start();
    gorvaNet_base.flags = 2;
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    EXPECT_EQ(calls_made(), Calls{releases(0x0102)});
    EXPECT_EQ(frame(), (Frame{.cmd = 0x0101, .ntfy = 0xffff, .flags = 0, .state = 0}));

    SetUp();
    start();
    gorvaNet_base.flags = 1;
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    EXPECT_EQ(calls_made(), Calls{releases(0x0101)});
    EXPECT_EQ(frame(), (Frame{.cmd = 0xffff, .ntfy = 0x0102, .flags = 0, .state = 0}));
}

TEST_F(DelBase, WithBothFlagsClearOnlyTheStateChanges)
{
    start();
    gorvaNet_base.flags = 0;
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    EXPECT_EQ(frame(), (Frame{.cmd = 0x0101, .ntfy = 0x0102, .flags = 0, .state = 0}));
}

TEST_F(DelBase, TheFlagsDecideAndNotTheNumbers)
{
    start();
    gorvaNet_base.cmd.num = 0xffff;
    gorvaNet_base.ntfy.count = 0;
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    EXPECT_EQ(calls_made(), (Calls{releases(0xffff), releases(0x0102)}));
    EXPECT_EQ(frame(), Frame{});
}

TEST_F(DelBase, OtherBitsOfTheFlagsStay)
{
    start();
    gorvaNet_base.flags = 0xff;
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    EXPECT_EQ(calls_made(), (Calls{releases(0x0101), releases(0x0102)}));
    EXPECT_EQ(frame(), (Frame{.cmd = 0xffff, .ntfy = 0xffff, .flags = 0xfc, .state = 0}));
}

TEST_F(DelBase, TheCommandInterfaceIsOutOfTheBooksBeforeTheOtherIsReleased)
{
    start();
    Frame found{};
    answer("zebCore_putBase_msgMngt", [&](const Words &) {
        found = frame();
        return 0;
    });
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    EXPECT_EQ(found, (Frame{.cmd = 0xffff, .ntfy = 0x0102, .flags = 2, .state = 1}));
    take_calls();
}

TEST_F(DelBase, TheEventLoopHookIsMadeAgainByTheNextStart)
{
    start();
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    EXPECT_EQ(calls_made(), (Calls{releases(0x0101), releases(0x0102)})) << "the hook is not undone";
    EXPECT_EQ(gorvaNet_addBase(), 0u);
    EXPECT_EQ(calls_made(), (Calls{asks_for_cmd(), asks_for_ntfy(), hooks_event_loop()}));
    EXPECT_EQ(frame(), (Frame{.cmd = 0x0103, .ntfy = 0x0104, .flags = 3, .state = 1}));
}

TEST_F(DelBase, EachMessageCarriesTheLineOfItsOwnStep)
{
    LogLines lines;
    auto del_with = [&](auto prepare) {
        SetUp();
        start();
        prepare();
        gorvaNet_delBase();
        take_calls();
        LogLines more = take_log();
        ASSERT_EQ(more.size(), 1u);
        lines.push_back(more[0]);
    };
    auto drop_while_releasing = [](uintptr_t number, auto drop) {
        answer("zebCore_putBase_msgMngt", [=](const Words &words) {
            if (words[0] == number)
                drop();
            return 0;
        });
    };
    del_with([] { gorvaNet_base.state = 2; });
    del_with([] { keep_block(0x0101, 1); });
    del_with([&] { drop_while_releasing(0x0101, [] { gorvaNet_base.flags = 2; }); });
    del_with([] { keep_block(0x0102, 1); });
    del_with([&] { drop_while_releasing(0x0102, [] { gorvaNet_base.flags = 0; }); });
    del_with([&] { drop_while_releasing(0x0102, [] { gorvaNet_base.state = 0; }); });
    EXPECT_EQ(lines.size(), 6u);
    EXPECT_GT(lines[0].line, 0);
    EXPECT_TRUE(lines_ascend(lines));
}
