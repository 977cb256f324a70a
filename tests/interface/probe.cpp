// A process with the library in it, for tests in other languages. Each line of its input is a question, and each has an
// answer of one line:
//
//     base                                    the descriptor, as a JSON object
//     layouts                                 the hosts' table of layouts, as a JSON array
//     call FUNCTION                           the function of the bus that it calls, and the argument words
//     serializeBody FUNCTION TYPE BODY        status, encoded bytes
//     unserializeBody FUNCTION TYPE BYTES     status, body in memory
//     serialize_lg FUNCTION RECORD            size
//     serialize FUNCTION SIZE RECORD          status, bytes written into a buffer of that size
//     unserialize FUNCTION SIZE BYTES         status, bytes read, record of that size in memory
//
// Numbers are decimal, bytes are hexadecimal digits, and a dot stands for no bytes at all.

#include "gorvanet.h"
#include "layouts.h"
#include "support/bus.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <iostream>
#include <span>
#include <sstream>
#include <string>
#include <vector>

// The library's log lines are none of this process's business.
extern "C" void syslog(int priority, const char *format, ...);
extern "C" void syslog(int, const char *, ...)
{
}

namespace {

using Bytes = std::vector<uint8_t>;

// Behind what a decoder is given: where it runs on, it finds tag 0.
constexpr size_t tail_size = 64;

Bytes from_hex(const std::string &digits)
{
    Bytes bytes;
    for (size_t i = 0; i + 1 < digits.size(); i += 2)
        bytes.push_back(static_cast<uint8_t>(std::stoul(digits.substr(i, 2), nullptr, 16)));
    return bytes;
}

std::string to_hex(std::span<const uint8_t> bytes)
{
    std::string digits;
    for (uint8_t byte : bytes) {
        std::array<char, 3> two = {};
        std::snprintf(two.data(), two.size(), "%02x", unsigned{byte});
        digits += two.data();
    }
    return digits.empty() ? "." : digits;
}

std::string to_hex(const void *bytes, size_t size)
{
    return to_hex({static_cast<const uint8_t *>(bytes), size});
}

template <typename Function> Function *find(const std::string &name)
{
    void *symbol = dlsym(RTLD_DEFAULT, name.c_str());
    if (!symbol) {
        std::cerr << "no function " << name << "\n";
        std::exit(EXIT_FAILURE);
    }
    return reinterpret_cast<Function *>(symbol);
}

// ---- Answers in JSON ------------------------------------------------------------------------------------------------

template <typename Value> std::string pair(const char *name, const Value &value)
{
    std::ostringstream out;
    out << '"' << name << "\": " << value;
    return out.str();
}

std::string quoted(const std::string &text)
{
    return '"' + text + '"';
}

template <typename Function> std::string symbol(Function *function)
{
    Dl_info info = {};
    dladdr(reinterpret_cast<void *>(function), &info);
    return quoted(info.dli_sname ? info.dli_sname : "");
}

std::string object(std::initializer_list<std::string> pairs)
{
    std::string text;
    for (const std::string &each : pairs)
        text += (text.empty() ? "{" : ", ") + each;
    return text + "}";
}

template <typename List, typename Show> std::string array(const List &list, Show show)
{
    std::string text;
    for (const auto &each : list)
        text += (text.empty() ? "" : ", ") + show(each);
    return "[" + text + "]";
}

std::string show_method(const gorvaNet_method &row)
{
    return object({
        pair("name", quoted(row.name)),
        pair("index", row.index),
        pair("receive", symbol(row.recvReq)),
        pair("freeBody", symbol(row.freeBody)),
        pair("serializeBody", symbol(row.serializeBody)),
        pair("unserializeBody", symbol(row.unserializeBody)),
        pair("logBody", symbol(row.logBody)),
    });
}

std::string show_block(const gorvaNet_interface &block, std::span<const gorvaNet_method> rows)
{
    return object({
        pair("name", quoted(block.name)),
        pair("magic", block.magic),
        pair("count", block.count),
        pair("methods", array(rows, show_method)),
    });
}

std::string show_base()
{
    return object({
        pair("name", quoted(gorvaNet_base.name)),
        pair("magic", gorvaNet_base.magic),
        pair("command", show_block(gorvaNet_base.cmd, gorvaNet_base.cmdMethods)),
        pair("notification", show_block(gorvaNet_base.ntfy, gorvaNet_base.ntfyMethods)),
    });
}

const char *name_of(layouts::Kind kind)
{
    constexpr std::array names = {"number", "signed_number", "text", "wide", "record", "list"};
    return names.at(static_cast<size_t>(kind));
}

std::string show_field(const layouts::Field &field)
{
    return object({
        pair("name", quoted(field.name)),
        pair("tag", field.tag),
        pair("kind", quoted(name_of(field.kind))),
        pair("capacity", field.capacity),
        pair("members", array(field.members, show_field)),
    });
}

std::string show_layout(layouts::Interface interface, uint32_t index, uint32_t direction)
{
    const layouts::Layout *layout = layouts::find_layout(interface, index, direction);
    if (!layout)
        return "";
    bool command = interface == layouts::Interface::command;
    return object({
        pair("method", quoted(layout->method)),
        pair("interface", quoted(command ? "command" : "notification")),
        pair("index", index),
        pair("direction", direction),
        pair("magic", layout->magic),
        pair("version", layout->version),
        pair("fields", array(layout->fields, show_field)),
    });
}

// A few indexes and directions more than there should be: a surplus row would show.
std::string show_layouts()
{
    std::vector<std::string> found;
    for (layouts::Interface interface : {layouts::Interface::command, layouts::Interface::notification})
        for (uint32_t index = 0; index < 32; index++)
            for (uint32_t direction = 0; direction < 4; direction++)
                if (std::string layout = show_layout(interface, index, direction); !layout.empty())
                    found.push_back(layout);
    return array(found, [](const std::string &layout) { return layout; });
}

// ---- Calls of the library -------------------------------------------------------------------------------------------

using EightPointers = uint32_t(const void *, const void *, const void *, const void *, const void *, const void *,
                               const void *, const void *);

// Zeroes are an empty text, a record of empty texts and lists, and a body of its own. Arguments that a function does
// not have are not looked at.
std::string call(const std::string &function)
{
    static std::array<uint32_t, 1 << 14> zeroes = {};
    const void *any = zeroes.data();
    take_calls();
    find<EightPointers>(function)(any, any, any, any, any, any, any, any);
    std::ostringstream out;
    for (const Call &made : take_calls())
        if (made.function != "zebIntf_getCore_user" && made.function != "zebCore_isMsg_needRes") {
            out << made.function;
            for (uintptr_t each : made.words)
                out << ' ' << each;
            if (made.function.find("send") != std::string::npos)
                free(reinterpret_cast<void *>(made.words.at(1))); // the body, which the bus owns
        }
    return out.str();
}

std::string serialize_body(const std::string &function, std::istream &question)
{
    uint32_t type = 0;
    std::string digits;
    question >> type >> digits;
    Bytes body = from_hex(digits);
    void *buffer = nullptr;
    uint32_t size = 0;
    uint32_t status = find<gorvaNet_serializeBody>(function)(type, body.data(), &buffer, &size);
    std::string answer = std::to_string(status) + ' ' + to_hex(buffer, size);
    free(buffer);
    return answer;
}

std::string unserialize_body(const std::string &function, std::istream &question)
{
    uint32_t type = 0;
    std::string digits;
    question >> type >> digits;
    Bytes bytes = from_hex(digits);
    bytes.resize(bytes.size() + tail_size);
    void *body = nullptr;
    uint32_t size = 0;
    int32_t status = find<gorvaNet_unserializeBody>(function)(type, bytes.data(), &body, &size);
    std::string answer = std::to_string(status) + ' ' + to_hex(body, size);
    free(body);
    return answer;
}

std::string serialize_lg(const std::string &function, std::istream &question)
{
    std::string digits;
    question >> digits;
    return std::to_string(find<uint32_t(const void *)>(function)(from_hex(digits).data()));
}

std::string serialize(const std::string &function, std::istream &question)
{
    size_t size = 0;
    std::string digits;
    question >> size >> digits;
    Bytes buffer(size);
    uint8_t *cursor = buffer.data();
    uint32_t status = find<uint32_t(const void *, uint8_t **)>(function)(from_hex(digits).data(), &cursor);
    return std::to_string(status) + ' ' + to_hex({buffer.data(), cursor});
}

std::string unserialize(const std::string &function, std::istream &question)
{
    size_t size = 0;
    std::string digits;
    question >> size >> digits;
    Bytes bytes = from_hex(digits);
    bytes.resize(bytes.size() + tail_size);
    Bytes record(size);
    const uint8_t *cursor = bytes.data();
    uint32_t status = find<uint32_t(void *, const uint8_t **)>(function)(record.data(), &cursor);
    return std::to_string(status) + ' ' + std::to_string(cursor - bytes.data()) + ' ' + to_hex(record);
}

std::string answer(std::istream &question)
{
    std::string what;
    std::string function;
    question >> what;
    if (what == "base")
        return show_base();
    if (what == "layouts")
        return show_layouts();
    question >> function;
    if (what == "call")
        return call(function);
    if (what == "serializeBody")
        return serialize_body(function, question);
    if (what == "unserializeBody")
        return unserialize_body(function, question);
    if (what == "serialize_lg")
        return serialize_lg(function, question);
    if (what == "serialize")
        return serialize(function, question);
    return unserialize(function, question);
}

} // namespace

int main()
{
    std::string line;
    while (std::getline(std::cin, line)) {
        std::istringstream question(line);
        std::cout << answer(question) << std::endl;
    }
    return EXIT_SUCCESS;
}
