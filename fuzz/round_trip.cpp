// Records and bodies with any content: encoded, decoded and encoded again, they give the same bytes and the same
// record.

#include "check.h"
#include "input.h"
#include "records/functions.h"
#include "records/reference_records.h"

#include <cstdlib>
#include <cstring>
#include <memory>

namespace {

struct Free {
    void operator()(void *block) const
    {
        free(block);
    }
};

// A block of exactly this size, so that the sanitizer sees each byte too many.
std::unique_ptr<uint8_t, Free> exactly(size_t size)
{
    return std::unique_ptr<uint8_t, Free>(static_cast<uint8_t *>(calloc(1, size)));
}

template <typename Record> Bytes encode(const Record &record, const std::string &name)
{
    using F = Functions<Record>;
    uint32_t size = F::serialize_lg(&record);
    auto buffer = exactly(size);
    uint8_t *cursor = buffer.get();
    require(F::serialize(&record, &cursor) == 0, "the encoder fails", name);
    require(cursor == buffer.get() + size, "the encoder writes another number of bytes than it said", name);
    return {buffer.get(), buffer.get() + size};
}

template <typename Record> void check_record(Input &input)
{
    using F = Functions<Record>;
    const reference::Layout &layout = reference::layout_of(static_cast<const Record *>(nullptr));
    auto block = [] { return exactly(sizeof(Record)); };
    auto record = block(), decoded = block(), copied = block();
    input.fill(layout, record.get());
    auto as_record = [](auto &memory) { return reinterpret_cast<Record *>(memory.get()); };

    Bytes bytes = encode(*as_record(record), layout.name);
    auto wire = exactly(bytes.size());
    memcpy(wire.get(), bytes.data(), bytes.size());
    const uint8_t *cursor = wire.get();
    require(F::unserialize(as_record(decoded), &cursor) == 0, "the decoder refuses what was encoded", layout.name);
    require(cursor == wire.get() + bytes.size(), "the decoder leaves bytes over", layout.name);
    require(!memcmp(decoded.get(), record.get(), sizeof(Record)), "another record comes back", layout.name);
    require(encode(*as_record(decoded), layout.name) == bytes, "encoded again, it is another one", layout.name);

    require(F::copy(as_record(copied), as_record(record)) == 0, "the copy fails", layout.name);
    require(!memcmp(copied.get(), record.get(), sizeof(Record)), "the copy is another record", layout.name);
    F::clean(as_record(copied));
    require(!memcmp(copied.get(), record.get(), sizeof(Record)), "clean changes the record", layout.name);
}

Bytes encode(const model::Body &body, const void *image)
{
    void *buffer = nullptr;
    uint32_t size = 0;
    require(body.row().serializeBody(body.direction, image, &buffer, &size) == 0, "the encoder fails", body.name);
    std::unique_ptr<uint8_t, Free> owner(static_cast<uint8_t *>(buffer));
    return {owner.get(), owner.get() + size};
}

void check_body(Input &input)
{
    const model::Body &body = input.body();
    Bytes image = input.image(body);
    Bytes bytes = encode(body, image.data());
    require(bytes == model::encode(body, image), "encoded otherwise than by the model", body.name);
    check_guarded(body, bytes);

    void *decoded = nullptr;
    uint32_t size = 0;
    int32_t status = body.row().unserializeBody(body.direction, bytes.data(), &decoded, &size);
    require(status == 0 && size == image.size(), "the decoder refuses what was encoded", body.name);
    require(!memcmp(decoded, image.data(), size), "another body comes back", body.name);
    require(encode(body, decoded) == bytes, "encoded again, it is another one", body.name);
    body.row().freeBody(body.direction, decoded);
}

constexpr void (*checks[])(Input &) = {
    check_body,
    check_record<state_info>,
    check_record<ipv4_address_return>,
    check_record<intfConf>,
    check_record<ipv6_prefix>,
    check_record<ipv6_prefix_config>,
    check_record<ipv6_prefixes>,
    check_record<ipv6_address>,
    check_record<ipv6_prefix_addr_conf>,
    check_record<ipv6_prefix_addr_conf_list>,
    check_record<ipv6_properties>,
    check_record<ipv4_info>,
    check_record<ipv4_properties>,
    check_record<ipv4_address>,
};

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Input input({data, size});
    checks[input.byte() % std::size(checks)](input);
    return 0;
}
