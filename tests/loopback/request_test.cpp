// Requests and their answers, through real bytes.

#include "loopback_test.h"

namespace {

using RequestTest = LoopbackTest;

// Bytes as a string of the given length, NULs included.
template <size_t N> std::string bytes(const char (&text)[N])
{
    return {text, N - 1};
}

TEST_F(RequestTest, GoesThereAndBack)
{
    start();
    serve();
    uint32_t number = send();
    EXPECT_NE(number, 0u);
    EXPECT_TRUE(handled.empty()) << "the handler is called on a later turn";
    EXPECT_EQ(gorvanet_loopback_run(), GORVANET_LOOPBACK_IDLE);
    EXPECT_EQ(handled, std::vector<std::string>{"eth0"});
    EXPECT_EQ(results, std::vector<uint32_t>{42});
    EXPECT_EQ(gorvanet_loopback_open_messages(), 0u);
    EXPECT_TRUE(log_lines.empty());
}

TEST_F(RequestTest, IsSeenByTheObserverFromEndToEnd)
{
    start();
    serve();
    uint32_t number = send();
    gorvanet_loopback_run();
    ASSERT_EQ(kinds(), (std::vector{GORVANET_LOOPBACK_SENT, GORVANET_LOOPBACK_DELIVERED, GORVANET_LOOPBACK_ANSWERED,
                                    GORVANET_LOOPBACK_DELIVERED}));
    std::string request = bytes("\0\0\0\0\0\0\0\4\x39\x13\x20\x11\0\0\0\1\0\0\0\4\0\0\0\0\0\0\0\3\0\0\0\x08"
                                "eth0\0\0\0\0");
    std::string response = bytes("\0\0\0\0\0\0\0\4\x39\x13\x20\x11\0\0\0\1\0\0\0\4\0\0\0\0\0\0\0\3\0\0\0\4\0\0\0\x2a");
    for (size_t i = 0; i < seen.size(); i++) {
        bool forth = i < 2;
        EXPECT_EQ(seen[i].message, number);
        EXPECT_EQ(seen[i].method, "SetOsIfc");
        EXPECT_EQ(seen[i].sender, forth ? "client" : "service");
        EXPECT_EQ(seen[i].receiver, forth ? "service" : "client");
        EXPECT_EQ(seen[i].direction, forth ? GORVANET_BODY_REQUEST : GORVANET_BODY_RESPONSE);
        EXPECT_EQ(seen[i].bytes, forth ? request : response);
        EXPECT_EQ(seen[i].status, 0u);
        EXPECT_EQ(seen[i].text, "");
    }
}

TEST_F(RequestTest, NumbersGrow)
{
    start();
    uint32_t first = send();
    EXPECT_EQ(send(), first + 1);
}

TEST_F(RequestTest, KeepsTheOrderOfSending)
{
    start();
    serve();
    for (const char *name : {"a", "b", "c"})
        send("service", name);
    gorvanet_loopback_run();
    EXPECT_EQ(handled, (std::vector<std::string>{"a", "b", "c"}));
}

// The context's first word is the callback, the second pass-through 2.
TEST_F(RequestTest, HandsOnTheRequestContext)
{
    start();
    serve();
    in_callback = [&](void *context) {
        auto *words = static_cast<RequestContext *>(context);
        EXPECT_EQ(words->callback, reinterpret_cast<gorvaNet_function *>(callback));
        EXPECT_EQ(words->user_data, this);
    };
    send();
    gorvanet_loopback_run();
    EXPECT_EQ(results.size(), 1u);
}

TEST_F(RequestTest, WithoutACallbackWantsNoAnswer)
{
    start();
    serve();
    int32_t needs = -1;
    in_handler = [&](void *message) { needs = zebCore_isMsg_needRes(message); };
    gorvaNet_sendReq_setOsIfc(client, nullptr, nullptr, nullptr, "service", "eth0");
    gorvanet_loopback_run();
    EXPECT_EQ(handled.size(), 1u);
    EXPECT_NE(needs, 0);
    EXPECT_EQ(count(GORVANET_LOOPBACK_ANSWERED), 0u);
    EXPECT_EQ(count(GORVANET_LOOPBACK_MISUSE), 0u);
    EXPECT_EQ(gorvanet_loopback_open_messages(), 0u);
}

TEST_F(RequestTest, IsAnsweredLater)
{
    start();
    serve(true);
    send("service", "a");
    send("service", "b");
    gorvanet_loopback_run();
    ASSERT_EQ(deferred.size(), 2u);
    EXPECT_TRUE(results.empty());
    EXPECT_EQ(gorvanet_loopback_open_messages(), 2u);
    EXPECT_EQ(zebCore_isMsg_needRes(deferred[1]), 0);
    void *second = deferred[1];
    gorvaNet_sendRes_setOsIfc(second, 2);
    EXPECT_NE(zebCore_isMsg_needRes(second), 0);
    gorvaNet_sendRes_setOsIfc(deferred[0], 1);
    gorvanet_loopback_run();
    EXPECT_EQ(results, (std::vector<uint32_t>{2, 1}));
    EXPECT_NE(zebCore_isMsg_needRes(second), 0);
    EXPECT_EQ(count(GORVANET_LOOPBACK_MISUSE), 0u);
}

TEST_F(RequestTest, IsAnsweredLaterFromAPostedFunction)
{
    start();
    serve(true);
    send();
    in_handler = [&](void *) {
        gorvanet_loopback_post([](void *test) { static_cast<RequestTest *>(test)->answer_deferred(); }, this);
    };
    gorvanet_loopback_run();
    EXPECT_EQ(results, std::vector<uint32_t>{42});
}

TEST_F(RequestTest, SentFromACallbackIsDelivered)
{
    start();
    serve();
    in_callback = [&](void *) {
        if (results.size() < 3)
            send();
    };
    send();
    gorvanet_loopback_run();
    EXPECT_EQ(results.size(), 3u);
}

TEST_F(RequestTest, GoesToTheUserOfThatName)
{
    start();
    serve();
    void *other = gorvanet_loopback_add_user("other");
    ASSERT_EQ(gorvaNet_regUser_msgMngt(other, nullptr, nullptr, GORVANET_SELECT_CMD), 0u);
    std::vector<std::string> others;
    auto other_handler = [](void *message, void *data, const char *ifName) {
        static_cast<std::vector<std::string> *>(data)->push_back(ifName);
        gorvaNet_sendRes_setOsIfc(message, 7);
    };
    ASSERT_EQ(gorvaNet_modSrv_recvMsg_setOsIfc(other, other_handler, &others, nullptr), 0);
    send("other", "to other");
    send("service", "to service");
    gorvanet_loopback_run();
    EXPECT_EQ(others, std::vector<std::string>{"to other"});
    EXPECT_EQ(handled, std::vector<std::string>{"to service"});
    EXPECT_EQ(results, (std::vector<uint32_t>{7, 42}));
}

TEST_F(RequestTest, AcceptedAgainGoesToTheLaterHandler)
{
    start();
    serve();
    auto later = [](void *message, void *, const char *) { gorvaNet_sendRes_setOsIfc(message, 8); };
    ASSERT_EQ(gorvaNet_modSrv_recvMsg_setOsIfc(service, later, nullptr, nullptr), 0);
    send();
    gorvanet_loopback_run();
    EXPECT_TRUE(handled.empty());
    EXPECT_EQ(results, std::vector<uint32_t>{8});
}

// ---- Nobody handles it ----------------------------------------------------------------------------------------------

TEST_F(RequestTest, NotAcceptedIsAnsweredWithStatus20ByTheHost)
{
    start();
    uint32_t number = send();
    gorvanet_loopback_run();
    EXPECT_TRUE(results.empty());
    Seen status = only(GORVANET_LOOPBACK_STATUS);
    EXPECT_EQ(status.status, 20u);
    EXPECT_EQ(status.message, number);
    EXPECT_EQ(status.sender, "service");
    EXPECT_EQ(status.receiver, "client");
    EXPECT_EQ(status.direction, GORVANET_BODY_RESPONSE);
    EXPECT_EQ(status.text, "the user has not accepted the method");
    EXPECT_EQ(ledger.decoded[0], 0u);
    EXPECT_EQ(gorvanet_loopback_open_messages(), 0u);
}

TEST_F(RequestTest, AcceptedWithoutAHandlerIsAnsweredWithStatus20ByTheLibrary)
{
    start();
    ASSERT_EQ(gorvaNet_modSrv_recvMsg_setOsIfc(service, nullptr, nullptr, nullptr), 0);
    send();
    gorvanet_loopback_run();
    EXPECT_TRUE(results.empty());
    Seen status = only(GORVANET_LOOPBACK_STATUS);
    EXPECT_EQ(status.status, 20u);
    EXPECT_EQ(status.text, "nobody handles the message");
    EXPECT_EQ(ledger.decoded[0], 1u);
    EXPECT_EQ(ledger.freed[0], 2u) << "the sent and the decoded body, once each";
    EXPECT_EQ(ledger.encoded[1], 0u) << "the request body is no response";
    EXPECT_EQ(gorvanet_loopback_open_messages(), 0u);
    EXPECT_EQ(count(GORVANET_LOOPBACK_MISUSE), 0u);
}

TEST_F(RequestTest, Status20IsReportedForAMessageThatWantsNoAnswer)
{
    start();
    ASSERT_EQ(gorvaNet_modSrv_recvMsg_setOsIfc(service, nullptr, nullptr, nullptr), 0);
    gorvaNet_sendReq_setOsIfc(client, nullptr, nullptr, nullptr, "service", "eth0");
    gorvanet_loopback_run();
    EXPECT_EQ(only(GORVANET_LOOPBACK_STATUS).status, 20u);
    EXPECT_EQ(ledger.freed[0], 2u);
}

TEST_F(RequestTest, Status20MayComeLater)
{
    start();
    serve(true);
    send();
    gorvanet_loopback_run();
    zebCore_sendMsgRes(deferred[0], nullptr, answer_unhandled_message, send_options);
    gorvanet_loopback_run();
    EXPECT_EQ(only(GORVANET_LOOPBACK_STATUS).status, 20u);
    EXPECT_EQ(count(GORVANET_LOOPBACK_MISUSE), 0u);
    EXPECT_TRUE(results.empty());
    EXPECT_EQ(gorvanet_loopback_open_messages(), 0u);
}

// The way back: a client that does not take its response answers the request context.
TEST_F(RequestTest, AResponseThatNobodyTakesIsAnsweredWithStatus20)
{
    start();
    serve();
    static void *given;
    auto receiver = [](void *ignored, RequestContext *context, void *body) {
        EXPECT_EQ(ignored, nullptr);
        EXPECT_EQ(context->callback, nullptr);
        given = body;
        zebCore_sendMsgRes(context, body, answer_unhandled_message, send_options);
    };
    auto *body = static_cast<uint8_t *>(calloc(1, 56));
    *reinterpret_cast<uint32_t *>(body) = GORVANET_MAGIC_MSGCMD_SETOSIFC;
    zebCore_sendMsgReq_toNameUser(zebIntf_getCore_user(client), body, receiver, nullptr, nullptr, nullptr, "service",
                                  gorvaNet_getCmdIntfNum(), 0, any_number, send_options);
    gorvanet_loopback_run();
    EXPECT_NE(given, nullptr);
    Seen status = only(GORVANET_LOOPBACK_STATUS);
    EXPECT_EQ(status.status, 20u);
    EXPECT_EQ(status.text, "nobody takes the response");
    EXPECT_EQ(ledger.freed[1], 2u);
    EXPECT_EQ(count(GORVANET_LOOPBACK_MISUSE), 0u);
}

// ---- What does not arrive -------------------------------------------------------------------------------------------

TEST_F(RequestTest, ToAnUnknownNameIsUndeliverable)
{
    start();
    uint32_t number = send("nobody");
    gorvanet_loopback_run();
    Seen event = only(GORVANET_LOOPBACK_UNDELIVERABLE);
    EXPECT_EQ(event.message, number);
    EXPECT_EQ(event.receiver, "nobody");
    EXPECT_EQ(event.text, "there is no user of this name");
    EXPECT_TRUE(results.empty());
}

TEST_F(RequestTest, ToADetachedUserIsUndeliverable)
{
    start();
    serve();
    send();
    ASSERT_EQ(gorvaNet_unregUser_msgMngt(service, GORVANET_SELECT_CMD), 0);
    gorvanet_loopback_run();
    EXPECT_EQ(only(GORVANET_LOOPBACK_UNDELIVERABLE).text, "the user is not attached to the interface");
}

TEST_F(RequestTest, OfARowWithoutAReceiveFunctionIsUndeliverable)
{
    start();
    serve();
    gorvaNet_base.cmdMethods[0].recvReq = nullptr;
    send();
    gorvanet_loopback_run();
    EXPECT_EQ(only(GORVANET_LOOPBACK_UNDELIVERABLE).text, "the method's row has no receive function");
}

TEST_F(RequestTest, FromARemovedClientIsHandledAndTheResponseUndeliverable)
{
    start();
    serve();
    send();
    gorvanet_loopback_turn();
    ASSERT_EQ(handled.size(), 1u);
    EXPECT_EQ(gorvanet_loopback_remove_user(client), 0);
    gorvanet_loopback_run();
    EXPECT_TRUE(results.empty());
    EXPECT_EQ(only(GORVANET_LOOPBACK_UNDELIVERABLE).text, "the client was removed or detached before the answer");
}

TEST_F(RequestTest, EndsWhenTheServingUserIsRemovedBeforeItAnswers)
{
    start();
    serve(true);
    send();
    gorvanet_loopback_run();
    EXPECT_EQ(gorvanet_loopback_remove_user(service), 0);
    EXPECT_EQ(gorvanet_loopback_open_messages(), 0u);
    EXPECT_EQ(only(GORVANET_LOOPBACK_UNDELIVERABLE).text, "a user was removed before the answer");
    answer_deferred();
    gorvanet_loopback_run();
    EXPECT_TRUE(results.empty());
}

TEST_F(RequestTest, EndsWhenTheHandlerRemovesItsOwnUser)
{
    start();
    serve(true);
    in_handler = [&](void *) { gorvanet_loopback_remove_user(service); };
    send();
    gorvanet_loopback_run();
    EXPECT_EQ(only(GORVANET_LOOPBACK_UNDELIVERABLE).text, "a user was removed before the answer");
    EXPECT_EQ(gorvanet_loopback_open_messages(), 0u);
}

TEST_F(RequestTest, EncodersStatusIsReported)
{
    start();
    ledger.encode_status = 4;
    EXPECT_EQ(send(), 0u);
    Seen event = only(GORVANET_LOOPBACK_UNENCODABLE);
    EXPECT_EQ(event.status, 4u);
    EXPECT_EQ(event.direction, GORVANET_BODY_REQUEST);
    EXPECT_EQ(gorvanet_loopback_open_messages(), 0u);
    EXPECT_EQ(ledger.freed[0], 1u);
}

TEST_F(RequestTest, EncodersStatusOfAResponseIsReportedAndEndsTheRequest)
{
    start();
    serve(true);
    send();
    gorvanet_loopback_run();
    ledger.encode_status = 5;
    answer_deferred();
    gorvanet_loopback_run();
    Seen event = only(GORVANET_LOOPBACK_UNENCODABLE);
    EXPECT_EQ(event.status, 5u);
    EXPECT_EQ(event.direction, GORVANET_BODY_RESPONSE);
    EXPECT_EQ(gorvanet_loopback_open_messages(), 0u);
    EXPECT_EQ(ledger.freed[1], 1u);
}

TEST_F(RequestTest, DecodersStatusIsReported)
{
    start();
    serve();
    ledger.decode_status = 2;
    send();
    gorvanet_loopback_run();
    Seen event = only(GORVANET_LOOPBACK_UNDECODABLE);
    EXPECT_EQ(event.status, 2u);
    EXPECT_EQ(event.direction, GORVANET_BODY_REQUEST);
    EXPECT_EQ(event.bytes.size(), 40u);
    EXPECT_TRUE(handled.empty());
    EXPECT_EQ(gorvanet_loopback_open_messages(), 0u);
}

TEST_F(RequestTest, DecodersStatusOfAResponseIsReported)
{
    start();
    serve();
    send();
    gorvanet_loopback_turn();
    ledger.decode_status = 4;
    gorvanet_loopback_run();
    Seen event = only(GORVANET_LOOPBACK_UNDECODABLE);
    EXPECT_EQ(event.status, 4u);
    EXPECT_EQ(event.direction, GORVANET_BODY_RESPONSE);
    EXPECT_TRUE(results.empty());
}

TEST_F(RequestTest, AnEncoderThatGivesNothingIsReported)
{
    start();
    ledger.gives_nothing = true;
    EXPECT_EQ(send(), 0u);
    EXPECT_EQ(only(GORVANET_LOOPBACK_UNENCODABLE).text, "the callback reports success and gives nothing");
}

} // namespace
