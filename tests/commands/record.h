// The records that bodies carry: this process puts its own functions in the library's way, so that a test sees the
// library's calls of them and can make each one fail.

#ifndef GORVANET_TESTS_COMMANDS_RECORD_H
#define GORVANET_TESTS_COMMANDS_RECORD_H

#include "support/interpose.h"

#include <cstdint>
#include <string>

// The five functions of one record.
class RecordProbe {
    const std::string copy_name, clean_name, serialize_lg_name, serialize_name, unserialize_name;

public:
    explicit RecordProbe(const std::string &record);

    // Lets all calls through again and forgets them.
    void reset();

    Interposed<uint32_t(void *destination, const void *source)> copy;
    Interposed<void(void *record)> clean;
    Interposed<uint32_t(const void *record)> serialize_lg;
    Interposed<uint32_t(const void *record, uint8_t **cursor)> serialize;
    Interposed<uint32_t(void *record, const uint8_t **cursor)> unserialize;
};

// Records that bodies carry.
extern RecordProbe state_info_probe;
extern RecordProbe intfConf_probe;
extern RecordProbe ipv4_address_return_probe;
extern RecordProbe ipv4_address_probe;
extern RecordProbe ipv6_prefix_addr_conf_list_probe;
extern RecordProbe ipv4_properties_probe;
extern RecordProbe ipv6_properties_probe;
extern RecordProbe ipv6_prefixes_probe;

#endif
