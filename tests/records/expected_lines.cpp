#include "expected_lines.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <ostream>
#include <utility>

ExpectedLines::ExpectedLines(std::string logging_function, const void *record_start)
    : function(std::move(logging_function)), start(record_start)
{
}

ExpectedLines &ExpectedLines::wrong_tag(uint32_t found, uint32_t length, uint32_t expected)
{
    lines.push_back(
        logged(3, function.c_str(), "pBody(%p): Tl(%u-%u) expectded(%u)\n", start, found, length, expected));
    return *this;
}

ExpectedLines &ExpectedLines::wrong_wide_tag(uint64_t found, uint64_t length, uint32_t expected)
{
    lines.push_back(
        logged(3, function.c_str(), "pBody(%p): Tl(%llu-%llu) expectded(%u)\n", start, found, length, expected));
    return *this;
}

ExpectedLines &ExpectedLines::bad_pointer(uint64_t value)
{
    lines.push_back(logged(3, function.c_str(), "Invalid pointer value(%llu)\n", value));
    return *this;
}

ExpectedLines &ExpectedLines::too_long(int size, int room)
{
    lines.push_back(logged(3, function.c_str(), "lgChainIn(%d) lgMaxChainOut(%d)\n", size, room));
    return *this;
}

ExpectedLines &ExpectedLines::before(const Tags &tags)
{
    for (uint32_t tag : tags)
        lines.push_back(
            logged(3, function.c_str(), "pBody(%p): Type(%d) -> Error Before\n", start, static_cast<int>(tag)));
    return *this;
}

ExpectedLines &ExpectedLines::and_then(const LogLines &others)
{
    lines.insert(lines.end(), others.begin(), others.end());
    return *this;
}

ExpectedLines::operator const LogLines &() const
{
    return lines;
}

bool operator==(const LogLines &logged, const ExpectedLines &expected)
{
    return logged == static_cast<const LogLines &>(expected);
}

std::ostream &operator<<(std::ostream &out, const ExpectedLines &expected)
{
    return out << testing::PrintToString(static_cast<const LogLines &>(expected));
}

bool lines_ascend_in_each_function(const LogLines &lines)
{
    std::map<std::string, LogLines> by_function;
    for (const LogLine &line : lines)
        by_function[line.function].push_back(line);
    return std::all_of(by_function.begin(), by_function.end(),
                       [](const auto &entry) { return lines_ascend(entry.second); });
}
