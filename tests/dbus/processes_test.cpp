// A service and its clients in processes of their own, and what happens when one of them, or the bus, ends.

#include "dbus_test.h"
#include "support/long_form.h"

#include <algorithm>
#include <csignal>
#include <malloc.h>
#include <memory>
#include <unistd.h>

namespace {

class DBusProcesses : public DBusTest {
protected:
    void start_service(Manner manner = Manner::at_once, const std::function<void(void *user)> &prepare = {})
    {
        Gate ready;
        service = std::make_unique<Process>([&] {
            serve(ready, manner, prepare);
            return 0;
        });
        ASSERT_TRUE(ready.wait());
    }

    std::unique_ptr<Process> service;
};

TEST_F(DBusProcesses, AnswerEachOther)
{
    start_service();
    client = join("client");
    EXPECT_NE(send_mtu(1400), 0U);
    EXPECT_TRUE(results.empty()); // never from inside the send
    EXPECT_TRUE(settle());
    EXPECT_EQ(results, std::vector<uint32_t>{1401});
    EXPECT_EQ(count(GORVANET_DBUS_SENT), 1U);
    EXPECT_EQ(only(GORVANET_DBUS_DELIVERED).direction, GORVANET_BODY_RESPONSE);
    EXPECT_EQ(seen.size(), 2U);
}

TEST_F(DBusProcesses, AnswerLater)
{
    start_service(Manner::one_later);
    client = join("client");
    send_mtu(10);
    EXPECT_TRUE(turn_until([] { return gorvanet_dbus_turn(200) == GORVANET_DBUS_IDLE; }));
    EXPECT_TRUE(results.empty());
    EXPECT_EQ(gorvanet_dbus_open_messages(), 1U);
    send_mtu(20);
    EXPECT_TRUE(turn_until([&] { return !results.empty(); }));
    EXPECT_EQ(results, std::vector<uint32_t>{11});
    EXPECT_EQ(gorvanet_dbus_open_messages(), 1U);
}

TEST_F(DBusProcesses, NotifyEachOther)
{
    Gate subscribed;
    Gate told;
    Process subscriber([&] {
        static uint32_t heard;
        auto *handler = +[](void *, void *, const char *name, const ipv6_prefixes *prefixes) {
            heard += name == std::string("prefixes") && prefixes->field3 == 3;
        };
        void *user = join("subscriber");
        if (gorvaNet_modCliNtfyUser_recvMsg_prefixStatus(user, handler, nullptr, nullptr, "bus", "teller"))
            return 2;
        subscribed.open();
        return turn_until([&] { return heard == 2; }) ? 0 : 1;
    });
    ASSERT_TRUE(subscribed.wait());
    void *teller = join("teller");
    ipv6_prefixes prefixes = {};
    prefixes.field3 = 3;
    gorvaNet_sendReq_ntfyPrefixStatus(join("stranger"), nullptr, nullptr, "prefixes", &prefixes);
    gorvaNet_sendReq_ntfyPrefixStatus(teller, nullptr, nullptr, "prefixes", &prefixes);
    gorvaNet_sendReq_ntfyPrefixStatus(teller, nullptr, nullptr, "prefixes", &prefixes);
    EXPECT_EQ(subscriber.wait(), 0);
    EXPECT_EQ(gorvanet_dbus_open_messages(), 0U);
}

TEST_F(DBusProcesses, ReportThatThereIsNobody)
{
    client = join("client");
    send_mtu(1400, "nobody");
    send_one_way(1, "nobody");
    EXPECT_TRUE(settle());
    EXPECT_TRUE(results.empty());
    ASSERT_EQ(count(GORVANET_DBUS_UNDELIVERABLE), 2U);
    EXPECT_EQ(seen.back().text, "there is no user of this name");
    EXPECT_EQ(seen.back().receiver, "nobody");
}

TEST_F(DBusProcesses, ReportThatNobodyHandles)
{
    start_service();
    client = join("client");
    gorvaNet_sendReq_setRdisc6(
        client, +[](void *, void *) { FAIL(); }, nullptr, nullptr, "service", "eth0");
    send_one_way(1);
    EXPECT_TRUE(settle());
    ASSERT_EQ(count(GORVANET_DBUS_STATUS), 2U);
    EXPECT_EQ(seen.back().status, 20U);
}

// Accepted without a handler: here it is the library that answers with status 20.
TEST_F(DBusProcesses, ReportThatThereIsNoHandler)
{
    start_service(Manner::at_once, [](void *user) { gorvaNet_modSrv_recvMsg_setMtu(user, nullptr, nullptr, nullptr); });
    client = join("client");
    send_mtu(1400);
    EXPECT_TRUE(settle());
    EXPECT_TRUE(results.empty());
    EXPECT_EQ(only(GORVANET_DBUS_STATUS).status, 20U);
}

TEST_F(DBusProcesses, DoNotWaitForever)
{
    start_service(Manner::never);
    gorvanet_dbus_set_timeout(100);
    client = join("client");
    send_mtu(1400);
    EXPECT_TRUE(settle());
    EXPECT_TRUE(results.empty());
    EXPECT_EQ(only(GORVANET_DBUS_UNDELIVERABLE).text, "org.freedesktop.DBus.Error.NoReply: Method call timed out");
}

TEST_F(DBusProcesses, ReportAKilledService)
{
    start_service(Manner::never);
    client = join("client");
    send_mtu(1400);
    gorvanet_dbus_turn(100);
    service->send(SIGKILL);
    EXPECT_TRUE(settle());
    EXPECT_TRUE(results.empty());
    EXPECT_TRUE(only(GORVANET_DBUS_UNDELIVERABLE).text.starts_with("org.freedesktop.DBus.Error.NoReply"))
        << seen.back().text;
    send_mtu(1400);
    EXPECT_TRUE(settle());
    EXPECT_EQ(seen.back().text, "there is no user of this name");
}

TEST_F(DBusProcesses, OutliveAKilledClient)
{
    start_service(Manner::one_later);
    Process victim([&] {
        client = join("victim");
        send_mtu(1);
        while (true)
            gorvanet_dbus_turn(1000);
        return 0;
    });
    client = join("client");
    usleep(300000);
    victim.send(SIGKILL);
    EXPECT_EQ(victim.wait(), 128 + SIGKILL);
    send_mtu(10); // answers the victim
    send_mtu(20);
    EXPECT_TRUE(turn_until([&] { return !results.empty(); }));
    EXPECT_EQ(results, std::vector<uint32_t>{11});
}

TEST_F(DBusProcesses, ComeBackWithTheBus)
{
    start_service();
    client = join("client");
    send_mtu(1);
    EXPECT_TRUE(settle());
    daemon.suspend();
    send_mtu(2);
    daemon.stop();
    EXPECT_TRUE(settle());
    EXPECT_EQ(only(GORVANET_DBUS_UNDELIVERABLE).direction, GORVANET_BODY_RESPONSE);
    EXPECT_TRUE(turn_until([&] { return count(GORVANET_DBUS_LOST) > 0; }));
    EXPECT_EQ(send_mtu(3), 0U); // there is no bus
    daemon.start();
    EXPECT_TRUE(turn_until([&] { return count(GORVANET_DBUS_BACK) == 1; }));
    // The service comes back in its own time.
    EXPECT_TRUE(turn_until([&] {
        send_mtu(4);
        return settle() && !results.empty() && results.back() == 5;
    }));
    EXPECT_EQ(results, (std::vector<uint32_t>{2, 5}));
}

TEST_F(DBusProcesses, StillHearNotificationsWhenTheBusIsBack)
{
    static uint32_t heard;
    heard = 0;
    client = join("client");
    void *teller = join("teller");
    auto *handler = +[](void *, void *, const char *, const ipv6_prefixes *) { heard++; };
    ASSERT_EQ(gorvaNet_modCliNtfyUser_recvMsg_prefixStatus(client, handler, nullptr, nullptr, "bus", "teller"), 0U);
    daemon.stop();
    EXPECT_TRUE(turn_until([&] { return count(GORVANET_DBUS_LOST) == 2; }));
    daemon.start();
    EXPECT_TRUE(turn_until([&] { return count(GORVANET_DBUS_BACK) == 2; }));
    ipv6_prefixes prefixes = {};
    gorvaNet_sendReq_ntfyPrefixStatus(teller, nullptr, nullptr, "", &prefixes);
    EXPECT_TRUE(turn_until([&] { return heard == 1; }));
}

TEST_F(DBusProcesses, EndTheirRequestsWithTheirUser)
{
    start_service(Manner::never);
    client = join("client");
    send_mtu(1400);
    gorvanet_dbus_turn(100);
    EXPECT_EQ(gorvanet_dbus_remove_user(client), 0);
    EXPECT_EQ(gorvanet_dbus_open_messages(), 0U);
    EXPECT_EQ(only(GORVANET_DBUS_UNDELIVERABLE).text, "the user was removed before the answer");
}

TEST_F(DBusProcesses, LeaveABusThatTakesNothingAnyMore)
{
    client = join("client");
    daemon.suspend();
    constexpr uint32_t more_than_a_socket_holds = 30000;
    for (uint32_t value = 0; value < more_than_a_socket_holds; value++)
        ASSERT_NE(send_one_way(value), 0U);
    alarm(20); // ends the test where leaving waits for the bus
    EXPECT_EQ(gorvanet_dbus_remove_user(client), 0);
    alarm(0);
    EXPECT_EQ(count(GORVANET_DBUS_UNDELIVERABLE), more_than_a_socket_holds);
}

// The bus takes some of what is queued, and then nothing any more.
TEST_F(DBusProcesses, LeaveABusThatStopsWhileItTakes)
{
    client = join("client");
    daemon.suspend();
    constexpr int more_than_twice_what_a_socket_holds = 20000;
    ipv6_prefixes prefixes = {};
    prefixes.field3 = 10;
    for (int i = 0; i < more_than_twice_what_a_socket_holds; i++)
        gorvaNet_sendReq_ntfyPrefixStatus(client, nullptr, nullptr, "eth0", &prefixes);
    daemon.resume();
    usleep(300000); // it empties the socket, while the queue in this process stays
    daemon.suspend();
    alarm(20);
    EXPECT_EQ(gorvanet_dbus_remove_user(client), 0);
    alarm(0);
}

TEST_F(DBusProcesses, DoNotWaitForABusThatDoesNotLetThemIn)
{
    daemon.suspend();
    alarm(20);
    EXPECT_EQ(gorvanet_dbus_add_user("client"), nullptr);
    alarm(0);
    EXPECT_EQ(only(GORVANET_DBUS_LOST).sender, "client");
}

// Removed by its own handler: the client is told, by the bus or by the host.
TEST_F(DBusProcesses, LetAHandlerRemoveItsUser)
{
    static void *server;
    client = join("client");
    server = join("server");
    auto *handler = +[](void *, void *, uint32_t) { EXPECT_EQ(gorvanet_dbus_remove_user(server), 0); };
    ASSERT_EQ(gorvaNet_modSrv_recvMsg_setMtu(server, handler, nullptr, nullptr), 0);
    send_mtu(1400, "server");
    EXPECT_TRUE(settle());
    EXPECT_TRUE(results.empty());
    EXPECT_EQ(count(GORVANET_DBUS_UNDELIVERABLE), 2U); // of the client and of the server
}

TEST_F(DBusProcesses, ServeEightClientsAtOnce)
{
    start_service();
    uint32_t trips = by_form(200, 5000);
    std::vector<std::unique_ptr<Process>> clients;
    for (uint32_t number = 0; number < 8; number++)
        clients.push_back(std::make_unique<Process>([&, number] {
            client = join(("client" + std::to_string(number)).c_str());
            std::vector<uint32_t> expected;
            for (uint32_t trip = 0; trip < trips; trip++) {
                uint32_t mtu = number * 1000000 + trip;
                expected.push_back(mtu + 1);
                send_mtu(mtu);
                if (trip % 10 == number && !settle())
                    return 2;
            }
            return settle() && results == expected ? 0 : 1;
        }));
    for (auto &process : clients)
        EXPECT_EQ(process->wait(), 0);
}

// In one process, so that what is left behind on either side is seen.
TEST_F(DBusProcesses, LeaveNothingBehind)
{
    client = join("client");
    void *server = join("server");
    auto *handler = +[](void *message, void *, uint32_t mtu) { gorvaNet_sendRes_setMtu(message, mtu); };
    ASSERT_EQ(gorvaNet_modSrv_recvMsg_setMtu(server, handler, nullptr, nullptr), 0);
    auto make_trips = [&](uint32_t trips) {
        for (uint32_t trip = 0; trip < trips; trip++) {
            send_mtu(trip, "server");
            ASSERT_TRUE(settle());
            ASSERT_EQ(results, std::vector<uint32_t>{trip});
            results.clear();
            seen.clear();
        }
    };
    make_trips(200);
    auto before = static_cast<int64_t>(mallinfo2().uordblks);
    uint32_t trips = by_form(2000, 100000);
    make_trips(trips);
    int64_t grown = static_cast<int64_t>(mallinfo2().uordblks) - before;
    add_to_figure("round trips over D-Bus, in one process", trips);
    add_to_figure("bytes that the heap has grown by", static_cast<uint32_t>(std::max<int64_t>(grown, 0)));
    EXPECT_LT(grown, 4096);
}

} // namespace
