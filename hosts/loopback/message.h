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
#include "gorvanet_loopback.h"
#include "middleware.h"
#include "registry.h"

#include <cstdint>
#include <string>

namespace loopback {

enum class Stage { queued, handed_over, waiting, answered, ended };

struct Message {
    uint32_t number;
    Stage stage;
    bool is_notification;
    uint16_t interface_number;
    uint32_t method_index;
    MethodRecord method; // a copy: the interface may be gone before the message ends
    uint32_t sender;     // user numbers, and names for the reports
    uint32_t server;
    std::string sender_name;
    std::string server_name;
    Receiver *receiver; // null: no answer is awaited
    RequestContext context;
    const void *body; // while it is handed over: the request or response that the other side borrows
    Bytes bytes;
};

// ---- The table of open messages -------------------------------------------------------------------------------------

// Result: the message, now in the table under its number.
Message &keep_message(Message message);
uint32_t next_message_number();
Message *find_message(uint32_t number); // null: it has ended, or never was
bool was_a_message(uint32_t number);
void end_message(uint32_t number);

// Ends the requests that wait for this user, which is about to be removed, and those that it waits for itself.
void end_messages_of(const User &user);

// Reports and releases all messages.
void drop_messages();

// ---- Reports --------------------------------------------------------------------------------------------------------

void report_message(gorvanet_loopback_kind kind, uint32_t direction, const Message &message, const Bytes &bytes,
                    uint32_t status = 0, const char *text = "");
void report_status(const Message &message, uint32_t status, const char *text);

// An encoder or decoder refused.
void report_refused(gorvanet_loopback_kind kind, uint32_t direction, const Message &message, const Bytes &bytes,
                    uint32_t status);

void end_undeliverable(const Message &message, uint32_t direction, const Bytes &bytes, const char *reason);

// ---- There: delivery.cpp --------------------------------------------------------------------------------------------

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

// One turn of a message.
void advance_message(uint32_t number);

// ---- And back: answer.cpp -------------------------------------------------------------------------------------------

// A handler's answer, or an answer to a request context. A body that comes with status 0 is owned from here on.
void answer(void *message, void *body, uint32_t status);

bool awaits_answer(void *message);

void deliver_response(Message &message);

} // namespace loopback

#endif
