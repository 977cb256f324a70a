// Answers that are refused: each with a clear message, and what came with it is released once.

#include "loopback_test.h"

namespace {

using AnswerMisuseTest = LoopbackTest;

TEST_F(AnswerMisuseTest, AnsweringTwiceFreesTheSecondBody)
{
    start();
    serve();
    void *message = nullptr;
    in_handler = [&](void *handed) { message = handed; };
    send();
    gorvanet_loopback_turn();
    seen.clear();
    zebCore_sendMsgRes(message, new_response(), answer_normal, send_options);
    expect_misuse("was answered already");
    EXPECT_EQ(ledger.freed[1], 2u);
    gorvanet_loopback_run();
    EXPECT_EQ(results.size(), 1u);
    seen.clear();
    zebCore_sendMsgRes(message, nullptr, answer_normal, send_options);
    expect_misuse("has ended already");
    EXPECT_NE(zebCore_isMsg_needRes(message), 0);
    EXPECT_TRUE(seen.empty()) << "asking about an answered message is no misuse";
}

TEST_F(AnswerMisuseTest, AnsweringAfterStatus20)
{
    start();
    serve(true);
    in_handler = [&](void *message) {
        zebCore_sendMsgRes(message, nullptr, answer_unhandled_message, send_options);
        EXPECT_NE(zebCore_isMsg_needRes(message), 0);
        EXPECT_EQ(count(GORVANET_LOOPBACK_MISUSE), 0u) << "status 20 needs no body";
        seen.clear();
        zebCore_sendMsgRes(message, new_response(), answer_normal, send_options);
    };
    send();
    gorvanet_loopback_run();
    expect_misuse("was answered already");
    EXPECT_EQ(ledger.freed[1], 1u);
    EXPECT_EQ(gorvanet_loopback_open_messages(), 0u);
}

TEST_F(AnswerMisuseTest, AnsweringUnknownMessages)
{
    start();
    int object = 0;
    void *never_given_out = reinterpret_cast<void *>(0x3fffffffu << 2 | 3u);
    for (void *message : {static_cast<void *>(nullptr), static_cast<void *>(&object), never_given_out, client}) {
        zebCore_sendMsgRes(message, nullptr, answer_normal, send_options);
        expect_misuse("is unknown");
        EXPECT_NE(zebCore_isMsg_needRes(message), 0);
        expect_misuse("zebCore_isMsg_needRes: message");
    }
}

TEST_F(AnswerMisuseTest, AnsweringWithoutABodyKeepsTheMessageOpen)
{
    start();
    serve(true);
    send();
    gorvanet_loopback_run();
    seen.clear();
    zebCore_sendMsgRes(deferred[0], nullptr, answer_normal, send_options);
    expect_misuse("no body");
    zebCore_sendMsgRes(deferred[0], nullptr, 19, send_options);
    expect_misuse("status 19 is unknown");
    answer_deferred();
    gorvanet_loopback_run();
    EXPECT_EQ(results, std::vector<uint32_t>{42});
}

TEST_F(AnswerMisuseTest, AnsweringAMessageThatWantsNoAnswer)
{
    start();
    serve(true);
    in_handler = [&](void *message) {
        seen.clear();
        zebCore_sendMsgRes(message, new_response(), answer_normal, send_options);
    };
    gorvaNet_sendReq_setOsIfc(client, nullptr, nullptr, nullptr, "service", "eth0");
    gorvanet_loopback_run();
    expect_misuse("wants no answer");
    EXPECT_EQ(ledger.freed[1], 1u);
}

TEST_F(AnswerMisuseTest, Status20WithAForeignBodyLeavesThatBodyAlone)
{
    start();
    serve(true);
    uint32_t foreign = 0;
    in_handler = [&](void *message) {
        seen.clear();
        zebCore_sendMsgRes(message, &foreign, answer_unhandled_message, send_options);
    };
    send();
    gorvanet_loopback_run();
    EXPECT_EQ(only(GORVANET_LOOPBACK_STATUS).status, 20u);
    expect_misuse("a body that is not the message's own");
    EXPECT_EQ(foreign, 0u);
}

// The body was on loan for the length of the receive function.
TEST_F(AnswerMisuseTest, Status20WithABodyThatIsFreedAlready)
{
    start();
    serve(true);
    static void *borrowed;
    gorvaNet_base.cmdMethods[0].recvReq = [](void *message, void *body, gorvaNet_function *function, void *data) {
        borrowed = body;
        gorvaNet_recvReq_setOsIfc(message, body, function, data);
    };
    send();
    gorvanet_loopback_run();
    seen.clear();
    zebCore_sendMsgRes(deferred[0], borrowed, answer_unhandled_message, send_options);
    EXPECT_EQ(only(GORVANET_LOOPBACK_STATUS).status, 20u);
    expect_misuse("a body that is not the message's own");
    EXPECT_EQ(ledger.freed[0], 2u);
}

TEST_F(AnswerMisuseTest, AnsweringWithTheRequestBodyDoesNotFreeItTwice)
{
    start();
    gorvaNet_base.cmdMethods[0].recvReq = [](void *message, void *body, gorvaNet_function *, void *) {
        zebCore_sendMsgRes(message, body, answer_normal, send_options);
    };
    serve(true);
    send();
    gorvanet_loopback_run();
    expect_misuse("the request body is no response");
    EXPECT_EQ(ledger.freed[0], 2u);
    EXPECT_EQ(ledger.freed_unseen, 0u);
}

TEST_F(AnswerMisuseTest, AnsweringARequestContextWithAResponse)
{
    start();
    serve();
    in_callback = [&](void *context) {
        seen.clear();
        zebCore_sendMsgRes(context, nullptr, answer_normal, send_options);
    };
    send();
    gorvanet_loopback_run();
    expect_misuse("a request context takes status 20");
}

// ---- Bodies that come with a refused answer -------------------------------------------------------------------------

TEST_F(AnswerMisuseTest, AnsweringTwiceWithTheRequestBodyDoesNotFreeItTwice)
{
    start();
    gorvaNet_base.cmdMethods[0].recvReq = [](void *message, void *body, gorvaNet_function *, void *) {
        zebCore_sendMsgRes(message, new_response(), answer_normal, send_options);
        zebCore_sendMsgRes(message, body, answer_normal, send_options);
        EXPECT_EQ(ledger.freed[1], 1u) << "the request body is on loan until this function returns";
    };
    serve();
    send();
    gorvanet_loopback_run();
    EXPECT_EQ(results.size(), 1u);
    expect_misuse("was answered already");
    EXPECT_EQ(ledger.freed[0], 2u);
    EXPECT_EQ(ledger.freed[1], 2u);
}

TEST_F(AnswerMisuseTest, AnsweringARequestContextFreesTheBody)
{
    start();
    serve();
    in_callback = [&](void *context) {
        seen.clear();
        zebCore_sendMsgRes(context, new_response(), answer_normal, send_options);
        EXPECT_EQ(ledger.freed[1], 2u);
    };
    send();
    gorvanet_loopback_run();
    expect_misuse("a request context takes status 20");
    EXPECT_EQ(ledger.freed[1], 3u) << "the handler's, the decoded one, and the one too many";
}

// The body of the response itself is on loan: it is freed behind the receiver, and only there.
TEST_F(AnswerMisuseTest, AnsweringARequestContextWithItsOwnResponseDoesNotFreeItTwice)
{
    start();
    serve();
    auto receiver = [](void *, RequestContext *context, void *body) {
        seen.clear();
        zebCore_sendMsgRes(context, body, answer_normal, send_options);
        EXPECT_EQ(ledger.freed[1], 1u);
    };
    zebCore_sendMsgReq_toNameUser(zebIntf_getCore_user(client), new_request(), receiver, nullptr, nullptr, nullptr,
                                  "service", gorvaNet_getCmdIntfNum(), 0, any_number, send_options);
    gorvanet_loopback_run();
    expect_misuse("a request context takes status 20");
    EXPECT_EQ(ledger.freed[1], 2u);
}

TEST_F(AnswerMisuseTest, AnsweringAContextAfterItsCallbackNamesTheHandle)
{
    start();
    serve();
    void *kept = nullptr;
    in_callback = [&](void *context) { kept = context; };
    send();
    gorvanet_loopback_run();
    seen.clear();
    zebCore_sendMsgRes(kept, nullptr, answer_unhandled_message, send_options);
    char handle[32];
    snprintf(handle, sizeof(handle), "message %p is unknown", kept);
    expect_misuse(handle);
}

} // namespace
