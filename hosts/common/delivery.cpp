// Requests and notifications: from the sender's body to the receive function on the other side.

#include "message.h"
#include "transport.h"

#include <utility>

namespace host {

namespace {

// ---- Sending --------------------------------------------------------------------------------------------------------

uint32_t send_message(Message message, const Body &body)
{
    message.number = next_message_number();
    uint32_t status = body.encode(message.bytes);
    if (status) {
        report_refused(Kind::unencodable, GORVANET_BODY_REQUEST, message, message.bytes, status);
        return 0;
    }
    uint32_t number = message.number;
    if (transport::send(keep_message(std::move(message))))
        return number;
    end_message(number);
    return 0;
}

// ---- Handing over a request or notification -------------------------------------------------------------------------

// A received request ends without a response. The reason was reported.
void refuse(Message &message, const char *reason)
{
    if (message.received_call)
        transport::respond_nothing(message, 0, reason);
}

// Calls the receive function of the method's row. A handler may change what its user accepts, and so end `accepted`:
// nothing reads it behind the call.
void hand_over(Message &message, const Bytes &bytes, const Accepted &accepted)
{
    gorvaNet_recvReq *receive = method_rows(*accepted.block)[accepted.method].recvReq;
    if (!receive) {
        constexpr const char *reason = "the method's row has no receive function";
        report_message(Kind::undeliverable, GORVANET_BODY_REQUEST, message, bytes, 0, reason);
        return refuse(message, reason);
    }
    Body body(message.method, GORVANET_BODY_REQUEST, nullptr);
    uint32_t status = body.decode(bytes);
    if (status) {
        report_refused(Kind::undecodable, GORVANET_BODY_REQUEST, message, bytes, status);
        return refuse(message, "the decoder refuses the body");
    }
    report_message(Kind::delivered, GORVANET_BODY_REQUEST, message, bytes);
    uint32_t number = message.number;
    message.stage = Stage::handed_over;
    message.body = body.get();
    receive(to_handle(HandleKind::message, number), body.get(), accepted.handler, accepted.data);
    if (Message *still = find_message(number))
        still->body = nullptr;
}

bool is_gone(uint32_t user)
{
    return user && !find_user(user);
}

// After the handler: a response is on its way, or is still to come, or there is nothing more to do.
void settle_request(uint32_t number)
{
    Message *message = find_message(number);
    if (!message || message->stage == Stage::answered)
        return;
    if (message->stage == Stage::handed_over && message->awaits_answer) {
        if (is_gone(message->server) || is_gone(message->sender))
            end_undeliverable(*message, GORVANET_BODY_RESPONSE, {}, "a user was removed before the answer");
        else
            message->stage = Stage::waiting;
        return;
    }
    if (message->stage == Stage::handed_over)
        transport::confirm(*message);
    end_message(number);
}

} // namespace

uint32_t send_request(const User &sender, const Interface &interface, uint32_t method, const Body &body,
                      const Request &request)
{
    Message message = new_message(sender, interface, method, body.method());
    message.server_name = request.server;
    message.awaits_answer = request.receiver;
    message.receiver = request.receiver;
    message.context = request.context;
    return send_message(std::move(message), body);
}

uint32_t send_notification(const User &sender, const Interface &interface, uint32_t method, const Body &body)
{
    Message message = new_message(sender, interface, method, body.method());
    message.is_notification = true;
    return send_message(std::move(message), body);
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
    if (const Accepted *accepted = server->find_accepted(message.interface_number, message.method_index, "")) {
        hand_over(message, bytes, *accepted);
    } else {
        report_status(message, answer_unhandled_message, "the user has not accepted the method");
        if (message.received_call)
            transport::respond_nothing(message, answer_unhandled_message, "");
    }
    settle_request(number);
}

bool deliver_notification(Message &message, const User &user)
{
    const Accepted *accepted = user.find_accepted(message.interface_number, message.method_index, message.sender_name);
    if (!accepted)
        return false;
    message.server_name = user.name;
    hand_over(message, message.bytes, *accepted);
    return true;
}

} // namespace host
