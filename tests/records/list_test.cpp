#include "list_test.h"

#include <cstdio>

const FirstItem first_item_of_info = {"gorvaNet_ipv4_info_serialize", "gorvaNet_ipv4_info_unserialize", {}, {4}};

const FirstItem first_item_of_address = {
    "gorvaNet_ipv6_address_serialize", "gorvaNet_ipv6_address_unserialize", {5, 6, 7, 8}, {5, 6, 7, 8}};

const FirstItem first_item_of_prefix = {"gorvaNet_ipv6_prefix_serialize",
                                        "gorvaNet_ipv6_prefix_unserialize",
                                        {4, 5, 6, 7, 8, 9, 10, 11, 12},
                                        {4, 5, 6, 7, 8, 9, 10, 11, 12}};

// Its configuration comes first.
const FirstItem first_item_of_addr_conf = {
    "gorvaNet_ipv6_prefix_config_serialize", "gorvaNet_ipv6_prefix_config_unserialize", {}, {4}};

Calls calls_of(const std::string &function, const Calls &calls)
{
    Calls found;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(found),
                 [&](const Call &call) { return call.function == function; });
    return found;
}

std::string number_item(uint32_t tag, uint32_t value)
{
    char text[32];
    snprintf(text, sizeof text, "%08x 00000004 %08x", tag, value);
    return text;
}

LogLine copy_failed(const std::string &function, const std::string &text)
{
    return {.priority = 3,
            .function = function,
            .format = "[GORVANET] -> %s(%d): " + text + "(%u)\n",
            .text = text + "(4294967280)\n"};
}
