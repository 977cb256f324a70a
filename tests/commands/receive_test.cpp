// Receiving a request or a notification.

#include "commands/method.h"

namespace {

class ReceiveTest : public MethodTest {
protected:
    void receive(void *received, gorvaNet_function *handler)
    {
        exported<gorvaNet_recvReq>(name)(message, received, handler, data);
    }

    LogLine magic_line(uint32_t found)
    {
        return logged(0, name.c_str(), "Check Magic[%s-%X] Ctx[ptr(%p) magic(%X)] text[%s]\n",
                      method().magic_name.c_str(), method().magic, static_cast<void *>(body.data()), found, "");
    }

    const std::string name = "gorvaNet_recvReq_" + method().send_suffix;
    Bytes body = method().request.image;
};

TEST_P(ReceiveTest, CallsTheHandlerWithTheMessageAndItsData)
{
    receive(body.data(), method().handler);
    Words expected = {word(message), word(data)};
    Words passed = method().request.passed(word(body.data()));
    expected.insert(expected.end(), passed.begin(), passed.end());
    EXPECT_EQ(take_heard(), std::vector<Words>{expected});
}

TEST_P(ReceiveTest, TheHandlerOnlyBorrowsTheBody)
{
    receive(body.data(), method().handler);
    take_heard();
    EXPECT_EQ(body, method().request.image);
    EXPECT_EQ(take_freed().size(), 0u);
    EXPECT_EQ(allocations(), 0u);
}

TEST_P(ReceiveTest, RefusesANullBody)
{
    receive(nullptr, method().handler);
    EXPECT_EQ(take_log(), LogLines{logged(3, name.c_str(), "Ctx[NULL] text[%s]\n", "")});
}

TEST_P(ReceiveTest, ANullBodyWithoutAHandlerIsNotAnswered)
{
    receive(nullptr, nullptr);
    EXPECT_EQ(take_log(), LogLines{logged(3, name.c_str(), "Ctx[NULL] text[%s]\n", "")});
}

TEST_P(ReceiveTest, AbortsOnAForeignMagic)
{
    const uint32_t found = method().magic ^ 1;
    set_magic(body.data(), found);
    EXPECT_TRUE(aborts([this] { receive(body.data(), method().handler); }));
    EXPECT_EQ(take_log(), LogLines{magic_line(found)});
}

TEST_P(ReceiveTest, AbortsOnAForeignMagicBeforeItLooksForTheHandler)
{
    const uint32_t found = method().magic ^ 0x80000000;
    set_magic(body.data(), found);
    EXPECT_TRUE(aborts([this] { receive(body.data(), nullptr); }));
    EXPECT_EQ(take_log(), LogLines{magic_line(found)});
}

TEST_P(ReceiveTest, WithoutAHandlerAnswersStatus20WhateverBecomesOfTheAnswer)
{
    const Bytes before = body;
    for (uintptr_t result : {0u, 1u, 0xffffffffu, 0xffffu}) {
        answer("zebCore_sendMsgRes", result);
        receive(body.data(), nullptr);
        EXPECT_EQ(take_calls(), (Calls{{"zebCore_sendMsgRes", {word(message), word(body.data()), 20, 18}}}));
        EXPECT_EQ(body, before);
        EXPECT_EQ(take_freed().size(), 0u);
    }
}

INSTANTIATE_TEST_SUITE_P(Methods, ReceiveTest, testing::ValuesIn(methods()), name_of_method);

} // namespace
