// Messages on their way: requests with their contexts, responses and notifications, from the encoder of one side to the
// decoder of the other. This is the transport: bytes are carried by a queue in memory.
//
// A request passes through these stages; a notification, and a request that awaits no answer, end after the second.
//
//     queued ── turn ──► handed over ── handler returned, no answer yet ──► waiting
//                             │                                                │
//                             └──────────────── response ──────────────────────┴──► answered ── turn ──► end

#ifndef GORVANET_LOOPBACK_MESSAGE_H
#define GORVANET_LOOPBACK_MESSAGE_H

#include "body.h"
#include "middleware.h"
#include "registry.h"

#include <cstdint>

namespace loopback {

// What a sender says about its request, besides the body.
struct Request {
    Receiver *receiver; // null: no answer is awaited
    RequestContext context;
    const char *server;
};

// Result: the running number; 0 after a report when the encoder fails.
uint32_t send_request(const User &sender, const Interface &interface, uint32_t method, const Body &body,
                      const Request &request);
uint32_t send_notification(const User &sender, const Interface &interface, uint32_t method, const Body &body);

// A handler's answer, or an answer to a request context. A body that comes with status 0 is owned from here on.
void answer(void *message, void *body, uint32_t status);

bool awaits_answer(void *message);

// One turn of a message.
void advance_message(uint32_t number);

// Ends the requests that wait for this user, which is about to be removed, and those that it waits for itself.
void end_messages_of(const User &user);

// Reports and releases all messages.
void drop_messages();

} // namespace loopback

#endif
