// What a host adds to the common part: how messages travel. The common part calls these functions, and each host
// defines them. hosts/README.md tells the whole road.

#ifndef GORVANET_HOSTS_TRANSPORT_H
#define GORVANET_HOSTS_TRANSPORT_H

#include <cstdint>

namespace host {

struct Accepted;
struct Message;
struct User;

namespace transport {

extern const char *const name; // begins the host's lines on stderr

// A user comes. False, after a report: the bus does not take it.
bool connect(const User &user, const char *caller);

// A user goes, with what it has on its way.
void disconnect(const User &user);

// A user wants this notification. False, after a report: the bus refuses.
bool subscribe(const User &user, const Accepted &accepted, const char *caller);

// Sends a request or notification, encoded in the message's bytes, and reports that. False, after a report that says
// why: it was not sent, and ends. What is sent ends by itself or with deliver_response.
bool send(Message &message);

// Takes a response back to where the request came from, encoded in the message's bytes, and reports that. True: the
// message is still on its way; false: it ends.
bool respond(Message &message);

// A request that was received from another process ends without a response, for the reason that was just reported:
// a status of the library, or 0 and a text.
void respond_nothing(Message &message, uint32_t status, const char *reason);

// A request that awaits no answer was handed over.
void confirm(Message &message);

// Everything ends; users and messages are gone already.
void tear_down();

} // namespace transport

} // namespace host

#endif
