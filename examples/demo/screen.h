// How the demo looks: headings, steps, log lines and hex dumps, in colour on a terminal and plain elsewhere.

#ifndef GORVANET_DEMO_SCREEN_H
#define GORVANET_DEMO_SCREEN_H

#include "annotate.h"

#include <string>
#include <vector>

namespace demo {

void use_colour(bool colour);

void title(const std::string &text);
void note(const std::string &text);
void heading(const std::string &text); // a numbered chapter
void step(const std::string &who, const std::string &text);
void log_line(int priority, const std::string &text); // what the library writes to the system log
void failure(const std::string &text);
void success(const std::string &text);
void table_row(const std::string &first, const std::string &second, const std::string &third);
void dump(const std::string &name, const std::vector<Row> &rows, size_t size);

} // namespace demo

#endif
