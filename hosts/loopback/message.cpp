#include "message.h"

#include "report.h"

#include <map>
#include <utility>

namespace loopback {

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

Message &keep_message(Message message)
{
    uint32_t number = message.number;
    return messages()[number] = std::move(message);
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

void end_messages_of(const User &user)
{
    for (auto next = messages().begin(); next != messages().end();) {
        const Message &message = (next++)->second;
        if (message.stage == Stage::waiting && (message.sender == user.number || message.server == user.number))
            end_undeliverable(message, GORVANET_BODY_RESPONSE, {}, "a user was removed before the answer");
    }
}

void drop_messages()
{
    while (!messages().empty()) {
        const Message &message = messages().begin()->second;
        bool forth = message.stage == Stage::queued;
        end_undeliverable(message, forth ? GORVANET_BODY_REQUEST : GORVANET_BODY_RESPONSE, message.bytes,
                          forth                              ? "the host was torn down before its turn"
                          : message.stage == Stage::answered ? "the host was torn down before the response's turn"
                                                             : "the host was torn down before the answer");
    }
}

// ---- Reports --------------------------------------------------------------------------------------------------------

void report_message(gorvanet_loopback_kind kind, uint32_t direction, const Message &message, const Bytes &bytes,
                    uint32_t status, const char *text)
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
    messages().erase(message.number);
}

} // namespace loopback

uint32_t gorvanet_loopback_open_messages()
{
    return static_cast<uint32_t>(loopback::messages().size());
}

int32_t gorvanet_loopback_remove_user(void *handle)
{
    if (loopback::refuse_in_observer())
        return GORVANET_LOOPBACK_BUSY;
    loopback::User *user = loopback::find_user(loopback::number_of(loopback::HandleKind::user, handle));
    if (!user) {
        loopback::report_misuse("gorvanet_loopback_remove_user: user %p is unknown", handle);
        return GORVANET_LOOPBACK_UNKNOWN_USER;
    }
    loopback::end_messages_of(*user);
    loopback::remove_user(*user);
    return 0;
}
