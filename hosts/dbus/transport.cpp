// Bytes are carried by D-Bus: method calls there, replies back, signals for notifications.

#include "transport.h"

#include "arrival.h"
#include "connection.h"
#include "failures.h"
#include "gorvanet_dbus.h"
#include "incoming.h"
#include "loop.h"
#include "message.h"
#include "names.h"
#include "report.h"

#include <cstring>
#include <string>

namespace dbus {

namespace {

using host::Message;

uint64_t request_timeout = 25000000; // microseconds

std::string explained(int error)
{
    return strerror(-error); // NOLINT(concurrency-mt-unsafe): there is one thread
}

// A message of sd-bus, released at the end of its scope.
struct Outgoing {
    sd_bus_message *message = nullptr;

    Outgoing() = default;
    Outgoing(const Outgoing &) = delete;
    Outgoing &operator=(const Outgoing &) = delete;
    ~Outgoing()
    {
        sd_bus_message_unref(message);
    }
};

int append_body(sd_bus_message *message, const host::Bytes &bytes)
{
    return sd_bus_message_append_array(message, 'y', bytes.data.get(), bytes.size);
}

void *to_pointer(uint32_t number)
{
    return reinterpret_cast<void *>(uintptr_t{number});
}

void release_slot(void *slot)
{
    sd_bus_slot_unref(static_cast<sd_bus_slot *>(slot));
}

std::string bus_interface_of(const Message &message)
{
    return bus_interface(host::find_interface(message.interface_number)->name);
}

int send_request(sd_bus *bus, Message &message)
{
    std::string name = bus_name_of(message.server_name);
    if (name.size() > longest_bus_name)
        return -ENAMETOOLONG;
    Outgoing call;
    int result =
        sd_bus_message_new_method_call(bus, &call.message, name.c_str(), message.awaits_answer ? ask_path : tell_path,
                                       bus_interface_of(message).c_str(), message.method.name);
    if (result >= 0)
        result = append_body(call.message, message.bytes);
    sd_bus_slot *slot = nullptr;
    if (result >= 0)
        result = sd_bus_call_async(bus, &slot, call.message, message.awaits_answer ? on_response : on_confirmation,
                                   to_pointer(message.number), request_timeout);
    if (result >= 0)
        message.awaited_reply = host::Owned(slot, host::Release{release_slot});
    return result;
}

int send_notification(sd_bus *bus, const Message &message)
{
    Outgoing signal;
    int result = sd_bus_message_new_signal(bus, &signal.message, path_of(message.sender_name).c_str(),
                                           bus_interface_of(message).c_str(), message.method.name);
    if (result >= 0)
        result = append_body(signal.message, message.bytes);
    if (result >= 0)
        result = sd_bus_send(bus, signal.message, nullptr);
    return result;
}

sd_bus *bus_of(uint32_t user)
{
    Connection *connection = find_connection(user);
    return connection && connection->bus && sd_bus_is_open(connection->bus) > 0 ? connection->bus : nullptr;
}

int send(Message &message)
{
    if (message.bytes.size > host::largest_body)
        return -EMSGSIZE;
    sd_bus *bus = bus_of(message.sender);
    if (!bus)
        return -ENOTCONN;
    return message.is_notification ? send_notification(bus, message) : send_request(bus, message);
}

int reply(const Message &message)
{
    if (message.bytes.size > host::largest_body)
        return -EMSGSIZE;
    Outgoing response;
    int result =
        sd_bus_message_new_method_return(static_cast<sd_bus_message *>(message.received_call.get()), &response.message);
    if (result >= 0)
        result = append_body(response.message, message.bytes);
    if (result >= 0)
        result = sd_bus_send(nullptr, response.message, nullptr);
    return result;
}

void reply_error(const Message &message, const char *name, const char *text)
{
    // Where it cannot be sent, the bus is gone, and says so itself.
    sd_bus_reply_method_errorf(static_cast<sd_bus_message *>(message.received_call.get()), name, "%s", text);
}

} // namespace

} // namespace dbus

void gorvanet_dbus_set_timeout(uint32_t milliseconds)
{
    constexpr uint32_t usual = 25000;
    dbus::request_timeout = uint64_t{milliseconds ? milliseconds : usual} * 1000;
}

namespace host::transport {

const char *const name = "dbus";

bool connect(const User &user, const char *)
{
    int result = dbus::open_connection(user);
    if (result < 0)
        report_bus(Kind::bus_lost, user.name.c_str(), dbus::explained(result).c_str());
    return result >= 0;
}

void disconnect(const User &user)
{
    end_requests_of(user);
    dbus::close_connection(user.number);
}

bool subscribe(const User &user, const Accepted &accepted, const char *)
{
    int result = dbus::subscribe(user.number, {.user = user.number,
                                               .from = accepted.from,
                                               .interface = find_interface(accepted.number)->name,
                                               .method = method_rows(*accepted.block)[accepted.method].name});
    if (result < 0)
        report_bus(Kind::bus_lost, user.name.c_str(), dbus::explained(result).c_str());
    return result >= 0;
}

bool send(Message &message)
{
    report_message(Kind::sent, GORVANET_BODY_REQUEST, message, message.bytes);
    if (fails(message))
        return true;
    int result = dbus::send(message);
    if (result < 0) {
        report_message(Kind::undeliverable, GORVANET_BODY_REQUEST, message, message.bytes, 0,
                       dbus::explained(result).c_str());
        return false;
    }
    message.bytes = {};
    if (message.is_notification)
        end_message(message.number);
    return true;
}

bool respond(Message &message)
{
    report_message(Kind::answered, GORVANET_BODY_RESPONSE, message, message.bytes);
    if (fails(message))
        return true;
    int result = dbus::reply(message);
    if (result == -EMSGSIZE)
        respond_nothing(message, 0, "the response is too long");
    if (result < 0)
        report_message(Kind::undeliverable, GORVANET_BODY_RESPONSE, message, message.bytes, 0,
                       dbus::explained(result).c_str());
    return false;
}

void respond_nothing(Message &message, uint32_t status, const char *reason)
{
    if (status == answer_unhandled_message)
        dbus::reply_error(message, dbus::unhandled_error, "nobody handles the message");
    else
        dbus::reply_error(message, dbus::refused_error, reason);
}

void confirm(Message &message)
{
    if (message.received_call)
        sd_bus_reply_method_return(static_cast<sd_bus_message *>(message.received_call.get()), nullptr);
}

void tear_down()
{
    dbus::drop_event_loop();
}

} // namespace host::transport
