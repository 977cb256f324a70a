#include "log.h"

#include "gorvanet_testing.h"

#include <cstdarg>
#include <cstdio>
#include <deque>
#include <string>
#include <syslog.h>

namespace {

struct Line {
    std::string text;
    gorvanet_testing_line line;
};

// Made on first use and never ended: static objects may log before main and after it.
std::deque<Line> &lines()
{
    static auto &list = *new std::deque<Line>;
    return list;
}

void keep(int priority, const char *format, va_list arguments)
{
    char text[1024];
    vsnprintf(text, sizeof text, format, arguments);
    Line &kept = lines().emplace_back();
    kept.text = text;
    if (kept.text.ends_with('\n'))
        kept.text.pop_back();
    kept.line = {priority, kept.text.c_str()};
}

} // namespace

void testing_bench::clear_log()
{
    lines().clear();
}

const gorvanet_testing_line *gorvanet_testing_log(uint32_t index)
{
    return index < lines().size() ? &lines()[index].line : nullptr;
}

uint32_t gorvanet_testing_logged(const char *part)
{
    if (!part)
        return 0;
    uint32_t count = 0;
    for (const Line &line : lines())
        count += line.text.find(part) != std::string::npos;
    return count;
}

// ---- In place of libc's ---------------------------------------------------------------------------------------------

void syslog(int priority, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    keep(priority, format, arguments);
    va_end(arguments);
}

void vsyslog(int priority, const char *format, va_list arguments)
{
    keep(priority, format, arguments);
}

// The names under which programs call them that are compiled with _FORTIFY_SOURCE.
extern "C" {
void __syslog_chk(int priority, int flag, const char *format, ...);
void __vsyslog_chk(int priority, int flag, const char *format, va_list arguments);
}

void __syslog_chk(int priority, int, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    keep(priority, format, arguments);
    va_end(arguments);
}

void __vsyslog_chk(int priority, int, const char *format, va_list arguments)
{
    keep(priority, format, arguments);
}
