#!/bin/bash
# imports.sh LIBRARY MIDDLEWARE_HEADER: it takes from the process what the header says and little else.
. "$(dirname "$0")/checks.sh"
library=$1

host_functions "$2" >"$scratch/host"
[ "$(wc -l <"$scratch/host")" -eq 13 ] || fail "13 functions of the host process expected"

printf '%s\n' malloc calloc free strlen strncpy syslog abort >"$scratch/libc"

imported "$library" >"$scratch/imported"
[ -s "$scratch/imported" ] || fail "no imports found"
sort "$scratch/host" "$scratch/libc" | comm -23 "$scratch/imported" - >"$scratch/surplus"
[ ! -s "$scratch/surplus" ] || fail "imports that nobody promised: $(xargs <"$scratch/surplus")"
comm -13 "$scratch/imported" "$scratch/host" >"$scratch/unused"
[ ! -s "$scratch/unused" ] || fail "functions of the host process that are never called: $(xargs <"$scratch/unused")"
finish
