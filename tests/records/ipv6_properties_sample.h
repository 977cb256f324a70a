// Samples of ipv6_properties, without and with elements in its four lists.

#ifndef GORVANET_TESTS_RECORDS_IPV6_PROPERTIES_SAMPLE_H
#define GORVANET_TESTS_RECORDS_IPV6_PROPERTIES_SAMPLE_H

#include "samples.h"

// All but the elements; counts are 0.
void fill(ipv6_properties &record);
ipv6_properties without_elements();
extern const Items empty_list_items;

// One address, two addresses, three addresses and two prefixes. The elements of a list are one item.
ipv6_properties with_elements();
extern const Items full_items;
extern const Fields ipv6_properties_fields;

#endif
