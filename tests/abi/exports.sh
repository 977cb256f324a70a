#!/bin/bash
# exports.sh LIBRARY EXPORTS_MAP HEADER: the library exports the names of the map, which are those of the header.
. "$(dirname "$0")/checks.sh"
library=$1
map=$2
header=$3

# Everything that the header declares and does not define: "name" of a function or an object, and whether it is marked
# for export.
declared() {
    without_comments "$header" | sed '/^#/d; s/\\$//' | perl -0ne '
        s/extern "C" \{//;
        1 while s/\{[^{}]*\}/ /gs;
        for my $declaration (split /;/) {
            next if $declaration =~ /^\s*(typedef|struct\s+\w+\s*$|enum|\}?\s*$)/;
            my $mark = $declaration =~ s/\bGORVANET_API\b// ? "exported" : "unmarked";
            $declaration =~ s/\(.*//s;
            $declaration =~ /(\w+)\s*$/ or next;
            print "$mark $1\n";
        }' | sort
}

exported "$library" >"$scratch/exported"
mapped "$map" >"$scratch/mapped"
declared >"$scratch/declared"

echo "the library against the map"
expect_same_lines "$scratch/exported" "$scratch/mapped"
echo "the header against the map"
sed -n 's/^exported //p' "$scratch/declared" >"$scratch/marked"
expect_same_lines "$scratch/marked" "$scratch/mapped"
if grep '^unmarked' "$scratch/declared"; then
    fail "the header declares these without GORVANET_API"
fi

echo "the kinds"
nm -D --defined-only "$library" | awk '$2 != "T" { print $2, $3 }' >"$scratch/not_code"
echo "D gorvaNet_base" >"$scratch/one_object"
expect_same_lines "$scratch/not_code" "$scratch/one_object"
finish
