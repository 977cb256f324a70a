#include "abort.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>

TEST(Abort, IsSeenWhereItIsExpected)
{
    EXPECT_TRUE(aborts([] { abort(); }));
    EXPECT_FALSE(abort_expected);
}

TEST(Abort, IsNotSeenWhereNothingAborts)
{
    EXPECT_FALSE(aborts([] {}));
    EXPECT_FALSE(abort_expected);
}

TEST(Abort, LeavesTheCallAtOnce)
{
    static bool behind;
    behind = false;
    EXPECT_TRUE(aborts([] {
        abort();
        behind = true;
    }));
    EXPECT_FALSE(behind);
}

TEST(Abort, EndsTheProcessWhereItIsNotExpected)
{
    EXPECT_EXIT(abort(), testing::KilledBySignal(SIGABRT), "");
}
