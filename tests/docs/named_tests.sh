#!/bin/bash
# named_tests.sh PAGE DIRECTORY: every test that the page names, as `Suite.Name`, is in the tree.
set -euo pipefail
page=$1
cd "$2"

# As a test of GoogleTest, or as one of ctest, whose names may be put together.
exists() {
    local suite=${1%%.*} name=${1##*.}
    [ "$name" != '*' ] || name='[A-Za-z0-9_]+'
    grep -rqE "TEST(_F|_P)?\($suite, $name\)" tests fuzz && return
    case $suite in
    abi) grep -qE "library_test\($name " tests/abi/CMakeLists.txt ;;
    fuzz) [ -d "fuzz/corpus/$name" ] ;;
    docs) grep -qE "NAME docs\.$name " tests/docs/CMakeLists.txt ;;
    *) return 1 ;;
    esac
}

names=$(grep -oE '.[A-Za-z0-9]+\.[A-Za-z0-9_.]*([A-Za-z0-9_]|\*)`' "$page" | grep '^`' | tr -d '`' | sort -u)
[ "$(wc -w <<<"$names")" -gt 15 ] || { echo "only $(wc -w <<<"$names") names found"; exit 1; }
fail=0
for name in $names; do
    exists "$name" || { echo "there is no test $name"; fail=1; }
done
exit $fail
