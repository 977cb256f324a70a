#!/bin/bash
# writable.sh LIBRARY: the descriptor is all the memory that the library keeps and changes.
. "$(dirname "$0")/checks.sh"
library=$1

# Symbols in sections that stay writable once the library is loaded: "section size name".
objdump -t "$library" |
    sed -nE 's/^[0-9a-f]+ .{7} (\.data|\.bss|\.tdata|\.tbss)\t([0-9a-f]+) +(\.hidden )?(.*)$/\1 \2 \4/p' >"$scratch/all"

# The start files have a flag and two marks of their own.
grep -vE ' (completed\.[0-9]+|__dso_handle|__TMC_END__|_edata|_end|__bss_start|\.data|\.bss)$' "$scratch/all" \
    >"$scratch/own" || true
echo ".data 000001d0 gorvaNet_base" >"$scratch/expected"
expect_same_lines "$scratch/own" "$scratch/expected"

# No more memory than these symbols name: the start files' share is 32 bytes for alignment in front, one flag behind.
section_size() {
    printf '%d\n' "0x$(readelf -SW "$library" | sed 's/^ *\[ *[0-9]*\] *//' | awk -v s="$1" '$1 == s { print $5 }')"
}
[ "$(section_size .data)" -le $((464 + 32)) ] || fail ".data has $(section_size .data) bytes"
[ "$(section_size .bss)" -le 4 ] || fail ".bss has $(section_size .bss) bytes"
finish
