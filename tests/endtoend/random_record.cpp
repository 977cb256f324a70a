#include "random_record.h"

#include <cstring>
#include <iterator>

namespace {

// All bytes, padding too.
template <typename Record> Record zeroed()
{
    Record record;
    std::memset(static_cast<void *>(&record), 0, sizeof record);
    return record;
}

} // namespace

uint32_t RandomContent::number()
{
    return engine();
}

// Any length up to the longest, any byte but NUL.
void RandomContent::text(char *field, size_t capacity)
{
    size_t length = engine() % capacity;
    for (size_t i = 0; i < length; i++)
        field[i] = static_cast<char>(1 + engine() % 255);
}

// Now and then more than there is room for.
uint32_t RandomContent::count(uint32_t capacity)
{
    return engine() % 8 == 0 ? capacity + 1 + engine() : engine() % (capacity + 1);
}

void RandomContent::fill(ipv6_prefix &record)
{
    text(record.field3, sizeof record.field3);
    for (uint32_t *field : {&record.field4, &record.field5, &record.field6, &record.field7, &record.field8,
                            &record.field9, &record.field10})
        *field = number();
    text(record.field11, sizeof record.field11);
    record.field12 = static_cast<uint8_t>(number());
}

void RandomContent::fill(ipv6_address &record)
{
    text(record.field3, sizeof record.field3);
    for (uint32_t *field : {&record.field5, &record.field6, &record.field7, &record.field8})
        *field = number();
}

state_info RandomContent::make_state_info()
{
    auto record = zeroed<state_info>();
    record.state = static_cast<uint8_t>(number());
    text(record.info, sizeof record.info);
    return record;
}

intfConf RandomContent::make_intf_conf()
{
    auto record = zeroed<intfConf>();
    for (uint32_t *field : {&record.field3, &record.field4, &record.field5})
        *field = number();
    text(record.field6, sizeof record.field6);
    text(record.field7, sizeof record.field7);
    return record;
}

ipv4_address RandomContent::make_ipv4_address()
{
    auto record = zeroed<ipv4_address>();
    record.field3 = number();
    record.field4 = number();
    record.field5 = static_cast<uint8_t>(number());
    text(record.field6, sizeof record.field6);
    for (auto *field : {&record.field7, &record.field8, &record.field9})
        text(*field, sizeof *field);
    text(record.field10, sizeof record.field10);
    return record;
}

ipv4_properties RandomContent::make_ipv4_properties()
{
    auto record = zeroed<ipv4_properties>();
    record.field3 = static_cast<int8_t>(number());
    text(record.field4, sizeof record.field4);
    text(record.field5, sizeof record.field5);
    record.field6 = number();
    for (auto *field : {&record.field7, &record.field8, &record.field9})
        text(*field, sizeof *field);
    text(record.field10, sizeof record.field10);
    text(record.field11, sizeof record.field11);
    record.infoCount = count(std::size(record.infos));
    for (uint32_t i = 0; i < record.infoCount && i < std::size(record.infos); i++) {
        text(record.infos[i].field3, sizeof record.infos[i].field3);
        text(record.infos[i].field4, sizeof record.infos[i].field4);
    }
    return record;
}

ipv6_prefixes RandomContent::make_ipv6_prefixes()
{
    auto record = zeroed<ipv6_prefixes>();
    record.field3 = count(std::size(record.prefixes));
    for (uint32_t i = 0; i < record.field3 && i < std::size(record.prefixes); i++)
        fill(record.prefixes[i]);
    return record;
}

ipv6_prefix_addr_conf_list RandomContent::make_ipv6_prefix_addr_conf_list()
{
    auto record = zeroed<ipv6_prefix_addr_conf_list>();
    record.field3 = count(std::size(record.confs));
    for (uint32_t i = 0; i < record.field3 && i < std::size(record.confs); i++) {
        auto &conf = record.confs[i];
        text(conf.config.field3, sizeof conf.config.field3);
        text(conf.config.field4, sizeof conf.config.field4);
        fill(conf.config.prefix);
        fill(conf.address);
    }
    return record;
}

ipv6_properties RandomContent::make_ipv6_properties()
{
    auto record = zeroed<ipv6_properties>();
    for (int8_t *field : {&record.field3, &record.field4, &record.field5, &record.field6})
        *field = static_cast<int8_t>(number());
    for (auto *field : {&record.field7, &record.field8, &record.field9})
        text(*field, sizeof *field);
    record.field10 = count(std::size(record.field11));
    for (uint32_t i = 0; i < record.field10 && i < std::size(record.field11); i++)
        fill(record.field11[i]);
    record.field12 = count(std::size(record.field13));
    for (uint32_t i = 0; i < record.field12 && i < std::size(record.field13); i++)
        fill(record.field13[i]);
    record.field14 = count(std::size(record.field15));
    for (uint32_t i = 0; i < record.field14 && i < std::size(record.field15); i++)
        fill(record.field15[i]);
    text(record.field16, sizeof record.field16);
    record.field17 = count(std::size(record.field18));
    for (uint32_t i = 0; i < record.field17 && i < std::size(record.field18); i++)
        fill(record.field18[i]);
    text(record.field19, sizeof record.field19);
    return record;
}
