#!/bin/bash
# tools.sh PREFIX TREE PROGRAM: uses the installed tools. One line for each check.
#
# TREE is where the sample capture is; PROGRAM is the example of examples/c or examples/cpp.
set -euo pipefail
. "$(dirname "$0")/checks.sh"

prefix=$(realpath "$1")
tree=$(realpath "$2")
program=$(realpath "$3")
sample=$tree/tools/wireshark/sample.pcap
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"

decode=$prefix/bin/gorvanet-decode
trace=$prefix/bin/gorvanet-trace

# ---- gorvanet-decode ------------------------------------------------------------------------------------------------

subject=gorvanet-decode

# Magic (tag 1), version (tag 2), mtu (tag 3): tag, length, value, of four bytes each.
echo '{"body": "SetMtu.request", "fields": {"mtu": 1400}}' >body.json
echo 000000000000000420190222000000010000000400000000000000030000000400000578 >body.hex

encodes() {
    "$decode" --encode body.json | diff - body.hex
}

decodes() {
    "$decode" --body SetMtu.request body.hex >text && grep -qx 'SetMtu request, 36 bytes' text && grep -qE '^  [0-9a-f]{4}  mtu +1400$' text
}

# decodes_capture FILE METHOD...: damaged messages are in the sample on purpose.
decodes_capture() {
    local file=$1 status=0
    shift
    "$decode" "$file" >text || status=$?
    [ $status -lt 2 ] || return
    for method in "$@"; do
        grep -q "$method" text || return
    done
}

check "JSON becomes bytes" encodes
check "bytes become text" decodes
check "the sample capture" decodes_capture "$sample" SetOsIfc ConfigureAllIPv6Intf PrefixStatus

# ---- gorvanet-trace -------------------------------------------------------------------------------------------------

subject=gorvanet-trace

traces() {
    "$trace" -p trace.text -o trace.pcap "$program" >own || return
    diff own "$tree/examples/expected.txt" && grep -q 'sent *SetMtu request' trace.text &&
        grep -q 'received *PrefixStatus notification' trace.text
}

if [ -e "$trace" ]; then
    check "prints the messages of a program, which goes on as ever" traces
    check "records what gorvanet-decode reads" decodes_capture trace.pcap SetMtu GetIPv4Props PrefixStatus
fi

# ---- The dissector --------------------------------------------------------------------------------------------------

subject=dissector

dissects() {
    tshark -X "lua_script:$prefix/share/gorvanet/gorvanet.lua" -r "$sample" -T fields -e gorvanet.name >names || return
    for method in SetOsIfc ConfigureAllIPv6Intf PrefixStatus; do
        grep -qx "$method" names || return
    done
}

if command -v tshark >/dev/null; then
    check "the sample capture" dissects
else
    echo "skipped $subject: tshark is not installed"
fi

[ "$failures" = 0 ]
