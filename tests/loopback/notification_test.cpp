// Notifications, on an interface made by hand: one sender, a body of its own for each user that accepted it.

#include "loopback_test.h"

namespace {

class NotificationTest : public LoopbackTest {
protected:
    NotificationTest()
    {
        service = gorvanet_loopback_add_user("service");
        client = gorvanet_loopback_add_user("client");
        interface.attach(service);
        interface.attach(client);
    }

    int32_t subscribe(void *user, std::string &letters, const char *from = "service")
    {
        return subscribe(user, reinterpret_cast<gorvaNet_function *>(take), &letters, from);
    }

    int32_t subscribe(void *user, gorvaNet_function *function, void *data, const char *from = "service")
    {
        return zebIntf_modCliNtfyUser_mthd(user, function, data, nullptr, 1, "any bus", from, "TestNet", &interface.cmd,
                                           &interface.ntfy, 0);
    }

    uint32_t notify(char letter, void *user = nullptr)
    {
        return zebIntf_sendReq_ntfy(user ? user : service, new_letter(letter), 0, 0, 0, nullptr, nullptr, "TestNet",
                                    interface.ntfy.num, 0, 0, 0, send_options);
    }

    static void take(void *, void *data, char letter)
    {
        *static_cast<std::string *>(data) += letter;
    }

    TestInterface interface;
};

TEST_F(NotificationTest, GoesToEveryUserThatAcceptedIt)
{
    void *third = gorvanet_loopback_add_user("third");
    interface.attach(third);
    std::string clients, thirds;
    ASSERT_EQ(subscribe(client, clients), 0);
    ASSERT_EQ(subscribe(third, thirds), 0);
    uint32_t number = notify('a');
    EXPECT_NE(number, 0u);
    EXPECT_EQ(open_letters, 0u) << "the sent body ends once it is encoded";
    gorvanet_loopback_run();
    EXPECT_EQ(clients, "a");
    EXPECT_EQ(thirds, "a");
    ASSERT_EQ(kinds(), (std::vector{GORVANET_LOOPBACK_SENT, GORVANET_LOOPBACK_NOTIFIED, GORVANET_LOOPBACK_DELIVERED,
                                    GORVANET_LOOPBACK_DELIVERED}));
    EXPECT_EQ(seen[1].status, 2u);
    EXPECT_EQ(seen[2].receiver, "client");
    EXPECT_EQ(seen[3].receiver, "third");
    for (const Seen &event : seen) {
        EXPECT_EQ(event.message, number);
        EXPECT_EQ(event.sender, "service");
        EXPECT_EQ(event.method, "Letter");
        EXPECT_EQ(event.bytes, "a");
        EXPECT_EQ(event.direction, GORVANET_BODY_REQUEST);
    }
    EXPECT_EQ(gorvanet_loopback_open_messages(), 0u);
}

// The library's own notification, on the library's own interface.
TEST_F(NotificationTest, PrefixStatusTravelsThroughTheLibrary)
{
    EXPECT_EQ(gorvanet_loopback_remove_user(service), 0);
    EXPECT_EQ(gorvanet_loopback_remove_user(client), 0);
    start();
    static std::string told;
    told.clear();
    auto take_status = [](void *, void *data, const char *name, const ipv6_prefixes *prefixes) {
        EXPECT_EQ(data, &told);
        EXPECT_EQ(prefixes->field3, 1u);
        told = std::string(name) + " " + prefixes->prefixes[0].field3;
    };
    ASSERT_EQ(gorvaNet_modCliNtfyUser_recvMsg_prefixStatus(client, take_status, &told, nullptr, "bus", "service"), 0u);
    EXPECT_EQ(gorvaNet_findSrvMthdNtfyUser(nullptr, nullptr, 0, nullptr), 1u);
    ipv6_prefixes prefixes = {};
    prefixes.field3 = 1;
    std::string("2001:db8::").copy(prefixes.prefixes[0].field3, 45);
    gorvaNet_sendReq_ntfyPrefixStatus(service, nullptr, nullptr, "lan", &prefixes);
    gorvanet_loopback_run();
    EXPECT_EQ(told, "lan 2001:db8::");
    EXPECT_EQ(only(GORVANET_LOOPBACK_NOTIFIED).method, "PrefixStatus");
    EXPECT_TRUE(log_lines.empty());
}

TEST_F(NotificationTest, OfAnotherSenderDoesNotArrive)
{
    std::string letters;
    ASSERT_EQ(subscribe(client, letters, "somebody else"), 0);
    notify('a');
    gorvanet_loopback_run();
    EXPECT_EQ(letters, "");
    EXPECT_EQ(only(GORVANET_LOOPBACK_NOTIFIED).status, 0u) << "and that is not lost silently";
}

TEST_F(NotificationTest, OfTwoSendersArrivesFromBoth)
{
    std::string letters;
    ASSERT_EQ(subscribe(client, letters, "service"), 0);
    ASSERT_EQ(subscribe(client, letters, "client"), 0);
    notify('a', service);
    notify('b', client);
    gorvanet_loopback_run();
    EXPECT_EQ(letters, "ab");
}

TEST_F(NotificationTest, AcceptedAgainArrivesOnce)
{
    std::string earlier, later;
    ASSERT_EQ(subscribe(client, earlier), 0);
    ASSERT_EQ(subscribe(client, later), 0);
    notify('a');
    gorvanet_loopback_run();
    EXPECT_EQ(earlier, "");
    EXPECT_EQ(later, "a");
}

TEST_F(NotificationTest, WithoutAHandlerIsAnsweredWithStatus20AndTheOthersStillGetIt)
{
    std::string letters;
    ASSERT_EQ(subscribe(service, nullptr, nullptr), 0);
    ASSERT_EQ(subscribe(client, letters), 0);
    notify('a');
    gorvanet_loopback_run();
    Seen status = only(GORVANET_LOOPBACK_STATUS);
    EXPECT_EQ(status.status, 20u);
    EXPECT_EQ(status.receiver, "service");
    EXPECT_EQ(letters, "a");
    EXPECT_EQ(count(GORVANET_LOOPBACK_MISUSE), 0u);
}

TEST_F(NotificationTest, WantsNoAnswer)
{
    int32_t needs = -1;
    auto answers = [](void *message, void *data, char) {
        *static_cast<int32_t *>(data) = zebCore_isMsg_needRes(message);
        zebCore_sendMsgRes(message, new_letter('r'), answer_normal, send_options);
    };
    auto *plain = reinterpret_cast<gorvaNet_function *>(static_cast<void (*)(void *, void *, char)>(answers));
    ASSERT_EQ(subscribe(client, plain, &needs), 0);
    notify('a');
    gorvanet_loopback_run();
    EXPECT_NE(needs, 0);
    EXPECT_NE(only(GORVANET_LOOPBACK_MISUSE).text.find("wants no answer"), std::string::npos);
    EXPECT_EQ(open_letters, 0u);
}

TEST_F(NotificationTest, ThatCannotBeDecodedIsReportedForEachReceiver)
{
    std::string letters;
    ASSERT_EQ(subscribe(service, letters), 0);
    ASSERT_EQ(subscribe(client, letters), 0);
    notify('!');
    gorvanet_loopback_run();
    EXPECT_EQ(count(GORVANET_LOOPBACK_UNDECODABLE), 2u);
    EXPECT_EQ(letters, "");
}

TEST_F(NotificationTest, DoesNotReachAUserThatAHandlerRemoved)
{
    std::string letters, thirds;
    void *third = gorvanet_loopback_add_user("third");
    interface.attach(third);
    ASSERT_EQ(subscribe(third, thirds), 0);
    auto remove = [](void *, void *user, char) { gorvanet_loopback_remove_user(user); };
    auto *plain = reinterpret_cast<gorvaNet_function *>(static_cast<void (*)(void *, void *, char)>(remove));
    ASSERT_EQ(subscribe(service, plain, client), 0);
    ASSERT_EQ(subscribe(client, letters), 0);
    notify('a');
    gorvanet_loopback_run();
    EXPECT_EQ(letters, "");
    EXPECT_EQ(thirds, "a") << "and reaches those behind it";
    EXPECT_EQ(gorvanet_loopback_open_messages(), 0u);
}

TEST_F(NotificationTest, EndsWithTheSubscription)
{
    std::string letters;
    ASSERT_EQ(subscribe(client, letters), 0);
    EXPECT_EQ(zebIntf_findSrvMthdNtfyUser(nullptr, nullptr, "TestNet", 0, nullptr), 1u);
    ASSERT_EQ(zebIntf_unregUser_msgMngt(client, interface.ntfy.num, any_number, 0), 0);
    EXPECT_EQ(zebIntf_findSrvMthdNtfyUser(nullptr, nullptr, "TestNet", 0, nullptr), 0u);
    notify('a');
    gorvanet_loopback_run();
    EXPECT_EQ(letters, "");
}

TEST_F(NotificationTest, IsReleasedAtTearDown)
{
    std::string letters;
    ASSERT_EQ(subscribe(client, letters), 0);
    notify('a');
    EXPECT_EQ(gorvanet_loopback_tear_down(), 0);
    EXPECT_EQ(only(GORVANET_LOOPBACK_UNDELIVERABLE).text, "the host was torn down before its turn");
    EXPECT_EQ(letters, "");
}

TEST_F(NotificationTest, TakesNoMemory)
{
    std::string letters;
    ASSERT_EQ(subscribe(client, letters), 0);
    ASSERT_EQ(subscribe(service, nullptr, nullptr), 0);
    expect_no_growth(2'000, [&] {
        notify('a');
        notify('!');
        gorvanet_loopback_run();
        letters.clear();
    });
}

TEST_F(NotificationTest, MisuseFreesTheBodyAndSendsNothing)
{
    auto send = [&](void *user, const char *name) {
        return zebIntf_sendReq_ntfy(user, new_letter('a'), 0, 0, 0, nullptr, nullptr, name, interface.ntfy.num, 0, 0, 0,
                                    send_options);
    };
    EXPECT_EQ(send(nullptr, "TestNet"), 0u);
    EXPECT_EQ(send(zebIntf_getCore_user(service), "TestNet"), 0u);
    EXPECT_EQ(send(service, "OtherNet"), 0u);
    EXPECT_EQ(send(service, nullptr), 0u);
    EXPECT_EQ(count(GORVANET_LOOPBACK_MISUSE), 4u);
    EXPECT_EQ(open_letters, 0u);
    EXPECT_EQ(zebIntf_sendReq_ntfy(service, nullptr, 0, 0, 0, nullptr, nullptr, "TestNet", interface.ntfy.num, 0, 0, 0,
                                   send_options),
              0u);
    EXPECT_EQ(count(GORVANET_LOOPBACK_MISUSE), 5u);
    EXPECT_EQ(gorvanet_loopback_open_messages(), 0u);
}

TEST_F(NotificationTest, AcceptedWrongIsRefused)
{
    EXPECT_EQ(subscribe(client, nullptr, nullptr, nullptr), GORVANET_LOOPBACK_BAD_ARGUMENT);
    EXPECT_EQ(subscribe(client, nullptr, nullptr, ""), GORVANET_LOOPBACK_BAD_ARGUMENT);
    EXPECT_EQ(subscribe(nullptr, nullptr, nullptr), GORVANET_LOOPBACK_UNKNOWN_USER);
    EXPECT_EQ(zebIntf_modCliNtfyUser_mthd(client, nullptr, nullptr, nullptr, 1, "", "service", "OtherNet",
                                          &interface.cmd, &interface.ntfy, 0),
              GORVANET_LOOPBACK_WRONG_NAME);
    EXPECT_EQ(zebIntf_modCliNtfyUser_mthd(client, nullptr, nullptr, nullptr, 1, "", "service", "TestNet",
                                          &interface.cmd, nullptr, 0),
              GORVANET_LOOPBACK_BAD_ARGUMENT);
    EXPECT_EQ(zebIntf_modCliNtfyUser_mthd(client, nullptr, nullptr, nullptr, 1, "", "service", "TestNet",
                                          &interface.cmd, &interface.ntfy, 1),
              GORVANET_LOOPBACK_UNKNOWN_METHOD);
    EXPECT_EQ(count(GORVANET_LOOPBACK_MISUSE), 6u);
}

} // namespace
