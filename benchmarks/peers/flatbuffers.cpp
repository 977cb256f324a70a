// FlatBuffers: one builder, cleared for each message; tables made directly from the fields, read in place.

#include "harness.h"
#include "records_generated.h"

#include <algorithm>

namespace {

using flatbuffers::FlatBufferBuilder;
using flatbuffers::Offset;

template <typename Record, size_t Capacity, typename Make>
auto make_list(FlatBufferBuilder &builder, uint32_t count, const Record (&records)[Capacity], Make make)
{
    decltype(make(builder, *records)) made[Capacity];
    uint32_t valid = std::min<uint32_t>(count, Capacity);
    for (uint32_t i = 0; i < valid; i++)
        made[i] = make(builder, records[i]);
    return builder.CreateVector(made, valid);
}

Offset<flat::StateInfo> make(FlatBufferBuilder &builder, const state_info &record)
{
    return flat::CreateStateInfoDirect(builder, record.state, record.info);
}

Offset<flat::Ipv4Address> make(FlatBufferBuilder &builder, const ipv4_address &record)
{
    return flat::CreateIpv4AddressDirect(builder, record.field3, record.field4, record.field5, record.field6,
                                         record.field7, record.field8, record.field9, record.field10);
}

Offset<flat::Ipv4Info> make_info(FlatBufferBuilder &builder, const ipv4_info &record)
{
    return flat::CreateIpv4InfoDirect(builder, record.field3, record.field4);
}

Offset<flat::Ipv4Properties> make(FlatBufferBuilder &builder, const ipv4_properties &record)
{
    auto field4 = builder.CreateString(record.field4);
    auto field5 = builder.CreateString(record.field5);
    auto field7 = builder.CreateString(record.field7);
    auto field8 = builder.CreateString(record.field8);
    auto field9 = builder.CreateString(record.field9);
    auto field10 = builder.CreateString(record.field10);
    auto field11 = builder.CreateString(record.field11);
    auto infos = make_list(builder, record.infoCount, record.infos, make_info);
    return flat::CreateIpv4Properties(builder, record.field3, field4, field5, record.field6, field7, field8, field9,
                                      field10, field11, infos);
}

Offset<flat::Ipv6Address> make_address(FlatBufferBuilder &builder, const ipv6_address &record)
{
    return flat::CreateIpv6AddressDirect(builder, record.field3, record.field5, record.field6, record.field7,
                                         record.field8);
}

Offset<flat::Ipv6Prefix> make_prefix(FlatBufferBuilder &builder, const ipv6_prefix &record)
{
    return flat::CreateIpv6PrefixDirect(builder, record.field3, record.field4, record.field5, record.field6,
                                        record.field7, record.field8, record.field9, record.field10, record.field11,
                                        record.field12);
}

Offset<flat::Ipv6Properties> make(FlatBufferBuilder &builder, const ipv6_properties &record)
{
    auto field7 = builder.CreateString(record.field7);
    auto field8 = builder.CreateString(record.field8);
    auto field9 = builder.CreateString(record.field9);
    auto field11 = make_list(builder, record.field10, record.field11, make_address);
    auto field13 = make_list(builder, record.field12, record.field13, make_address);
    auto field15 = make_list(builder, record.field14, record.field15, make_address);
    auto field16 = builder.CreateString(record.field16);
    auto field18 = make_list(builder, record.field17, record.field18, make_prefix);
    auto field19 = builder.CreateString(record.field19);
    return flat::CreateIpv6Properties(builder, record.field3, record.field4, record.field5, record.field6, field7,
                                      field8, field9, field11, field13, field15, field16, field18, field19);
}

Offset<flat::Ipv6PrefixAddrConf> make_conf(FlatBufferBuilder &builder, const ipv6_prefix_addr_conf &record)
{
    auto prefix = make_prefix(builder, record.config.prefix);
    auto config = flat::CreateIpv6PrefixConfigDirect(builder, record.config.field3, record.config.field4, prefix);
    return flat::CreateIpv6PrefixAddrConf(builder, config, make_address(builder, record.address));
}

Offset<flat::Ipv6PrefixAddrConfList> make(FlatBufferBuilder &builder, const ipv6_prefix_addr_conf_list &record)
{
    return flat::CreateIpv6PrefixAddrConfList(builder, make_list(builder, record.field3, record.confs, make_conf));
}

template <size_t Capacity> void take(char (&text)[Capacity], const flatbuffers::String *from)
{
    if (from->size() >= Capacity)
        abort();
    memcpy(text, from->c_str(), from->size() + 1);
}

template <typename Record, size_t Capacity, typename List, typename Take>
void take_list(uint32_t &count, Record (&records)[Capacity], const List &list, Take take_record)
{
    count = list.size();
    if (count > Capacity)
        abort();
    for (uint32_t i = 0; i < count; i++)
        take_record(records[i], *list.Get(i));
}

void take_root(state_info &record, const void *message)
{
    const auto &from = *flatbuffers::GetRoot<flat::StateInfo>(message);
    record.state = from.state();
    take(record.info, from.info());
}

void take_root(ipv4_address &record, const void *message)
{
    const auto &from = *flatbuffers::GetRoot<flat::Ipv4Address>(message);
    record.field3 = from.field3();
    record.field4 = from.field4();
    record.field5 = from.field5();
    take(record.field6, from.field6());
    take(record.field7, from.field7());
    take(record.field8, from.field8());
    take(record.field9, from.field9());
    take(record.field10, from.field10());
}

void take_info(ipv4_info &record, const flat::Ipv4Info &from)
{
    take(record.field3, from.field3());
    take(record.field4, from.field4());
}

void take_root(ipv4_properties &record, const void *message)
{
    const auto &from = *flatbuffers::GetRoot<flat::Ipv4Properties>(message);
    record.field3 = from.field3();
    take(record.field4, from.field4());
    take(record.field5, from.field5());
    record.field6 = from.field6();
    take(record.field7, from.field7());
    take(record.field8, from.field8());
    take(record.field9, from.field9());
    take(record.field10, from.field10());
    take(record.field11, from.field11());
    take_list(record.infoCount, record.infos, *from.infos(), take_info);
}

void take_address(ipv6_address &record, const flat::Ipv6Address &from)
{
    take(record.field3, from.field3());
    record.field5 = from.field5();
    record.field6 = from.field6();
    record.field7 = from.field7();
    record.field8 = from.field8();
}

void take_prefix(ipv6_prefix &record, const flat::Ipv6Prefix &from)
{
    take(record.field3, from.field3());
    record.field4 = from.field4();
    record.field5 = from.field5();
    record.field6 = from.field6();
    record.field7 = from.field7();
    record.field8 = from.field8();
    record.field9 = from.field9();
    record.field10 = from.field10();
    take(record.field11, from.field11());
    record.field12 = from.field12();
}

void take_root(ipv6_properties &record, const void *message)
{
    const auto &from = *flatbuffers::GetRoot<flat::Ipv6Properties>(message);
    record.field3 = from.field3();
    record.field4 = from.field4();
    record.field5 = from.field5();
    record.field6 = from.field6();
    take(record.field7, from.field7());
    take(record.field8, from.field8());
    take(record.field9, from.field9());
    take_list(record.field10, record.field11, *from.field11(), take_address);
    take_list(record.field12, record.field13, *from.field13(), take_address);
    take_list(record.field14, record.field15, *from.field15(), take_address);
    take(record.field16, from.field16());
    take_list(record.field17, record.field18, *from.field18(), take_prefix);
    take(record.field19, from.field19());
}

void take_conf(ipv6_prefix_addr_conf &record, const flat::Ipv6PrefixAddrConf &from)
{
    take(record.config.field3, from.config()->field3());
    take(record.config.field4, from.config()->field4());
    take_prefix(record.config.prefix, *from.config()->prefix());
    take_address(record.address, *from.address());
}

void take_root(ipv6_prefix_addr_conf_list &record, const void *message)
{
    const auto &from = *flatbuffers::GetRoot<flat::Ipv6PrefixAddrConfList>(message);
    take_list(record.field3, record.confs, *from.confs(), take_conf);
}

template <typename Workload> struct FlatBuffers {
    using Record = typename Workload::Record;
    static constexpr bool round_trips = true;

    FlatBufferBuilder builder;

    void encode(const Record &record)
    {
        builder.Clear();
        builder.Finish(make(builder, record));
    }

    void decode(Record &record)
    {
        take_root(record, builder.GetBufferPointer());
    }
};

const Timed<FlatBuffers> timed("FlatBuffers");

} // namespace
