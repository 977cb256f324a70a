// The system log as a test sees it: this process's own `syslog` keeps every line that the library writes.

#ifndef GORVANET_TESTS_SUPPORT_LOG_H
#define GORVANET_TESTS_SUPPORT_LOG_H

#include <iosfwd>
#include <string>
#include <vector>

struct LogLine {
    int priority;
    std::string function; // first argument
    std::string format;   // complete, as the library passed it
    std::string text;     // the format with all its arguments, but for the line number
    int line = 0;         // second argument; not compared
};

using LogLines = std::vector<LogLine>;

bool operator==(const LogLine &left, const LogLine &right);
std::ostream &operator<<(std::ostream &out, const LogLine &line);

// A line to expect: `format` without the beginning that all lines share, and its arguments.
[[gnu::format(printf, 3, 4)]] LogLine logged(int priority, const char *function, const char *format, ...);

// The lines that this thread has written since the last call.
LogLines take_log();

// Their source line numbers are all different and ascending.
bool lines_ascend(const LogLines &lines);

#endif
