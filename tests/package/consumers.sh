#!/bin/bash
# consumers.sh pkg-config|cmake|dbus TREE: builds programs of others with the installed library and runs them; those of
# `dbus`, with the D-Bus host and in both ways.
#
# TREE is where tests/package and examples are. CC, CXX, CFLAGS and CXXFLAGS are heeded; where the library is not
# installed where everybody looks, PKG_CONFIG_PATH, CMAKE_PREFIX_PATH and LD_LIBRARY_PATH say where it is. One line for
# each check.
set -euo pipefail
. "$(dirname "$0")/checks.sh"

subject=$1
tree=$(realpath "$2")
consumer=$tree/tests/package/consumer
examples=$tree/examples
version=$(sed -nE 's/^project\(gorvanet VERSION ([0-9.]+) .*/\1/p' "$tree/CMakeLists.txt")
CC=${CC:-cc}
CXX=${CXX:-c++}
read -ra c_flags <<<"${CFLAGS:-}"
read -ra cxx_flags <<<"${CXXFLAGS:-}"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"

# ---- By pkg-config --------------------------------------------------------------------------------------------------

# consumer COMPILER...: the program that brings its own bus.
build_consumer() {
    local flags libraries
    read -ra flags <<<"$(pkg-config --cflags gorvanet)"
    read -ra libraries <<<"$(pkg-config --libs gorvanet)"
    "$@" -pedantic-errors -Wall -Wextra -Werror "${flags[@]}" "$consumer/consumer.c" "$consumer/bus.c" -x none \
        "${libraries[@]}" -o consumer && ./consumer
}

# build_example EXTENSION COMPILER...: service and client on the loopback host.
build_example() {
    local directory=$examples/$1 flags libraries
    local sources=("$directory"/*."$1")
    shift
    read -ra flags <<<"$(pkg-config --cflags gorvanet-loopback)"
    read -ra libraries <<<"$(pkg-config --libs gorvanet-loopback)"
    "$@" -Wall -Werror "${flags[@]}" "${sources[@]}" "${libraries[@]}" -o example &&
        ./example | diff - "$examples/expected.txt"
}

# build_unit_test PART COMPILER...: the unit test of the service or the client.
build_unit_test() {
    local directory=$examples/unit_test part=$1 flags libraries
    shift
    read -ra flags <<<"$(pkg-config --cflags gorvanet-testing)"
    read -ra libraries <<<"$(pkg-config --libs gorvanet-testing)"
    "$@" -Wall -Wextra -Werror "${flags[@]}" "$directory/$part.c" "$directory/${part}_test.c" "${libraries[@]}" \
        -o unit_test && ./unit_test
}

by_pkg_config() {
    check "version $version" pkg-config --exact-version="$version" gorvanet
    for standard in c99 c11 c17; do
        check "$standard" build_consumer "$CC" "${c_flags[@]}" -x c -std=$standard
    done
    for standard in c++11 c++14 c++17 c++20; do
        check "$standard" build_consumer "$CXX" "${cxx_flags[@]}" -x c++ -std=$standard
    done
    check "C with the loopback host" build_example c "$CC" "${c_flags[@]}" -std=c99
    check "C++ with the loopback host" build_example cpp "$CXX" "${cxx_flags[@]}" -std=c++20
    for part in service client; do
        check "unit test of the $part" build_unit_test $part "$CC" "${c_flags[@]}" -std=c99
    done
}

# ---- By CMake -------------------------------------------------------------------------------------------------------

build_project() {
    rm -rf build
    local directory=$1
    shift
    cmake -S "$directory" -B build "-DTREE=$tree" "$@" &&
        cmake --build build && cmake -E chdir build ctest --output-on-failure
}

# find_version VERSION: does find_package give this version?
find_version() {
    mkdir -p version
    cat >version/CMakeLists.txt <<PROJECT
cmake_minimum_required(VERSION 3.16)
project(version LANGUAGES C)
find_package(gorvanet $1 REQUIRED)
PROJECT
    cmake -S version -B version/build
}

# find_component COMPONENT
find_component() {
    rm -rf component
    mkdir component
    cat >component/CMakeLists.txt <<PROJECT
cmake_minimum_required(VERSION 3.16)
project(component LANGUAGES CXX)
find_package(gorvanet REQUIRED COMPONENTS $1)
PROJECT
    cmake -S component -B component/build
}

by_cmake() {
    check "component testing" find_component testing
    check "no component that there is not" refused find_component absent
    check "version $version" find_version "$version EXACT"
    check "no version of another major number" refused find_version $((${version%%.*} + 1))
    check "a project in C" build_project "$consumer" -DLANGUAGES=C
    check "a project in C and C++" build_project "$consumer" "-DLANGUAGES=C;CXX"
}

# ---- The D-Bus host, by both ----------------------------------------------------------------------------------------

# build_processes EXTENSION COMPILER...: service and client of the example as two processes, on a bus of their own.
build_processes() {
    local extension=$1 part flags libraries
    shift
    read -ra flags <<<"$(pkg-config --cflags gorvanet-dbus)"
    read -ra libraries <<<"$(pkg-config --libs gorvanet-dbus)"
    for part in service client; do
        "$@" -Wall -Werror "${flags[@]}" "-I$examples/$extension" "$examples/$extension/$part.$extension" \
            "$examples/dbus/${part}_process.$extension" "${libraries[@]}" -o $part || return
    done
    "$examples/dbus/run.sh" ./service ./client | diff - "$examples/expected.txt"
}

over_dbus() {
    check "version $version" pkg-config --exact-version="$version" gorvanet-dbus
    check "C by pkg-config" build_processes c "$CC" "${c_flags[@]}" -std=c99
    check "C++ by pkg-config" build_processes cpp "$CXX" "${cxx_flags[@]}" -std=c++20
    check "C by CMake" build_project "$tree/tests/package/dbus_consumer" -DLANGUAGE=C
    check "C++ by CMake" build_project "$tree/tests/package/dbus_consumer" -DLANGUAGE=CXX
}

case $subject in
pkg-config) by_pkg_config ;;
cmake) by_cmake ;;
dbus) over_dbus ;;
*) exit 2 ;;
esac
[ "$failures" = 0 ]
