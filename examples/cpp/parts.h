// The two halves of the example. On a real bus each is a process of its own; `user` is its user on the bus.

#ifndef EXAMPLE_PARTS_H
#define EXAMPLE_PARTS_H

#include "gorvanet.h"

// Keeps an MTU, tells it on request, and notifies everybody who wants to know when it was set.
class Service {
public:
    explicit Service(void *bus_user) : user(bus_user)
    {
    }

    // Result: 0, or an error code of the library.
    int start();

private:
    static void set_mtu(void *message, void *data, uint32_t mtu);
    static void get_ipv4_props(void *message, void *data);
    void notify_prefix_status();

    void *user;
    uint32_t mtu = 1500;
};

// Sets the MTU, asks for the IPv4 properties, and listens for the status of IPv6 prefixes.
class Client {
public:
    Client(void *bus_user, const char *service_name) : user(bus_user), service(service_name)
    {
    }

    // Result: 0, or an error code of the library.
    int start();

    int received = 0; // answers and notifications that have come

private:
    static void on_mtu_set(void *context, void *user_data, uint32_t result);
    static void on_ipv4_props(void *context, void *user_data, const ipv4_properties *properties, uint32_t result);
    static void on_prefix_status(void *message, void *data, const char *name, const ipv6_prefixes *prefixes);

    void *user;
    const char *service;
};

#endif
