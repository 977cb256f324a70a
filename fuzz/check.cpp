#include "check.h"

#include "guard.h"
#include "guard/fence.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <syslog.h>

namespace {

constexpr size_t zeros_behind = 4096;
constexpr size_t longest = 1 << 16;

Fence fence(longest + zeros_behind);
unsigned lines;

void check_decoding(const model::Body &body, std::span<const uint8_t> bytes, const model::Decoding &expected)
{
    void *decoded = nullptr;
    uint32_t size = 0;
    lines = 0;
    int32_t status = body.row().unserializeBody(body.direction, bytes.data(), &decoded, &size);
    require(status == expected.status, "another status than the model's", body.name);
    require((lines == 0) == (status == 0 || expected.silent), "a refusal is in the log, and nothing else", body.name);
    require((decoded == nullptr) == (status != 0), "a body is handed out exactly on success", body.name);
    if (!decoded)
        return;
    const auto *first = static_cast<const uint8_t *>(decoded);
    require(Bytes(first, first + size) == expected.image, "another body than the model's", body.name);
    free(decoded);
}

} // namespace

// Every line is formatted, so that each argument is looked at, and dropped.
void syslog(int, const char *format, ...)
{
    char text[256];
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    lines++;
}

void require(bool holds, const char *what, const std::string &of)
{
    if (holds)
        return;
    fprintf(stderr, "%s: %s\n", of.c_str(), what);
    abort();
}

void check_guarded(const model::Body &body, std::span<const uint8_t> bytes)
{
    if (bytes.size() > longest)
        return;
    auto interface = body.is_notification ? guard::Interface::notification : guard::Interface::command;
    auto placed = fence.place(bytes);
    guard::Verdict verdict = guard::check({interface, body.index, body.direction}, placed);
    require(!guard::explain(verdict).empty(), "a verdict without words", body.name);
    require(verdict.sound() == model::well_formed(body, placed), guard::explain(verdict).c_str(), body.name);
    if (!verdict.sound())
        return;
    model::Decoding expected = model::decode(body, placed);
    require(expected.status == 0, "taken, and yet refused by the decoder", body.name);
    check_decoding(body, placed, expected);
}

void check_direct(const model::Body &body, std::span<const uint8_t> bytes)
{
    if (bytes.size() > longest)
        return;
    auto placed = fence.place(bytes, zeros_behind);
    model::Decoding expected = model::decode(body, placed);
    if (!expected.leaves)
        check_decoding(body, placed, expected);
}
