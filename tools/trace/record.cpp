#include "record.h"

#include "print.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace trace {

namespace {

// ---- The environment, as it was at the start ------------------------------------------------------------------------

enum class Form { text, json, none };

Form form;
bool is_coloured;
char printed_file[PATH_MAX]; // empty: standard error
char capture_file[PATH_MAX]; // empty: none
struct stat standard_error;
bool has_standard_error;

const char *variable(const char *name)
{
    const char *value = getenv(name);
    return value ? value : "";
}

bool terminal_has_colours()
{
    const char *terminal = variable("TERM");
    return isatty(STDERR_FILENO) && !*variable("NO_COLOR") && *terminal && strcmp(terminal, "dumb") != 0;
}

[[gnu::constructor]] void read_environment()
{
    const char *name = variable("GORVANET_TRACE");
    form = strcmp(name, "json") == 0 ? Form::json : strcmp(name, "none") == 0 ? Form::none : Form::text;
    strncpy(printed_file, variable("GORVANET_TRACE_FILE"), sizeof printed_file - 1);
    strncpy(capture_file, variable("GORVANET_TRACE_PCAP"), sizeof capture_file - 1);
    has_standard_error = fstat(STDERR_FILENO, &standard_error) == 0;
    const char *colour = variable("GORVANET_TRACE_COLOUR");
    is_coloured = strcmp(colour, "always") == 0;
    if (!*colour && !*printed_file)
        is_coloured = terminal_has_colours();
}

// ---- Printing -------------------------------------------------------------------------------------------------------

Output out;

// A named pipe that nobody reads would keep the process waiting; it fails.
int open_for_appending(const char *file)
{
    int descriptor = open(file, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK, 0666);
    if (descriptor >= 0)
        fcntl(descriptor, F_SETFL, O_APPEND);
    return descriptor;
}

// A daemon may have closed its standard error, and opened something else in its place.
bool is_still_standard_error()
{
    struct stat now;
    return has_standard_error && fstat(STDERR_FILENO, &now) == 0 && now.st_dev == standard_error.st_dev &&
           now.st_ino == standard_error.st_ino;
}

void print(const Message &message)
{
    if (*printed_file)
        out.descriptor = open_for_appending(printed_file);
    else
        out.descriptor = is_still_standard_error() ? STDERR_FILENO : -1;
    if (out.descriptor < 0)
        return;
    if (form == Form::json)
        print_json(out, message);
    else
        print_text(out, message, is_coloured);
    flush(out);
    if (*printed_file)
        close(out.descriptor);
}

// ---- The capture file: docs/capture.md ------------------------------------------------------------------------------

constexpr uint32_t longest_packet = 262144 + 1024;
constexpr uint32_t microsecond = 1000;

struct FileHeader {
    uint32_t magic = 0xa1b2c3d4;
    uint16_t major = 2;
    uint16_t minor = 4;
    uint32_t zone = 0;
    uint32_t accuracy = 0;
    uint32_t longest = longest_packet;
    uint32_t link_type = 147;
};

struct PacketHeader {
    uint32_t seconds;
    uint32_t microseconds;
    uint32_t captured;
    uint32_t size;
};

// The part of a packet in front of its body.
struct Head {
    uint32_t size;
    uint8_t bytes[512];
};

void add(Head &head, uint32_t value, uint32_t size)
{
    while (size--)
        head.bytes[head.size++] = static_cast<uint8_t>(value >> 8 * size);
}

void add_name(Head &head, const char *name)
{
    auto size = static_cast<uint32_t>(strlen(name));
    add(head, size, 2);
    memcpy(head.bytes + head.size, name, size);
    head.size += size;
}

Head head_of(const Message &message)
{
    Head head = {};
    add(head, 0x47564e31, 4);
    add(head, static_cast<uint32_t>(message.direction), 1);
    add(head, static_cast<uint32_t>(message.side), 1);
    add(head, message.method.index, 2);
    add(head, message.number, 4);
    add_name(head, message.user);
    add_name(head, "GorvaNet");
    add(head, message.body.size, 4);
    return head;
}

iovec part(const void *data, uint32_t size)
{
    return {const_cast<void *>(data), size};
}

// All in one piece, so that the packets of several processes do not mix.
void append(int file, const Message &message)
{
    Head head = head_of(message);
    FileHeader file_header;
    uint32_t size = head.size + message.body.size;
    PacketHeader packet_header = {static_cast<uint32_t>(message.time.tv_sec),
                                  static_cast<uint32_t>(message.time.tv_nsec) / microsecond, size, size};
    struct stat state;
    if (fstat(file, &state) != 0 || !S_ISREG(state.st_mode))
        return; // every message would look like the first
    bool is_new = state.st_size == 0;
    iovec parts[] = {part(&file_header, is_new ? sizeof file_header : 0), part(&packet_header, sizeof packet_header),
                     part(head.bytes, head.size), part(message.body.data, message.body.size)};
    // Nothing can be done about a full disk: the process goes on. Half a packet would spoil those behind it.
    Unsignalled unsignalled;
    ssize_t written = writev(file, parts, sizeof parts / sizeof *parts);
    if (written < 0)
        unsignalled.failed(errno);
    else if (static_cast<size_t>(written) < (is_new ? sizeof file_header : 0) + sizeof packet_header + size) {
        [[maybe_unused]] int cut = ftruncate(file, state.st_size);
    }
}

void capture(const Message &message)
{
    int file = open_for_appending(capture_file);
    if (file < 0)
        return;
    flock(file, LOCK_EX);
    append(file, message);
    close(file);
}

} // namespace

void record(const Message &message)
{
    // A body that was not sent, for want of memory or for its content, was no message.
    bool was_on_the_wire = message.side == Side::received || message.status == 0;
    if (*capture_file && was_on_the_wire)
        capture(message);
    if (form != Form::none)
        print(message);
}

} // namespace trace
