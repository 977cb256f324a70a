#!/bin/bash
# no_host_functions.sh COMPILER HEADER MIDDLEWARE_HEADER [FLAG...]: the public header declares nothing of the host's.
. "$(dirname "$0")/checks.sh"
compiler=$1
header=$2
middleware=$3
shift 3
host_functions "$middleware" >"$scratch/host"
[ -s "$scratch/host" ] || fail "no functions of the host process found"
"$compiler" "$@" -E -P -x c "$header" >"$scratch/header"
grep -q 'gorvanet_initialize' "$scratch/header" || fail "the header is empty"
if grep -nwF -f "$scratch/host" "$scratch/header" || grep -nE '\b(zebCore|zebIntf|ruvo)_' "$scratch/header"; then
    fail "the header names functions of the host process"
fi
finish
