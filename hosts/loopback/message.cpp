#include "message.h"

#include "gorvanet_loopback.h"
#include "loop.h"
#include "report.h"

#include <iterator>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace loopback {

namespace {

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
    const void *body; // while handed over: what the receive function borrows
    Bytes bytes;
};

std::map<uint32_t, Message> messages;
uint32_t last_message_number;
bool numbers_came_around;
RequestContext *answering; // the context that a receiver borrows at present
const Message *answering_message;
const void *answering_body;

uint32_t next_message_number()
{
    do {
        numbers_came_around |= last_message_number == last_handle_number;
        last_message_number = last_message_number % last_handle_number + 1;
    } while (messages.count(last_message_number));
    return last_message_number;
}

Message *find_message(uint32_t number)
{
    auto found = messages.find(number);
    return found == messages.end() ? nullptr : &found->second;
}

bool was_a_message(uint32_t number)
{
    return number && (numbers_came_around || number <= last_message_number);
}

// ---- Reports --------------------------------------------------------------------------------------------------------

void report_message(gorvanet_loopback_kind kind, uint32_t direction, const Message &message, const Bytes &bytes,
                    uint32_t status = 0, const char *text = "")
{
    bool forth = direction == GORVANET_BODY_REQUEST;
    report({.kind = kind,
            .message = message.number,
            .method = message.method.name,
            .sender = forth ? message.sender_name.c_str() : message.server_name.c_str(),
            .receiver = forth ? message.server_name.c_str() : message.sender_name.c_str(),
            .direction = direction,
            .bytes = bytes.data.get(),
            .size = bytes.size,
            .status = status,
            .text = text});
}

void report_status(const Message &message, uint32_t status, const char *text)
{
    report_message(GORVANET_LOOPBACK_STATUS, GORVANET_BODY_RESPONSE, message, {}, status, text);
}

void report_refused(gorvanet_loopback_kind kind, uint32_t direction, const Message &message, const Bytes &bytes,
                    uint32_t status)
{
    report_message(kind, direction, message, bytes, status,
                   status == empty_result ? "the callback reports success and gives nothing" : "");
}

void end_undeliverable(const Message &message, uint32_t direction, const Bytes &bytes, const char *reason)
{
    report_message(GORVANET_LOOPBACK_UNDELIVERABLE, direction, message, bytes, 0, reason);
    messages.erase(message.number);
}

// ---- Sending --------------------------------------------------------------------------------------------------------

uint32_t send_message(Message message, const Body &body)
{
    message.number = next_message_number();
    uint32_t status = body.encode(message.bytes);
    if (status) {
        report_refused(GORVANET_LOOPBACK_UNENCODABLE, GORVANET_BODY_REQUEST, message, message.bytes, status);
        return 0;
    }
    Message &queued = messages[message.number] = std::move(message);
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

// Calls the receive function of the method's row. The message may have ended when this returns; `accepted` is a copy,
// since a handler may change what its user accepts.
void hand_over(Message &message, const Bytes &bytes, const Accepted accepted)
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
        messages.erase(number);
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
    for (auto &[number, user] : users())
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
    messages.erase(number);
}

// ---- Answers --------------------------------------------------------------------------------------------------------

void deliver_response(Message &entry)
{
    // The request ends here: what is asked about it from the callback on finds no open message.
    Message message = std::move(entry);
    messages.erase(message.number);
    const Bytes &bytes = message.bytes;
    User *client = find_user(message.sender);
    if (!client || !client->is_attached(message.interface_number)) {
        report_message(GORVANET_LOOPBACK_UNDELIVERABLE, GORVANET_BODY_RESPONSE, message, bytes, 0,
                       "the client was removed or detached before the answer");
        return;
    }
    Body body(message.method, GORVANET_BODY_RESPONSE, nullptr);
    uint32_t status = body.decode(bytes);
    if (status) {
        report_refused(GORVANET_LOOPBACK_UNDECODABLE, GORVANET_BODY_RESPONSE, message, bytes, status);
        return;
    }
    report_message(GORVANET_LOOPBACK_DELIVERED, GORVANET_BODY_RESPONSE, message, bytes);
    answering = &message.context;
    answering_message = &message;
    answering_body = body.get();
    message.receiver(nullptr, &message.context, body.get());
    answering = nullptr;
    answering_message = nullptr;
    answering_body = nullptr;
}

// A client that does not take its response says so. The response is freed where it was decoded, in any case.
void answer_context(const void *body, uint32_t status)
{
    if (status != answer_unhandled_message || (body && body != answering_body))
        report_misuse("zebCore_sendMsgRes: a request context takes status %u with its own body only",
                      answer_unhandled_message);
    else
        report_message(GORVANET_LOOPBACK_STATUS, GORVANET_BODY_RESPONSE, *answering_message, {}, status,
                       "nobody takes the response");
}

void answer_unhandled(Message &message, const void *body)
{
    if (body && body != message.body)
        report_misuse("zebCore_sendMsgRes: message %u: status %u comes with a body that is not the message's own",
                      message.number, answer_unhandled_message);
    report_status(message, answer_unhandled_message, "nobody handles the message");
    if (message.stage == Stage::waiting)
        messages.erase(message.number);
    else
        message.stage = Stage::ended;
}

void answer_normally(Message &message, void *pointer)
{
    if (!pointer) {
        report_misuse("zebCore_sendMsgRes: message %u: no body", message.number);
        return;
    }
    if (pointer == message.body) {
        report_misuse("zebCore_sendMsgRes: message %u: the request body is no response", message.number);
        return;
    }
    Body body(message.method, GORVANET_BODY_RESPONSE, pointer);
    if (!message.receiver) {
        report_misuse("zebCore_sendMsgRes: message %u wants no answer", message.number);
        return;
    }
    Bytes bytes;
    uint32_t status = body.encode(bytes);
    if (status) {
        report_refused(GORVANET_LOOPBACK_UNENCODABLE, GORVANET_BODY_RESPONSE, message, bytes, status);
        if (message.stage == Stage::waiting)
            messages.erase(message.number);
        else
            message.stage = Stage::ended;
        return;
    }
    message.bytes = std::move(bytes);
    message.stage = Stage::answered;
    queue_message(message.number);
    report_message(GORVANET_LOOPBACK_ANSWERED, GORVANET_BODY_RESPONSE, message, message.bytes);
}

bool is_answerable(const Message &message)
{
    return message.stage == Stage::handed_over || message.stage == Stage::waiting;
}

// A message that is known still says how its response is released.
void refuse_answer(const Message &message, void *body, uint32_t status)
{
    if (message.stage == Stage::queued)
        report_misuse("zebCore_sendMsgRes: message %u was not delivered yet", message.number);
    else
        report_misuse("zebCore_sendMsgRes: message %u was answered already", message.number);
    if (status == answer_normal)
        Body(message.method, GORVANET_BODY_RESPONSE, body);
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

void answer(void *handle, void *body, uint32_t status)
{
    if (handle && handle == answering)
        return answer_context(body, status);
    uint32_t number = number_of(HandleKind::message, handle);
    Message *message = find_message(number);
    if (!message) {
        report_misuse(was_a_message(number) ? "zebCore_sendMsgRes: message %u has ended already"
                                            : "zebCore_sendMsgRes: message %u is unknown",
                      number);
        return;
    }
    if (!is_answerable(*message))
        return refuse_answer(*message, body, status);
    if (status == answer_unhandled_message)
        return answer_unhandled(*message, body);
    if (status == answer_normal)
        return answer_normally(*message, body);
    report_misuse("zebCore_sendMsgRes: message %u: status %u is unknown", number, status);
}

bool awaits_answer(void *handle)
{
    uint32_t number = number_of(HandleKind::message, handle);
    if (const Message *message = find_message(number))
        return message->receiver && is_answerable(*message);
    if (!was_a_message(number))
        report_misuse("zebCore_isMsg_needRes: message %p is unknown", handle);
    return false;
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

void end_messages_of(const User &user)
{
    for (auto next = messages.begin(); next != messages.end();) {
        const Message &message = (next++)->second;
        if (message.stage == Stage::waiting && (message.sender == user.number || message.server == user.number))
            end_undeliverable(message, GORVANET_BODY_RESPONSE, {}, "a user was removed before the answer");
    }
}

void drop_messages()
{
    while (!messages.empty()) {
        const Message &message = messages.begin()->second;
        bool forth = message.stage == Stage::queued;
        end_undeliverable(message, forth ? GORVANET_BODY_REQUEST : GORVANET_BODY_RESPONSE, message.bytes,
                          forth                              ? "the host was torn down before its turn"
                          : message.stage == Stage::answered ? "the host was torn down before the response's turn"
                                                             : "the host was torn down before the answer");
    }
}

} // namespace loopback

uint32_t gorvanet_loopback_open_messages()
{
    return static_cast<uint32_t>(loopback::messages.size());
}

int32_t gorvanet_loopback_remove_user(void *handle)
{
    loopback::User *user = loopback::find_user(loopback::number_of(loopback::HandleKind::user, handle));
    if (!user) {
        loopback::report_misuse("gorvanet_loopback_remove_user: user %p is unknown", handle);
        return GORVANET_LOOPBACK_UNKNOWN_USER;
    }
    loopback::end_messages_of(*user);
    loopback::remove_user(*user);
    return 0;
}
