// ipv4_properties: in the response of GetIPv4Props.
//
//   tag 3   field3, sign-extended
//   tag 4   field4, at most 49 characters
//   tag 5   field5, at most 49 characters
//   tag 6   field6
//   tag 7   field7, at most 15 characters
//   tag 8   field8, at most 15 characters
//   tag 9   field9, at most 15 characters
//   tag 10  field10, at most 32 characters
//   tag 11  field11, at most 255 characters
//   tag 12  infoCount, followed by the first infoCount infos, at most 20

#include "gorvanet.h"
#include "tlv.h"

#include <syslog.h>

static_assert(sizeof(ipv4_properties) == 3772);

uint32_t gorvaNet_ipv4_properties_copy(struct ipv4_properties *destination, const struct ipv4_properties *source)
{
    destination->field3 = source->field3;
    copy_text(destination->field4, source->field4);
    copy_text(destination->field5, source->field5);
    destination->field6 = source->field6;
    copy_text(destination->field7, source->field7);
    copy_text(destination->field8, source->field8);
    copy_text(destination->field9, source->field9);
    copy_text(destination->field10, source->field10);
    copy_text(destination->field11, source->field11);
    destination->infoCount = source->infoCount;
    uint32_t status = copy_list(destination->infos, source->infoCount, source->infos, gorvaNet_ipv4_info_copy);
    if (status)
        syslog(LOG_ERR, "[GORVANET] -> %s(%d): Copy ipv4_info failed(%u)\n", __func__, __LINE__, status);
    return status;
}

void gorvaNet_ipv4_properties_clean(struct ipv4_properties *record)
{
    if (record)
        clean_list(record->infoCount, record->infos, gorvaNet_ipv4_info_clean);
}

uint32_t gorvaNet_ipv4_properties_serialize_lg(const struct ipv4_properties *record)
{
    return 3 * number_item + text_item(record->field4) + text_item(record->field5) + text_item(record->field7) +
           text_item(record->field8) + text_item(record->field9) + text_item(record->field10) +
           text_item(record->field11) + list_items(record->infoCount, record->infos, gorvaNet_ipv4_info_serialize_lg);
}

uint32_t gorvaNet_ipv4_properties_serialize(const struct ipv4_properties *record, uint8_t **cursor)
{
    Writer out = open_writer(cursor);
    put_s8(out, 3, record->field3);
    put_text(out, 4, record->field4);
    put_text(out, 5, record->field5);
    put_u32(out, 6, record->field6);
    put_text(out, 7, record->field7);
    put_text(out, 8, record->field8);
    put_text(out, 9, record->field9);
    put_text(out, 10, record->field10);
    put_text(out, 11, record->field11);
    put_u32(out, 12, record->infoCount);
    put_list(out, record->infoCount, record->infos, gorvaNet_ipv4_info_serialize);
    return close_writer(out);
}

uint32_t gorvaNet_ipv4_properties_unserialize(struct ipv4_properties *record, const uint8_t **cursor)
{
    Reader in = open_reader(cursor);
    get_s8(in, 3, record->field3);
    get_text(in, 4, record->field4);
    get_text(in, 5, record->field5);
    get_u32(in, 6, record->field6);
    get_text(in, 7, record->field7);
    get_text(in, 8, record->field8);
    get_text(in, 9, record->field9);
    get_text(in, 10, record->field10);
    get_text(in, 11, record->field11);
    get_u32(in, 12, record->infoCount);
    get_list(in, record->infoCount, record->infos, gorvaNet_ipv4_info_unserialize);
    return close_reader(in);
}
