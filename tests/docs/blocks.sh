#!/bin/bash
# blocks.sh PAGE SOURCE: the blocks of C of a page, in their order, as one source.
set -euo pipefail
awk '/^```c$/ { inside = 1; next } /^```$/ { inside = 0 } inside { print }' "$1" >"$2"
