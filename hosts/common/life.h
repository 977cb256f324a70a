// From the first user to the end of everything, and what may be called when.

#ifndef GORVANET_HOSTS_LIFE_H
#define GORVANET_HOSTS_LIFE_H

#include <cstdint>

namespace host {

using Hook = void(void *context, int32_t event);

// Hooking the same function with the same context again changes nothing.
void add_hook(Hook *hook, void *context);

// While one of these lives, the loop takes a turn: what must not be called from inside one is refused.
class InTurn {
public:
    InTurn();
    InTurn(const InTurn &) = delete;
    InTurn &operator=(const InTurn &) = delete;
    ~InTurn();
};

// True, after a misuse report on behalf of `caller`, inside a turn or the observer.
bool refuse_when_busy(const char *caller);

// The hosts' own functions of these names; `caller` is the host's name of it.
void *add_named_user(const char *name, const char *caller);
int32_t remove_user_of(const void *handle, const char *caller);
int32_t withdraw(uint32_t number, const char *caller);
int32_t tear_down(const char *caller);

} // namespace host

#endif
