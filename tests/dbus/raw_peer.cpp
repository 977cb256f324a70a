#include "raw_peer.h"

#include <cstdint>
#include <stdexcept>

namespace {

constexpr const char *service_name = "gorvanet.user.service";
constexpr uint64_t patience = 10000000; // microseconds

std::string big_endian(uint32_t value)
{
    return {static_cast<char>(value >> 24), static_cast<char>(value >> 16), static_cast<char>(value >> 8),
            static_cast<char>(value)};
}

std::string item(uint32_t tag, uint32_t value, size_t padding = 0)
{
    return big_endian(tag) + big_endian(static_cast<uint32_t>(4 + padding)) + big_endian(value) +
           std::string(padding, '\0');
}

} // namespace

RawPeer::RawPeer(const std::string &address)
{
    if (sd_bus_new(&bus_) < 0 || sd_bus_set_address(bus_, address.c_str()) < 0 ||
        sd_bus_set_bus_client(bus_, true) < 0 || sd_bus_start(bus_) < 0)
        throw std::runtime_error("no connection");
}

RawPeer::~RawPeer()
{
    sd_bus_flush_close_unref(bus_);
}

std::string RawPeer::ask(const char *method, std::string_view bytes, const char *path, const char *interface)
{
    sd_bus_message *call = nullptr;
    if (sd_bus_message_new_method_call(bus_, &call, service_name, path, interface, method) < 0 ||
        sd_bus_message_append_array(call, 'y', bytes.data(), bytes.size()) < 0)
        throw std::runtime_error("no call");
    return finish(call);
}

std::string RawPeer::ask_text(const char *method, const char *text)
{
    sd_bus_message *call = nullptr;
    if (sd_bus_message_new_method_call(bus_, &call, service_name, "/gorvanet/ask", "gorvanet.GorvaNetCmd", method) <
            0 ||
        sd_bus_message_append(call, "s", text) < 0)
        throw std::runtime_error("no call");
    return finish(call);
}

std::string RawPeer::finish(sd_bus_message *call)
{
    sd_bus_error error = {};
    sd_bus_message *reply = nullptr;
    std::string result;
    const void *bytes = nullptr;
    size_t size = 0;
    if (sd_bus_call(bus_, call, patience, &error, &reply) < 0)
        result = error.name;
    else if (sd_bus_message_read_array(reply, 'y', &bytes, &size) < 0)
        result = "no body";
    else
        result = "body " + std::to_string(size);
    sd_bus_error_free(&error);
    sd_bus_message_unref(reply);
    sd_bus_message_unref(call);
    return result;
}

std::string set_mtu_body(uint32_t mtu, size_t padding)
{
    constexpr uint32_t magic = 0x20190222;
    return item(0, magic) + item(1, 0) + item(3, mtu, padding);
}
