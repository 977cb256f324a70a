// Failures that a test orders happen to what this process does, once, and leave nothing behind.

#include "dbus_test.h"

namespace {

class DBusFailures : public DBusTest {
protected:
    DBusFailures() : server(join("service"))
    {
        client = join("client");
        auto *handler = +[](void *message, void *count, uint32_t mtu) {
            ++*static_cast<uint32_t *>(count);
            gorvaNet_sendRes_setMtu(message, mtu + 1);
        };
        EXPECT_EQ(gorvaNet_modSrv_recvMsg_setMtu(server, handler, &handled, nullptr), 0);
    }

    ~DBusFailures() override
    {
        EXPECT_EQ(gorvanet_dbus_drop_failures(), 0U);
    }

    static void order(gorvanet_dbus_failure failure, uint32_t after = 0)
    {
        gorvanet_dbus_fail(failure, after, 55);
    }

    // Sends a request and lets everything happen.
    void exchange()
    {
        EXPECT_NE(send_mtu(1400), 0U);
        EXPECT_TRUE(settle());
    }

    // The exchange ends without an answer; after it all is well again.
    void expect_no_answer(uint32_t handled_then)
    {
        exchange();
        EXPECT_EQ(handled, handled_then);
        EXPECT_TRUE(results.empty());
        exchange();
        EXPECT_EQ(results, std::vector<uint32_t>{1401});
    }

    std::vector<std::string> texts(gorvanet_dbus_kind kind) const
    {
        std::vector<std::string> found;
        for (const Seen &event : seen)
            if (event.kind == kind)
                found.push_back(event.text);
        return found;
    }

    void *server;
    uint32_t handled = 0;
};

using Texts = std::vector<std::string>;

TEST_F(DBusFailures, OfCallsOfTheBus)
{
    order(GORVANET_DBUS_FAIL_DETACH);
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(client, GORVANET_SELECT_CMD), 55);
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(client, GORVANET_SELECT_CMD), 0);
    order(GORVANET_DBUS_FAIL_ATTACH, 1); // to the second interface
    EXPECT_EQ(gorvaNet_regUser_msgMngt(client, nullptr, nullptr, GORVANET_SELECT_BOTH), 55U);
    EXPECT_EQ(gorvaNet_regUser_msgMngt(client, nullptr, nullptr, GORVANET_SELECT_BOTH), 0U);
    order(GORVANET_DBUS_FAIL_SEND);
    EXPECT_EQ(send_mtu(1), 0U);
    exchange();
    EXPECT_EQ(results, std::vector<uint32_t>{1401});
}

TEST_F(DBusFailures, OfALostRequest)
{
    order(GORVANET_DBUS_LOSE_REQUEST);
    expect_no_answer(0);
    EXPECT_EQ(only(GORVANET_DBUS_UNDELIVERABLE).text, "lost, as ordered");
    EXPECT_EQ(only(GORVANET_DBUS_UNDELIVERABLE).direction, GORVANET_BODY_REQUEST);
}

// The client is told, and does not wait until its time is up.
TEST_F(DBusFailures, OfALostResponse)
{
    order(GORVANET_DBUS_LOSE_RESPONSE);
    expect_no_answer(1);
    EXPECT_EQ(texts(GORVANET_DBUS_UNDELIVERABLE),
              (Texts{"lost, as ordered", "gorvanet.Error.Refused: lost, as ordered"}));
}

TEST_F(DBusFailures, OfALostLateResponse)
{
    static void *kept;
    auto *keep = +[](void *message, void *, uint32_t) { kept = message; };
    EXPECT_EQ(gorvaNet_modSrv_recvMsg_setMtu(server, keep, nullptr, nullptr), 0);
    kept = nullptr;
    EXPECT_NE(send_mtu(1400), 0U);
    EXPECT_TRUE(turn_until([] { return kept != nullptr; }));
    order(GORVANET_DBUS_LOSE_RESPONSE);
    gorvaNet_sendRes_setMtu(kept, 0);
    EXPECT_TRUE(settle());
    EXPECT_TRUE(results.empty());
    EXPECT_EQ(count(GORVANET_DBUS_UNDELIVERABLE), 2U);
    EXPECT_EQ(count(GORVANET_DBUS_MISUSE), 0U);
}

// The guard sees the damage before the decoder does. 0xff000000 is the tag then.
TEST_F(DBusFailures, OfADamagedRequest)
{
    order(GORVANET_DBUS_DAMAGE_REQUEST);
    expect_no_answer(0);
    const std::string refused = "byte 0, magic: tag 4278190080, expected 0";
    EXPECT_EQ(texts(GORVANET_DBUS_UNDELIVERABLE), (Texts{refused, "gorvanet.Error.Refused: " + refused}));
}

TEST_F(DBusFailures, OfADamagedResponse)
{
    order(GORVANET_DBUS_DAMAGE_RESPONSE);
    expect_no_answer(1);
    EXPECT_EQ(only(GORVANET_DBUS_UNDELIVERABLE).text, "byte 0, magic: tag 4278190080, expected 0");
    EXPECT_EQ(only(GORVANET_DBUS_UNDELIVERABLE).direction, GORVANET_BODY_RESPONSE);
}

TEST_F(DBusFailures, OfAnUnhandledRequest)
{
    order(GORVANET_DBUS_LEAVE_UNHANDLED);
    expect_no_answer(0);
    EXPECT_EQ(only(GORVANET_DBUS_STATUS).status, 20U);
}

TEST_F(DBusFailures, OfANotification)
{
    static uint32_t heard;
    heard = 0;
    auto *hear = +[](void *, void *, const char *, const ipv6_prefixes *) { heard++; };
    ASSERT_EQ(gorvaNet_modCliNtfyUser_recvMsg_prefixStatus(client, hear, nullptr, nullptr, "bus", "service"), 0U);
    order(GORVANET_DBUS_LOSE_REQUEST);
    order(GORVANET_DBUS_DAMAGE_REQUEST);
    ipv6_prefixes none = {};
    for (int i = 0; i < 3; i++)
        gorvaNet_sendReq_ntfyPrefixStatus(server, nullptr, nullptr, "eth0", &none);
    EXPECT_TRUE(turn_until([] { return heard == 1; }));
    EXPECT_EQ(texts(GORVANET_DBUS_UNDELIVERABLE),
              (Texts{"lost, as ordered", "byte 0, magic: tag 4278190080, expected 0"}));
}

TEST_F(DBusFailures, CanBeTakenBack)
{
    order(GORVANET_DBUS_FAIL_SEND);
    order(GORVANET_DBUS_LOSE_RESPONSE, 3);
    EXPECT_EQ(gorvanet_dbus_drop_failures(), 2U);
    exchange();
    EXPECT_EQ(results, std::vector<uint32_t>{1401});
}

} // namespace
