#include "log.h"

#include <gtest/gtest.h>

#include <syslog.h>

namespace {

class Log : public testing::Test {
protected:
    void SetUp() override
    {
        take_log();
    }
};

} // namespace

TEST_F(Log, KeepsPriorityFormatFunctionLineAndText)
{
    syslog(4, "[GORVANET] -> %s(%d): number %d of %s\n", "some_function", 12, 3, "five");
    LogLines lines = take_log();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].priority, 4);
    EXPECT_EQ(lines[0].function, "some_function");
    EXPECT_EQ(lines[0].line, 12);
    EXPECT_EQ(lines[0].format, "[GORVANET] -> %s(%d): number %d of %s\n");
    EXPECT_EQ(lines[0].text, "number 3 of five\n");
}

TEST_F(Log, GivesEachLineOnce)
{
    syslog(3, "[GORVANET] -> %s(%d): a\n", "f", 1);
    syslog(3, "[GORVANET] -> %s(%d): b\n", "f", 2);
    EXPECT_EQ(take_log(), (LogLines{logged(3, "f", "a\n"), logged(3, "f", "b\n")}));
    EXPECT_EQ(take_log(), LogLines{});
}

TEST_F(Log, LinesDifferInEveryPartButTheLineNumber)
{
    LogLine line = logged(3, "f", "%d\n", 1);
    syslog(3, "[GORVANET] -> %s(%d): %d\n", "f", 77, 1);
    EXPECT_EQ(take_log().at(0), line);
    syslog(4, "[GORVANET] -> %s(%d): %d\n", "f", 77, 1);
    EXPECT_FALSE(take_log().at(0) == line) << "priority";
    syslog(3, "[GORVANET] -> %s(%d): %d\n", "g", 77, 1);
    EXPECT_FALSE(take_log().at(0) == line) << "function";
    syslog(3, "[GORVANET] -> %s(%d): %d\n", "f", 77, 2);
    EXPECT_FALSE(take_log().at(0) == line) << "argument";
    syslog(3, "[GORVANET] -> %s(%d): %u\n", "f", 77, 1u);
    EXPECT_FALSE(take_log().at(0) == line) << "format";
    syslog(3, "[GORVANET] -> %s(%d): 1\n", "f", 77);
    EXPECT_FALSE(take_log().at(0) == line) << "a finished text";
}

TEST_F(Log, ALineWithoutTheCommonBeginningEqualsNothingThatATestExpects)
{
    syslog(3, "a\n");
    EXPECT_FALSE(take_log().at(0) == logged(3, "", "a\n"));
}

TEST_F(Log, ALineWithoutASourceLineEqualsNothingThatATestExpects)
{
    syslog(3, "[GORVANET] -> %s(%d): a\n", "f", 0);
    syslog(3, "[GORVANET] -> %s(%d): a\n", "f", -1);
    for (const LogLine &line : take_log())
        EXPECT_FALSE(line == logged(3, "f", "a\n"));
}

TEST_F(Log, SeesLinesAscend)
{
    auto at = [](int line) {
        LogLine result = logged(3, "f", "a\n");
        result.line = line;
        return result;
    };
    EXPECT_TRUE(lines_ascend({}));
    EXPECT_TRUE(lines_ascend({at(1)}));
    EXPECT_TRUE(lines_ascend({at(1), at(2), at(9)}));
    EXPECT_FALSE(lines_ascend({at(1), at(1)}));
    EXPECT_FALSE(lines_ascend({at(1), at(3), at(2)}));
}
