// A client that uses every command of the service and listens to its notification.

#ifndef GORVANET_DEMO_CLIENT_H
#define GORVANET_DEMO_CLIENT_H

#include "gorvanet.h"

#include <string>

namespace demo {

struct Client {
    void *user;      // on the bus
    void (*carry)(); // lets the bus carry what was sent, and all that follows
    std::string name = "client";
    std::string interface = "eth0";

    // What has come back
    unsigned answers = 0;
    unsigned notifications = 0;
    bool as_expected = true; // all of it was what the client had set, or asked for
};

constexpr unsigned answered_methods = 9;

// Attaches the client's user to the interface.
bool attach(const Client &client);

// The same, and accepts the notification of the user "service".
bool start(Client &client);

// The first command, SetOsIfc, with all that follows from it.
void choose_interface(Client &client);

// The other eleven, one after the other, each with all that follows from it. Everything that the callbacks are given is
// checked.
void use_everything(Client &client);

// Uses the service in ways that fail: no server name, nobody of that name, nobody who serves.
void fail_on_purpose(Client &client);

} // namespace demo

#endif
