#include "arrival.h"

#include "guard.h"
#include "message.h"

#include <cstring>
#include <optional>
#include <string>
#include <utility>

namespace host {

namespace {

Message arriving(const Arrival &arrival, const User &receiver)
{
    Message message = {};
    message.number = next_message_number();
    message.stage = Stage::sent;
    message.sender_name = arrival.sender;
    message.server = receiver.number;
    message.server_name = receiver.name;
    return message;
}

// Finds the method by its name. Without one, the message has a name for the report at least.
bool find_named_method(Message &message, const Arrival &arrival)
{
    message.method.name = arrival.method;
    const Interface *interface = find_interface(arrival.interface);
    if (!interface || interface->withdrawn)
        return false;
    const MethodRecord *records = method_records(interface->block.get());
    for (uint32_t i = 0; i < interface->count; i++) {
        if (!records[i].name || strcmp(arrival.method, records[i].name) != 0)
            continue;
        const MethodRecord *record = find_method(*interface, i, __func__);
        if (!record)
            return false;
        message.interface_number = interface->number;
        message.method_index = i;
        message.method = *record;
        return true;
    }
    return false;
}

std::optional<guard::Interface> guarded_interface(const Message &message)
{
    if (message.interface_number == gorvaNet_getCmdIntfNum())
        return guard::Interface::command;
    if (message.interface_number == gorvaNet_getNtfyIntfNum())
        return guard::Interface::notification;
    return {};
}

// A request that awaited the answer of a method without one would wait for it, here too, for as long as we live.
bool has_response(const Message &message)
{
    std::optional<guard::Interface> interface = guarded_interface(message);
    return interface && layouts::find_layout(*interface, message.method_index, layouts::response);
}

void release_copy(void *copy)
{
    delete[] static_cast<uint8_t *>(copy);
}

// Takes the bytes into the message. Result: what is wrong with them, empty if nothing.
std::string admit(Message &message, uint32_t direction, std::span<const uint8_t> bytes)
{
    if (bytes.size() > largest_body)
        return "a body of " + std::to_string(bytes.size()) + " bytes, " + std::to_string(largest_body) + " are taken";
    std::optional<guard::Interface> interface = guarded_interface(message);
    if (!interface)
        return "nothing is known about the bodies of this interface";
    guard::Admission admission = guard::admit({*interface, message.method_index, direction}, bytes);
    if (!admission.verdict.sound())
        return guard::explain(admission.verdict);
    message.bytes = {.data = Owned(admission.body.release(), Release{release_copy}),
                     .size = static_cast<uint32_t>(bytes.size())};
    return "";
}

} // namespace

void receive_request(const User &server, const Arrival &arrival, bool awaits_answer, Owned call)
{
    Message message = arriving(arrival, server);
    message.awaits_answer = awaits_answer;
    message.received_call = std::move(call);
    if (!find_named_method(message, arrival))
        return end_undeliverable(message, GORVANET_BODY_REQUEST, {}, "there is no such method");
    std::string problem = admit(message, GORVANET_BODY_REQUEST, arrival.bytes);
    if (!problem.empty())
        return end_undeliverable(message, GORVANET_BODY_REQUEST, {}, problem.c_str());
    if (awaits_answer && !has_response(message))
        return end_undeliverable(message, GORVANET_BODY_REQUEST, {}, "the method has no response");
    deliver_request(keep_message(std::move(message)));
}

void report_refusal(const User &server, const Arrival &arrival, const char *reason)
{
    Message message = arriving(arrival, server);
    message.method.name = arrival.method;
    report_message(Kind::undeliverable, GORVANET_BODY_REQUEST, message, {}, 0, reason);
}

void receive_notification(const User &subscriber, const Arrival &arrival)
{
    Message message = arriving(arrival, subscriber);
    message.is_notification = true;
    if (!find_named_method(message, arrival))
        return end_undeliverable(message, GORVANET_BODY_REQUEST, {}, "there is no such method");
    std::string problem = admit(message, GORVANET_BODY_REQUEST, arrival.bytes);
    if (!problem.empty())
        return end_undeliverable(message, GORVANET_BODY_REQUEST, {}, problem.c_str());
    uint32_t number = message.number;
    deliver_notification(keep_message(std::move(message)), subscriber);
    end_message(number);
}

void receive_response(uint32_t number, std::span<const uint8_t> bytes)
{
    Message *message = find_message(number);
    if (!message)
        return;
    std::string problem = admit(*message, GORVANET_BODY_RESPONSE, bytes);
    if (!problem.empty())
        return end_undeliverable(*message, GORVANET_BODY_RESPONSE, {}, problem.c_str());
    deliver_response(*message);
}

void receive_status(uint32_t number, uint32_t status)
{
    const Message *message = find_message(number);
    if (!message)
        return;
    report_status(*message, status, "nobody handles the message");
    end_message(number);
}

void receive_confirmation(uint32_t number)
{
    end_message(number);
}

void receive_failure(uint32_t number, uint32_t direction, const char *reason)
{
    if (Message *message = find_message(number))
        end_undeliverable(*message, direction, {}, reason);
}

} // namespace host
