// ipv4_address: request of SetIPv4Address.
//
//   tag 3   field3
//   tag 4   field4
//   tag 5   field5, zero-extended
//   tag 6   field6, at most 32 characters
//   tag 7   field7, at most 15 characters
//   tag 8   field8, at most 15 characters
//   tag 9   field9, at most 15 characters
//   tag 10  field10, at most 32 characters

#include "gorvanet.h"
#include "tlv.h"

static_assert(sizeof(ipv4_address) == 124);

uint32_t gorvaNet_ipv4_address_copy(struct ipv4_address *destination, const struct ipv4_address *source)
{
    destination->field3 = source->field3;
    destination->field4 = source->field4;
    destination->field5 = source->field5;
    copy_text(destination->field6, source->field6);
    copy_text(destination->field7, source->field7);
    copy_text(destination->field8, source->field8);
    copy_text(destination->field9, source->field9);
    copy_text(destination->field10, source->field10);
    return 0;
}

void gorvaNet_ipv4_address_clean(struct ipv4_address *)
{
}

uint32_t gorvaNet_ipv4_address_serialize_lg(const struct ipv4_address *record)
{
    return 3 * number_item + text_item(record->field6) + text_item(record->field7) + text_item(record->field8) +
           text_item(record->field9) + text_item(record->field10);
}

uint32_t gorvaNet_ipv4_address_serialize(const struct ipv4_address *record, uint8_t **cursor)
{
    Writer out = open_writer(cursor);
    put_u32(out, 3, record->field3);
    put_u32(out, 4, record->field4);
    put_u8(out, 5, record->field5);
    put_text(out, 6, record->field6);
    put_text(out, 7, record->field7);
    put_text(out, 8, record->field8);
    put_text(out, 9, record->field9);
    put_text(out, 10, record->field10);
    return close_writer(out);
}

uint32_t gorvaNet_ipv4_address_unserialize(struct ipv4_address *record, const uint8_t **cursor)
{
    Reader in = open_reader(cursor);
    get_u32(in, 3, record->field3);
    get_u32(in, 4, record->field4);
    get_u8(in, 5, record->field5);
    get_text(in, 6, record->field6);
    get_text(in, 7, record->field7);
    get_text(in, 8, record->field8);
    get_text(in, 9, record->field9);
    get_text(in, 10, record->field10);
    return close_reader(in);
}
