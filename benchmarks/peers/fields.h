// The fields of the records, once for all peers that are not generated from a schema of their own: a visitor gets
// number(tag, value), text(tag, array) and list(tag, count, array) in order; record(tag, value) for a nested record.

#ifndef GORVANET_BENCHMARKS_PEERS_FIELDS_H
#define GORVANET_BENCHMARKS_PEERS_FIELDS_H

#include "gorvanet.h"

#include <concepts>
#include <type_traits>

// A record to read from, or one to write to.
template <typename Given, typename Record>
concept Either = std::same_as<std::remove_const_t<Given>, Record>;

template <typename Visitor> void visit(Visitor &fields, Either<state_info> auto &record)
{
    fields.number(3, record.state);
    fields.text(4, record.info);
}

template <typename Visitor> void visit(Visitor &fields, Either<ipv4_address> auto &record)
{
    fields.number(3, record.field3);
    fields.number(4, record.field4);
    fields.number(5, record.field5);
    fields.text(6, record.field6);
    fields.text(7, record.field7);
    fields.text(8, record.field8);
    fields.text(9, record.field9);
    fields.text(10, record.field10);
}

template <typename Visitor> void visit(Visitor &fields, Either<ipv4_info> auto &record)
{
    fields.text(3, record.field3);
    fields.text(4, record.field4);
}

template <typename Visitor> void visit(Visitor &fields, Either<ipv4_properties> auto &record)
{
    fields.number(3, record.field3);
    fields.text(4, record.field4);
    fields.text(5, record.field5);
    fields.number(6, record.field6);
    fields.text(7, record.field7);
    fields.text(8, record.field8);
    fields.text(9, record.field9);
    fields.text(10, record.field10);
    fields.text(11, record.field11);
    fields.list(12, record.infoCount, record.infos);
}

template <typename Visitor> void visit(Visitor &fields, Either<ipv6_address> auto &record)
{
    fields.text(3, record.field3);
    fields.number(5, record.field5);
    fields.number(6, record.field6);
    fields.number(7, record.field7);
    fields.number(8, record.field8);
}

template <typename Visitor> void visit(Visitor &fields, Either<ipv6_prefix> auto &record)
{
    fields.text(3, record.field3);
    fields.number(4, record.field4);
    fields.number(5, record.field5);
    fields.number(6, record.field6);
    fields.number(7, record.field7);
    fields.number(8, record.field8);
    fields.number(9, record.field9);
    fields.number(10, record.field10);
    fields.text(11, record.field11);
    fields.number(12, record.field12);
}

template <typename Visitor> void visit(Visitor &fields, Either<ipv6_properties> auto &record)
{
    fields.number(3, record.field3);
    fields.number(4, record.field4);
    fields.number(5, record.field5);
    fields.number(6, record.field6);
    fields.text(7, record.field7);
    fields.text(8, record.field8);
    fields.text(9, record.field9);
    fields.list(10, record.field10, record.field11);
    fields.list(12, record.field12, record.field13);
    fields.list(14, record.field14, record.field15);
    fields.text(16, record.field16);
    fields.list(17, record.field17, record.field18);
    fields.text(19, record.field19);
}

template <typename Visitor> void visit(Visitor &fields, Either<ipv6_prefix_config> auto &record)
{
    fields.text(3, record.field3);
    fields.text(4, record.field4);
    fields.record(5, record.prefix);
}

template <typename Visitor> void visit(Visitor &fields, Either<ipv6_prefix_addr_conf> auto &record)
{
    fields.record(3, record.config);
    fields.record(4, record.address);
}

template <typename Visitor> void visit(Visitor &fields, Either<ipv6_prefix_addr_conf_list> auto &record)
{
    fields.list(3, record.field3, record.confs);
}

#endif
