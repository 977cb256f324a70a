#include "screen.h"

#include <cstdio>
#include <syslog.h>

namespace demo {

namespace {

enum class Style { plain, bold, dim, tag, length, value, field, good, bad, log, client, service };

bool is_coloured;
int chapter;

const char *code(Style style)
{
    switch (style) {
    case Style::bold:
        return "\033[1m";
    case Style::dim:
        return "\033[2m";
    case Style::tag:
        return "\033[35m";
    case Style::length:
        return "\033[34m";
    case Style::value:
        return "\033[36m";
    case Style::field:
        return "\033[1;36m";
    case Style::good:
        return "\033[1;32m";
    case Style::bad:
        return "\033[1;31m";
    case Style::log:
        return "\033[33m";
    case Style::client:
        return "\033[1;34m";
    case Style::service:
        return "\033[1;35m";
    case Style::plain:
        break;
    }
    return "";
}

std::string in(Style style, const std::string &text)
{
    if (!is_coloured || text.empty() || style == Style::plain)
        return text;
    return code(style) + text + "\033[0m";
}

std::string padded(std::string text, size_t width)
{
    if (text.size() < width)
        text.append(width - text.size(), ' ');
    return text;
}

std::string hex(uint64_t value, int digits)
{
    char text[24];
    snprintf(text, sizeof(text), "%0*llx", digits, static_cast<unsigned long long>(value));
    return text;
}

constexpr size_t bytes_in_a_line = 8;

// Eight bytes, in two groups of four.
std::string hex_line(std::span<const uint8_t> bytes, size_t from)
{
    std::string text;
    for (size_t i = from; i < bytes.size() && i < from + bytes_in_a_line; i++) {
        if (i > from)
            text += i % 4 ? " " : "  ";
        text += hex(bytes[i], 2);
    }
    return text;
}

constexpr const char *margin = "               ";

void dump_line(const std::string &offset, const std::string &tag, const std::string &length, const std::string &value)
{
    printf("%s%s  %s  %s  %s", margin, in(Style::dim, padded(offset, 6)).c_str(),
           in(Style::tag, padded(tag, 8)).c_str(), in(Style::length, padded(length, 8)).c_str(),
           in(Style::value, padded(value, 24)).c_str());
}

void dump_row(const Row &row)
{
    int digits = static_cast<int>(row.header);
    dump_line(std::to_string(row.offset), row.header ? hex(row.tag, digits) : "",
              row.header ? hex(row.length, digits) : "", hex_line(row.value, 0));
    printf("  %s%s", in(Style::field, padded(row.field, 8)).c_str(), row.field.empty() ? "" : " ");
    printf("%s", row.meaning.c_str());
    if (!row.problem.empty())
        printf("%s%s", row.meaning.empty() ? "" : "  ", in(Style::bad, "! " + row.problem).c_str());
    printf("\n");
    for (size_t i = bytes_in_a_line; i < row.value.size(); i += bytes_in_a_line)
        printf("%s%28s%s\n", margin, "", in(Style::value, hex_line(row.value, i)).c_str());
}

const char *priority_name(int priority)
{
    switch (priority) {
    case LOG_EMERG:
        return "emerg";
    case LOG_ERR:
        return "error";
    case LOG_WARNING:
        return "warning";
    default:
        return "log";
    }
}

Style style_of(const std::string &who)
{
    if (who == "client")
        return Style::client;
    return who == "service" ? Style::service : Style::bold;
}

} // namespace

void use_colour(bool colour)
{
    is_coloured = colour;
}

void title(const std::string &text)
{
    printf("\n  %s\n", in(Style::bold, text).c_str());
}

void note(const std::string &text)
{
    printf("  %s\n", in(Style::dim, text).c_str());
}

void heading(const std::string &text)
{
    printf("\n  %s\n\n", in(Style::bold, std::to_string(++chapter) + "  " + text).c_str());
}

void step(const std::string &who, const std::string &text)
{
    printf("     %s%s\n", in(style_of(who), padded(who, 10)).c_str(), text.c_str());
}

void log_line(int priority, const std::string &text)
{
    printf("     %s%s\n", in(Style::log, padded("log", 10)).c_str(),
           in(Style::log, std::string(priority_name(priority)) + ": " + text).c_str());
}

void failure(const std::string &text)
{
    printf("     %s%s\n", in(Style::bad, padded("bus", 10)).c_str(), in(Style::bad, text).c_str());
}

void success(const std::string &text)
{
    printf("\n  %s\n\n", in(Style::good, text).c_str());
}

void table_row(const std::string &first, const std::string &second, const std::string &third)
{
    printf("     %s%8s  %8s\n", in(Style::field, padded(first, 28)).c_str(), second.c_str(), third.c_str());
}

void dump(const std::string &name, const std::vector<Row> &rows, size_t size)
{
    printf("     %s%s\n\n", in(Style::bold, padded("bus", 10)).c_str(),
           (name + ", encoded to " + std::to_string(size) + " bytes:").c_str());
    printf("%s%s\n", margin, in(Style::dim, "offset  tag       length    value                     means").c_str());
    for (const Row &row : rows)
        dump_row(row);
    printf("\n");
}

} // namespace demo
