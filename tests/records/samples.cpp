#include "samples.h"

#include <algorithm>
#include <cstddef>

namespace {

char digit(unsigned number)
{
    return "0123456789abcdefghijklmnop"[number];
}

// A text with '#' replaced by the digit of the number.
std::string numbered(std::string text, unsigned number)
{
    std::replace(text.begin(), text.end(), '#', digit(number));
    return text;
}

Items numbered_items(Items items, unsigned number)
{
    for (std::string &item : items)
        item = numbered(item, number);
    return items;
}

} // namespace

void fill(ipv4_info &record, unsigned number)
{
    set(record.field3, numbered("i#", number));
    set(record.field4, numbered("j-#", number));
}

void fill(ipv6_address &record, unsigned number)
{
    set(record.field3, numbered("a#", number));
    record.field5 = 0x80000050 + number;
    record.field6 = 0x80000060 + number;
    record.field7 = 0x80000070 + number;
    record.field8 = 0x80000080 + number;
}

void fill(ipv6_prefix &record, unsigned number)
{
    set(record.field3, numbered("p#", number));
    record.field4 = 0xf0000040 + number;
    record.field5 = 0xf0000050 + number;
    record.field6 = 0xf0000060 + number;
    record.field7 = 0xf0000070 + number;
    record.field8 = 0xf0000080 + number;
    record.field9 = 0xf0000090 + number;
    record.field10 = 0xf00000a0 + number;
    set(record.field11, numbered("xy#", number));
    record.field12 = static_cast<uint8_t>(0xc0 + number);
}

void fill(ipv6_prefix_config &record, unsigned number)
{
    set(record.field3, numbered("c#", number));
    set(record.field4, numbered("cd#", number));
    fill(record.prefix, number);
}

void fill(ipv6_prefix_addr_conf &record, unsigned number)
{
    fill(record.config, number);
    fill(record.address, number);
}

Items info_items(unsigned number)
{
    return numbered_items({"00000003 00000004 'i#' 00 ..", "00000004 00000008 'j-#' 00 ........"}, number);
}

Items address_items(unsigned number)
{
    return numbered_items({"00000003 00000004 'a#' 00 ..", "00000005 00000004 8000005#", "00000006 00000004 8000006#",
                           "00000007 00000004 8000007#", "00000008 00000004 8000008#"},
                          number);
}

Items prefix_items(unsigned number)
{
    return numbered_items({"00000003 00000004 'p#' 00 ..", "00000004 00000004 f000004#", "00000005 00000004 f000005#",
                           "00000006 00000004 f000006#", "00000007 00000004 f000007#", "00000008 00000004 f000008#",
                           "00000009 00000004 f000009#", "0000000a 00000004 f00000a#",
                           "0000000b 00000008 'xy#' 00 ........", "0000000c 00000004 000000c#"},
                          number);
}

Items config_items(unsigned number)
{
    return {numbered("00000003 00000004 'c#' 00 ..", number), numbered("00000004 00000008 'cd#' 00 ........", number),
            joined(prefix_items(number))};
}

Items addr_conf_items(unsigned number)
{
    return {joined(config_items(number)), joined(address_items(number))};
}

std::string joined(const Items &items)
{
    std::string all;
    for (const std::string &item : items)
        all += item + " ";
    return all;
}

Items with_elements(Items first, Items (*items)(unsigned number), unsigned count)
{
    for (unsigned i = 0; i < count; i++)
        first.push_back(joined(items(i)));
    return first;
}

const Fields info_fields = {
    {0, 3, offsetof(ipv4_info, field3), 16, {4}},
    {1, 4, offsetof(ipv4_info, field4), 150, {}},
};

const Fields address_fields = {
    {0, 3, offsetof(ipv6_address, field3), 46, {5, 6, 7, 8}, {5, 6, 7, 8}},
    {1, 5, offsetof(ipv6_address, field5), 0, {6, 7, 8}},
    {2, 6, offsetof(ipv6_address, field6), 0, {7, 8}},
    {3, 7, offsetof(ipv6_address, field7), 0, {8}},
    {4, 8, offsetof(ipv6_address, field8), 0, {}},
};

const Fields prefix_fields = {
    {0, 3, offsetof(ipv6_prefix, field3), 46, {4, 5, 6, 7, 8, 9, 10, 11, 12}, {4, 5, 6, 7, 8, 9, 10, 11, 12}},
    {1, 4, offsetof(ipv6_prefix, field4), 0, {5, 6, 7, 8, 9, 10, 11, 12}},
    {2, 5, offsetof(ipv6_prefix, field5), 0, {6, 7, 8, 9, 10, 11, 12}},
    {3, 6, offsetof(ipv6_prefix, field6), 0, {7, 8, 9, 10, 11, 12}},
    {4, 7, offsetof(ipv6_prefix, field7), 0, {8, 9, 10, 11, 12}},
    {5, 8, offsetof(ipv6_prefix, field8), 0, {9, 10, 11, 12}},
    {6, 9, offsetof(ipv6_prefix, field9), 0, {10, 11, 12}},
    {7, 10, offsetof(ipv6_prefix, field10), 0, {11, 12}},
    {8, 11, offsetof(ipv6_prefix, field11), 150, {12}, {12}},
    {9, 12, offsetof(ipv6_prefix, field12), 0, {}},
};

const Fields config_fields = {
    {0, 3, offsetof(ipv6_prefix_config, field3), 80, {4}},
    {1, 4, offsetof(ipv6_prefix_config, field4), 80, {}},
};

Texts texts_in(const Fields &fields, size_t place)
{
    Texts texts;
    for (const Field &field : fields)
        if (field.capacity)
            texts.push_back({place + field.offset, field.capacity});
    return texts;
}

Texts operator+(Texts left, const Texts &right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}
