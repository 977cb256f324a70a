// The end-to-end suite over the D-Bus host: both users in this process, the bus in another one.

#include "endtoend/bus.h"

#include "daemon.h"
#include "gorvanet_dbus.h"
#include "support/long_form.h"

namespace {

Daemon &daemon_of_suite()
{
    static Daemon daemon;
    return daemon;
}

} // namespace

// The long form makes more than 10^5 round trips, nine requests of a round being answered.
const unsigned bus_rounds = by_form(100, 11200);

void *add_bus_user(const char *name)
{
    gorvanet_dbus_set_address(daemon_of_suite().address().c_str());
    return gorvanet_dbus_add_user(name);
}

// The notification is sent before the service's answers, so it is here when they are.
bool carry_everything()
{
    constexpr uint32_t patience = 10000; // milliseconds
    while (gorvanet_dbus_open_messages())
        if (gorvanet_dbus_turn(patience) != GORVANET_DBUS_STOPPED)
            return false;
    return true;
}

uint32_t open_messages()
{
    return gorvanet_dbus_open_messages();
}

int32_t tear_bus_down()
{
    return gorvanet_dbus_tear_down();
}
