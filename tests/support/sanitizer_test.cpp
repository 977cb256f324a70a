// In a sanitizer build, mistakes with the library's memory are seen although the test process stands between the
// library and the allocator. A build without sanitizers has nothing to prove here.

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <sys/wait.h>

namespace {

struct Outcome {
    int status = -1; // of waitpid
    std::string output;

    bool succeeded() const
    {
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }
};

// Runs the canary in a process of its own.
Outcome canary(const char *deed)
{
    Outcome outcome;
    std::string command = std::string("'" SANITIZER_CANARY "' ") + deed + " 2>&1";
    FILE *output = popen(command.c_str(), "r");
    if (!output)
        return outcome;
    char text[4096];
    for (size_t size = fread(text, 1, sizeof text, output); size > 0; size = fread(text, 1, sizeof text, output))
        outcome.output.append(text, size);
    outcome.status = pclose(output);
    return outcome;
}

class Sanitizer : public testing::Test {
protected:
    void SetUp() override
    {
        if (!SANITIZED)
            GTEST_SKIP() << "built without sanitizers";
    }

    static void expect_report(const char *deed, const std::string &report)
    {
        Outcome outcome = canary(deed);
        EXPECT_FALSE(outcome.succeeded());
        EXPECT_NE(outcome.output.find(report), std::string::npos) << outcome.output;
    }
};

} // namespace

TEST(Canary, DoesNothingWrongWhenItShouldNot)
{
    Outcome outcome = canary("nothing");
    EXPECT_TRUE(outcome.succeeded());
    EXPECT_EQ(outcome.output, "");
}

TEST_F(Sanitizer, ReportsAByteWrittenBehindABufferOfTheLibrary)
{
    expect_report("write-behind", "heap-buffer-overflow");
}

TEST_F(Sanitizer, ReportsAByteReadBehindABodyOfTheLibrary)
{
    expect_report("read-behind", "heap-buffer-overflow");
}

TEST_F(Sanitizer, ReportsTheUseOfABodyThatTheLibraryHasFreed)
{
    expect_report("use-after-free", "heap-use-after-free");
}

TEST_F(Sanitizer, ReportsABodyThatIsFreedTwice)
{
    expect_report("double-free", "heap-use-after-free");
}

TEST_F(Sanitizer, ReportsTheLibraryReadingBehindWhatItWasGiven)
{
    expect_report("cut-buffer", "heap-buffer-overflow");
}

TEST_F(Sanitizer, ReportsBuffersOfTheLibraryThatNobodyFrees)
{
    expect_report("leak", "detected memory leaks");
}
