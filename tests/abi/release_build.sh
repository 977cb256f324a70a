#!/bin/bash
# release_build.sh SOURCE BUILD GENERATOR CC CXX: builds the library as it is shipped, with these compilers.
set -eu
export CC=$4 CXX=$5
unset CFLAGS CXXFLAGS LDFLAGS
cmake -S "$1" -B "$2" -G "$3" -DCMAKE_BUILD_TYPE=Release -DBUILD_TESTING=OFF
cmake --build "$2" --target gorvanet --parallel 2
test -f "$2/libGorvanet.so.1"
