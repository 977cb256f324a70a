#!/bin/bash
# compiles.sh README INCLUDE_DIRECTORY COMPILER [FLAG ...]: each C block of the README is a program's part that compiles.
set -euo pipefail
readme=$1
include=$2
shift 2

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
awk -v dir="$scratch" '
    /^```c$/ { file = dir "/block" ++count ".c"; print "#include <gorvanet.h>\n#include <stddef.h>\n" >file; next }
    /^```$/ { file = "" }
    file { print >file }' "$readme"

blocks=("$scratch"/block*.c)
[ "${#blocks[@]}" -eq 2 ] || { echo "expected a service and a client, found ${#blocks[@]} blocks"; exit 1; }
for block in "${blocks[@]}"; do
    "$@" -std=c99 -Wall -Wextra -Wpedantic -Werror -I "$include" -fsyntax-only "$block"
    grep -q gorvanet_initialize "$block"
done
