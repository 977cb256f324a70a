// A connection to the bus without this host: somebody who sends what it likes.

#ifndef DBUS_RAW_PEER_H
#define DBUS_RAW_PEER_H

#include <string>
#include <string_view>
#include <systemd/sd-bus.h>

class RawPeer {
public:
    explicit RawPeer(const std::string &address);
    RawPeer(const RawPeer &) = delete;
    RawPeer &operator=(const RawPeer &) = delete;
    ~RawPeer();

    // Calls the user "service" and waits. Result: the error's name, or "body" and the size of the body in the reply.
    std::string ask(const char *method, std::string_view bytes, const char *path = "/gorvanet/ask",
                    const char *interface = "gorvanet.GorvaNetCmd");
    // The same with other arguments than a body.
    std::string ask_text(const char *method, const char *text);

    sd_bus *bus() const
    {
        return bus_;
    }

private:
    std::string finish(sd_bus_message *call);

    sd_bus *bus_ = nullptr;
};

// Encoded SetMtu requests, by hand. `padding` bytes more than it needs are in the number's item.
std::string set_mtu_body(uint32_t mtu, size_t padding = 0);

#endif
