// What the bus calls: requests at a user's objects, notifications, and replies.

#ifndef GORVANET_HOSTS_DBUS_INCOMING_H
#define GORVANET_HOSTS_DBUS_INCOMING_H

#include "gorvanet_dbus.h"

#include <systemd/sd-bus.h>

namespace dbus {

// Handlers of sd-bus. Their data: of a request the number of the user that is called, of a signal its Subscription, of
// a reply the number of the message.
int on_ask(sd_bus_message *call, void *user, sd_bus_error *) noexcept;
int on_tell(sd_bus_message *call, void *user, sd_bus_error *) noexcept;
int on_signal(sd_bus_message *signal, void *subscription, sd_bus_error *) noexcept;
int on_response(sd_bus_message *reply, void *message, sd_bus_error *) noexcept;
int on_confirmation(sd_bus_message *reply, void *message, sd_bus_error *) noexcept;

void check_senders(gorvanet_dbus_check *check, void *data);

} // namespace dbus

#endif
