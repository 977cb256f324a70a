#include "body.h"

namespace host {

uint32_t Body::encode(Bytes &bytes) const
{
    void *buffer = nullptr;
    uint32_t size = 0;
    uint32_t status = method_.serializeBody(type_, body_, &buffer, &size);
    if (status)
        return status;
    bytes.data.reset(buffer);
    bytes.size = size;
    return buffer ? 0 : empty_result;
}

uint32_t Body::decode(const Bytes &bytes)
{
    void *body = nullptr;
    uint32_t size = 0;
    int32_t status = method_.unserializeBody(type_, bytes.data.get(), &body, &size);
    if (status)
        return static_cast<uint32_t>(status);
    body_ = body;
    return body ? 0 : empty_result;
}

} // namespace host
