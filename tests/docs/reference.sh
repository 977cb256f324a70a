#!/bin/bash
# reference.sh EXPORTS REFERENCE: every exported name has a manual page and a place in the HTML, with a text.
set -euo pipefail
exports=$1
reference=$2

names=$(grep -oE '^ +[A-Za-z_0-9]+;' "$exports" | tr -d ' ;')
[ "$(wc -w <<<"$names")" -gt 100 ] || { echo "only $(wc -w <<<"$names") exported names found"; exit 1; }

# The page itself, or the page of its group that it leads to, tells of it.
has_manual_page() {
    local page="$reference/man/man3/$1.3"
    [ -e "$page" ] || return 1
    if read -r request target <"$page" && [ "$request" = .so ]; then
        page="$reference/man/$target"
    fi
    [ -e "$page" ] && grep -qE "\b$1 ?\(|\b$1\b" "$page"
}

fail=0
for name in $names; do
    has_manual_page "$name" || { echo "$name has no manual page"; fail=1; }
    grep -rqE "class=\"memname\">.*\b$name\b" "$reference/html" || {
        echo "$name has no place in the HTML"
        fail=1
    }
done
exit $fail
