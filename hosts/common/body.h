// Bodies and encoded buffers, and who releases them: a body ends in its method's freeBody, a buffer in free(3), each
// exactly once, whichever way the message goes. Nothing here knows how messages travel.

#ifndef GORVANET_HOSTS_BODY_H
#define GORVANET_HOSTS_BODY_H

#include "middleware.h"

#include <cstdint>
#include <cstdlib>
#include <memory>

namespace host {

// Something that is released in its own way.
struct Release {
    void (*function)(void *) = free;

    void operator()(void *memory) const
    {
        function(memory);
    }
};

using Owned = std::unique_ptr<void, Release>;

// An encoded body: the library's buffer, or the copy of what came off a bus.
struct Bytes {
    Owned data;
    uint32_t size = 0;
};

// A body that the host owns. It keeps the method's words itself: the interface may be gone when it ends.
class Body {
public:
    Body(const MethodRecord &method, uint32_t type, void *body) : method_(method), type_(type), body_(body)
    {
    }
    Body(const Body &) = delete;
    Body &operator=(const Body &) = delete;
    ~Body()
    {
        if (body_)
            method_.freeBody(type_, body_);
    }

    void *get() const
    {
        return body_;
    }
    const MethodRecord &method() const
    {
        return method_;
    }

    // Both give the library's status. A callback that reports success must have given something: `empty_result` if not.
    uint32_t encode(Bytes &bytes) const;
    uint32_t decode(const Bytes &bytes);

private:
    MethodRecord method_;
    uint32_t type_;
    void *body_;
};

constexpr uint32_t empty_result = 0xffffffff;

} // namespace host

#endif
