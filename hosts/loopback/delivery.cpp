// Requests and notifications: from the sender's body to the receive function on the other side.

#include "loop.h"
#include "message.h"

#include <utility>
#include <vector>

namespace loopback {

namespace {

// ---- Sending --------------------------------------------------------------------------------------------------------

uint32_t send_message(Message message, const Body &body)
{
    message.number = next_message_number();
    uint32_t status = body.encode(message.bytes);
    if (status) {
        report_refused(GORVANET_LOOPBACK_UNENCODABLE, GORVANET_BODY_REQUEST, message, message.bytes, status);
        return 0;
    }
    Message &queued = keep_message(std::move(message));
    queue_message(queued.number);
    report_message(GORVANET_LOOPBACK_SENT, GORVANET_BODY_REQUEST, queued, queued.bytes);
    return queued.number;
}

Message new_message(const User &sender, const Interface &interface, uint32_t method, const Body &body)
{
    Message message = {};
    message.stage = Stage::queued;
    message.interface_number = interface.number;
    message.method_index = method;
    message.method = body.method();
    message.sender = sender.number;
    message.sender_name = sender.name;
    return message;
}

// ---- Handing over a request or notification -------------------------------------------------------------------------

// Calls the receive function of the method's row. A handler may change what its user accepts, and so end `accepted`:
// nothing reads it behind the call.
void hand_over(Message &message, const Bytes &bytes, const Accepted &accepted)
{
    gorvaNet_recvReq *receive = method_rows(*accepted.block)[accepted.method].recvReq;
    if (!receive) {
        report_message(GORVANET_LOOPBACK_UNDELIVERABLE, GORVANET_BODY_REQUEST, message, bytes, 0,
                       "the method's row has no receive function");
        return;
    }
    Body body(message.method, GORVANET_BODY_REQUEST, nullptr);
    uint32_t status = body.decode(bytes);
    if (status) {
        report_refused(GORVANET_LOOPBACK_UNDECODABLE, GORVANET_BODY_REQUEST, message, bytes, status);
        return;
    }
    report_message(GORVANET_LOOPBACK_DELIVERED, GORVANET_BODY_REQUEST, message, bytes);
    uint32_t number = message.number;
    message.stage = Stage::handed_over;
    message.body = body.get();
    receive(to_handle(HandleKind::message, number), body.get(), accepted.handler, accepted.data);
    if (Message *still = find_message(number))
        still->body = nullptr;
}

// After the handler: a response is on its way, or is still to come, or there is nothing more to do.
void settle_request(uint32_t number)
{
    Message *message = find_message(number);
    if (!message || message->stage == Stage::answered)
        return;
    if (message->stage != Stage::handed_over || !message->receiver)
        end_message(number);
    else if (!find_user(message->server) || !find_user(message->sender))
        end_undeliverable(*message, GORVANET_BODY_RESPONSE, {}, "a user was removed before the answer");
    else
        message->stage = Stage::waiting;
}

void deliver_request(Message &message)
{
    Bytes bytes = std::move(message.bytes);
    User *server = find_user(message.server_name);
    if (!server)
        return end_undeliverable(message, GORVANET_BODY_REQUEST, bytes, "there is no user of this name");
    if (!server->is_attached(message.interface_number))
        return end_undeliverable(message, GORVANET_BODY_REQUEST, bytes, "the user is not attached to the interface");
    uint32_t number = message.number;
    message.server = server->number;
    if (const Accepted *accepted = server->find_accepted(message.interface_number, message.method_index, ""))
        hand_over(message, bytes, *accepted);
    else
        report_status(message, answer_unhandled_message, "the user has not accepted the method");
    settle_request(number);
}

std::vector<uint32_t> subscribers_of(const Message &message)
{
    std::vector<uint32_t> found;
    for (const auto &[number, user] : users())
        if (user.find_accepted(message.interface_number, message.method_index, message.sender_name))
            found.push_back(number);
    return found;
}

// One after the other under the message's one number. A handler may remove a later receiver.
void deliver_notification(Message &message)
{
    Bytes bytes = std::move(message.bytes);
    uint32_t number = message.number;
    std::vector<uint32_t> subscribers = subscribers_of(message);
    report_message(GORVANET_LOOPBACK_NOTIFIED, GORVANET_BODY_REQUEST, message, bytes,
                   static_cast<uint32_t>(subscribers.size()));
    for (uint32_t subscriber : subscribers) {
        User *user = find_user(subscriber);
        const Accepted *accepted =
            user ? user->find_accepted(message.interface_number, message.method_index, message.sender_name) : nullptr;
        if (!accepted)
            continue;
        message.server_name = user->name;
        hand_over(message, bytes, *accepted);
    }
    end_message(number);
}

} // namespace

uint32_t send_request(const User &sender, const Interface &interface, uint32_t method, const Body &body,
                      const Request &request)
{
    Message message = new_message(sender, interface, method, body);
    message.server_name = request.server;
    message.receiver = request.receiver;
    message.context = request.context;
    return send_message(std::move(message), body);
}

uint32_t send_notification(const User &sender, const Interface &interface, uint32_t method, const Body &body)
{
    Message message = new_message(sender, interface, method, body);
    message.is_notification = true;
    return send_message(std::move(message), body);
}

void advance_message(uint32_t number)
{
    Message *message = find_message(number);
    if (!message)
        return;
    if (message->stage == Stage::answered)
        deliver_response(*message);
    else if (message->is_notification)
        deliver_notification(*message);
    else
        deliver_request(*message);
}

} // namespace loopback
