#include "ipv6_properties_sample.h"

#include <cstddef>

void fill(ipv6_properties &record)
{
    record.field3 = -1;
    record.field4 = -128;
    record.field5 = 127;
    record.field6 = 0;
    set(record.field7, "7");
    set(record.field8, "8-8");
    set(record.field9, "");
    record.field10 = 0;
    record.field12 = 0;
    record.field14 = 0;
    set(record.field16, "16");
    record.field17 = 0;
    set(record.field19, "19.");
}

ipv6_properties without_elements()
{
    auto record = untouched_record<ipv6_properties>();
    fill(record);
    return record;
}

const Items empty_list_items = {
    "00000003 00000004 ffffffff",          "00000004 00000004 ffffff80",    "00000005 00000004 0000007f",
    "00000006 00000004 00000000",          "00000007 00000004 '7' 00 ....", "00000008 00000008 '8-8' 00 ........",
    "00000009 00000004 00 ......",         "0000000a 00000004 00000000",    "0000000c 00000004 00000000",
    "0000000e 00000004 00000000",          "00000010 00000004 '16' 00 ..",  "00000011 00000004 00000000",
    "00000013 00000008 '19.' 00 ........",
};

ipv6_properties with_elements()
{
    auto record = without_elements();
    record.field10 = 1;
    fill(record.field11[0], 1);
    record.field12 = 2;
    fill(record.field13[0], 2);
    fill(record.field13[1], 3);
    record.field14 = 3;
    fill(record.field15[0], 4);
    fill(record.field15[1], 5);
    fill(record.field15[2], 6);
    record.field17 = 2;
    fill(record.field18[0], 7);
    fill(record.field18[1], 8);
    return record;
}

const Items full_items = {
    empty_list_items[0],
    empty_list_items[1],
    empty_list_items[2],
    empty_list_items[3],
    empty_list_items[4],
    empty_list_items[5],
    empty_list_items[6],
    "0000000a 00000004 00000001",
    joined(address_items(1)),
    "0000000c 00000004 00000002",
    joined(address_items(2)) + joined(address_items(3)),
    "0000000e 00000004 00000003",
    joined(address_items(4)) + joined(address_items(5)) + joined(address_items(6)),
    empty_list_items[10],
    "00000011 00000004 00000002",
    joined(prefix_items(7)) + joined(prefix_items(8)),
    empty_list_items[12],
};

const Fields ipv6_properties_fields = {
    {0, 3, offsetof(ipv6_properties, field3), 0, {4, 5, 6, 7, 8, 9, 10, 12, 14, 16, 17, 19}},
    {1, 4, offsetof(ipv6_properties, field4), 0, {5, 6, 7, 8, 9, 10, 12, 14, 16, 17, 19}},
    {2, 5, offsetof(ipv6_properties, field5), 0, {6, 7, 8, 9, 10, 12, 14, 16, 17, 19}},
    {3, 6, offsetof(ipv6_properties, field6), 0, {7, 8, 9, 10, 12, 14, 16, 17, 19}},
    {4, 7, offsetof(ipv6_properties, field7), 50, {8, 9, 10, 12, 14, 16, 17, 19}, {10, 12, 14, 17}},
    {5, 8, offsetof(ipv6_properties, field8), 50, {9, 10, 12, 14, 16, 17, 19}, {10, 12, 14, 17}},
    {6, 9, offsetof(ipv6_properties, field9), 50, {10, 12, 14, 16, 17, 19}, {10, 12, 14, 17}},
    {7, 10, offsetof(ipv6_properties, field10), 0, {12, 14, 16, 17, 19}},
    {9, 12, offsetof(ipv6_properties, field12), 0, {14, 16, 17, 19}},
    {11, 14, offsetof(ipv6_properties, field14), 0, {16, 17, 19}},
    {13, 16, offsetof(ipv6_properties, field16), 46, {17, 19}, {17}},
    {14, 17, offsetof(ipv6_properties, field17), 0, {19}},
    {16, 19, offsetof(ipv6_properties, field19), 256, {}},
};
