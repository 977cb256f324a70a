#include "loop.h"

#include "gorvanet_dbus.h"
#include "life.h"

#include <new>

namespace dbus {

namespace {

sd_event *loop;
bool stopped;

// Result: whether something happened.
bool take_turn(uint64_t microseconds)
{
    host::InTurn in_turn;
    int result = sd_event_run(event_loop(), microseconds);
    if (result < 0)
        stopped = true;
    return result != 0;
}

} // namespace

sd_event *event_loop()
{
    if (!loop && sd_event_default(&loop) < 0)
        throw std::bad_alloc();
    return loop;
}

void drop_event_loop()
{
    loop = sd_event_unref(loop);
}

} // namespace dbus

using namespace dbus;

int32_t gorvanet_dbus_run()
{
    if (host::refuse_when_busy(__func__))
        return GORVANET_DBUS_BUSY;
    stopped = false;
    while (!stopped)
        take_turn(UINT64_MAX);
    return GORVANET_DBUS_STOPPED;
}

int32_t gorvanet_dbus_turn(uint32_t milliseconds)
{
    if (host::refuse_when_busy(__func__))
        return GORVANET_DBUS_BUSY;
    return take_turn(uint64_t{milliseconds} * 1000) ? GORVANET_DBUS_STOPPED : GORVANET_DBUS_IDLE;
}

void gorvanet_dbus_stop()
{
    stopped = true;
}
