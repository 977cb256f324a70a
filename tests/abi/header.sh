#!/bin/bash
# header.sh COMPILER STANDARD INCLUDE_DIRECTORY [FLAG...]: the header stands alone and takes handlers without casts.
set -eu
directory=$(dirname "$0")
compiler=$1
standard=$2
include=$3
shift 3
language=c
case $standard in *++*) language=c++ ;; esac
for source in header_alone.c typed_handlers.c; do
    "$compiler" -x $language -std="$standard" -pedantic-errors -Wall -Wextra -Wpedantic -Werror "$@" -I "$include" \
        -c -o /dev/null "$directory/$source"
done
echo "all right"
