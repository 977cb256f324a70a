// ipv4_address_return: response of SetIPv4Address.
//
//   tag 3  result

#include "gorvanet.h"
#include "tlv.h"

static_assert(sizeof(ipv4_address_return) == 4);

uint32_t gorvaNet_ipv4_address_return_copy(struct ipv4_address_return *destination,
                                           const struct ipv4_address_return *source)
{
    destination->result = source->result;
    return 0;
}

void gorvaNet_ipv4_address_return_clean(struct ipv4_address_return *)
{
}

uint32_t gorvaNet_ipv4_address_return_serialize_lg(const struct ipv4_address_return *)
{
    return number_item;
}

uint32_t gorvaNet_ipv4_address_return_serialize(const struct ipv4_address_return *record, uint8_t **cursor)
{
    Writer out = open_writer(cursor);
    put_u32(out, 3, record->result);
    return close_writer(out);
}

uint32_t gorvaNet_ipv4_address_return_unserialize(struct ipv4_address_return *record, const uint8_t **cursor)
{
    Reader in = open_reader(cursor);
    get_u32(in, 3, record->result);
    return close_reader(in);
}
