// nanopb: its messages are plain structs as well, of another layout, so that a record is copied into one before encoding
// and out of one after decoding.

#include "harness.h"

#include "records.pb.h"

#include <pb_decode.h>
#include <pb_encode.h>

namespace {

// Members are named alike on both sides: each function copies in both directions.

template <typename To, typename From, typename Count, typename FromCount, size_t Capacity, typename Copy>
void copy_list(Count &count, To (&to)[Capacity], FromCount from_count, const From (&from)[Capacity], Copy copy)
{
    count = static_cast<Count>(from_count);
    for (size_t i = 0; i < from_count && i < Capacity; i++)
        copy(to[i], from[i]);
}

void copy_state_info(auto &to, const auto &from)
{
    to.state = from.state;
    strcpy(to.info, from.info);
}

void copy_ipv4_address(auto &to, const auto &from)
{
    to.field3 = from.field3;
    to.field4 = from.field4;
    to.field5 = from.field5;
    strcpy(to.field6, from.field6);
    strcpy(to.field7, from.field7);
    strcpy(to.field8, from.field8);
    strcpy(to.field9, from.field9);
    strcpy(to.field10, from.field10);
}

constexpr auto copy_info = [](auto &to, const auto &from) {
    strcpy(to.field3, from.field3);
    strcpy(to.field4, from.field4);
};

void copy_ipv4_properties(auto &to, const auto &from)
{
    to.field3 = from.field3;
    strcpy(to.field4, from.field4);
    strcpy(to.field5, from.field5);
    to.field6 = from.field6;
    strcpy(to.field7, from.field7);
    strcpy(to.field8, from.field8);
    strcpy(to.field9, from.field9);
    strcpy(to.field10, from.field10);
    strcpy(to.field11, from.field11);
}

constexpr auto copy_address = [](auto &to, const auto &from) {
    strcpy(to.field3, from.field3);
    to.field5 = from.field5;
    to.field6 = from.field6;
    to.field7 = from.field7;
    to.field8 = from.field8;
};

constexpr auto copy_prefix = [](auto &to, const auto &from) {
    strcpy(to.field3, from.field3);
    to.field4 = from.field4;
    to.field5 = from.field5;
    to.field6 = from.field6;
    to.field7 = from.field7;
    to.field8 = from.field8;
    to.field9 = from.field9;
    to.field10 = from.field10;
    strcpy(to.field11, from.field11);
    to.field12 = from.field12;
};

void copy_ipv6_properties(auto &to, const auto &from)
{
    to.field3 = from.field3;
    to.field4 = from.field4;
    to.field5 = from.field5;
    to.field6 = from.field6;
    strcpy(to.field7, from.field7);
    strcpy(to.field8, from.field8);
    strcpy(to.field9, from.field9);
    strcpy(to.field16, from.field16);
    strcpy(to.field19, from.field19);
}

constexpr auto copy_conf = [](auto &to, const auto &from) {
    strcpy(to.config.field3, from.config.field3);
    strcpy(to.config.field4, from.config.field4);
    copy_prefix(to.config.prefix, from.config.prefix);
    copy_address(to.address, from.address);
};

constexpr auto copy_conf_present = [](nano_Ipv6PrefixAddrConf &to, const ipv6_prefix_addr_conf &from) {
    to.has_config = to.has_address = to.config.has_prefix = true;
    copy_conf(to, from);
};

void assign(nano_StateInfo &to, const state_info &from)
{
    copy_state_info(to, from);
}

void assign(state_info &to, const nano_StateInfo &from)
{
    copy_state_info(to, from);
}

void assign(nano_Ipv4Address &to, const ipv4_address &from)
{
    copy_ipv4_address(to, from);
}

void assign(ipv4_address &to, const nano_Ipv4Address &from)
{
    copy_ipv4_address(to, from);
}

void assign(nano_Ipv4Properties &to, const ipv4_properties &from)
{
    copy_ipv4_properties(to, from);
    copy_list(to.infos_count, to.infos, from.infoCount, from.infos, copy_info);
}

void assign(ipv4_properties &to, const nano_Ipv4Properties &from)
{
    copy_ipv4_properties(to, from);
    copy_list(to.infoCount, to.infos, from.infos_count, from.infos, copy_info);
}

void assign(nano_Ipv6Properties &to, const ipv6_properties &from)
{
    copy_ipv6_properties(to, from);
    copy_list(to.field11_count, to.field11, from.field10, from.field11, copy_address);
    copy_list(to.field13_count, to.field13, from.field12, from.field13, copy_address);
    copy_list(to.field15_count, to.field15, from.field14, from.field15, copy_address);
    copy_list(to.field18_count, to.field18, from.field17, from.field18, copy_prefix);
}

void assign(ipv6_properties &to, const nano_Ipv6Properties &from)
{
    copy_ipv6_properties(to, from);
    copy_list(to.field10, to.field11, from.field11_count, from.field11, copy_address);
    copy_list(to.field12, to.field13, from.field13_count, from.field13, copy_address);
    copy_list(to.field14, to.field15, from.field15_count, from.field15, copy_address);
    copy_list(to.field17, to.field18, from.field18_count, from.field18, copy_prefix);
}

void assign(nano_Ipv6PrefixAddrConfList &to, const ipv6_prefix_addr_conf_list &from)
{
    copy_list(to.confs_count, to.confs, from.field3, from.confs, copy_conf_present);
}

void assign(ipv6_prefix_addr_conf_list &to, const nano_Ipv6PrefixAddrConfList &from)
{
    copy_list(to.field3, to.confs, from.confs_count, from.confs, copy_conf);
}

// The message of a record: its type, its description, the size that its encoding has at most.
template <typename Record> struct MessageOf;

template <> struct MessageOf<state_info> {
    using Type = nano_StateInfo;
    static constexpr auto *fields = nano_StateInfo_fields;
    static constexpr size_t size = nano_StateInfo_size;
};

template <> struct MessageOf<ipv4_address> {
    using Type = nano_Ipv4Address;
    static constexpr auto *fields = nano_Ipv4Address_fields;
    static constexpr size_t size = nano_Ipv4Address_size;
};

template <> struct MessageOf<ipv4_properties> {
    using Type = nano_Ipv4Properties;
    static constexpr auto *fields = nano_Ipv4Properties_fields;
    static constexpr size_t size = nano_Ipv4Properties_size;
};

template <> struct MessageOf<ipv6_properties> {
    using Type = nano_Ipv6Properties;
    static constexpr auto *fields = nano_Ipv6Properties_fields;
    static constexpr size_t size = nano_Ipv6Properties_size;
};

template <> struct MessageOf<ipv6_prefix_addr_conf_list> {
    using Type = nano_Ipv6PrefixAddrConfList;
    static constexpr auto *fields = nano_Ipv6PrefixAddrConfList_fields;
    static constexpr size_t size = nano_Ipv6PrefixAddrConfList_size;
};

template <typename Workload> struct Nanopb {
    using Record = typename Workload::Record;
    using Message = MessageOf<Record>;
    static constexpr bool round_trips = true;

    typename Message::Type message = {};
    pb_byte_t buffer[Message::size];
    size_t size = 0;

    void encode(const Record &record)
    {
        assign(message, record);
        pb_ostream_t stream = pb_ostream_from_buffer(buffer, sizeof buffer);
        if (!pb_encode(&stream, Message::fields, &message))
            abort();
        size = stream.bytes_written;
    }

    void decode(Record &record)
    {
        pb_istream_t stream = pb_istream_from_buffer(buffer, size);
        if (!pb_decode(&stream, Message::fields, &message))
            abort();
        assign(record, message);
    }
};

const Timed<Nanopb> timed("nanopb");

} // namespace
