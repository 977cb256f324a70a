#!/bin/bash
# elf.sh LIBRARY: the kind of object it is, what it is called, what it needs and how it is bound.
. "$(dirname "$0")/checks.sh"
library=$1

header() {
    readelf -hW "$library" | sed -nE "s/^ *$1: +//p"
}
dynamic=$(readelf -dW "$library")

expect_equal "the class" "$(header Class)" "ELF32"
expect_equal "the byte order" "$(header Data)" "2's complement, little endian"
expect_equal "the machine" "$(header Machine)" "Intel 80386"
expect_equal "the type" "$(header Type)" "DYN (Shared object file)"

expect_equal "the name" "$(echo "$dynamic" | sed -nE 's/.*\(SONAME\).*\[(.*)\]$/\1/p')" "libGorvanet.so.1"
expect_equal "what it needs" \
    "$(echo "$dynamic" | sed -nE 's/.*\(NEEDED\).*\[(.*)\]$/\1/p' | sort | tr '\n' ' ')" "libc.so.6 libgcc_s.so.1 "
if echo "$dynamic" | grep -E 'RPATH|RUNPATH'; then
    fail "it looks for libraries in places of its own"
fi

if echo "$dynamic" | grep -E '\((PRE)?(INIT|FINI)'; then
    fail "it runs code at load or unload"
fi
if echo "$dynamic" | grep TEXTREL; then
    fail "its code is changed while it is loaded"
fi
if echo "$dynamic" | grep -E 'BIND_NOW|FLAGS.*NOW'; then
    fail "it wants all its symbols at once"
fi
expect_equal "the stack" "$(readelf -lW "$library" | awk '$1 == "GNU_STACK" { print $(NF - 1) }')" "RW"
finish
