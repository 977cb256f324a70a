// sd-bus: a method call whose argument is the record as a structure, lists as arrays of structures. The bus is a socket
// that nobody answers: messages are made, sealed and read, never sent.

#include "fields.h"
#include "harness.h"

#include <string>
#include <sys/socket.h>
#include <systemd/sd-bus.h>

namespace {

void require(int result)
{
    if (result < 0) {
        fprintf(stderr, "sd-bus: %s\n", strerror(-result));
        exit(1);
    }
}

sd_bus *a_bus()
{
    static sd_bus *bus = [] {
        sd_bus *made = nullptr;
        int ends[2];
        require(socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0, ends));
        require(sd_bus_new(&made));
        require(sd_bus_set_fd(made, ends[0], ends[0]));
        require(sd_bus_start(made));
        return made;
    }();
    return bus;
}

// Numbers travel in 32 bits but for the unsigned byte.
template <typename Number> constexpr char type_of = sizeof(Number) == 1 && std::is_unsigned_v<Number> ? 'y' : 'u';

struct Signer {
    std::string signature;

    template <typename Number> void number(uint32_t, const Number &)
    {
        signature += type_of<Number>;
    }

    void text(uint32_t, const char *)
    {
        signature += 's';
    }

    template <typename Record> void record(uint32_t, const Record &nested)
    {
        signature += '(';
        visit(*this, nested);
        signature += ')';
    }

    template <typename Record, size_t Capacity> void list(uint32_t, const uint32_t &, const Record (&records)[Capacity])
    {
        signature += 'a';
        record(0, records[0]);
    }
};

// Of the fields, without brackets around them.
template <typename Record> const char *signature_of()
{
    static const std::string signature = [] {
        static const Record none = {};
        Signer signer;
        visit(signer, none);
        return signer.signature;
    }();
    return signature.c_str();
}

template <typename Record> const char *element_of()
{
    static const std::string signature = std::string("(") + signature_of<Record>() + ")";
    return signature.c_str();
}

struct Appender {
    sd_bus_message *message;

    template <typename Number> void number(uint32_t, Number value)
    {
        auto word = static_cast<uint32_t>(value);
        auto byte = static_cast<uint8_t>(value);
        char type = type_of<Number>;
        require(sd_bus_message_append_basic(message, type, type == 'y' ? static_cast<void *>(&byte) : &word));
    }

    void text(uint32_t, const char *text)
    {
        require(sd_bus_message_append_basic(message, 's', text));
    }

    template <typename Record> void record(uint32_t, const Record &nested)
    {
        require(sd_bus_message_open_container(message, 'r', signature_of<Record>()));
        visit(*this, nested);
        require(sd_bus_message_close_container(message));
    }

    template <typename Record, size_t Capacity>
    void list(uint32_t, const uint32_t &count, const Record (&records)[Capacity])
    {
        require(sd_bus_message_open_container(message, 'a', element_of<Record>()));
        for (uint32_t i = 0; i < count && i < Capacity; i++)
            record(0, records[i]);
        require(sd_bus_message_close_container(message));
    }
};

struct Taker {
    sd_bus_message *message;

    template <typename Number> void number(uint32_t, Number &value)
    {
        uint32_t word = 0;
        uint8_t byte = 0;
        char type = type_of<Number>;
        require(sd_bus_message_read_basic(message, type, type == 'y' ? static_cast<void *>(&byte) : &word));
        value = type == 'y' ? static_cast<Number>(byte) : static_cast<Number>(word);
    }

    template <size_t Capacity> void text(uint32_t, char (&text)[Capacity])
    {
        const char *received;
        require(sd_bus_message_read_basic(message, 's', &received));
        size_t size = strlen(received) + 1;
        if (size > Capacity)
            abort();
        memcpy(text, received, size);
    }

    template <typename Record> void record(uint32_t, Record &nested)
    {
        require(sd_bus_message_enter_container(message, 'r', signature_of<Record>()));
        visit(*this, nested);
        require(sd_bus_message_exit_container(message));
    }

    template <typename Record, size_t Capacity> void list(uint32_t, uint32_t &count, Record (&records)[Capacity])
    {
        require(sd_bus_message_enter_container(message, 'a', element_of<Record>()));
        for (count = 0; count < Capacity && !sd_bus_message_at_end(message, 0); count++)
            record(0, records[count]);
        require(sd_bus_message_exit_container(message));
    }
};

template <typename Workload> struct SdBus {
    using Record = typename Workload::Record;
    static constexpr bool round_trips = true;

    sd_bus_message *message = nullptr;

    void encode(const Record &record)
    {
        sd_bus_message_unref(message);
        require(sd_bus_message_new_method_call(a_bus(), &message, "ip.service", "/ip", "ip.Service", "Set"));
        Appender out = {message};
        out.record(0, record);
        require(sd_bus_message_seal(message, 1, 0));
    }

    void decode(Record &record)
    {
        require(sd_bus_message_rewind(message, 1));
        Taker in = {message};
        in.record(0, record);
    }
};

const Timed<SdBus> timed("sd-bus");

} // namespace
