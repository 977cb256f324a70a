// Bytes are carried by a queue in memory: what is sent, or answered, arrives on a later turn.

#include "transport.h"

#include "failures.h"
#include "loop.h"
#include "message.h"
#include "registry.h"

#include <vector>

namespace loopback {

namespace {

using host::Message;
using host::User;

std::vector<uint32_t> subscribers_of(const Message &message)
{
    std::vector<uint32_t> found;
    for (const auto &[number, user] : host::users())
        if (user.find_accepted(message.interface_number, message.method_index, message.sender_name))
            found.push_back(number);
    return found;
}

// One after the other under the message's one number. A handler may remove a later receiver.
void notify_all(Message &message)
{
    uint32_t number = message.number;
    std::vector<uint32_t> subscribers = subscribers_of(message);
    report_message(host::Kind::notified, GORVANET_BODY_REQUEST, message, message.bytes,
                   static_cast<uint32_t>(subscribers.size()));
    for (uint32_t subscriber : subscribers)
        if (const User *user = host::find_user(subscriber))
            deliver_notification(message, *user);
    host::end_message(number);
}

} // namespace

void advance_message(uint32_t number)
{
    Message *message = host::find_message(number);
    if (!message || host::fails(*message))
        return;
    if (message->stage == host::Stage::answered)
        deliver_response(*message);
    else if (message->is_notification)
        notify_all(*message);
    else
        deliver_request(*message);
}

} // namespace loopback

namespace host::transport {

const char *const name = "loopback";

bool connect(const User &, const char *)
{
    return true;
}

void disconnect(const User &)
{
}

bool subscribe(const User &, const Accepted &, const char *)
{
    return true;
}

bool send(Message &message)
{
    loopback::queue_message(message.number);
    report_message(Kind::sent, GORVANET_BODY_REQUEST, message, message.bytes);
    return true;
}

bool respond(Message &message)
{
    loopback::queue_message(message.number);
    report_message(Kind::answered, GORVANET_BODY_RESPONSE, message, message.bytes);
    return true;
}

// Nothing is received from other processes.
void respond_nothing(Message &, uint32_t, const char *)
{
}

void confirm(Message &)
{
}

void tear_down()
{
    loopback::drop_turns();
}

} // namespace host::transport
