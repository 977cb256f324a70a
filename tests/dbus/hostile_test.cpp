// Peers that may not, and peers that send what they like. The service process goes on serving.

#include "dbus_test.h"
#include "raw_peer.h"
#include "support/long_form.h"

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <random>
#include <unistd.h>

namespace {

constexpr const char *access_denied = "org.freedesktop.DBus.Error.AccessDenied";
constexpr const char *refused = "gorvanet.Error.Refused";
constexpr uid_t nobody = 65534;

class DBusHostile : public DBusTest {
protected:
    using DBusTest::DBusTest;

    void start_service(const std::function<void(void *user)> &prepare = {})
    {
        Gate ready;
        service = std::make_unique<Process>([&] {
            serve(ready, Manner::at_once, prepare);
            return 0;
        });
        ASSERT_TRUE(ready.wait());
    }

    // The service answers somebody who may ask.
    void expect_service()
    {
        if (!client)
            client = join("client");
        results.clear();
        send_mtu(1400);
        EXPECT_TRUE(settle());
        EXPECT_EQ(results, std::vector<uint32_t>{1401});
    }

    // A client asks a service that answers with this handler, and its request comes to an end.
    void ask_liar(sd_bus_message_handler_t handler)
    {
        RawPeer liar(daemon.address());
        ASSERT_GE(sd_bus_request_name(liar.bus(), "gorvanet.user.liar", 0), 0);
        ASSERT_GE(sd_bus_add_object(liar.bus(), nullptr, "/gorvanet/ask", handler, nullptr), 0);
        send_mtu(1400, "liar");
        EXPECT_TRUE(turn_until([&] {
            sd_bus_process(liar.bus(), nullptr);
            return gorvanet_dbus_open_messages() == 0;
        }));
    }

    std::unique_ptr<Process> service;
};

// ---- Who may --------------------------------------------------------------------------------------------------------

// What a process of this user hears from the service.
int as_user(uid_t uid, const std::string &address, const std::string &expected)
{
    if (setgid(uid) || setuid(uid))
        return 2;
    RawPeer peer(address);
    return peer.ask("SetMtu", set_mtu_body(1)) == expected ? 0 : 1;
}

TEST_F(DBusHostile, OtherUsersAreDenied)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can be somebody else";
    start_service();
    Process stranger([&] { return as_user(nobody, daemon.address(), access_denied); });
    EXPECT_EQ(stranger.wait(), 0);
    expect_service();
}

// The client's host says so, and does not call back.
TEST_F(DBusHostile, ADeniedClientIsTold)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can be somebody else";
    start_service();
    Process stranger([&] {
        if (setgid(nobody) || setuid(nobody))
            return 2;
        client = join("stranger");
        send_mtu(1400);
        send_one_way(1);
        bool told = settle() && results.empty() && count(GORVANET_DBUS_UNDELIVERABLE) == 2;
        return told && seen.back().text == std::string(access_denied) + ": the sender may not send this" ? 0 : 1;
    });
    EXPECT_EQ(stranger.wait(), 0);
}

// A service of its own check: `nobody` may, but for one method; root may not.
TEST_F(DBusHostile, ACheckDecidesByUserAndMethod)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can be somebody else";
    static uid_t admitted = nobody;
    auto *check = +[](void *data, const gorvanet_dbus_sender *sender) -> int32_t {
        return sender->uid == *static_cast<uid_t *>(data) && sender->method == std::string("SetMtu") &&
               sender->interface == std::string("GorvaNetCmd") && sender->user == std::string("service") &&
               sender->bus_name[0] == ':';
    };
    start_service([&](void *) { gorvanet_dbus_check_senders(check, &admitted); });
    Process admitted_one([&] { return as_user(nobody, daemon.address(), "body 36"); });
    EXPECT_EQ(admitted_one.wait(), 0);
    Process root([&] { return as_user(0, daemon.address(), access_denied); });
    EXPECT_EQ(root.wait(), 0);
    Process curious([&] {
        if (setgid(nobody) || setuid(nobody))
            return 2;
        RawPeer peer(daemon.address());
        return peer.ask("SetDhcp", "") == access_denied ? 0 : 1;
    });
    EXPECT_EQ(curious.wait(), 0);
}

// The bus itself keeps a method from everybody.
class DBusPolicy : public DBusHostile {
protected:
    DBusPolicy()
        : DBusHostile(R"(
  <policy context="default">
    <allow user="*"/>
    <allow own="*"/>
    <allow send_destination="*"/>
    <allow receive_sender="*"/>
    <deny send_interface="gorvanet.GorvaNetCmd" send_member="SetMtu"/>
  </policy>
)")
    {
    }
};

TEST_F(DBusPolicy, KeepsAMethodFromEverybody)
{
    start_service();
    client = join("client");
    send_mtu(1400);
    EXPECT_TRUE(settle());
    EXPECT_TRUE(results.empty());
    EXPECT_TRUE(only(GORVANET_DBUS_UNDELIVERABLE).text.starts_with(access_denied));
    RawPeer peer(daemon.address());
    EXPECT_EQ(peer.ask("SetMtu", set_mtu_body(1)), access_denied);
    EXPECT_EQ(peer.ask("SetDhcp", ""), refused);
}

// The policy of packaging/dbus, on a bus that forbids what the system bus forbids.
class DBusPackagedPolicy : public DBusHostile {
protected:
    DBusPackagedPolicy()
        : DBusHostile(R"(
  <policy context="default">
    <allow user="*"/>
    <deny own="*"/>
    <deny send_type="method_call"/>
    <allow send_type="signal"/>
    <allow send_requested_reply="true" send_type="method_return"/>
    <allow send_requested_reply="true" send_type="error"/>
    <allow receive_type="method_call"/>
    <allow receive_type="method_return"/>
    <allow receive_type="error"/>
    <allow receive_type="signal"/>
    <allow send_destination="org.freedesktop.DBus"/>
  </policy>
  <include>)" PACKAGED_POLICY "</include>\n")
    {
    }
};

TEST_F(DBusPackagedPolicy, LetsRootServeAndAsk)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "root alone may do this";
    start_service();
    expect_service();
}

TEST_F(DBusPackagedPolicy, KeepsOthersOut)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can be somebody else";
    start_service();
    Process stranger([&] { return as_user(nobody, daemon.address(), access_denied); });
    EXPECT_EQ(stranger.wait(), 0);
    Process usurper([&] {
        if (setgid(nobody) || setuid(nobody))
            return 2;
        RawPeer peer(daemon.address());
        return sd_bus_request_name(peer.bus(), "gorvanet.user.client", 0) == -EACCES ? 0 : 1;
    });
    EXPECT_EQ(usurper.wait(), 0);
    expect_service();
}

// A bus that lets nobody in says so to each that comes, by hanging up. That is reported once.
class DBusShutBus : public DBusTest {
protected:
    DBusShutBus() : DBusTest(R"(<policy context="default"><deny user="*"/></policy>)")
    {
    }
};

TEST_F(DBusShutBus, IsReportedOnce)
{
    EXPECT_EQ(gorvanet_dbus_add_user("client"), nullptr);
    EXPECT_EQ(only(GORVANET_DBUS_LOST).sender, "client");
}

// ---- What is sent ---------------------------------------------------------------------------------------------------

TEST_F(DBusHostile, DamagedBodiesAreRefused)
{
    start_service();
    RawPeer peer(daemon.address());
    std::string body = set_mtu_body(1400);
    EXPECT_EQ(peer.ask("SetMtu", body), "body 36");
    for (size_t size = 0; size < body.size(); size++)
        EXPECT_EQ(peer.ask("SetMtu", body.substr(0, size)), refused) << size;
    EXPECT_EQ(peer.ask("SetMtu", body + '\0'), refused);
    for (size_t header : {0U, 4U, 12U, 16U, 24U, 28U}) {
        std::string damaged = body;
        damaged[header] = '\x7f';
        EXPECT_EQ(peer.ask("SetMtu", damaged), refused) << header;
    }
    expect_service();
}

TEST_F(DBusHostile, OtherArgumentsMethodsAndObjectsAreRefused)
{
    start_service();
    RawPeer peer(daemon.address());
    std::string body = set_mtu_body(1400);
    EXPECT_EQ(peer.ask_text("SetMtu", "1400"), refused);
    EXPECT_EQ(peer.ask("SetMTU", body), refused);
    EXPECT_EQ(peer.ask("PrefixStatus", body), refused);
    EXPECT_EQ(peer.ask("SetMtu", body, "/gorvanet/ask", "gorvanet.GorvaNetNtfy"), refused);
    EXPECT_EQ(peer.ask("SetMtu", body, "/gorvanet/ask", "elsewhere.GorvaNetCmd"),
              "org.freedesktop.DBus.Error.UnknownMethod");
    EXPECT_EQ(peer.ask("SetMtu", body, "/gorvanet/none"), "org.freedesktop.DBus.Error.UnknownObject");
    EXPECT_EQ(peer.ask("SetMtu", body, "/gorvanet/tell"), "no body"); // told: an empty reply
    EXPECT_EQ(peer.ask("SetRdisc6", ""), refused);
    expect_service();
}

// What a handler never answers would stay in the service for as long as the service lives.
TEST_F(DBusHostile, NoAnswerIsAwaitedWhereThereIsNone)
{
    auto *handler = +[](void *, void *, uint32_t) {};
    start_service([&](void *user) {
        EXPECT_EQ(gorvaNet_modSrv_recvMsg_configureAllIPv6Intf(user, handler, nullptr, nullptr), 0);
    });
    RawPeer peer(daemon.address());
    std::string body = set_mtu_body(1).replace(8, 4, "\x20\x16\x12\x09"); // of the same shape, but for its magic
    EXPECT_EQ(peer.ask("ConfigureAllIPv6Intf", body), refused);
    EXPECT_EQ(peer.ask("ConfigureAllIPv6Intf", body, "/gorvanet/tell"), "no body");
    expect_service();
}

// 65536 bytes are taken, one more is not.
TEST_F(DBusHostile, BodiesAreTakenUpToTheLimit)
{
    start_service();
    RawPeer peer(daemon.address());
    size_t room = GORVANET_DBUS_LARGEST_BODY - set_mtu_body(1400).size();
    EXPECT_EQ(peer.ask("SetMtu", set_mtu_body(1400, room)), "body 36");
    EXPECT_EQ(peer.ask("SetMtu", set_mtu_body(1400, room + 1)), refused);
    EXPECT_EQ(peer.ask("SetMtu", std::string(8 << 20, '\0')), refused);
    expect_service();
}

// The same on the way out: an encoder that gives more than the limit.
uint32_t encoded_size;

uint32_t encode_much(uint32_t, const void *, void **buffer, uint32_t *size)
{
    std::string body = set_mtu_body(1400, encoded_size - set_mtu_body(1400).size());
    *buffer = malloc(body.size());
    body.copy(static_cast<char *>(*buffer), body.size());
    *size = encoded_size;
    return 0;
}

TEST_F(DBusHostile, BodiesAreSentUpToTheLimit)
{
    start_service();
    gorvaNet_descriptor saved = gorvaNet_base;
    gorvaNet_base.cmdMethods[6].serializeBody = encode_much;
    client = join("client");
    encoded_size = GORVANET_DBUS_LARGEST_BODY;
    EXPECT_NE(send_mtu(0), 0U);
    EXPECT_TRUE(settle());
    EXPECT_EQ(results, std::vector<uint32_t>{1401});
    encoded_size++;
    EXPECT_EQ(send_mtu(0), 0U);
    EXPECT_EQ(only(GORVANET_DBUS_UNDELIVERABLE).text, "Message too long");
    EXPECT_EQ(gorvanet_dbus_open_messages(), 0U);
    gorvanet_dbus_tear_down();
    gorvaNet_base = saved;
}

// A response that is too long, or damaged: the client hears of it, and its callback does not.
TEST_F(DBusHostile, ResponsesAreCheckedToo)
{
    client = join("client");
    results.clear();
    auto *handler = +[](sd_bus_message *call, void *, sd_bus_error *) {
        sd_bus_message *reply = nullptr;
        sd_bus_message_new_method_return(call, &reply);
        sd_bus_message_append_array(reply, 'y', "damaged", 7);
        int result = sd_bus_send(nullptr, reply, nullptr);
        sd_bus_message_unref(reply);
        return result;
    };
    ask_liar(handler);
    EXPECT_TRUE(results.empty());
    EXPECT_EQ(only(GORVANET_DBUS_UNDELIVERABLE).direction, GORVANET_BODY_RESPONSE);
}

// What an error says stays in its line, whatever a terminal or a reader of logs would make of it.
TEST_F(DBusHostile, TextsOfErrorsStayInTheirLine)
{
    client = join("client");
    auto *handler = +[](sd_bus_message *call, void *, sd_bus_error *) {
        return sd_bus_reply_method_errorf(call, "a.b", "one\r\ndbus: \x1b[2J\x7f\tt\xc3\xa9%s",
                                          std::string(1000, '.').c_str());
    };
    ask_liar(handler);
    // 500 bytes of the text: 20, and full stops.
    EXPECT_EQ(only(GORVANET_DBUS_UNDELIVERABLE).text, "a.b: one??dbus: ?[2J??t\xc3\xa9" + std::string(480, '.'));
}

// ---- Notifications of others ----------------------------------------------------------------------------------------

void send_false_status(sd_bus *bus, const char *destination)
{
    // Magic, version, an empty name and no prefixes, as PrefixStatus is on the wire.
    static const unsigned char body[] = {
        0, 0, 0, 0, 0, 0, 0, 4, 0x20, 0x15, 0x02, 0x26, //
        0, 0, 0, 1, 0, 0, 0, 4, 0,    0,    0,    0,    //
        0, 0, 0, 3, 0, 0, 0, 4, 0,    0,    0,    0,    //
        0, 0, 0, 3, 0, 0, 0, 4, 0,    0,    0,    0,
    };
    sd_bus_message *signal = nullptr;
    sd_bus_message_new_signal(bus, &signal, "/gorvanet/user/teller", "gorvanet.GorvaNetNtfy", "PrefixStatus");
    if (destination)
        sd_bus_message_set_destination(signal, destination);
    sd_bus_message_append_array(signal, 'y', body, sizeof body);
    EXPECT_GE(sd_bus_send(bus, signal, nullptr), 0);
    EXPECT_GE(sd_bus_flush(bus), 0);
    sd_bus_message_unref(signal);
}

TEST_F(DBusHostile, NotificationsAreTakenFromTheirSenderOnly)
{
    static uint32_t heard;
    heard = 0;
    client = join("client");
    auto *handler = +[](void *, void *, const char *, const ipv6_prefixes *) { heard++; };
    ASSERT_EQ(gorvaNet_modCliNtfyUser_recvMsg_prefixStatus(client, handler, nullptr, nullptr, "bus", "teller"), 0U);
    ASSERT_EQ(gorvaNet_modCliNtfyUser_recvMsg_prefixStatus(client, handler, nullptr, nullptr, "bus", "other"), 0U);
    auto idle = [] { return gorvanet_dbus_turn(100) == GORVANET_DBUS_IDLE; };

    RawPeer forger(daemon.address());
    send_false_status(forger.bus(), nullptr);
    send_false_status(forger.bus(), "gorvanet.user.client");
    EXPECT_TRUE(turn_until(idle));
    EXPECT_EQ(heard, 0U);

    // One that the client listens to cannot speak for another one.
    RawPeer other(daemon.address());
    ASSERT_GE(sd_bus_request_name(other.bus(), "gorvanet.user.other", 0), 0);
    send_false_status(other.bus(), nullptr);
    EXPECT_TRUE(turn_until(idle));
    EXPECT_EQ(heard, 0U);

    // And the same bytes from the owner of the name are taken.
    RawPeer teller(daemon.address());
    ASSERT_GE(sd_bus_request_name(teller.bus(), "gorvanet.user.teller", 0), 0);
    send_false_status(teller.bus(), "gorvanet.user.client"); // no broadcast
    EXPECT_TRUE(turn_until(idle));
    EXPECT_EQ(heard, 0U);
    send_false_status(teller.bus(), nullptr);
    EXPECT_TRUE(turn_until([&] { return heard == 1; }));
}

// ---- Anything -------------------------------------------------------------------------------------------------------

// Random bytes, and sound bodies with random damage, at all methods and both objects.
TEST_F(DBusHostile, RandomBytesDoNotEndTheService)
{
    start_service();
    RawPeer peer(daemon.address());
    std::mt19937 random(20190222);
    auto end = std::chrono::steady_clock::now() + std::chrono::seconds(by_form(2, 60));
    uint32_t calls = 0;
    uint32_t taken = 0;
    while (std::chrono::steady_clock::now() < end) {
        std::string body(random() % 600, '\0');
        for (char &byte : body)
            byte = static_cast<char>(random());
        if (random() % 2) {
            body = set_mtu_body(random(), random() % 9);
            char &byte = body[random() % body.size()];
            byte = static_cast<char>(byte ^ 1 << random() % 8);
        }
        const gorvaNet_method &method = gorvaNet_base.cmdMethods[random() % 2 ? random() % GORVANET_COUNT_CMD : 6];
        std::string result = peer.ask(method.name, body, random() % 2 ? "/gorvanet/ask" : "/gorvanet/tell");
        ASSERT_TRUE(result == refused || result == "body 36" || result == "no body") << method.name << ": " << result;
        taken += result != refused;
        calls++;
    }
    EXPECT_GT(taken, 0U);
    EXPECT_LT(taken, calls);
    add_to_figure("calls with random bytes over D-Bus", calls);
    add_to_figure("calls with random bytes over D-Bus that were sound", taken);
    expect_service();
}

} // namespace
