// ipv6_properties: in the response of GetIPv6Props.
//
//   tag 3   field3, sign-extended
//   tag 4   field4, sign-extended
//   tag 5   field5, sign-extended
//   tag 6   field6, sign-extended
//   tag 7   field7, at most 49 characters
//   tag 8   field8, at most 49 characters
//   tag 9   field9, at most 49 characters
//   tag 10  field10, followed by the first field10 addresses of field11, at most 2
//   tag 12  field12, followed by the first field12 addresses of field13, at most 2
//   tag 14  field14, followed by the first field14 addresses of field15, at most 10
//   tag 16  field16, at most 45 characters
//   tag 17  field17, followed by the first field17 prefixes of field18, at most 10
//   tag 19  field19, at most 255 characters
//
// The arrays' own tags 11, 13, 15 and 18 never travel.

#include "../frame/check.h"
#include "gorvanet.h"
#include "tlv.h"

#include <syslog.h>

static_assert(sizeof(ipv6_properties) == 3652);

namespace {

[[gnu::cold]] void log_address_not_copied(Where where, uint32_t status)
{
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): Copy ipv6_address failed(%u)\n", where.function, where.line, status);
}

[[gnu::cold]] void log_prefix_not_copied(Where where, uint32_t status)
{
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): Copy ipv6_prefix failed(%u)\n", where.function, where.line, status);
}

template <uint32_t Capacity>
uint32_t copy_addresses(ipv6_address (&to)[Capacity], const uint32_t &count, const ipv6_address (&from)[Capacity],
                        Where where = here())
{
    uint32_t status = copy_list(to, count, from, gorvaNet_ipv6_address_copy);
    if (status)
        log_address_not_copied(where, status);
    return status;
}

template <uint32_t Capacity>
uint32_t copy_prefixes(ipv6_prefix (&to)[Capacity], const uint32_t &count, const ipv6_prefix (&from)[Capacity],
                       Where where = here())
{
    uint32_t status = copy_list(to, count, from, gorvaNet_ipv6_prefix_copy);
    if (status)
        log_prefix_not_copied(where, status);
    return status;
}

} // namespace

uint32_t gorvaNet_ipv6_properties_copy(struct ipv6_properties *destination, const struct ipv6_properties *source)
{
    destination->field3 = source->field3;
    destination->field4 = source->field4;
    destination->field5 = source->field5;
    destination->field6 = source->field6;
    copy_text(destination->field7, source->field7);
    copy_text(destination->field8, source->field8);
    copy_text(destination->field9, source->field9);
    destination->field10 = source->field10;
    uint32_t status = copy_addresses(destination->field11, source->field10, source->field11);
    if (status)
        return status;
    destination->field12 = source->field12;
    status = copy_addresses(destination->field13, source->field12, source->field13);
    if (status)
        return status;
    destination->field14 = source->field14;
    status = copy_addresses(destination->field15, source->field14, source->field15);
    if (status)
        return status;
    copy_text(destination->field16, source->field16);
    destination->field17 = source->field17;
    status = copy_prefixes(destination->field18, source->field17, source->field18);
    if (status)
        return status;
    copy_text(destination->field19, source->field19);
    return 0;
}

void gorvaNet_ipv6_properties_clean(struct ipv6_properties *record)
{
    if (!record)
        return;
    clean_list(record->field10, record->field11, gorvaNet_ipv6_address_clean);
    clean_list(record->field12, record->field13, gorvaNet_ipv6_address_clean);
    clean_list(record->field14, record->field15, gorvaNet_ipv6_address_clean);
    clean_list(record->field17, record->field18, gorvaNet_ipv6_prefix_clean);
}

uint32_t gorvaNet_ipv6_properties_serialize_lg(const struct ipv6_properties *record)
{
    return 4 * number_item + text_item(record->field7) + text_item(record->field8) + text_item(record->field9) +
           number_item + list_items(record->field10, record->field11, gorvaNet_ipv6_address_serialize_lg) +
           number_item + list_items(record->field12, record->field13, gorvaNet_ipv6_address_serialize_lg) +
           number_item + list_items(record->field14, record->field15, gorvaNet_ipv6_address_serialize_lg) +
           text_item(record->field16) + number_item +
           list_items(record->field17, record->field18, gorvaNet_ipv6_prefix_serialize_lg) + text_item(record->field19);
}

uint32_t gorvaNet_ipv6_properties_serialize(const struct ipv6_properties *record, uint8_t **cursor)
{
    Writer out = open_writer(cursor);
    put_s8(out, 3, record->field3);
    put_s8(out, 4, record->field4);
    put_s8(out, 5, record->field5);
    put_s8(out, 6, record->field6);
    put_text(out, 7, record->field7);
    put_text(out, 8, record->field8);
    put_text(out, 9, record->field9);
    put_u32(out, 10, record->field10);
    put_list(out, record->field10, record->field11, gorvaNet_ipv6_address_serialize);
    put_u32(out, 12, record->field12);
    put_list(out, record->field12, record->field13, gorvaNet_ipv6_address_serialize);
    put_u32(out, 14, record->field14);
    put_list(out, record->field14, record->field15, gorvaNet_ipv6_address_serialize);
    put_text(out, 16, record->field16);
    put_u32(out, 17, record->field17);
    put_list(out, record->field17, record->field18, gorvaNet_ipv6_prefix_serialize);
    put_text(out, 19, record->field19);
    return close_writer(out);
}

uint32_t gorvaNet_ipv6_properties_unserialize(struct ipv6_properties *record, const uint8_t **cursor)
{
    Reader in = open_reader(cursor);
    get_s8(in, 3, record->field3);
    get_s8(in, 4, record->field4);
    get_s8(in, 5, record->field5);
    get_s8(in, 6, record->field6);
    get_text(in, 7, record->field7);
    get_text(in, 8, record->field8);
    get_text(in, 9, record->field9);
    get_u32(in, 10, record->field10);
    get_list(in, record->field10, record->field11, gorvaNet_ipv6_address_unserialize);
    get_u32(in, 12, record->field12);
    get_list(in, record->field12, record->field13, gorvaNet_ipv6_address_unserialize);
    get_u32(in, 14, record->field14);
    get_list(in, record->field14, record->field15, gorvaNet_ipv6_address_unserialize);
    get_text(in, 16, record->field16);
    get_u32(in, 17, record->field17);
    get_list(in, record->field17, record->field18, gorvaNet_ipv6_prefix_unserialize);
    get_text(in, 19, record->field19);
    return close_reader(in);
}
