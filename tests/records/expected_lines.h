// The lines that the codec of a record is expected to log.
//
//     ExpectedLines("gorvaNet_state_info_unserialize", start).wrong_tag(4, 4, 3).before({4})

#ifndef GORVANET_TESTS_RECORDS_EXPECTED_LINES_H
#define GORVANET_TESTS_RECORDS_EXPECTED_LINES_H

#include "support/log.h"

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

using Tags = std::vector<uint32_t>;

class ExpectedLines {
public:
    // `record_start` is where the record's encoding begins.
    ExpectedLines(std::string logging_function, const void *record_start);

    // The item here has another tag than the expected one.
    ExpectedLines &wrong_tag(uint32_t found, uint32_t length, uint32_t expected);

    // The same of a wide item; and one whose value is no pointer.
    ExpectedLines &wrong_wide_tag(uint64_t found, uint64_t length, uint32_t expected);
    ExpectedLines &bad_pointer(uint64_t value);

    // A text of this size, NUL included, does not fit.
    ExpectedLines &too_long(int size, int room);

    // One line for each field that is skipped after a failure.
    ExpectedLines &before(const Tags &tags);

    // What another codec logs at this point.
    ExpectedLines &and_then(const LogLines &others);

    operator const LogLines &() const;

private:
    std::string function;
    const void *start;
    LogLines lines;
};

bool operator==(const LogLines &logged, const ExpectedLines &expected);
std::ostream &operator<<(std::ostream &out, const ExpectedLines &expected);

// As lines_ascend, for the lines of each function on its own: those of nested codecs stand between them.
bool lines_ascend_in_each_function(const LogLines &lines);

#endif
