#!/bin/bash
# pictures.sh PROGRAM: the pictures in the tree are what the program draws.
command -v python3 >/dev/null || { echo "skipped: python3 is not installed"; exit 77; }
exec python3 "$1" --check
