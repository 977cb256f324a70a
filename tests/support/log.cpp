#include "log.h"

#include <cstdarg>
#include <cstdio>
#include <ostream>
#include <syslog.h>
#include <utility>

namespace {

const std::string beginning = "[GORVANET] -> %s(%d): ";

// Of this thread.
LogLines &kept()
{
    static thread_local LogLines lines;
    return lines;
}

// Formats the part behind the beginning: what the library gave, so never a literal.
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
std::string formatted(const char *format, va_list arguments)
{
    char text[1024];
    vsnprintf(text, sizeof text, format, arguments);
    return text;
}

} // namespace

void syslog(int priority, const char *format, ...)
{
    LogLine line{.priority = priority, .function = {}, .format = format, .text = {}};
    va_list arguments;
    va_start(arguments, format);
    // A line without the common beginning has no function name that could be read: it is kept as it is and equals
    // nothing that a test expects. Nor does one without a source line.
    if (line.format.compare(0, beginning.size(), beginning) == 0) {
        line.function = va_arg(arguments, const char *);
        line.line = va_arg(arguments, int);
        line.text = formatted(format + beginning.size(), arguments);
        if (line.line <= 0)
            line.function.clear();
    }
    va_end(arguments);
    kept().push_back(line);
}

bool operator==(const LogLine &left, const LogLine &right)
{
    return left.priority == right.priority && left.function == right.function && left.format == right.format &&
           left.text == right.text;
}

std::ostream &operator<<(std::ostream &out, const LogLine &line)
{
    return out << "<" << line.priority << "> " << line.function << "(" << line.line << "): \"" << line.text
               << "\" from \"" << line.format << "\"";
}

LogLine logged(int priority, const char *function, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    LogLine line{.priority = priority, .function = function, .format = beginning + format, .text = {}};
    line.text = formatted(format, arguments);
    va_end(arguments);
    return line;
}

LogLines take_log()
{
    return std::exchange(kept(), {});
}

bool lines_ascend(const LogLines &lines)
{
    for (size_t i = 1; i < lines.size(); i++)
        if (lines[i - 1].line >= lines[i].line)
            return false;
    return true;
}
