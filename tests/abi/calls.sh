#!/bin/bash
# calls.sh LIBRARY: no call of an exported function goes there directly, past what the process may have put in its way.
. "$(dirname "$0")/checks.sh"
library=$1

objdump -d --no-show-raw-insn "$library" >"$scratch/code"
calls() {
    sed -nE "s/^ *[0-9a-f]+:\t(call|jmp) +[0-9a-f]+ <(gorva[nN]et_[A-Za-z0-9_]+)$1>$/\2/p" "$scratch/code"
}

[ "$(calls @plt | sort -u | wc -l)" -ge 30 ] || fail "calls through the table were not found"
if calls "" | sort | uniq -c | grep .; then
    fail "direct calls of exported functions"
fi
finish
