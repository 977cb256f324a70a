#include "dbus_test.h"

#include <chrono>
#include <cstdlib>
#include <unistd.h>
#include <utility>

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto patience = std::chrono::seconds(10);

void record(void *data, const gorvanet_dbus_event *event)
{
    static_cast<DBusTest *>(data)->seen.push_back(
        {event->kind, event->method, event->sender, event->receiver, event->direction, event->status, event->text});
}

void on_result(void *, void *user_data, uint32_t result)
{
    static_cast<DBusTest *>(user_data)->results.push_back(result);
}

void answer_at_once(void *message, void *, uint32_t mtu)
{
    gorvaNet_sendRes_setMtu(message, mtu + 1);
}

// Answers the request before this one.
void answer_one_later(void *message, void *, uint32_t mtu)
{
    static void *earlier;
    static uint32_t earlier_mtu;
    if (earlier)
        gorvaNet_sendRes_setMtu(earlier, earlier_mtu + 1);
    earlier = message;
    earlier_mtu = mtu;
}

void answer_never(void *, void *, uint32_t)
{
}

constexpr gorvaNet_setMtu_handler *handlers[] = {answer_at_once, answer_one_later, answer_never};

} // namespace

DBusTest::DBusTest(std::string policy) : daemon(std::move(policy))
{
    gorvanet_dbus_set_address(daemon.address().c_str());
    gorvanet_dbus_observe(record, this);
}

DBusTest::~DBusTest()
{
    gorvanet_dbus_tear_down();
    EXPECT_EQ(gorvanet_dbus_open_messages(), 0U);
    EXPECT_EQ(gorvaNet_base.state, GORVANET_STATE_BASE_WAIT_INIT);
    gorvanet_dbus_observe(nullptr, nullptr);
    gorvanet_dbus_set_timeout(0);
    gorvanet_dbus_check_senders(nullptr, nullptr);
}

void *DBusTest::join(const char *name)
{
    void *user = gorvanet_dbus_add_user(name);
    EXPECT_TRUE(user) << name;
    bool started = gorvaNet_base.state == GORVANET_STATE_BASE_INIT || gorvanet_initialize() == 0;
    EXPECT_TRUE(started);
    EXPECT_EQ(gorvaNet_regUser_msgMngt(user, nullptr, nullptr, GORVANET_SELECT_BOTH), 0U);
    return user;
}

uint32_t DBusTest::send_mtu(uint32_t mtu, const char *server)
{
    return gorvaNet_sendReq_setMtu(client, on_result, nullptr, this, server, mtu);
}

uint32_t DBusTest::send_one_way(uint32_t value, const char *server)
{
    return gorvaNet_sendReq_configureAllIPv6Intf(client, nullptr, server, value);
}

bool DBusTest::turn_until(const std::function<bool()> &condition)
{
    auto end = Clock::now() + patience;
    while (!condition()) {
        if (Clock::now() > end)
            return false;
        gorvanet_dbus_turn(10);
    }
    return true;
}

bool DBusTest::settle()
{
    return turn_until([] { return gorvanet_dbus_open_messages() == 0; });
}

uint32_t DBusTest::count(gorvanet_dbus_kind kind) const
{
    uint32_t found = 0;
    for (const Seen &event : seen)
        found += event.kind == kind;
    return found;
}

Seen DBusTest::only(gorvanet_dbus_kind kind) const
{
    EXPECT_EQ(count(kind), 1U);
    for (const Seen &event : seen)
        if (event.kind == kind)
            return event;
    return {};
}

void DBusTest::serve(const Gate &ready, Manner manner, const std::function<void(void *user)> &prepare)
{
    gorvanet_dbus_observe([](void *, const gorvanet_dbus_event *) {}, nullptr);
    void *user = join("service");
    bool serves = gorvaNet_modSrv_recvMsg_setMtu(user, handlers[static_cast<int>(manner)], nullptr, nullptr) == 0;
    if (prepare)
        prepare(user);
    if (!serves || HasFailure())
        _exit(EXIT_FAILURE);
    ready.open();
    gorvanet_dbus_run();
    _exit(EXIT_SUCCESS);
}
