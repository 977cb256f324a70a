// Names of users on the bus.

#include "dbus_test.h"
#include "names.h"

#include <cstdlib>
#include <cstring>
#include <systemd/sd-bus.h>

namespace {

struct Name {
    const char *user;
    const char *bus_name;
};

// Worked out by hand: every byte but ASCII letters and digits is an underscore and two hexadecimal digits.
const Name names[] = {
    {"service", "gorvanet.user.service"},
    {"ip-service", "gorvanet.user.ip_2dservice"},
    {"a.b", "gorvanet.user.a_2eb"},
    {"..", "gorvanet.user._2e_2e"},
    {"_", "gorvanet.user._5f"},
    {"_2e", "gorvanet.user._5f2e"},
    {"9lives", "gorvanet.user._39lives"},
    {"Z9", "gorvanet.user.Z9"},
    {"K\xc3\xbc"
     "che",
     "gorvanet.user.K_c3_bcche"},
    {"\xff\x01 /", "gorvanet.user._ff_01_20_2f"},
    {"", "gorvanet.user._"},
};

TEST(DBusNames, AreEscapedAsTheHeaderSays)
{
    for (const Name &name : names)
        EXPECT_EQ(dbus::bus_name_of(name.user), name.bus_name);
}

// The name of the user whose bus name this is, as sd-bus itself reads elements of object paths.
std::string read_back(const std::string &bus_name)
{
    std::string path = "/user/" + bus_name.substr(strlen("gorvanet.user."));
    char *user = nullptr;
    EXPECT_EQ(sd_bus_path_decode(path.c_str(), "/user", &user), 1) << bus_name;
    std::string name = user ? user : "";
    free(user);
    return name;
}

// All bytes, alone and behind a letter: no two of them have the same name.
TEST(DBusNames, AreNeverShared)
{
    std::vector<std::string> users = {""};
    for (int byte = 1; byte < 256; byte++)
        for (const char *before : {"", "a", "_", "_2"})
            users.push_back(before + std::string(1, static_cast<char>(byte)));
    for (const std::string &name : users)
        EXPECT_EQ(read_back(dbus::bus_name_of(name)), name);
}

class DBusUsers : public DBusTest {};

TEST_F(DBusUsers, OfAllNamesTalkToEachOther)
{
    std::string longest(255 - std::string("gorvanet.user.").size(), 'x');
    for (const std::string &name : {std::string("a.b.c"),
                                    std::string("K\xc3\xbc"
                                                "che"),
                                    std::string("7"), longest}) {
        seen.clear();
        results.clear();
        void *server = join(name.c_str());
        client = server;
        auto *handler = +[](void *message, void *, uint32_t mtu) { gorvaNet_sendRes_setMtu(message, mtu * 2); };
        ASSERT_EQ(gorvaNet_modSrv_recvMsg_setMtu(server, handler, nullptr, nullptr), 0);
        send_mtu(700, name.c_str());
        EXPECT_TRUE(settle());
        EXPECT_EQ(results, std::vector<uint32_t>{1400});
    }
}

TEST_F(DBusUsers, CannotHaveNamesThatTheBusCannotHave)
{
    std::string too_long(256 - std::string("gorvanet.user.").size(), 'x');
    EXPECT_EQ(gorvanet_dbus_add_user(too_long.c_str()), nullptr);
    EXPECT_EQ(only(GORVANET_DBUS_LOST).text, "File name too long");
    EXPECT_EQ(gorvanet_dbus_add_user(""), nullptr);
    EXPECT_EQ(gorvanet_dbus_add_user(nullptr), nullptr);
    EXPECT_EQ(count(GORVANET_DBUS_MISUSE), 2U);
}

TEST_F(DBusUsers, AreNotReachedByNamesThatTheBusCannotHave)
{
    client = join("client");
    std::string too_long(256 - std::string("gorvanet.user.").size(), 'x');
    EXPECT_EQ(send_mtu(1, too_long.c_str()), 0U);
    EXPECT_EQ(only(GORVANET_DBUS_UNDELIVERABLE).text, "File name too long");
    seen.clear();
    send_mtu(1, "");
    EXPECT_TRUE(settle());
    EXPECT_EQ(only(GORVANET_DBUS_UNDELIVERABLE).text, "there is no user of this name");
    EXPECT_TRUE(results.empty());
}

TEST_F(DBusUsers, OfTheSameNameCannotBeInTwoProcesses)
{
    Gate ready;
    Process service([&] {
        serve(ready);
        return 0;
    });
    ASSERT_TRUE(ready.wait());
    EXPECT_EQ(gorvanet_dbus_add_user("service"), nullptr);
    EXPECT_EQ(only(GORVANET_DBUS_LOST).text, "File exists");
}

TEST_F(DBusUsers, NeedABus)
{
    daemon.stop();
    EXPECT_EQ(gorvanet_dbus_add_user("client"), nullptr);
    EXPECT_EQ(only(GORVANET_DBUS_LOST).sender, "client");
}

} // namespace
