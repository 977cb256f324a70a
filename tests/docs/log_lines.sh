#!/bin/bash
# log_lines.sh PAGE SOURCES: the page has every line that the sources write, with its priority, and no other.
set -euo pipefail
page=$1
sources=$2

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

find "$sources" \( -name '*.cpp' -o -name '*.h' \) -exec cat {} + | tr '\n' ' ' >"$scratch/sources"

# "PRIORITY TEXT" for each call of syslog, all of which begin in the same way.
grep -oE 'syslog\(LOG_[A-Z]+, +"\[GORVANET\] -> %s\(%d\): [^"]*"' "$scratch/sources" >"$scratch/calls"
sed -E 's/syslog\(LOG_EMERG/0/; s/syslog\(LOG_ERR/3/; s/syslog\(LOG_WARNING/4/; s/, +"\[GORVANET\] -> %s\(%d\): / /
        s/\\n"$//; s/"$/ without line feed/' "$scratch/calls" | sort -u >"$scratch/written"
all=$(grep -oE '\bv?syslog\(' "$scratch/sources" | wc -l)
if [ "$all" -lt 40 ] || [ "$all" != "$(wc -l <"$scratch/calls")" ]; then
    echo "$all calls of syslog, $(wc -l <"$scratch/calls") of them understood"
    exit 1
fi

# The same for each row of the page.
# shellcheck disable=SC2016 # backquotes of the page
grep -E '^\| `[^`]*`( without line feed)? \| [0-9] \| [^|]+ \| [^|]+ \|$' "$page" |
    sed -E 's/^\| .([^`]*).( without line feed)? \| ([0-9]) .*/\3 \1\2/' | sort >"$scratch/told"

if ! diff "$scratch/written" "$scratch/told" >"$scratch/difference"; then
    echo "only in the sources (<), or only in the page or twice there (>):"
    cat "$scratch/difference"
    exit 1
fi
