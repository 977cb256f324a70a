// Tests that could go on for hours: by default they do what a run of the whole suite has time for, and with
// GORVANET_LONG=1 in the environment all that they are meant to do.

#ifndef GORVANET_TESTS_SUPPORT_LONG_FORM_H
#define GORVANET_TESTS_SUPPORT_LONG_FORM_H

#include <cstdint>
#include <string>

bool long_form();

inline uint32_t by_form(uint32_t short_count, uint32_t long_count)
{
    return long_form() ? long_count : short_count;
}

// What has been done, for people to read: sums of how often, written when the process ends, behind all else.
void add_to_figure(const std::string &what, uint32_t count);

#endif
