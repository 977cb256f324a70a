// The two members that open every body, reached without knowing whose body it is: a 32-bit magic at offset 0 and a
// 16-bit flag at offset 4. A body whose flag is not 0 is kept by freeBody.

#ifndef GORVANET_FRAME_BODY_H
#define GORVANET_FRAME_BODY_H

#include <cstdint>

constexpr uint32_t flag_offset = 4;

inline uint32_t &magic_of(void *body)
{
    return *static_cast<uint32_t *>(body);
}

inline uint32_t magic_of(const void *body)
{
    return *static_cast<const uint32_t *>(body);
}

inline uint16_t flag_of(const void *body)
{
    return static_cast<const uint16_t *>(body)[flag_offset / sizeof(uint16_t)];
}

#endif
