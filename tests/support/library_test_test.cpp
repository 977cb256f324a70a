// A test that leaves anything untaken fails, and the next one starts afresh.

#include "library_test.h"

#include <cstdlib>
#include <cstring>
#include <gtest/gtest-spi.h>
#include <syslog.h>

namespace {

class Probe : public LibraryTest {
public:
    using LibraryTest::SetUp;
    using LibraryTest::TearDown;

    void TestBody() override
    {
    }
};

void leave_block()
{
    char *text = nullptr;
    gorvaNet_cbEvtMsgMngt_logBody_msgCmd_setOsIfc(0, nullptr, 0, &text);
}

} // namespace

TEST(EveryTest, PassesWhenNothingIsLeft)
{
    Probe probe;
    probe.SetUp();
    probe.TearDown();
}

TEST(EveryTest, FailsWithALogLineLeft)
{
    Probe probe;
    probe.SetUp();
    gorvaNet_cbEvtBase(nullptr, 1);
    EXPECT_NONFATAL_FAILURE(probe.TearDown(), "log lines that the test did not expect");
}

TEST(EveryTest, FailsWithALogLineOfAnotherFormLeft)
{
    Probe probe;
    probe.SetUp();
    syslog(3, "another form");
    EXPECT_NONFATAL_FAILURE(probe.TearDown(), "log lines that the test did not expect");
}

TEST(EveryTest, FailsWithACallOfTheBusLeft)
{
    Probe probe;
    probe.SetUp();
    gorvaNet_findSrvMthdNtfyUser(nullptr, nullptr, 0, nullptr);
    EXPECT_NONFATAL_FAILURE(probe.TearDown(), "calls of the bus that the test did not expect");
}

TEST(EveryTest, FailsWithABlockLeft)
{
    Probe probe;
    probe.SetUp();
    leave_block();
    void *block = live_blocks().at(0);
    EXPECT_NONFATAL_FAILURE(probe.TearDown(), "blocks that nobody released");
    free(block);
}

TEST(EveryTest, StartsAfresh)
{
    Probe probe;
    probe.SetUp();
    gorvaNet_base.state = 1;
    gorvaNet_base.flags = 3;
    gorvaNet_base.name = "changed";
    gorvaNet_base.cmdMethods[3].index = 77;
    answer("zebIntf_findSrvMthdNtfyUser", 99);
    refuse_allocation(1, true);
    static const char text[] = "abc";
    pretend_length(text, 77);
    gorvaNet_cbEvtBase(nullptr, 1);
    probe.SetUp();
    EXPECT_EQ(gorvaNet_base.state, 0);
    EXPECT_EQ(gorvaNet_base.flags, 0);
    EXPECT_STREQ(gorvaNet_base.name, "GorvaNet");
    EXPECT_EQ(gorvaNet_base.cmdMethods[3].index, 3u);
    EXPECT_EQ(gorvaNet_findSrvMthdNtfyUser(nullptr, nullptr, 0, nullptr), 0u);
    take_calls();
    EXPECT_EQ(strlen(text), 3u);
    EXPECT_EQ(take_log(), LogLines{});
    leave_block();
    ASSERT_EQ(live_blocks().size(), 1u);
    free(live_blocks().at(0));
    probe.TearDown();
}
