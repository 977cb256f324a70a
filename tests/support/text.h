// `strlen` as a test sees it: this process's own one can give the library a length that no text has.

#ifndef GORVANET_TESTS_SUPPORT_TEXT_H
#define GORVANET_TESTS_SUPPORT_TEXT_H

#include <cstddef>
#include <cstdint>

// Gives `length` for the text at this address from now on. Null: no text any more.
void pretend_length(const void *text, uint32_t length);

#endif
