// Where the tracer writes: characters that collect in a buffer and leave in one piece.
//
// Files are opened for each message and closed behind it: the traced process may close descriptors, fork or change its
// own as it likes, and several processes may share a file.

#ifndef GORVANET_TRACE_OUTPUT_H
#define GORVANET_TRACE_OUTPUT_H

#include <csignal>
#include <cstdint>

namespace trace {

struct Output {
    int descriptor;
    uint32_t used;
    char bytes[16384];
};

void put_character(Output &out, char character);
void put_text(Output &out, const char *text);
void put_padded(Output &out, const char *text, uint32_t width);
void put_unsigned(Output &out, uint64_t value, uint32_t digits = 1);
void put_signed(Output &out, int32_t value);
void put_hex(Output &out, const uint8_t *bytes, uint32_t size);
void flush(Output &out);

// While there is one, writing raises no signal: not for a pipe that nobody reads, nor for a file that has become too
// large. Both would end the process. They are held back and taken away.
class Unsignalled {
public:
    Unsignalled();
    ~Unsignalled();
    Unsignalled(const Unsignalled &) = delete;
    Unsignalled &operator=(const Unsignalled &) = delete;
    void failed(int error); // a write has, with this errno

private:
    sigset_t before_;
    sigset_t pending_;
    int signal_ = 0; // to take away
};

// Writes all of it, or as much as the file takes. A pipe that nobody reads is no harm to the process.
void write_all(int descriptor, const void *bytes, uint32_t size);

} // namespace trace

#endif
