// Handles: numbers in the shape of pointers, which users and messages are known by outside the host.
//
// Numbers are given out in growing order and looked up in a table, so that a handle that has become stale is recognised
// and never read through. The two low bits tell the kinds apart; the address of an object has neither of them set.

#ifndef GORVANET_HOSTS_HANDLE_H
#define GORVANET_HOSTS_HANDLE_H

#include <cstdint>

namespace host {

enum class HandleKind : uintptr_t { user = 1, core_user = 2, message = 3 };

constexpr uint32_t last_handle_number = UINT32_MAX >> 2;

inline void *to_handle(HandleKind kind, uint32_t number)
{
    return reinterpret_cast<void *>(uintptr_t{number} << 2 | static_cast<uintptr_t>(kind));
}

// The number in a handle of this kind; 0, which no handle has, in anything else.
inline uint32_t number_of(HandleKind kind, const void *handle)
{
    auto value = reinterpret_cast<uintptr_t>(handle);
    if ((value & 3) != static_cast<uintptr_t>(kind) || value >> 2 > last_handle_number)
        return 0;
    return static_cast<uint32_t>(value >> 2);
}

} // namespace host

#endif
