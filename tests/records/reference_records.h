// The wire format of each record as a table.

#ifndef GORVANET_TESTS_RECORDS_REFERENCE_RECORDS_H
#define GORVANET_TESTS_RECORDS_REFERENCE_RECORDS_H

#include "reference_codec.h"

#include "gorvanet.h"

namespace reference {

// Found by the type of an argument that is not looked at.
const Layout &layout_of(const state_info *);
const Layout &layout_of(const ipv4_address_return *);
const Layout &layout_of(const intfConf *);
const Layout &layout_of(const ipv6_prefix *);
const Layout &layout_of(const ipv6_prefix_config *);
const Layout &layout_of(const ipv6_prefixes *);
const Layout &layout_of(const ipv6_address *);
const Layout &layout_of(const ipv6_prefix_addr_conf *);
const Layout &layout_of(const ipv6_prefix_addr_conf_list *);
const Layout &layout_of(const ipv6_properties *);
const Layout &layout_of(const ipv4_info *);
const Layout &layout_of(const ipv4_properties *);
const Layout &layout_of(const ipv4_address *);

} // namespace reference

#endif
