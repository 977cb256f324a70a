#include "message.h"

#include "transport.h"

#include <map>
#include <utility>

namespace host {

namespace {

// Made on first use and never ended, as the tables of the registry.
std::map<uint32_t, Message> &messages()
{
    static auto &table = *new std::map<uint32_t, Message>;
    return table;
}

uint32_t last_message_number;
bool numbers_came_around;

} // namespace

Message &keep_message(Message &&message)
{
    return messages().insert_or_assign(message.number, std::move(message)).first->second;
}

uint32_t next_message_number()
{
    do {
        numbers_came_around |= last_message_number == last_handle_number;
        last_message_number = last_message_number % last_handle_number + 1;
    } while (messages().contains(last_message_number));
    return last_message_number;
}

Message *find_message(uint32_t number)
{
    auto found = messages().find(number);
    return found == messages().end() ? nullptr : &found->second;
}

bool was_a_message(uint32_t number)
{
    return number && (numbers_came_around || number <= last_message_number);
}

void end_message(uint32_t number)
{
    messages().erase(number);
}

uint32_t open_messages()
{
    return static_cast<uint32_t>(messages().size());
}

Message new_message(const User &sender, const Interface &interface, uint32_t method, const MethodRecord &record)
{
    Message message = {};
    message.stage = Stage::sent;
    message.interface_number = interface.number;
    message.method_index = method;
    message.method = record;
    message.sender = sender.number;
    message.sender_name = sender.name;
    return message;
}

void end_messages_of(const User &user)
{
    for (auto next = messages().begin(); next != messages().end();) {
        Message &message = (next++)->second;
        if (message.stage == Stage::waiting && (message.sender == user.number || message.server == user.number))
            end_undeliverable(message, GORVANET_BODY_RESPONSE, {}, "a user was removed before the answer");
    }
}

void end_requests_of(const User &user)
{
    for (auto next = messages().begin(); next != messages().end();) {
        Message &message = (next++)->second;
        if (message.awaited_reply && message.sender == user.number)
            end_undeliverable(message, GORVANET_BODY_RESPONSE, {}, "the user was removed before the answer");
    }
}

void drop_messages()
{
    while (!messages().empty()) {
        Message &message = messages().begin()->second;
        bool forth = message.stage == Stage::sent && !message.awaited_reply;
        end_undeliverable(message, forth ? GORVANET_BODY_REQUEST : GORVANET_BODY_RESPONSE, message.bytes,
                          forth                              ? "the host was torn down before its turn"
                          : message.stage == Stage::answered ? "the host was torn down before the response's turn"
                                                             : "the host was torn down before the answer");
    }
}

// ---- Reports --------------------------------------------------------------------------------------------------------

void report_message(Kind kind, uint32_t direction, const Message &message, const Bytes &bytes, uint32_t status,
                    const char *text)
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
    report_message(Kind::status, GORVANET_BODY_RESPONSE, message, {}, status, text);
}

void report_refused(Kind kind, uint32_t direction, const Message &message, const Bytes &bytes, uint32_t status)
{
    report_message(kind, direction, message, bytes, status,
                   status == empty_result ? "the callback reports success and gives nothing" : "");
}

void end_undeliverable(Message &message, uint32_t direction, const Bytes &bytes, const char *reason)
{
    report_message(Kind::undeliverable, direction, message, bytes, 0, reason);
    if (message.received_call)
        transport::respond_nothing(message, 0, reason);
    messages().erase(message.number);
}

} // namespace host
