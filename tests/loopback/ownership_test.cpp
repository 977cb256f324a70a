// Every body ends in freeBody once and with its type, every buffer is released, and nothing grows with the messages.
// The fixture checks after each test that no body is left.

#include "loopback_test.h"

namespace {

using OwnershipTest = LoopbackTest;

TEST_F(OwnershipTest, ARoundTripFreesFourBodies)
{
    start();
    serve();
    send();
    EXPECT_EQ(ledger.encoded[0], 1u);
    EXPECT_EQ(ledger.freed[0], 1u) << "the sent body ends once it is encoded";
    gorvanet_loopback_run();
    EXPECT_EQ(ledger.decoded[0], 1u);
    EXPECT_EQ(ledger.encoded[1], 1u);
    EXPECT_EQ(ledger.decoded[1], 1u);
    EXPECT_EQ(ledger.freed[0], 2u);
    EXPECT_EQ(ledger.freed[1], 2u);
    EXPECT_EQ(ledger.freed_unseen, 0u);
}

TEST_F(OwnershipTest, ABodyThatIsHandedOverLivesUntilTheHandlerReturns)
{
    start();
    serve();
    in_handler = [&](void *) { EXPECT_EQ(ledger.freed[0], 1u); };
    in_callback = [&](void *) { EXPECT_EQ(ledger.freed[1], 1u); };
    send();
    gorvanet_loopback_run();
    EXPECT_EQ(ledger.freed[0], 2u);
    EXPECT_EQ(ledger.freed[1], 2u);
}

TEST_F(OwnershipTest, BodiesAreFreedAfterTheInterfaceIsGone)
{
    start();
    serve();
    in_handler = [&](void *) { EXPECT_EQ(gorvaNet_delBase(), 0u); };
    send();
    gorvanet_loopback_run();
    EXPECT_EQ(ledger.freed[0], 2u);
    EXPECT_EQ(ledger.freed[1], 1u) << "the answer does not come back to a client that is not attached any more";
    EXPECT_EQ(count(GORVANET_LOOPBACK_UNDELIVERABLE), 1u);
}

TEST_F(OwnershipTest, ABodyThatCannotBeSentIsFreed)
{
    start();
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(client, GORVANET_SELECT_CMD), 0);
    EXPECT_EQ(send(), 0u);
    EXPECT_EQ(ledger.freed[0], 1u);
    EXPECT_EQ(gorvanet_loopback_remove_user(client), 0);
    EXPECT_EQ(send(), 0u);
    EXPECT_EQ(ledger.freed[0], 2u);
}

// The library keeps the number of an interface that the host withdrew, and goes on sending with it.
TEST_F(OwnershipTest, BodiesSentOnAWithdrawnInterfaceAreFreed)
{
    start();
    EXPECT_EQ(gorvanet_loopback_withdraw(gorvaNet_getCmdIntfNum()), 0);
    EXPECT_EQ(gorvanet_loopback_withdraw(gorvaNet_getNtfyIntfNum()), 0);
    EXPECT_EQ(send(), 0u);
    expect_misuse("zebCore_sendMsgReq_toNameUser: interface GorvaNetCmd was withdrawn");
    EXPECT_EQ(ledger.freed[0], 1u);
    ipv6_prefixes prefixes = {};
    gorvaNet_sendReq_ntfyPrefixStatus(service, nullptr, nullptr, "lan", &prefixes); // a sanitizer sees its leak
    expect_misuse("zebIntf_sendReq_ntfy: interface GorvaNetNtfy was withdrawn");
    EXPECT_EQ(gorvanet_loopback_open_messages(), 0u);
}

TEST_F(OwnershipTest, QueuedMessagesAreReleasedAtTearDown)
{
    start();
    serve(true);
    send(); // will wait for its answer
    gorvanet_loopback_run();
    send(); // its response will be queued
    defers_answers = false;
    gorvanet_loopback_turn();
    send(); // will be queued itself
    EXPECT_EQ(gorvanet_loopback_open_messages(), 3u);
    EXPECT_EQ(gorvanet_loopback_tear_down(), 0);
    EXPECT_EQ(gorvanet_loopback_open_messages(), 0u);
    std::vector<std::string> reasons;
    for (const Seen &event : seen)
        if (event.kind == GORVANET_LOOPBACK_UNDELIVERABLE)
            reasons.push_back(event.text);
    EXPECT_EQ(reasons, (std::vector<std::string>{"the host was torn down before the answer",
                                                 "the host was torn down before the response's turn",
                                                 "the host was torn down before its turn"}));
    EXPECT_EQ(ledger.freed[0], 5u) << "three sent, two decoded";
    EXPECT_EQ(ledger.freed[1], 1u) << "one sent, none decoded";
}

TEST_F(OwnershipTest, TwentyThousandRoundTripsTakeNoMemory)
{
    start();
    serve();
    expect_no_growth(20'000, [&] {
        send();
        gorvanet_loopback_run();
        EXPECT_EQ(results.size(), 1u);
    });
}

TEST_F(OwnershipTest, DeferredAnswersTakeNoMemory)
{
    start();
    serve(true);
    expect_no_growth(2'000, [&] {
        send();
        gorvanet_loopback_run();
        answer_deferred();
        gorvanet_loopback_run();
        EXPECT_EQ(results.size(), 1u);
    });
}

// The failure paths, one after the other, again and again.
TEST_F(OwnershipTest, FailuresTakeNoMemory)
{
    start();
    expect_no_growth(2'000, [&] {
        send("nobody");
        send("service"); // not accepted
        send("client");
        gorvanet_loopback_run();
        EXPECT_EQ(count(GORVANET_LOOPBACK_UNDELIVERABLE), 1u);
        EXPECT_EQ(count(GORVANET_LOOPBACK_STATUS), 2u);
        ledger.encode_status = 4;
        send();
        ledger.encode_status = 0;
        EXPECT_EQ(count(GORVANET_LOOPBACK_UNENCODABLE), 1u);
    });
    serve();
    expect_no_growth(2'000, [&] {
        ledger.decode_status = 4;
        send();
        gorvanet_loopback_run();
        ledger.decode_status = 0;
        send();
        gorvanet_loopback_turn();
        ledger.decode_status = 2;
        gorvanet_loopback_run();
        ledger.decode_status = 0;
        EXPECT_EQ(count(GORVANET_LOOPBACK_UNDECODABLE), 2u);
    });
}

TEST_F(OwnershipTest, StartingAndTearingDownTakesNoMemory)
{
    expect_no_growth(500, [&] {
        start();
        serve();
        send();
        gorvanet_loopback_turn();
        send();
        EXPECT_EQ(gorvanet_loopback_tear_down(), 0);
    });
}

} // namespace
