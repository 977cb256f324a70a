#!/bin/bash
# no_pasted_names.sh SOURCE_DIRECTORY: a name that is exported or logged can be found by searching for it.
. "$(dirname "$0")/checks.sh"
[ "$(find "$1" -name '*.cpp' -o -name '*.h' | wc -l)" -ge 20 ] || fail "the sources were not found in $1"
if grep -rn '##' "$1"; then
    fail "names are pasted together"
fi
finish
