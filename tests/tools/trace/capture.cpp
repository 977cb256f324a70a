#include "capture.h"

#include <cstring>
#include <stdexcept>

namespace {

struct Reader {
    const std::string &content;
    size_t position = 0;

    std::string take(size_t size)
    {
        if (content.size() - position < size)
            throw std::runtime_error("the file ends too early");
        position += size;
        return content.substr(position - size, size);
    }

    uint32_t native()
    {
        uint32_t value;
        memcpy(&value, take(sizeof value).data(), sizeof value);
        return value;
    }

    uint32_t big_endian(size_t size)
    {
        uint32_t value = 0;
        for (char byte : take(size))
            value = value << 8 | static_cast<unsigned char>(byte);
        return value;
    }
};

std::string hex(const std::string &bytes)
{
    std::string digits;
    for (char byte : bytes)
        for (int shift : {4, 0})
            digits += "0123456789abcdef"[static_cast<unsigned char>(byte) >> shift & 15];
    return digits;
}

void require(bool holds, const char *what)
{
    if (!holds)
        throw std::runtime_error(what);
}

Packet read_packet(Reader &reader)
{
    Packet packet;
    packet.seconds = reader.native();
    require(reader.native() < 1000000, "microseconds");
    uint32_t captured = reader.native();
    require(captured == reader.native(), "a packet is cut");
    size_t start = reader.position;
    require(reader.take(4) == "GVN1", "the mark");
    packet.direction = reader.big_endian(1);
    packet.side = reader.big_endian(1);
    packet.method = reader.big_endian(2);
    packet.number = reader.big_endian(4);
    packet.user = reader.take(reader.big_endian(2));
    packet.interface = reader.take(reader.big_endian(2));
    packet.body = hex(reader.take(reader.big_endian(4)));
    require(reader.position - start == captured, "the packet's size");
    return packet;
}

} // namespace

std::vector<Packet> read_capture(const std::string &content)
{
    Reader reader{content};
    require(reader.native() == 0xa1b2c3d4, "magic of microseconds");
    require(reader.native() == (2U | 4U << 16), "version 2.4 of a little-endian machine");
    require(reader.native() == 0 && reader.native() == 0, "zone and accuracy");
    require(reader.native() >= 262144, "the longest packet");
    require(reader.native() == 147, "the link type");
    std::vector<Packet> packets;
    while (reader.position < content.size())
        packets.push_back(read_packet(reader));
    return packets;
}
