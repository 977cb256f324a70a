// Messages on their way: requests with their contexts, responses and notifications, from the encoder of one side to the
// decoder of the other. How the bytes get there is the transport's.
//
// A request passes through these stages; a notification, and a request that awaits no answer, end after the second.
//
//     sent ── arrives ──► handed over ── handler returned, no answer yet ──► waiting
//                             │                                                 │
//                             └──────────────── response ───────────────────────┴──► answered ── arrives ──► end
//
// Where both sides live in one process, one message goes all the way. Between processes each side has a message of its
// own: the client's stays `sent` until the response is there, the service's begins when it arrives and ends with the
// response.

#ifndef GORVANET_HOSTS_MESSAGE_H
#define GORVANET_HOSTS_MESSAGE_H

#include "body.h"
#include "middleware.h"
#include "registry.h"
#include "report.h"

#include <cstdint>
#include <string>

namespace host {

enum class Stage { sent, handed_over, waiting, answered, ended };

struct Message {
    uint32_t number;
    Stage stage;
    bool is_notification;
    bool awaits_answer;
    uint16_t interface_number;
    uint32_t method_index;
    MethodRecord method; // a copy: the interface may be gone before the message ends
    uint32_t sender;     // user numbers, 0 for one of another process, and names for the reports
    uint32_t server;
    std::string sender_name;
    std::string server_name;
    Receiver *receiver; // where the sender takes the answer
    RequestContext context;
    const void *body; // while it is handed over: the request or response that the other side borrows
    Bytes bytes;
    // The transport's own, null where it has none; they end with the message.
    Owned received_call; // of a request from another process, to be answered
    Owned awaited_reply; // of a request to another process
};

// ---- The table of open messages -------------------------------------------------------------------------------------

// Result: the message, now in the table under its number.
Message &keep_message(Message &&message);
uint32_t next_message_number();
Message *find_message(uint32_t number); // null: it has ended, or never was
bool was_a_message(uint32_t number);
void end_message(uint32_t number);
uint32_t open_messages();

// A message of a user; its number, and what it brings or takes along, is still to come.
Message new_message(const User &sender, const Interface &interface, uint32_t method, const MethodRecord &record);

// Ends the requests that wait for this user, which is about to be removed, and those that it waits for itself.
void end_messages_of(const User &user);

// Ends the requests that this user has sent to other processes and that have no answer yet.
void end_requests_of(const User &user);

// Reports and releases all messages.
void drop_messages();

// ---- Reports --------------------------------------------------------------------------------------------------------

void report_message(Kind kind, uint32_t direction, const Message &message, const Bytes &bytes, uint32_t status = 0,
                    const char *text = "");
void report_status(const Message &message, uint32_t status, const char *text);

// An encoder or decoder refused.
void report_refused(Kind kind, uint32_t direction, const Message &message, const Bytes &bytes, uint32_t status);

// Also tells the other side, where the message was received from one.
void end_undeliverable(Message &message, uint32_t direction, const Bytes &bytes, const char *reason);

// ---- There: delivery.cpp --------------------------------------------------------------------------------------------

// What a sender says about its request, besides the body.
struct Request {
    Receiver *receiver; // null: no answer is awaited
    RequestContext context;
    const char *server;
};

// Result: the running number; 0 after a report when it cannot be sent.
uint32_t send_request(const User &sender, const Interface &interface, uint32_t method, const Body &body,
                      const Request &request);
uint32_t send_notification(const User &sender, const Interface &interface, uint32_t method, const Body &body);

// A request has arrived: hands it over to the user of its server's name, or ends it with a report.
void deliver_request(Message &message);

// A notification has arrived for this user: hands it over if the user accepts it. Result: whether it does.
bool deliver_notification(Message &message, const User &user);

// ---- And back: answer.cpp -------------------------------------------------------------------------------------------

// A handler's answer, or an answer to a request context. A body that comes with status 0 is owned from here on.
void answer(void *message, void *body, uint32_t status);

bool awaits_answer(void *message);

// A response has arrived, in the message's bytes: hands it over to the sender of the request, and ends the message.
void deliver_response(Message &message);

} // namespace host

#endif
