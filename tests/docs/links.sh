#!/bin/bash
# links.sh DIRECTORY: every link of the pages in the tree leads somewhere: to a file, and to a heading of it.
#
# Links to other machines are not followed; there should be none.
set -euo pipefail
cd "$1"

fail=0
complain() {
    echo "$1"
    fail=1
}

# The anchors of a page: its headings in lower case, with hyphens for blanks, without other signs.
anchors() {
    awk '/^```/ { inside = !inside } !inside && /^#+ / { sub(/^#+ /, ""); print }' "$1" |
        tr '[:upper:]' '[:lower:]' | tr ' ' '-' | tr -cd 'a-z0-9_\n-'
}

count=0
while read -r page; do
    while read -r target; do
        count=$((count + 1))
        case $target in
        *://*)
            complain "$page: a link to another machine: $target"
            continue
            ;;
        esac
        file=${target%%#*}
        path=$page
        [ -z "$file" ] || path=$(dirname "$page")/$file
        if [ ! -e "$path" ]; then
            complain "$page: there is no $file"
        elif [[ $target == *#* ]] && ! anchors "$path" | grep -qxF -- "${target#*#}"; then
            complain "$page: there is no heading for $target"
        fi
    done < <(awk '/^```/ { inside = !inside } !inside && !/^    / { print }' "$page" | grep -oE '\]\([^) ]+\)' | sed 's/^](//; s/)$//')
done < <(find . -name '*.md' -not -path './build*' -not -path './.git/*' | sort)
[ "$count" -ge 20 ] || complain "only $count links found"
exit $fail
