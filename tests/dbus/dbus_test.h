// What the tests of the D-Bus host share: a bus, what the host has reported in this process, a service process, and a
// client in this one.

#ifndef DBUS_TEST_H
#define DBUS_TEST_H

#include "daemon.h"
#include "gorvanet.h"
#include "gorvanet_dbus.h"
#include "process.h"

#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

// An event that outlives the observer's call.
struct Seen {
    gorvanet_dbus_kind kind;
    std::string method, sender, receiver;
    uint32_t direction;
    uint32_t status;
    std::string text;
};

// What a service process does with SetMtu: it answers with the MTU and one more, later with the next one, or never.
enum class Manner { at_once, one_later, never };

class DBusTest : public testing::Test {
public:
    explicit DBusTest(std::string policy = "");
    ~DBusTest() override;

    // ---- In this process

    // Adds and attaches a user on a started interface.
    static void *join(const char *name);
    uint32_t send_mtu(uint32_t mtu, const char *server = "service");
    uint32_t send_one_way(uint32_t value, const char *server = "service");
    // Turns until this is so, or ten seconds are over.
    static bool turn_until(const std::function<bool()> &condition);
    // Turns until no message of this process is open any more.
    static bool settle();
    uint32_t count(gorvanet_dbus_kind kind) const;
    // The only event of this kind; a failure if there is another number of them.
    Seen only(gorvanet_dbus_kind kind) const;

    void *client = nullptr;
    std::vector<uint32_t> results;
    std::vector<Seen> seen;

    // ---- In a service process: `prepare` may do more before it is ready. Never returns.
    [[noreturn]] void serve(const Gate &ready, Manner manner = Manner::at_once,
                            const std::function<void(void *user)> &prepare = {});

    Daemon daemon;
};

#endif
