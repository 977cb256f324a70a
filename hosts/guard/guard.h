// Checks an encoded body that comes from others, before the library decodes it.
//
// The library's unserializeBody is given no length: it trusts the items' own. A host that takes bytes from a socket, a
// file or another user hands it only what has passed here:
//
//     guard::Admission admission = guard::admit({guard::Interface::command, index, type}, bytes);
//     if (!admission.verdict.sound())
//         return drop(guard::explain(admission.verdict));
//     row.unserializeBody(type, admission.body.get(), &body, &size);
//
// A sound body's items follow one another from its first byte to its last, in the order in which the decoder reads
// them, and hold what it reads: so it stays inside, and gives 0. Everything that the library encodes is sound, and so
// are items longer than they need be. Of a list whose count is beyond its capacity, capacity elements are there, as
// the decoder reads them.

#ifndef GORVANET_HOSTS_GUARD_H
#define GORVANET_HOSTS_GUARD_H

#include "layouts.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace guard {

using layouts::Interface;

// Which body the bytes claim to be. The direction is the body type: 0 request, 1 response.
struct Which {
    Interface interface;
    uint32_t index; // of the method within its interface
    uint32_t direction;
};

// Why a body is refused, with what `found` and `expected` are then.
enum class Reason {
    none,            //
    unknown_body,    // no such method, or no such direction of it
    cut_header,      // bytes left; size of a header
    cut_value,       // bytes left behind the header; length of the value
    wrong_tag,       // tags
    wrong_magic,     // magics
    wrong_version,   // low 16 bits of the version; the method's version
    short_value,     // length of the value; bytes that the decoder reads
    large_pointer,   // value of the wide item; the largest that fits
    endless_text,    // length of the value, in which there is no NUL; 0
    long_text,       // bytes with the NUL; bytes that fit
    bytes_left_over, // bytes behind the last item; 0
};

struct Verdict {
    Reason reason = Reason::none;
    uint64_t offset = 0;    // of the item at which the check ended
    const char *field = ""; // its name
    uint64_t found = 0;
    uint64_t expected = 0;

    bool sound() const
    {
        return reason == Reason::none;
    }
};

Verdict check(Which which, std::span<const uint8_t> bytes);

// The verdict in words, for a log.
std::string explain(const Verdict &verdict);

// Zero bytes behind an admitted body, no part of it. No decoder reads them. They are the second line of defence: one
// that ran on would find tag 0 and length 0, which no field has, and stop.
constexpr size_t tail_size = 32;

struct Admission {
    Verdict verdict;
    std::unique_ptr<uint8_t[]> body; // a copy and its tail; null unless sound
};

// Copies first and checks the copy, so that bytes in memory that others can write cannot change in between.
Admission admit(Which which, std::span<const uint8_t> bytes);

} // namespace guard

#endif
