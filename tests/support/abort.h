// `abort` as a test sees it: this process's own one leaves the call that a test expects to abort, and never returns.

#ifndef GORVANET_TESTS_SUPPORT_ABORT_H
#define GORVANET_TESTS_SUPPORT_ABORT_H

#include <csetjmp>

extern sigjmp_buf abort_point;
extern bool abort_expected;

// Runs `call`: does it abort? It may hold nothing that needs a destructor.
template <typename Call> bool aborts(Call call)
{
    if (sigsetjmp(abort_point, 0)) {
        abort_expected = false;
        return true;
    }
    abort_expected = true;
    call();
    abort_expected = false;
    return false;
}

#endif
