// The event loop, which is the thread's own.

#ifndef GORVANET_HOSTS_DBUS_LOOP_H
#define GORVANET_HOSTS_DBUS_LOOP_H

#include <systemd/sd-event.h>

namespace dbus {

// The process ends where there is no memory for it.
sd_event *event_loop();

void drop_event_loop();

} // namespace dbus

#endif
