// The wire format of each body as a table for the reference codec: the model's table of bodies, with the prologue and
// with what the library's own codec of the body logs.

#ifndef GORVANET_TESTS_BODIES_REFERENCE_BODIES_H
#define GORVANET_TESTS_BODIES_REFERENCE_BODIES_H

#include "records/reference_codec.h"

#include "gorvanet.h"

namespace reference {

struct Body {
    uint32_t type;
    uint32_t magic;
    gorvaNet_method row;
    Layout layout;
};

// One for each direction of each method; 22.
const std::vector<Body> &bodies();

} // namespace reference

#endif
