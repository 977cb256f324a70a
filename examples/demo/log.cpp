#include "screen.h"

#include <cstdarg>
#include <cstdio>
#include <string>
#include <syslog.h>

// The library writes its failures to the system log. A program that defines syslog itself gets them instead.
extern "C" void syslog(int priority, const char *pattern, ...)
{
    char text[512];
    va_list arguments;
    va_start(arguments, pattern);
    vsnprintf(text, sizeof(text), pattern, arguments);
    va_end(arguments);
    std::string line = text;
    if (!line.empty() && line.back() == '\n')
        line.pop_back();
    demo::log_line(priority, line);
}
