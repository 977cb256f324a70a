// ipv4_info: element of ipv4_properties.
//
//   tag 3  field3, at most 15 characters
//   tag 4  field4, at most 149 characters

#include "gorvanet.h"
#include "tlv.h"

static_assert(sizeof(ipv4_info) == 166);

uint32_t gorvaNet_ipv4_info_copy(struct ipv4_info *destination, const struct ipv4_info *source)
{
    copy_text(destination->field3, source->field3);
    copy_text(destination->field4, source->field4);
    return 0;
}

void gorvaNet_ipv4_info_clean(struct ipv4_info *)
{
}

uint32_t gorvaNet_ipv4_info_serialize_lg(const struct ipv4_info *record)
{
    return text_item(record->field3) + text_item(record->field4);
}

uint32_t gorvaNet_ipv4_info_serialize(const struct ipv4_info *record, uint8_t **cursor)
{
    Writer out = open_writer(cursor);
    put_text(out, 3, record->field3);
    put_text(out, 4, record->field4);
    return close_writer(out);
}

uint32_t gorvaNet_ipv4_info_unserialize(struct ipv4_info *record, const uint8_t **cursor)
{
    Reader in = open_reader(cursor);
    get_text(in, 3, record->field3);
    get_text(in, 4, record->field4);
    return close_reader(in);
}
