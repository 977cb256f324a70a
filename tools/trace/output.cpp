#include "output.h"

#include <cerrno>
#include <csignal>
#include <ctime>
#include <unistd.h>

namespace trace {

namespace {

constexpr uint32_t longest_number = 20; // decimal digits of 64 bits

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

Unsignalled::Unsignalled()
{
    sigset_t held_back;
    sigemptyset(&held_back);
    sigaddset(&held_back, SIGPIPE);
    sigaddset(&held_back, SIGXFSZ);
    sigpending(&pending_);
    pthread_sigmask(SIG_BLOCK, &held_back, &before_);
}

Unsignalled::~Unsignalled()
{
    // Only what was not pending before is the tracer's.
    if (signal_ && !sigismember(&pending_, signal_)) {
        sigset_t own;
        sigemptyset(&own);
        sigaddset(&own, signal_);
        timespec at_once = {};
        while (sigtimedwait(&own, nullptr, &at_once) < 0 && errno == EINTR) {
        }
    }
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

void Unsignalled::failed(int error)
{
    signal_ = error == EPIPE ? SIGPIPE : error == EFBIG ? SIGXFSZ : 0;
}

void write_all(int descriptor, const void *bytes, uint32_t size)
{
    Unsignalled unsignalled;
    const auto *at = static_cast<const char *>(bytes);
    while (size) {
        ssize_t written = write(descriptor, at, size);
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            unsignalled.failed(errno);
        if (written <= 0)
            break;
        at += written;
        size -= static_cast<uint32_t>(written);
    }
}

} // namespace trace
