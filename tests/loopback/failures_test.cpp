// Failures that a test orders happen once, where and when they were ordered, and leave nothing behind.

#include "loopback_test.h"

#include <algorithm>

namespace {

class FailuresTest : public LoopbackTest {
protected:
    ~FailuresTest() override
    {
        EXPECT_EQ(gorvanet_loopback_drop_failures(), 0u);
    }

    static void order(gorvanet_loopback_failure failure, uint32_t after = 0)
    {
        gorvanet_loopback_fail(failure, after, 55);
    }

    // Sends a request and lets everything happen; afterwards nothing is on its way.
    void exchange()
    {
        EXPECT_NE(send(), 0u);
        EXPECT_EQ(gorvanet_loopback_run(), GORVANET_LOOPBACK_IDLE);
        EXPECT_EQ(gorvanet_loopback_open_messages(), 0u);
    }

    // All is well again.
    void expect_answer()
    {
        results.clear();
        exchange();
        EXPECT_EQ(results, std::vector<uint32_t>{42});
    }

    static bool logged(const std::string &part)
    {
        return std::any_of(log_lines.begin(), log_lines.end(),
                           [&](const std::string &line) { return line.find(part) != std::string::npos; });
    }

    void subscribe()
    {
        ASSERT_EQ(gorvaNet_modCliNtfyUser_recvMsg_prefixStatus(client, take_status, this, nullptr, "bus", "service"),
                  0u);
    }

    static void take_status(void *, void *data, const char *, const ipv6_prefixes *)
    {
        static_cast<FailuresTest *>(data)->statuses++;
    }

    void notify()
    {
        ipv6_prefixes none = {};
        gorvaNet_sendReq_ntfyPrefixStatus(service, nullptr, nullptr, "eth0", &none);
        gorvanet_loopback_run();
    }

    uint32_t statuses = 0;
};

// ---- Calls of the bus -----------------------------------------------------------------------------------------------

TEST_F(FailuresTest, RegisteringTheCommandInterface)
{
    order(GORVANET_LOOPBACK_FAIL_REGISTER);
    EXPECT_EQ(gorvanet_initialize(), 1u);
    EXPECT_TRUE(logged("Add command message management failed"));
    EXPECT_EQ(gorvanet_initialize(), 0u);
}

TEST_F(FailuresTest, RegisteringTheNotificationInterface)
{
    order(GORVANET_LOOPBACK_FAIL_REGISTER, 1);
    EXPECT_EQ(gorvanet_initialize(), 1u);
    EXPECT_TRUE(logged("Add notification message management failed"));
}

TEST_F(FailuresTest, HookingIntoTheLoop)
{
    order(GORVANET_LOOPBACK_FAIL_HOOK);
    EXPECT_EQ(gorvanet_initialize(), 55u);
    EXPECT_TRUE(logged("Add event base failed(55)"));
}

TEST_F(FailuresTest, ReleasingAnInterface)
{
    start();
    order(GORVANET_LOOPBACK_FAIL_RELEASE);
    EXPECT_EQ(gorvaNet_delBase(), 55u);
    EXPECT_EQ(gorvaNet_delBase(), 0u);
}

TEST_F(FailuresTest, AttachingAUser)
{
    start();
    void *user = gorvanet_loopback_add_user("user");
    order(GORVANET_LOOPBACK_FAIL_ATTACH, 1); // to the second interface
    EXPECT_EQ(gorvaNet_regUser_msgMngt(user, nullptr, nullptr, GORVANET_SELECT_BOTH), 55u);
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(user, GORVANET_SELECT_CMD), 0);
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(user, GORVANET_SELECT_NTFY), GORVANET_LOOPBACK_NOT_ATTACHED);
}

TEST_F(FailuresTest, DetachingAUser)
{
    start();
    order(GORVANET_LOOPBACK_FAIL_DETACH);
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(client, GORVANET_SELECT_CMD), 55);
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(client, GORVANET_SELECT_CMD), 0);
}

TEST_F(FailuresTest, AcceptingACommand)
{
    start();
    order(GORVANET_LOOPBACK_FAIL_ACCEPT);
    EXPECT_EQ(gorvaNet_modSrv_recvMsg_setOsIfc(service, handler, this, nullptr), 55);
    exchange();
    EXPECT_EQ(only(GORVANET_LOOPBACK_STATUS).status, 20u);
    serve();
    expect_answer();
}

TEST_F(FailuresTest, AcceptingANotification)
{
    start();
    order(GORVANET_LOOPBACK_FAIL_ACCEPT);
    EXPECT_EQ(gorvaNet_modCliNtfyUser_recvMsg_prefixStatus(client, take_status, this, nullptr, "bus", "service"), 55u);
    notify();
    EXPECT_EQ(statuses, 0u);
}

TEST_F(FailuresTest, SendingARequest)
{
    start();
    serve();
    order(GORVANET_LOOPBACK_FAIL_SEND);
    EXPECT_EQ(send(), 0u);
    EXPECT_EQ(ledger.freed[GORVANET_BODY_REQUEST], 1u);
    EXPECT_TRUE(seen.empty());
    expect_answer();
}

TEST_F(FailuresTest, SendingANotification)
{
    start();
    subscribe();
    order(GORVANET_LOOPBACK_FAIL_SEND);
    notify();
    EXPECT_EQ(statuses, 0u);
    EXPECT_TRUE(seen.empty());
    notify();
    EXPECT_EQ(statuses, 1u);
}

// ---- Messages -------------------------------------------------------------------------------------------------------

TEST_F(FailuresTest, ALostRequest)
{
    start();
    serve();
    order(GORVANET_LOOPBACK_LOSE_REQUEST);
    exchange();
    Seen lost = only(GORVANET_LOOPBACK_UNDELIVERABLE);
    EXPECT_EQ(lost.direction, GORVANET_BODY_REQUEST);
    EXPECT_EQ(lost.text, "lost, as ordered");
    EXPECT_TRUE(handled.empty());
    EXPECT_TRUE(results.empty());
    expect_answer();
}

TEST_F(FailuresTest, ALostResponse)
{
    start();
    serve();
    order(GORVANET_LOOPBACK_LOSE_RESPONSE);
    exchange();
    Seen lost = only(GORVANET_LOOPBACK_UNDELIVERABLE);
    EXPECT_EQ(lost.direction, GORVANET_BODY_RESPONSE);
    EXPECT_EQ(lost.text, "lost, as ordered");
    EXPECT_EQ(handled, std::vector<std::string>{"eth0"});
    EXPECT_TRUE(results.empty());
    expect_answer();
}

TEST_F(FailuresTest, ALostNotification)
{
    start();
    subscribe();
    order(GORVANET_LOOPBACK_LOSE_REQUEST);
    notify();
    EXPECT_EQ(statuses, 0u);
    notify();
    EXPECT_EQ(statuses, 1u);
}

TEST_F(FailuresTest, ADamagedRequest)
{
    start();
    serve();
    order(GORVANET_LOOPBACK_DAMAGE_REQUEST);
    exchange();
    Seen sent = only(GORVANET_LOOPBACK_SENT), refused = only(GORVANET_LOOPBACK_UNDECODABLE);
    EXPECT_EQ(refused.direction, GORVANET_BODY_REQUEST);
    EXPECT_EQ(refused.status, 2u);
    EXPECT_EQ(refused.bytes.substr(0, 1), "\xff");
    EXPECT_EQ(refused.bytes.substr(1), sent.bytes.substr(1));
    EXPECT_TRUE(handled.empty());
    expect_answer();
}

TEST_F(FailuresTest, ADamagedResponse)
{
    start();
    serve();
    order(GORVANET_LOOPBACK_DAMAGE_RESPONSE);
    exchange();
    Seen refused = only(GORVANET_LOOPBACK_UNDECODABLE);
    EXPECT_EQ(refused.direction, GORVANET_BODY_RESPONSE);
    EXPECT_EQ(refused.status, 2u);
    EXPECT_EQ(handled.size(), 1u);
    EXPECT_TRUE(results.empty());
    expect_answer();
}

TEST_F(FailuresTest, ADamagedNotification)
{
    start();
    subscribe();
    order(GORVANET_LOOPBACK_DAMAGE_REQUEST);
    notify();
    EXPECT_EQ(statuses, 0u);
    EXPECT_EQ(only(GORVANET_LOOPBACK_UNDECODABLE).status, 2u);
}

TEST_F(FailuresTest, AnUnhandledRequest)
{
    start();
    serve();
    subscribe();
    order(GORVANET_LOOPBACK_LEAVE_UNHANDLED);
    notify(); // is no occasion
    EXPECT_EQ(statuses, 1u);
    exchange();
    EXPECT_EQ(only(GORVANET_LOOPBACK_STATUS).status, 20u);
    EXPECT_TRUE(handled.empty());
    EXPECT_TRUE(results.empty());
    expect_answer();
}

// ---- When -----------------------------------------------------------------------------------------------------------

TEST_F(FailuresTest, AfterOthers)
{
    start();
    serve();
    order(GORVANET_LOOPBACK_LOSE_REQUEST, 2);
    for (int i = 0; i < 4; i++)
        exchange();
    EXPECT_EQ(handled.size(), 3u);
    EXPECT_EQ(only(GORVANET_LOOPBACK_UNDELIVERABLE).message, seen[8].message); // the third
}

TEST_F(FailuresTest, SeveralAtOneOccasion)
{
    start();
    gorvanet_loopback_fail(GORVANET_LOOPBACK_FAIL_DETACH, 0, 7);
    gorvanet_loopback_fail(GORVANET_LOOPBACK_FAIL_DETACH, 0, 8);
    gorvanet_loopback_fail(GORVANET_LOOPBACK_FAIL_DETACH, 1, 9);
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(client, GORVANET_SELECT_CMD), 7);
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(client, GORVANET_SELECT_CMD), 8);
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(client, GORVANET_SELECT_CMD), 9);
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(client, GORVANET_SELECT_CMD), 0);
}

TEST_F(FailuresTest, TakenBack)
{
    start();
    order(GORVANET_LOOPBACK_FAIL_SEND);
    order(GORVANET_LOOPBACK_FAIL_ATTACH, 3);
    EXPECT_EQ(gorvanet_loopback_tear_down(), 0);
    EXPECT_EQ(gorvanet_loopback_drop_failures(), 2u);
    start();
    EXPECT_NE(send(), 0u);
}

} // namespace
