#!/bin/bash
# imports.sh LIBRARY MIDDLEWARE_HEADER: it takes from the process what the header says, and from libc what follows.
. "$(dirname "$0")/checks.sh"
library=$1

host_functions "$2" >"$scratch/host"
[ "$(wc -l <"$scratch/host")" -eq 13 ] || fail "13 functions of the host process expected"

printf '%s\n' malloc calloc free strlen strncpy syslog abort >"$scratch/libc"

imported "$library" >"$scratch/imported"
sort "$scratch/host" "$scratch/libc" >"$scratch/promised"
expect_same_lines "$scratch/imported" "$scratch/promised"
finish
