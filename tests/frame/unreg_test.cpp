// The two callbacks by which the middleware tells that it has dropped an interface.

#include "frame_test.h"

namespace {

class Unreg : public FrameTest {};

const char unreg_cmd[] = "gorvaNet_cbEvtMsgMngt_unreg_msgCmd";
const char unreg_ntfy[] = "gorvaNet_cbEvtMsgMngt_unreg_msgNtfy";

LogLine unknown_number(const char *function, int number)
{
    return logged(3, function, "Message management(%d) unknown\n", number);
}

LogLine flag_clear_already(const char *function, const char *name, uint32_t flag, uint32_t found)
{
    return logged(4, function, "Unset Flag[%s-%X] in ctx(%p) not set[%X] text[%s]\n", name, flag,
                  static_cast<void *>(&gorvaNet_base), found, "");
}

} // namespace

TEST_F(Unreg, ClearsTheFlagOfItsInterfaceAndLeavesTheNumber)
{
    start();
    gorvaNet_cbEvtMsgMngt_unreg_msgCmd(0x0101);
    EXPECT_EQ(frame(), (Frame{.cmd = 0x0101, .ntfy = 0x0102, .flags = 2, .state = 1}));
    EXPECT_EQ(gorvaNet_getCmdIntfNum(), 0x0101);
    gorvaNet_cbEvtMsgMngt_unreg_msgNtfy(0x0102);
    EXPECT_EQ(frame(), (Frame{.cmd = 0x0101, .ntfy = 0x0102, .flags = 0, .state = 1}));
    EXPECT_EQ(gorvaNet_getNtfyIntfNum(), 0x0102);
}

TEST_F(Unreg, OnlyTheBitOfTheInterfaceIsCleared)
{
    start();
    gorvaNet_base.flags = 0xff;
    gorvaNet_cbEvtMsgMngt_unreg_msgCmd(0x0101);
    EXPECT_EQ(frame().flags, 0xfeu);
    gorvaNet_cbEvtMsgMngt_unreg_msgNtfy(0x0102);
    EXPECT_EQ(frame().flags, 0xfcu);
}

TEST_F(Unreg, ASecondTimeIsAWarning)
{
    start();
    gorvaNet_cbEvtMsgMngt_unreg_msgCmd(0x0101);
    gorvaNet_cbEvtMsgMngt_unreg_msgCmd(0x0101);
    EXPECT_EQ(take_log(), LogLines{flag_clear_already(unreg_cmd, "GORVANET_FLAGS_BASE_REG_CMD", 1, 2)});
    gorvaNet_cbEvtMsgMngt_unreg_msgNtfy(0x0102);
    gorvaNet_cbEvtMsgMngt_unreg_msgNtfy(0x0102);
    EXPECT_EQ(take_log(), LogLines{flag_clear_already(unreg_ntfy, "GORVANET_FLAGS_BASE_REG_NTFY", 2, 0)});
    EXPECT_EQ(frame(), (Frame{.cmd = 0x0101, .ntfy = 0x0102, .flags = 0, .state = 1}));
}

TEST_F(Unreg, AnotherNumberIsUnknownAndChangesNothing)
{
    start();
    BaseWords before = words_of_base();
    for (uint16_t number : std::initializer_list<uint16_t>{0, 1, 0x0100, 0x8101, 0xffff}) {
        gorvaNet_cbEvtMsgMngt_unreg_msgCmd(number);
        EXPECT_EQ(take_log(), LogLines{unknown_number(unreg_cmd, number)});
        gorvaNet_cbEvtMsgMngt_unreg_msgNtfy(number);
        EXPECT_EQ(take_log(), LogLines{unknown_number(unreg_ntfy, number)});
    }
    EXPECT_EQ(words_of_base(), before);
}

TEST_F(Unreg, TheNumberOfTheOtherInterfaceIsUnknown)
{
    start();
    gorvaNet_cbEvtMsgMngt_unreg_msgNtfy(0x0101);
    EXPECT_EQ(take_log(), LogLines{unknown_number(unreg_ntfy, 0x0101)});
    gorvaNet_cbEvtMsgMngt_unreg_msgCmd(0x0102);
    EXPECT_EQ(take_log(), LogLines{unknown_number(unreg_cmd, 0x0102)});
    EXPECT_EQ(frame(), started);
}

TEST_F(Unreg, BeforeTheStartFfffIsTheNumberAndItsFlagIsClear)
{
    gorvaNet_cbEvtMsgMngt_unreg_msgCmd(0xffff);
    EXPECT_EQ(take_log(), LogLines{flag_clear_already(unreg_cmd, "GORVANET_FLAGS_BASE_REG_CMD", 1, 0)});
    gorvaNet_cbEvtMsgMngt_unreg_msgNtfy(0xffff);
    EXPECT_EQ(take_log(), LogLines{flag_clear_already(unreg_ntfy, "GORVANET_FLAGS_BASE_REG_NTFY", 2, 0)});
    EXPECT_EQ(frame(), Frame{});
}

TEST_F(Unreg, NeitherMagicNorStateMatters)
{
    start();
    gorvaNet_base.magic = 0;
    gorvaNet_base.state = 0x55;
    gorvaNet_cbEvtMsgMngt_unreg_msgCmd(0x0101);
    gorvaNet_cbEvtMsgMngt_unreg_msgNtfy(0x0102);
    EXPECT_EQ(frame(), (Frame{.cmd = 0x0101, .ntfy = 0x0102, .flags = 0, .state = 0x55}));
}

TEST_F(Unreg, ALaterReleaseSkipsTheInterfaceWhoseNumberStaysForGood)
{
    start();
    gorvaNet_cbEvtMsgMngt_unreg_msgCmd(0x0101);
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    EXPECT_EQ(calls_made(), Calls{releases(0x0102)});
    EXPECT_EQ(frame(), (Frame{.cmd = 0x0101, .ntfy = 0xffff, .flags = 0, .state = 0}));
    EXPECT_EQ(gorvaNet_getCmdIntfNum(), 0x0101);

    SetUp();
    start();
    gorvaNet_cbEvtMsgMngt_unreg_msgNtfy(0x0102);
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    EXPECT_EQ(calls_made(), Calls{releases(0x0101)});
    EXPECT_EQ(gorvaNet_getNtfyIntfNum(), 0x0102);
}

TEST_F(Unreg, TheUserFunctionsKeepUsingTheOldNumber)
{
    start();
    gorvaNet_cbEvtMsgMngt_unreg_msgCmd(0x0101);
    gorvaNet_cbEvtMsgMngt_unreg_msgNtfy(0x0102);
    EXPECT_EQ(gorvaNet_regUser_msgMngt(nullptr, nullptr, nullptr, 0), 0u);
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(nullptr, 0), 0);
    EXPECT_EQ(calls_made(), (Calls{{"zebIntf_regUser_msgMngt", {0, 0, 0, 0x0101, 0xffff, 0}},
                                   {"zebIntf_regUser_msgMngt", {0, 0, 0, 0x0102, 0xffff, 0}},
                                   {"zebIntf_unregUser_msgMngt", {0, 0x0101, 0xffff, 0}},
                                   {"zebIntf_unregUser_msgMngt", {0, 0x0102, 0xffff, 0}}}));
}

TEST_F(Unreg, ReachesTheCallbacksThatTheBlocksHold)
{
    start();
    reinterpret_cast<gorvaNet_unreg *>(blocks()[0][1])(0x0101);
    EXPECT_EQ(frame().flags, 2u);
    reinterpret_cast<gorvaNet_unreg *>(blocks()[1][1])(0x0102);
    EXPECT_EQ(frame().flags, 0u);
}
