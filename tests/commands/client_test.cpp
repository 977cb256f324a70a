// The client's side of every command: sending the request, and taking the response.

#include "commands/method.h"

#include <cstdlib>

namespace {

using Receiver = void(void *ignored, void *context, void *body);

// ---- Sending --------------------------------------------------------------------------------------------------------

class SendTest : public MethodTest {
protected:
    void SetUp() override
    {
        MethodTest::SetUp();
        gorvaNet_base.cmd.num = 0x1234;
    }

    uint32_t send(gorvaNet_function *callback)
    {
        return method().send(user, callback, pass1, pass2, server);
    }

    // The call that hands `body` over. The receiver is whatever it is, but it is there.
    Call hand_over(const Words &words, uintptr_t number) const
    {
        bool answered = method().answered();
        return {"zebCore_sendMsgReq_toNameUser",
                {word(core_user), words.at(1), answered ? words.at(2) : 0, answered ? word(method().callback) : 0,
                 answered ? word(pass1) : 0, word(pass2), word(server), number, method().index, 0xffff, 18}};
    }

    // Takes the two calls of a request that was sent; gives the words of the second.
    static Words take_sent()
    {
        Calls calls = take_calls();
        EXPECT_EQ(calls.size(), 2u);
        EXPECT_EQ(calls.at(0), (Call{"zebIntf_getCore_user", {word(user)}}));
        EXPECT_EQ(calls.at(1).words.size(), 11u);
        return calls.at(1).words;
    }
};

TEST_P(SendTest, HandsTheRequestOverWithAllArguments)
{
    send(method().callback);
    Calls calls = take_calls();
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(calls[0], (Call{"zebIntf_getCore_user", {word(user)}}));
    EXPECT_EQ(calls[1], hand_over(calls[1].words, 0x1234));
    EXPECT_EQ(calls[1].words[2] != 0, method().answered());
    free(reinterpret_cast<void *>(calls[1].words[1]));
}

TEST_P(SendTest, WithoutACallbackThereIsNoReceiver)
{
    send(nullptr);
    Words words = take_sent();
    // All else is as with a callback.
    Words expected = hand_over(words, 0x1234).words;
    expected[2] = 0;
    expected[3] = 0;
    EXPECT_EQ(words, expected);
    free(reinterpret_cast<void *>(words[1]));
}

TEST_P(SendTest, TheBodyHoldsTheArgumentsAndZerosElsewhere)
{
    send(method().callback);
    auto *body = reinterpret_cast<void *>(take_sent()[1]);
    ASSERT_EQ(size_of_block(body), method().request.image.size());
    EXPECT_EQ(contents(body, size_of_block(body)), method().request.image);
    free(body);
}

TEST_P(SendTest, NullUsersAndPassThroughValuesAndAnEmptyServerNameArePassedOn)
{
    method().send(nullptr, method().callback, nullptr, nullptr, "");
    Calls calls = take_calls();
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(calls[0], (Call{"zebIntf_getCore_user", {0}}));
    Words words = calls[1].words;
    Words expected = hand_over(words, 0x1234).words;
    expected[0] = 0x1000; // what the bus answers
    expected[4] = 0;
    expected[5] = 0;
    expected[6] = words.at(6);
    EXPECT_EQ(words, expected);
    EXPECT_STREQ(reinterpret_cast<const char *>(words[6]), "");
    free(reinterpret_cast<void *>(words[1]));
}

TEST_P(SendTest, TheBodyIsCompleteWhenItIsHandedOverAndLeftAloneFromThenOn)
{
    Bytes held;
    take_over("zebCore_sendMsgReq_toNameUser", held);
    send(method().callback);
    EXPECT_EQ(held, method().request.image);
    expect_left_alone();
}

TEST_P(SendTest, ReadsTheNumberAtEachCall)
{
    gorvaNet_base.cmd.num = 0xfffe;
    send(nullptr);
    Words words = take_sent();
    EXPECT_EQ(words[7], 0xfffeu);
    free(reinterpret_cast<void *>(words[1]));

    gorvaNet_base.cmd.num = 0;
    send(nullptr);
    words = take_sent();
    EXPECT_EQ(words[7], 0u);
    free(reinterpret_cast<void *>(words[1]));
}

TEST_P(SendTest, BeforeTheStartTheNumberIs0xffff)
{
    gorvaNet_base.cmd.num = GORVANET_NUM_NONE;
    send(nullptr);
    Words words = take_sent();
    EXPECT_EQ(words[7], 0xffffu);
    free(reinterpret_cast<void *>(words[1]));
}

TEST_P(SendTest, ReturnsWhatTheMiddlewareReturns)
{
    for (uintptr_t result : {0u, 1u, 20u, 0x80000000u, 0xffffffffu}) {
        answer("zebCore_sendMsgReq_toNameUser", result);
        EXPECT_EQ(send(method().callback), result);
        free(sent_body());
    }
}

TEST_P(SendTest, AfterAFailedSendTheMiddlewareOwnsTheBody)
{
    answer("zebCore_sendMsgReq_toNameUser", 5);
    EXPECT_EQ(send(nullptr), 5u);
    void *body = sent_body();
    EXPECT_EQ(take_freed().size(), 0u);
    EXPECT_EQ(live_blocks(), std::vector<void *>{body});
    free(body);
}

TEST_P(SendTest, WithoutAServerNothingIsSent)
{
    EXPECT_EQ(method().send(user, method().callback, pass1, pass2, nullptr), 0u);
    EXPECT_EQ(take_log(), LogLines{logged(3, function("sendReq").c_str(), "user(%p): UserName Null\n", user)});
    EXPECT_EQ(allocations(), 0u);
}

TEST_P(SendTest, WithoutAServerOrAUserTheLogShowsNil)
{
    EXPECT_EQ(method().send(nullptr, method().callback, pass1, pass2, nullptr), 0u);
    void *nobody = nullptr;
    EXPECT_EQ(take_log(), LogLines{logged(3, function("sendReq").c_str(), "user(%p): UserName Null\n", nobody)});
}

TEST_P(SendTest, WithoutMemoryNothingIsSent)
{
    refuse_allocation(1, true);
    EXPECT_EQ(send(method().callback), 0u);
    EXPECT_EQ(take_log(), LogLines{logged(3, function("sendReq").c_str(), "Allocating Memory Ctx[%s]\n", "")});
    EXPECT_EQ(allocations(), 1u);
}

INSTANTIATE_TEST_SUITE_P(Commands, SendTest, testing::ValuesIn(methods()), name_of_method);

// ---- Taking the response --------------------------------------------------------------------------------------------

class ReceiveResponseTest : public MethodTest {
protected:
    void SetUp() override
    {
        MethodTest::SetUp();
        body = method().response.image;
        // The receiver is not exported: the middleware knows it from the request.
        method().send(user, method().callback, pass1, pass2, server);
        Words words = take_calls().back().words;
        free(reinterpret_cast<void *>(words[1]));
        receiver = reinterpret_cast<Receiver *>(words[2]);
        ASSERT_NE(receiver, nullptr);
    }

    LogLine magic_line(uint32_t found)
    {
        return logged(0, function("recvRes").c_str(), "Check Magic[%s-%X] Ctx[ptr(%p) magic(%X)] text[%s]\n",
                      method().magic_name.c_str(), method().magic, static_cast<void *>(body.data()), found, "");
    }

    Receiver *receiver = nullptr;
    Words context = {word(method().callback), word(data), untouched};
    Bytes body;
    void *const ignored = reinterpret_cast<void *>(1);
};

TEST_P(ReceiveResponseTest, CallsTheCallbackWithTheContextAndItsUserData)
{
    receiver(ignored, context.data(), body.data());
    Words expected = {word(context.data()), word(data)};
    Words passed = method().response.passed(word(body.data()));
    expected.insert(expected.end(), passed.begin(), passed.end());
    EXPECT_EQ(take_heard(), std::vector<Words>{expected});
    EXPECT_EQ(body, method().response.image);
    EXPECT_EQ(take_freed().size(), 0u);
}

TEST_P(ReceiveResponseTest, WithoutUserDataTheCallbackGetsNone)
{
    context[1] = 0;
    receiver(nullptr, context.data(), body.data());
    auto heard = take_heard();
    ASSERT_EQ(heard.size(), 1u);
    EXPECT_EQ(heard[0].at(1), 0u);
}

TEST_P(ReceiveResponseTest, RefusesANullBody)
{
    receiver(ignored, context.data(), nullptr);
    EXPECT_EQ(take_log(), LogLines{logged(3, function("recvRes").c_str(), "Ctx[NULL] text[%s]\n", "")});
}

TEST_P(ReceiveResponseTest, ANullBodyWithoutACallbackIsNotAnswered)
{
    context[0] = 0;
    receiver(ignored, context.data(), nullptr);
    EXPECT_EQ(take_log(), LogLines{logged(3, function("recvRes").c_str(), "Ctx[NULL] text[%s]\n", "")});
}

// No context is needed to find these faults.
TEST_P(ReceiveResponseTest, LooksAtTheBodyBeforeTheContext)
{
    receiver(ignored, nullptr, nullptr);
    EXPECT_EQ(take_log(), LogLines{logged(3, function("recvRes").c_str(), "Ctx[NULL] text[%s]\n", "")});

    const uint32_t found = method().magic ^ 1;
    set_magic(body.data(), found);
    EXPECT_TRUE(aborts([this] { receiver(ignored, nullptr, body.data()); }));
    EXPECT_EQ(take_log(), LogLines{magic_line(found)});
}

TEST_P(ReceiveResponseTest, AbortsOnAForeignMagic)
{
    const uint32_t found = method().magic ^ 1;
    set_magic(body.data(), found);
    EXPECT_TRUE(aborts([this] { receiver(ignored, context.data(), body.data()); }));
    EXPECT_EQ(take_log(), LogLines{magic_line(found)});
}

TEST_P(ReceiveResponseTest, AbortsOnAForeignMagicBeforeItLooksForTheCallback)
{
    const uint32_t found = method().magic ^ 0x80000000;
    set_magic(body.data(), found);
    context[0] = 0;
    EXPECT_TRUE(aborts([this] { receiver(ignored, context.data(), body.data()); }));
    EXPECT_EQ(take_log(), LogLines{magic_line(found)});
}

TEST_P(ReceiveResponseTest, WithoutACallbackAnswersStatus20)
{
    context[0] = 0;
    receiver(ignored, context.data(), body.data());
    EXPECT_EQ(take_calls(), (Calls{{"zebCore_sendMsgRes", {word(context.data()), word(body.data()), 20, 18}}}));
    EXPECT_EQ(take_freed().size(), 0u);
}

INSTANTIATE_TEST_SUITE_P(Commands, ReceiveResponseTest, testing::ValuesIn(answered_methods()), name_of_method);

} // namespace
