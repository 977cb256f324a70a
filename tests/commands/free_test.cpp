// freeBody of every method.

#include "commands/method.h"

#include <csignal>
#include <cstdlib>
#include <sys/wait.h>

namespace {

// Ended by a fault, as the kernel or a sanitizer reports it, and not by an abort that a check would have made.
bool faults(int status)
{
    return status != 0 && !(WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT);
}

class FreeTest : public BodyTest {
protected:
    void SetUp() override
    {
        BodyTest::SetUp();
        body = callbacks->decoded();
        ASSERT_NE(body, nullptr);
    }

    void TearDown() override
    {
        free(body);
        BodyTest::TearDown();
    }

    void call(void *given)
    {
        callbacks->free_body(GetParam().type, given);
    }

    void set_flag(uint16_t flag)
    {
        *reinterpret_cast<uint16_t *>(static_cast<char *>(body) + 4) = flag;
    }

    LogLine magic_line(uint32_t found)
    {
        return logged(0, callbacks->log_name("freeBody").c_str(),
                      "Check Magic[%s-%X] Ctx[ptr(%p) magic(%X)] text[%s]\n", method().magic_name.c_str(),
                      method().magic, body, found, "");
    }

    // Requests of commands have their magic checked before their flag; all other bodies the other way round.
    bool magic_first() const
    {
        return method().null_request_checked && GetParam().type == GORVANET_BODY_REQUEST;
    }

    void *body = nullptr;
};

TEST_P(FreeTest, OverwritesTheMagicAndReleasesTheBody)
{
    call(body);
    auto freed = take_freed();
    ASSERT_EQ(freed.size(), 1u);
    EXPECT_EQ(freed[0].block, body);
    EXPECT_EQ(freed[0].size, sample().image.size());
    EXPECT_EQ(freed[0].words[0], 0xdeadbeefu);
    body = nullptr;
}

TEST_P(FreeTest, LeavesABodyWithASetFlagAlone)
{
    for (unsigned flag : {0x1u, 0x100u, 0x8000u, 0xffffu}) {
        set_flag(static_cast<uint16_t>(flag));
        call(body);
        EXPECT_EQ(take_freed().size(), 0u);
        set_flag(0);
        EXPECT_EQ(contents(body, size_of_block(body)), sample().image);
    }
}

TEST_P(FreeTest, AbortsOnAForeignMagic)
{
    uint32_t foreign = method().magic ^ 0x10000;
    set_magic(body, foreign);
    EXPECT_TRUE(aborts([this] { call(body); }));
    EXPECT_EQ(take_log(), LogLines{magic_line(foreign)});
    EXPECT_EQ(take_freed().size(), 0u);
    EXPECT_EQ(*static_cast<uint32_t *>(body), foreign);
}

TEST_P(FreeTest, AbortsOnABodyThatIsOnItsWayToFreeAlready)
{
    set_magic(body, 0xdeadbeef);
    EXPECT_TRUE(aborts([this] { call(body); }));
    EXPECT_EQ(take_log(), LogLines{magic_line(0xdeadbeef)});
}

TEST_P(FreeTest, ForAForeignMagicWithASetFlagTheOrderOfTheChecksCounts)
{
    set_magic(body, 1);
    set_flag(1);
    EXPECT_EQ(aborts([this] { call(body); }), magic_first());
    EXPECT_EQ(take_log(), magic_first() ? LogLines{magic_line(1)} : LogLines{});
    EXPECT_EQ(take_freed().size(), 0u);
}

TEST_P(FreeTest, OnlyTheRequestOfACommandMayBeNull)
{
    if (!magic_first()) {
        EXPECT_EXIT(call(nullptr), faults, "");
        return;
    }
    call(nullptr);
    EXPECT_EQ(take_log(), LogLines{logged(3, callbacks->log_name("freeBody").c_str(), "Ctx[NULL] text[%s]\n", "")});
    EXPECT_EQ(take_freed().size(), 0u);
}

INSTANTIATE_TEST_SUITE_P(Methods, FreeTest, testing::ValuesIn(bodies()), name_of_body);

} // namespace
