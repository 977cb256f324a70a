// ipv6_prefix: one prefix.
//
//   tag 3   field3, at most 45 characters
//   tag 4   field4
//   tag 5   field5
//   tag 6   field6
//   tag 7   field7
//   tag 8   field8
//   tag 9   field9
//   tag 10  field10
//   tag 11  field11, at most 149 characters
//   tag 12  field12, zero-extended
//
// ipv6_prefix_config: a prefix with its configuration.
//
//   tag 3  field3, at most 79 characters
//   tag 4  field4, at most 79 characters
//          prefix
//
// ipv6_prefixes: in the PrefixStatus notification.
//
//   tag 3  field3, followed by the first field3 prefixes, at most 10

#include "gorvanet.h"
#include "tlv.h"

#include <syslog.h>

static_assert(sizeof(ipv6_prefix) == 228);
static_assert(sizeof(ipv6_prefix_config) == 388);
static_assert(sizeof(ipv6_prefixes) == 2284);

// ipv6_prefix

uint32_t gorvaNet_ipv6_prefix_copy(struct ipv6_prefix *destination, const struct ipv6_prefix *source)
{
    copy_text(destination->field3, source->field3);
    destination->field4 = source->field4;
    destination->field5 = source->field5;
    destination->field6 = source->field6;
    destination->field7 = source->field7;
    destination->field8 = source->field8;
    destination->field9 = source->field9;
    destination->field10 = source->field10;
    copy_text(destination->field11, source->field11);
    destination->field12 = source->field12;
    return 0;
}

void gorvaNet_ipv6_prefix_clean(struct ipv6_prefix *)
{
}

uint32_t gorvaNet_ipv6_prefix_serialize_lg(const struct ipv6_prefix *record)
{
    return text_item(record->field3) + 7 * number_item + text_item(record->field11) + number_item;
}

uint32_t gorvaNet_ipv6_prefix_serialize(const struct ipv6_prefix *record, uint8_t **cursor)
{
    Writer out = open_writer(cursor);
    put_text(out, 3, record->field3);
    put_u32(out, 4, record->field4);
    put_u32(out, 5, record->field5);
    put_u32(out, 6, record->field6);
    put_u32(out, 7, record->field7);
    put_u32(out, 8, record->field8);
    put_u32(out, 9, record->field9);
    put_u32(out, 10, record->field10);
    put_announced_text(out, 11, record->field11);
    put_u8(out, 12, record->field12);
    return close_writer(out);
}

uint32_t gorvaNet_ipv6_prefix_unserialize(struct ipv6_prefix *record, const uint8_t **cursor)
{
    Reader in = open_reader(cursor);
    get_text(in, 3, record->field3);
    get_u32(in, 4, record->field4);
    get_u32(in, 5, record->field5);
    get_u32(in, 6, record->field6);
    get_u32(in, 7, record->field7);
    get_u32(in, 8, record->field8);
    get_u32(in, 9, record->field9);
    get_u32(in, 10, record->field10);
    get_text(in, 11, record->field11);
    get_u8(in, 12, record->field12);
    return close_reader(in);
}

// ipv6_prefix_config

uint32_t gorvaNet_ipv6_prefix_config_copy(struct ipv6_prefix_config *destination,
                                          const struct ipv6_prefix_config *source)
{
    copy_text(destination->field3, source->field3);
    copy_text(destination->field4, source->field4);
    uint32_t status = gorvaNet_ipv6_prefix_copy(&destination->prefix, &source->prefix);
    if (status)
        syslog(LOG_ERR, "[GORVANET] -> %s(%d): Copy ipv6_prefix failed(%d)\n", __func__, __LINE__,
               static_cast<int>(status));
    return status;
}

void gorvaNet_ipv6_prefix_config_clean(struct ipv6_prefix_config *record)
{
    if (record)
        gorvaNet_ipv6_prefix_clean(&record->prefix);
}

uint32_t gorvaNet_ipv6_prefix_config_serialize_lg(const struct ipv6_prefix_config *record)
{
    return text_item(record->field3) + text_item(record->field4) + gorvaNet_ipv6_prefix_serialize_lg(&record->prefix);
}

uint32_t gorvaNet_ipv6_prefix_config_serialize(const struct ipv6_prefix_config *record, uint8_t **cursor)
{
    Writer out = open_writer(cursor);
    put_text(out, 3, record->field3);
    put_text(out, 4, record->field4);
    put_record(out, record->prefix, gorvaNet_ipv6_prefix_serialize);
    return close_writer(out);
}

uint32_t gorvaNet_ipv6_prefix_config_unserialize(struct ipv6_prefix_config *record, const uint8_t **cursor)
{
    Reader in = open_reader(cursor);
    get_text(in, 3, record->field3);
    get_text(in, 4, record->field4);
    get_record(in, record->prefix, gorvaNet_ipv6_prefix_unserialize);
    return close_reader(in);
}

// ipv6_prefixes

uint32_t gorvaNet_ipv6_prefixes_copy(struct ipv6_prefixes *destination, const struct ipv6_prefixes *source)
{
    destination->field3 = source->field3;
    uint32_t status = copy_list(destination->prefixes, source->field3, source->prefixes, gorvaNet_ipv6_prefix_copy);
    if (status)
        syslog(LOG_ERR, "[GORVANET] -> %s(%d): Copy ipv6_prefix failed(%u)\n", __func__, __LINE__, status);
    return status;
}

void gorvaNet_ipv6_prefixes_clean(struct ipv6_prefixes *record)
{
    if (record)
        clean_list(record->field3, record->prefixes, gorvaNet_ipv6_prefix_clean);
}

uint32_t gorvaNet_ipv6_prefixes_serialize_lg(const struct ipv6_prefixes *record)
{
    return number_item + list_items(record->field3, record->prefixes, gorvaNet_ipv6_prefix_serialize_lg);
}

uint32_t gorvaNet_ipv6_prefixes_serialize(const struct ipv6_prefixes *record, uint8_t **cursor)
{
    Writer out = open_writer(cursor);
    put_u32(out, 3, record->field3);
    put_list(out, record->field3, record->prefixes, gorvaNet_ipv6_prefix_serialize);
    return close_writer(out);
}

uint32_t gorvaNet_ipv6_prefixes_unserialize(struct ipv6_prefixes *record, const uint8_t **cursor)
{
    Reader in = open_reader(cursor);
    get_u32(in, 3, record->field3);
    get_list(in, record->field3, record->prefixes, gorvaNet_ipv6_prefix_unserialize);
    return close_reader(in);
}
