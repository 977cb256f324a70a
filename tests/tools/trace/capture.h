// Reads a capture file by the words of docs/capture.md.

#ifndef GORVANET_TESTS_TRACE_CAPTURE_H
#define GORVANET_TESTS_TRACE_CAPTURE_H

#include <cstdint>
#include <string>
#include <vector>

struct Packet {
    uint32_t seconds;
    unsigned direction;
    unsigned side;
    unsigned method;
    uint32_t number;
    std::string user;
    std::string interface;
    std::string body; // in hex
};

// Throws where the file is not as the format says.
std::vector<Packet> read_capture(const std::string &content);

#endif
