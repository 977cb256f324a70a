// Writes the encodings of records and bodies with many contents, always the same ones, in hexadecimal. The output of
// two machines, compilers or levels of optimisation can be compared byte for byte.

#include "check.h"
#include "input.h"
#include "records/functions.h"
#include "records/reference_records.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>

namespace {

constexpr unsigned contents = 200; // of each record and body

// What an Input makes a content of.
Bytes choices(unsigned seed)
{
    std::minstd_rand numbers(seed);
    Bytes bytes(2048);
    for (uint8_t &byte : bytes)
        byte = static_cast<uint8_t>(numbers() >> 8);
    return bytes;
}

void write(const std::string &name, const uint8_t *bytes, size_t size)
{
    printf("%s ", name.c_str());
    for (size_t i = 0; i < size; i++)
        printf("%02x", bytes[i]);
    printf("\n");
}

template <typename Record> void write_record()
{
    using F = Functions<Record>;
    const reference::Layout &layout = reference::layout_of(static_cast<const Record *>(nullptr));
    for (unsigned seed = 1; seed <= contents; seed++) {
        Bytes bytes = choices(seed);
        Record record = {};
        Input(bytes).fill(layout, reinterpret_cast<uint8_t *>(&record));
        Bytes encoded(F::serialize_lg(&record));
        uint8_t *cursor = encoded.data();
        require(F::serialize(&record, &cursor) == 0, "the encoder fails", layout.name);
        write(layout.name, encoded.data(), encoded.size());

        Record decoded = {};
        const uint8_t *at = encoded.data();
        require(F::unserialize(&decoded, &at) == 0, "the decoder refuses what was encoded", layout.name);
        require(!memcmp(&decoded, &record, sizeof record), "another record comes back", layout.name);
    }
}

void write_body(const model::Body &body)
{
    for (unsigned seed = 1; seed <= contents; seed++) {
        Bytes bytes = choices(seed);
        Bytes image = Input(bytes).image(body);
        void *encoded = nullptr, *decoded = nullptr;
        uint32_t size = 0;
        require(body.row().serializeBody(body.direction, image.data(), &encoded, &size) == 0, "the encoder fails",
                body.name);
        write(body.name, static_cast<uint8_t *>(encoded), size);

        require(body.row().unserializeBody(body.direction, encoded, &decoded, &size) == 0,
                "the decoder refuses what was encoded", body.name);
        require(size == image.size() && !memcmp(decoded, image.data(), size), "another body comes back", body.name);
        body.row().freeBody(body.direction, decoded);
        free(encoded);
    }
}

} // namespace

int main()
{
    write_record<state_info>();
    write_record<ipv4_address_return>();
    write_record<intfConf>();
    write_record<ipv6_prefix>();
    write_record<ipv6_prefix_config>();
    write_record<ipv6_prefixes>();
    write_record<ipv6_address>();
    write_record<ipv6_prefix_addr_conf>();
    write_record<ipv6_prefix_addr_conf_list>();
    write_record<ipv6_properties>();
    write_record<ipv4_info>();
    write_record<ipv4_properties>();
    write_record<ipv4_address>();
    for (const model::Body &body : model::bodies())
        write_body(body);
    return 0;
}
