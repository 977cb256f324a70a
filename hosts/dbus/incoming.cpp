#include "incoming.h"

#include "arrival.h"
#include "connection.h"
#include "message.h"
#include "names.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <unistd.h>

namespace dbus {

namespace {

gorvanet_dbus_check *current_check;
void *check_data;

uint32_t to_number(void *pointer)
{
    return static_cast<uint32_t>(reinterpret_cast<uintptr_t>(pointer));
}

const char *present(const char *text)
{
    return text ? text : "";
}

// The encoded body that a message carries; nothing when it carries something else.
std::optional<std::span<const uint8_t>> body_of(sd_bus_message *message)
{
    const void *bytes = nullptr;
    size_t size = 0;
    if (!sd_bus_message_has_signature(message, "ay") || sd_bus_message_read_array(message, 'y', &bytes, &size) < 0)
        return {};
    return std::span(static_cast<const uint8_t *>(bytes), size);
}

host::Arrival arrival_of(sd_bus_message *message)
{
    return {.sender = present(sd_bus_message_get_sender(message)),
            .interface = interface_of(present(sd_bus_message_get_interface(message))),
            .method = present(sd_bus_message_get_member(message)),
            .bytes = {}};
}

// ---- Who may send ---------------------------------------------------------------------------------------------------

// The bus is asked once for each connection that sends; it never gives a unique name away twice.
std::optional<uint32_t> uid_of_sender(Connection &connection, sd_bus_message *call, const char *sender)
{
    constexpr size_t most_remembered = 1024;
    auto found = connection.uids.find(sender);
    if (found != connection.uids.end())
        return found->second;
    sd_bus_creds *credentials = nullptr;
    uid_t uid = 0;
    int result = sd_bus_query_sender_creds(call, SD_BUS_CREDS_EUID, &credentials);
    if (result >= 0)
        result = sd_bus_creds_get_euid(credentials, &uid);
    sd_bus_creds_unref(credentials);
    if (result < 0)
        return {};
    if (connection.uids.size() >= most_remembered)
        connection.uids.clear();
    connection.uids[sender] = uid;
    return uid;
}

bool may_send(Connection &connection, sd_bus_message *call, const host::User &user, const host::Arrival &arrival)
{
    std::optional<uint32_t> uid = uid_of_sender(connection, call, arrival.sender);
    if (!uid)
        return false;
    if (!current_check)
        return *uid == 0 || *uid == geteuid();
    gorvanet_dbus_sender sender = {.uid = *uid,
                                   .bus_name = arrival.sender,
                                   .user = user.name.c_str(),
                                   .interface = arrival.interface,
                                   .method = arrival.method};
    return current_check(check_data, &sender) != 0;
}

// ---- Requests -------------------------------------------------------------------------------------------------------

void release_call(void *call)
{
    sd_bus_message_unref(static_cast<sd_bus_message *>(call));
}

int take_request(sd_bus_message *call, void *number, bool awaits_answer)
{
    Connection *connection = find_connection(to_number(number));
    const host::User *user = host::find_user(to_number(number));
    if (!connection || !user || !sd_bus_message_is_method_call(call, nullptr, nullptr))
        return 0;
    host::Arrival arrival = arrival_of(call);
    // Peer and its kind: sd-bus knows them.
    if (!*arrival.interface)
        return 0;
    if (!may_send(*connection, call, *user, arrival)) {
        constexpr const char *reason = "the sender may not send this";
        report_refusal(*user, arrival, reason);
        return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_ACCESS_DENIED, "%s", reason);
    }
    if (auto bytes = body_of(call)) {
        arrival.bytes = *bytes;
        receive_request(*user, arrival, awaits_answer,
                        host::Owned(sd_bus_message_ref(call), host::Release{release_call}));
    } else {
        constexpr const char *reason = "the argument is no array of bytes";
        report_refusal(*user, arrival, reason);
        return sd_bus_reply_method_errorf(call, refused_error, "%s", reason);
    }
    return 1;
}

// ---- Replies --------------------------------------------------------------------------------------------------------

// Of an error's text, which is a peer's: enough for one line, and nothing that leaves it.
std::string one_line(const char *text)
{
    constexpr size_t longest = 500;
    std::string line(text, strnlen(text, longest));
    auto is_control = [](unsigned char character) { return character < ' ' || character == 0x7f; };
    std::replace_if(line.begin(), line.end(), is_control, '?');
    return line;
}

// A reply that is an error: a status, or the end of the request.
bool took_error(sd_bus_message *reply, uint32_t number)
{
    const sd_bus_error *error = sd_bus_message_get_error(reply);
    if (!error)
        return false;
    if (sd_bus_error_has_name(error, unhandled_error)) {
        host::receive_status(number, answer_unhandled_message);
    } else if (sd_bus_error_has_name(error, SD_BUS_ERROR_SERVICE_UNKNOWN) ||
               sd_bus_error_has_name(error, SD_BUS_ERROR_NAME_HAS_NO_OWNER)) {
        host::receive_failure(number, GORVANET_BODY_REQUEST, "there is no user of this name");
    } else {
        bool unanswered = sd_bus_error_has_name(error, SD_BUS_ERROR_NO_REPLY);
        std::string reason = std::string(present(error->name)) + ": " + one_line(present(error->message));
        host::receive_failure(number, unanswered ? GORVANET_BODY_RESPONSE : GORVANET_BODY_REQUEST, reason.c_str());
    }
    return true;
}

} // namespace

int on_ask(sd_bus_message *call, void *user, sd_bus_error *) noexcept
{
    return take_request(call, user, true);
}

int on_tell(sd_bus_message *call, void *user, sd_bus_error *) noexcept
{
    return take_request(call, user, false);
}

// The bus delivers a broadcast by the rule that names its sender's user. One that is sent to a single connection passes
// by the rules, and anybody can send it.
int on_signal(sd_bus_message *signal, void *data, sd_bus_error *) noexcept
{
    const auto &subscription = *static_cast<Subscription *>(data);
    const host::User *user = host::find_user(subscription.user);
    auto bytes = body_of(signal);
    if (!user || !bytes || sd_bus_message_get_destination(signal))
        return 0;
    receive_notification(
        *user, {subscription.from.c_str(), subscription.interface.c_str(), subscription.method.c_str(), *bytes});
    return 0;
}

int on_response(sd_bus_message *reply, void *message, sd_bus_error *) noexcept
{
    uint32_t number = to_number(message);
    if (took_error(reply, number))
        return 0;
    if (auto bytes = body_of(reply))
        host::receive_response(number, *bytes);
    else
        host::receive_failure(number, GORVANET_BODY_RESPONSE, "the reply is no array of bytes");
    return 0;
}

int on_confirmation(sd_bus_message *reply, void *message, sd_bus_error *) noexcept
{
    uint32_t number = to_number(message);
    if (!took_error(reply, number))
        host::receive_confirmation(number);
    return 0;
}

void check_senders(gorvanet_dbus_check *check, void *data)
{
    current_check = check;
    check_data = data;
}

} // namespace dbus
