// The bus answers 0, 1, -1 and 0xffff to every call that a command makes, in every combination: what is called, what is
// logged, what is returned, and whose the bodies are.

#include "commands/method.h"

#include <cstdlib>

namespace {

constexpr uintptr_t answers[] = {0, 1, 0xffffffff, 0xffff};

class BusFaultsTest : public MethodTest {
protected:
    // Sends the sample, and takes the calls.
    uint32_t send(gorvaNet_function *callback)
    {
        uint32_t result = method().send(user, callback, pass1, pass2, server);
        calls = take_calls();
        EXPECT_EQ(calls.size(), 2u);
        return result;
    }

    // The body that was handed over is whole, and the library has nothing else; releases it.
    static void expect_only(void *body, const Bytes &image)
    {
        EXPECT_EQ(live_blocks(), std::vector<void *>{body});
        ASSERT_EQ(size_of_block(body), image.size());
        EXPECT_EQ(contents(body, image.size()), image);
        EXPECT_EQ(take_freed().size(), 0u);
        free(body);
    }

    Calls calls;
};

TEST_P(BusFaultsTest, WhenARequestIsSent)
{
    const bool answered = method().answered();
    for (uintptr_t sender : answers)
        for (uintptr_t result : answers)
            for (gorvaNet_function *callback : {method().callback, static_cast<gorvaNet_function *>(nullptr)}) {
                answer("zebIntf_getCore_user", sender);
                answer("zebCore_sendMsgReq_toNameUser", result);
                EXPECT_EQ(send(callback), result);
                const Words words = calls.at(1).words;
                EXPECT_EQ(calls[0], (Call{"zebIntf_getCore_user", {word(user)}}));
                EXPECT_EQ(calls[1], (Call{"zebCore_sendMsgReq_toNameUser",
                                          {sender, words.at(1), words.at(2), answered ? word(callback) : 0,
                                           answered ? word(pass1) : 0, word(pass2), word(server), 0xffff,
                                           method().index, 0xffff, 18}}));
                EXPECT_EQ(words.at(2) != 0, answered && callback);
                expect_only(reinterpret_cast<void *>(words[1]), method().request.image);
            }
}

TEST_P(BusFaultsTest, WhenTheMethodIsAccepted)
{
    using Accept = int32_t(void *, gorvaNet_function *, void *, void *);
    auto *accept = exported<Accept>(function("modSrv_recvMsg"));
    for (uintptr_t result : answers) {
        answer("zebIntf_modSrv_mthd", result);
        auto status = static_cast<int32_t>(result);
        EXPECT_EQ(accept(user, method().handler, data, value3), status);
        EXPECT_EQ(take_calls(), (Calls{{"zebIntf_modSrv_mthd",
                                        {word(user), word(method().handler), word(data), word(value3),
                                         method().accept_magic, word(gorvaNet_base.name), word(&gorvaNet_base.cmd),
                                         word(&gorvaNet_base.ntfy), method().index, 0xffff, 0xffff}}}));
        LogLines expected;
        if (status)
            expected = {
                logged(3, function("modSrv_recvMsg").c_str(), "user(%p): ModCliNtfyUser failed(%d)\n", user, status)};
        EXPECT_EQ(take_log(), expected);
    }
}

INSTANTIATE_TEST_SUITE_P(Commands, BusFaultsTest, testing::ValuesIn(methods()), name_of_method);

class AnswerFaultsTest : public BusFaultsTest {};

TEST_P(AnswerFaultsTest, WhenARequestIsAnswered)
{
    for (uintptr_t unwanted : answers)
        for (uintptr_t result : answers) {
            answer("zebCore_isMsg_needRes", unwanted);
            answer("zebCore_sendMsgRes", result);
            method().respond(message);
            calls = take_calls();
            ASSERT_EQ(calls.size(), unwanted ? 1u : 2u);
            EXPECT_EQ(calls[0], (Call{"zebCore_isMsg_needRes", {word(message)}}));
            if (unwanted) {
                EXPECT_EQ(live_blocks(), std::vector<void *>{});
                continue;
            }
            uintptr_t body = calls[1].words.at(1);
            EXPECT_EQ(calls[1], (Call{"zebCore_sendMsgRes", {word(message), body, 0, 18}}));
            expect_only(reinterpret_cast<void *>(body), method().response.image);
        }
}

TEST_P(AnswerFaultsTest, WhenNobodyTakesAnAnswer)
{
    using Receiver = void(void *ignored, void *context, void *body);
    send(method().callback);
    auto *receiver = reinterpret_cast<Receiver *>(calls.at(1).words.at(2));
    free(reinterpret_cast<void *>(calls[1].words.at(1)));
    for (uintptr_t result : answers) {
        answer("zebCore_sendMsgRes", result);
        Words context = {0, word(data)};
        Bytes body = method().response.image;
        receiver(nullptr, context.data(), body.data());
        EXPECT_EQ(take_calls(), (Calls{{"zebCore_sendMsgRes", {word(context.data()), word(body.data()), 20, 18}}}));
        EXPECT_EQ(context, (Words{0, word(data)}));
        EXPECT_EQ(body, method().response.image);
        EXPECT_EQ(take_freed().size(), 0u);
    }
}

INSTANTIATE_TEST_SUITE_P(Commands, AnswerFaultsTest, testing::ValuesIn(answered_methods()), name_of_method);

} // namespace
