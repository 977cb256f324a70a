// ipv6_address: one address. Tag 4 does not exist: kept for compatibility.
//
//   tag 3  field3, at most 45 characters
//   tag 5  field5
//   tag 6  field6
//   tag 7  field7
//   tag 8  field8
//
// ipv6_prefix_addr_conf: a configured prefix with an address, and no item of its own.
//
//          config
//          address
//
// ipv6_prefix_addr_conf_list: request of SetIPv6PrefixAndAddress.
//
//   tag 3  field3, followed by the first field3 confs, at most 5

#include "gorvanet.h"
#include "tlv.h"

#include <syslog.h>

static_assert(sizeof(ipv6_address) == 64);
static_assert(sizeof(ipv6_prefix_addr_conf) == 452);
static_assert(sizeof(ipv6_prefix_addr_conf_list) == 2264);

// ipv6_address

uint32_t gorvaNet_ipv6_address_copy(struct ipv6_address *destination, const struct ipv6_address *source)
{
    copy_text(destination->field3, source->field3);
    destination->field5 = source->field5;
    destination->field6 = source->field6;
    destination->field7 = source->field7;
    destination->field8 = source->field8;
    return 0;
}

void gorvaNet_ipv6_address_clean(struct ipv6_address *)
{
}

uint32_t gorvaNet_ipv6_address_serialize_lg(const struct ipv6_address *record)
{
    return text_item(record->field3) + 4 * number_item;
}

uint32_t gorvaNet_ipv6_address_serialize(const struct ipv6_address *record, uint8_t **cursor)
{
    Writer out = open_writer(cursor);
    put_text(out, 3, record->field3);
    put_u32(out, 5, record->field5);
    put_u32(out, 6, record->field6);
    put_u32(out, 7, record->field7);
    put_u32(out, 8, record->field8);
    return close_writer(out);
}

uint32_t gorvaNet_ipv6_address_unserialize(struct ipv6_address *record, const uint8_t **cursor)
{
    Reader in = open_reader(cursor);
    get_text(in, 3, record->field3);
    get_u32(in, 5, record->field5);
    get_u32(in, 6, record->field6);
    get_u32(in, 7, record->field7);
    get_u32(in, 8, record->field8);
    return close_reader(in);
}

// ipv6_prefix_addr_conf. Its encoder and decoder work on a copy of the caller's cursor, and give it back at the end,
// failed or not.

uint32_t gorvaNet_ipv6_prefix_addr_conf_copy(struct ipv6_prefix_addr_conf *destination,
                                             const struct ipv6_prefix_addr_conf *source)
{
    uint32_t status = gorvaNet_ipv6_prefix_config_copy(&destination->config, &source->config);
    if (status) {
        syslog(LOG_ERR, "[GORVANET] -> %s(%d): Copy ipv6_prefix_config failed(%d)\n", __func__, __LINE__,
               static_cast<int>(status));
        return status;
    }
    status = gorvaNet_ipv6_address_copy(&destination->address, &source->address);
    if (status)
        syslog(LOG_ERR, "[GORVANET] -> %s(%d): Copy ipv6_address failed(%d)\n", __func__, __LINE__,
               static_cast<int>(status));
    return status;
}

void gorvaNet_ipv6_prefix_addr_conf_clean(struct ipv6_prefix_addr_conf *record)
{
    if (!record)
        return;
    gorvaNet_ipv6_prefix_config_clean(&record->config);
    gorvaNet_ipv6_address_clean(&record->address);
}

uint32_t gorvaNet_ipv6_prefix_addr_conf_serialize_lg(const struct ipv6_prefix_addr_conf *record)
{
    return gorvaNet_ipv6_prefix_config_serialize_lg(&record->config) +
           gorvaNet_ipv6_address_serialize_lg(&record->address);
}

uint32_t gorvaNet_ipv6_prefix_addr_conf_serialize(const struct ipv6_prefix_addr_conf *record, uint8_t **cursor)
{
    uint8_t *copy = *cursor;
    Writer out = open_writer(&copy);
    put_record(out, record->config, gorvaNet_ipv6_prefix_config_serialize);
    put_record(out, record->address, gorvaNet_ipv6_address_serialize);
    *cursor = out.at;
    return out.status;
}

uint32_t gorvaNet_ipv6_prefix_addr_conf_unserialize(struct ipv6_prefix_addr_conf *record, const uint8_t **cursor)
{
    const uint8_t *copy = *cursor;
    Reader in = open_reader(&copy);
    get_record(in, record->config, gorvaNet_ipv6_prefix_config_unserialize);
    get_record(in, record->address, gorvaNet_ipv6_address_unserialize);
    *cursor = in.at;
    return in.status;
}

// ipv6_prefix_addr_conf_list

uint32_t gorvaNet_ipv6_prefix_addr_conf_list_copy(struct ipv6_prefix_addr_conf_list *destination,
                                                  const struct ipv6_prefix_addr_conf_list *source)
{
    destination->field3 = source->field3;
    uint32_t status = copy_list(destination->confs, source->field3, source->confs, gorvaNet_ipv6_prefix_addr_conf_copy);
    if (status)
        syslog(LOG_ERR, "[GORVANET] -> %s(%d): Copy ipv6_prefix_addr_conf failed(%u)\n", __func__, __LINE__, status);
    return status;
}

void gorvaNet_ipv6_prefix_addr_conf_list_clean(struct ipv6_prefix_addr_conf_list *record)
{
    if (record)
        clean_list(record->field3, record->confs, gorvaNet_ipv6_prefix_addr_conf_clean);
}

uint32_t gorvaNet_ipv6_prefix_addr_conf_list_serialize_lg(const struct ipv6_prefix_addr_conf_list *record)
{
    return number_item + list_items(record->field3, record->confs, gorvaNet_ipv6_prefix_addr_conf_serialize_lg);
}

uint32_t gorvaNet_ipv6_prefix_addr_conf_list_serialize(const struct ipv6_prefix_addr_conf_list *record,
                                                       uint8_t **cursor)
{
    Writer out = open_writer(cursor);
    put_u32(out, 3, record->field3);
    put_list(out, record->field3, record->confs, gorvaNet_ipv6_prefix_addr_conf_serialize);
    return close_writer(out);
}

uint32_t gorvaNet_ipv6_prefix_addr_conf_list_unserialize(struct ipv6_prefix_addr_conf_list *record,
                                                         const uint8_t **cursor)
{
    Reader in = open_reader(cursor);
    get_u32(in, 3, record->field3);
    get_list(in, record->field3, record->confs, gorvaNet_ipv6_prefix_addr_conf_unserialize);
    return close_reader(in);
}
