# shellcheck shell=bash
# For the scripts of this directory: reading symbol tables, and counting what is wrong.

set -euo pipefail
export LC_ALL=C

failures=0

fail() {
    echo "FAILED: $*"
    failures=$((failures + 1))
}

# expect_equal WHAT FOUND EXPECTED
expect_equal() {
    [ "$2" = "$3" ] || fail "$1 is '$2', expected '$3'"
}

# expect_same_lines FILE EXPECTED_FILE: shows what is missing and what is too much.
expect_same_lines() {
    [ -s "$2" ] || fail "nothing to compare with"
    diff -u "$2" "$1" || fail "the lists differ"
}

finish() {
    [ "$failures" -eq 0 ] || exit 1
    echo "all right"
    exit 0
}

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# C and C++ without comments.
without_comments() {
    perl -0pe 's{/\*.*?\*/}{ }gs; s{//[^\n]*}{}g' "$1"
}

# The dynamic symbols that a library needs, without versions.
imported() {
    nm -D --undefined-only "$1" | awk '{ print $NF }' | sed 's/@.*//' | sort -u
}

# The dynamic symbols that a library defines. A version would show in the name.
exported() {
    nm -D --defined-only --with-symbol-versions "$1" | awk '{ print $NF }' | sort
}

# The functions that the host process provides.
host_functions() {
    without_comments "$1" | perl -0ne '
        s/.*extern "C" \{//s or die "no C declarations\n";
        print "$1\n" while /^\w[\w \*]*?\b(\w+)\(/mg' | sort
}

# The names that the version script exports.
mapped() {
    sed -n '/global:/,/local:/p' "$1" | sed -nE 's/^ +([A-Za-z_0-9]+);$/\1/p' | sort
}
