// The users' connections to the bus, each with its name, objects and subscriptions.

#ifndef GORVANET_HOSTS_DBUS_CONNECTION_H
#define GORVANET_HOSTS_DBUS_CONNECTION_H

#include "registry.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <systemd/sd-bus.h>
#include <vector>

namespace dbus {

// What a user listens to. It stays until the user ends; what arrives and is accepted no longer is dropped then.
struct Subscription {
    uint32_t user;
    std::string from;
    std::string interface;
    std::string method;
};

struct Connection {
    uint32_t user;
    sd_bus *bus = nullptr; // null, or ended, while the bus is lost
    sd_event_source *retry = nullptr;
    std::map<std::string, uint32_t> uids = {}; // of those that have sent something, by their unique names
    std::vector<std::unique_ptr<Subscription>> subscriptions = {};
};

// Connects a user and takes its name. Result: 0 or a negative error number.
int open_connection(const host::User &user);
void close_connection(uint32_t user);
Connection *find_connection(uint32_t user);

// Result: 0 or a negative error number.
int subscribe(uint32_t user, const Subscription &subscription);

void set_address(const char *address);

} // namespace dbus

#endif
