#!/bin/bash
# writable.sh LIBRARY: the descriptor is all the memory that the library keeps and changes.
. "$(dirname "$0")/checks.sh"
library=$1

# Symbols in sections that stay writable once the library is loaded: "section size name".
objdump -t "$library" |
    sed -nE 's/^[0-9a-f]+ .{7} (\.data|\.bss|\.tdata|\.tbss)\t([0-9a-f]+) +(\.hidden )?(.*)$/\1 \2 \4/p' >"$scratch/all"

grep -vE ' (_edata|_end|__bss_start|\.data|\.bss)$' "$scratch/all" >"$scratch/own" || true
echo ".data 000001d0 gorvaNet_base" >"$scratch/expected"
expect_same_lines "$scratch/own" "$scratch/expected"

# No more memory than this symbol names.
sizes=$(readelf -SW "$library" | sed -nE 's/^ *\[ *[0-9]+\] (\.(data|bss|tdata|tbss)) +[A-Z]+ +[0-9a-f]+ [0-9a-f]+ ([0-9a-f]+) .*/\1 \3/p')
expect_equal "what it keeps" "$(echo "$sizes" | grep -v ' 000000$' | xargs)" ".data 0001d0"
finish
