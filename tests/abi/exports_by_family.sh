#!/bin/bash
# exports_by_family.sh EXPORTS_MAP: the names of the map are those that the families of functions have.
. "$(dirname "$0")/checks.sh"

both_ways="setOsIfc setDhcp setRdisc6 getIPv4Props getIPv6Props setIPv4Address setMtu setIPv6PrefixAndAddress
    registerPrefixStatus"
one_way="askStateRenotification configure configureAllIPv6Intf"
records="state_info ipv4_address_return intfConf ipv6_prefix ipv6_prefix_config ipv6_prefixes ipv6_address
    ipv6_prefix_addr_conf ipv6_prefix_addr_conf_list ipv6_properties ipv4_info ipv4_properties ipv4_address"

names() {
    echo gorvaNet_base gorvanet_initialize
    for name in addBase delBase cbEvtBase cbEvtMsgError regUser_msgMngt unregUser_msgMngt findSrvMthdNtfyUser \
        getCmdIntfNum getNtfyIntfNum modDebug cbEvtMsgMngt_unreg_msgCmd cbEvtMsgMngt_unreg_msgNtfy \
        modCliNtfyUser_recvMsg_prefixStatus sendReq_ntfyPrefixStatus recvReq_ntfyPrefixStatus; do
        echo "gorvaNet_$name"
    done
    for record in $records; do
        for operation in copy clean serialize_lg serialize unserialize; do
            echo "gorvaNet_${record}_$operation"
        done
    done
    for method in $both_ways $one_way; do
        for operation in sendReq modSrv_recvMsg recvReq; do
            echo "gorvaNet_${operation}_$method"
        done
    done
    for method in $both_ways; do
        echo "gorvaNet_sendRes_$method"
    done
    for operation in freeBody serializeBody unserializeBody logBody; do
        for method in $both_ways $one_way; do
            echo "gorvaNet_cbEvtMsgMngt_${operation}_msgCmd_$method"
        done
        echo "gorvaNet_cbEvtMsgMngt_${operation}_msgNtfy_prefixStatus"
    done
}

names | tr ' ' '\n' | sort >"$scratch/names"
expect_equal "the number of names" "$(wc -l <"$scratch/names")" 179
mapped "$1" >"$scratch/mapped"
expect_same_lines "$scratch/mapped" "$scratch/names"
finish
