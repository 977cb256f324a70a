#!/bin/bash
# reference_test.sh DIRECTORY: the reference can be made without a warning, and has a page for every exported function.
for tool in doxygen python3; do
    command -v $tool >/dev/null || { echo "skipped: $tool is not installed"; exit 77; }
done
exec bash "$1/scripts/docs"
