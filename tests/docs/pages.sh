#!/bin/bash
# pages.sh DIRECTORY PAGE ...: no page of the directory has C in it but these, which are compiled.
set -euo pipefail
cd "$1"
shift
diff <(grep -l '^```c$' ./*.md | sed 's,^\./,,' | sort) <(printf '%s\n' "$@" | sort)
