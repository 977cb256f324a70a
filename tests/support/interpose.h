// Exported functions of the library that a test process defines itself, so that the library's own calls arrive there.
//
//     static Interposed<decltype(gorvaNet_state_info_copy)> copy{"gorvaNet_state_info_copy"};
//
//     uint32_t gorvaNet_state_info_copy(state_info *destination, const state_info *source)
//     {
//         return copy(destination, source);
//     }
//
// A call goes on to the library's own definition unless the test sets `instead`. A test that sets it takes it back.

#ifndef GORVANET_TESTS_SUPPORT_INTERPOSE_H
#define GORVANET_TESTS_SUPPORT_INTERPOSE_H

#include <dlfcn.h>
#include <functional>
#include <utility>

template <typename Signature> class Interposed;

template <typename Result, typename... Arguments> class Interposed<Result(Arguments...)> {
public:
    explicit Interposed(const char *name) : symbol(name)
    {
    }

    Result operator()(Arguments... arguments)
    {
        calls++;
        return instead ? instead(arguments...) : original(arguments...);
    }

    // The library's own definition.
    Result original(Arguments... arguments)
    {
        return reinterpret_cast<Result (*)(Arguments...)>(dlsym(RTLD_NEXT, symbol))(arguments...);
    }

    std::function<Result(Arguments...)> instead;
    unsigned calls = 0;

private:
    const char *symbol;
};

#endif
