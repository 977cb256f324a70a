#include "output.h"

#include <cerrno>
#include <csignal>
#include <ctime>
#include <unistd.h>

namespace trace {

namespace {

constexpr uint32_t longest_number = 20; // decimal digits of 64 bits

// Is a signal pending that was not before? Takes it away.
void drop_signal(const sigset_t &signals)
{
    timespec at_once = {};
    while (sigtimedwait(&signals, nullptr, &at_once) < 0 && errno == EINTR) {
    }
}

} // namespace

void put_character(Output &out, char character)
{
    if (out.used == sizeof out.bytes)
        flush(out);
    out.bytes[out.used++] = character;
}

void put_text(Output &out, const char *text)
{
    while (*text)
        put_character(out, *text++);
}

void put_padded(Output &out, const char *text, uint32_t width)
{
    uint32_t length = 0;
    for (; text[length]; length++)
        put_character(out, text[length]);
    for (; length < width; length++)
        put_character(out, ' ');
}

void put_unsigned(Output &out, uint64_t value, uint32_t digits)
{
    char reversed[longest_number];
    uint32_t count = 0;
    for (; value || count < digits; value /= 10)
        reversed[count++] = static_cast<char>('0' + value % 10);
    while (count)
        put_character(out, reversed[--count]);
}

void put_signed(Output &out, int32_t value)
{
    auto magnitude = static_cast<uint32_t>(value);
    if (value < 0) {
        put_character(out, '-');
        magnitude = -magnitude;
    }
    put_unsigned(out, magnitude);
}

void put_hex(Output &out, const uint8_t *bytes, uint32_t size)
{
    for (uint32_t i = 0; i < size; i++) {
        put_character(out, "0123456789abcdef"[bytes[i] >> 4]);
        put_character(out, "0123456789abcdef"[bytes[i] & 15]);
    }
}

void flush(Output &out)
{
    write_all(out.descriptor, out.bytes, out.used);
    out.used = 0;
}

// A write to a pipe without a reader raises SIGPIPE, which would end the process: it is held back and taken away.
void write_all(int descriptor, const void *bytes, uint32_t size)
{
    sigset_t broken_pipe;
    sigset_t pending;
    sigset_t before;
    sigemptyset(&broken_pipe);
    sigaddset(&broken_pipe, SIGPIPE);
    sigpending(&pending);
    pthread_sigmask(SIG_BLOCK, &broken_pipe, &before);
    const auto *at = static_cast<const char *>(bytes);
    while (size) {
        ssize_t written = write(descriptor, at, size);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            break;
        at += written;
        size -= static_cast<uint32_t>(written);
    }
    if (size && errno == EPIPE && !sigismember(&pending, SIGPIPE))
        drop_signal(broken_pipe);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

} // namespace trace
