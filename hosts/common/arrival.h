// What arrives from other processes. Its senders are not trusted: every body passes the guard before anything decodes
// it, and whatever is wrong ends in a report and in transport::respond_nothing.

#ifndef GORVANET_HOSTS_ARRIVAL_H
#define GORVANET_HOSTS_ARRIVAL_H

#include "body.h"
#include "registry.h"

#include <cstdint>
#include <span>

namespace host {

// The longest body that is sent or taken. The library's own are shorter by far.
constexpr uint32_t largest_body = 65536;

// The texts are the caller's, and none of them is null.
struct Arrival {
    const char *sender; // for the reports; of a notification the name of the user that it comes from
    const char *interface;
    const char *method;
    std::span<const uint8_t> bytes;
};

// A request for one of this process's users. `call` is what the transport answers it with.
void receive_request(const User &server, const Arrival &arrival, bool awaits_answer, Owned call);

// A request that the transport has refused by itself.
void report_refusal(const User &server, const Arrival &arrival, const char *reason);

void receive_notification(const User &subscriber, const Arrival &arrival);

// What comes back for a request of this process. Numbers of messages that have ended are ignored.
void receive_response(uint32_t number, std::span<const uint8_t> bytes);
void receive_status(uint32_t number, uint32_t status);
void receive_confirmation(uint32_t number); // handed over; no answer is awaited
void receive_failure(uint32_t number, uint32_t direction, const char *reason);

} // namespace host

#endif
