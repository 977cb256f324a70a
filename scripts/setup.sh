# shellcheck shell=bash
# Sourced by the other scripts: installs from Debian what this machine lacks.
#
#     setup build          what the library and the demo need
#     setup build clang    the same, and what the presets with clang need
#     setup build test     or what the tests need
#     setup build test check        and what scripts/check needs
#     setup build test coverage     or scripts/coverage
#     setup build test analyse      or scripts/analyse
#     setup build bench    what the library needs, and scripts/bench to count
#     setup docs           what scripts/docs needs
#     setup peers          what scripts/bench compares the library with
#
# and further words for the scripts that name them.

have() {
    command -v "$1" >/dev/null 2>&1
}

# Is the package installed?
installed() {
    dpkg-query -W -f '${db:Status-Status}\n' "$1" 2>/dev/null | grep -qx installed
}

# Can the C++ compiler build a program for i386?
have_i386() {
    have "$1" && echo '#include <cstdlib>
int main() { return EXIT_SUCCESS; }' | "$1" -m32 -x c++ - -o /dev/null 2>/dev/null
}

missing_packages() {
    local group
    for group in "$@"; do
        case $group in
        build)
            have cmake || echo cmake
            have ninja || echo ninja-build
            have_i386 g++ || echo g++ g++-multilib
            ;;
        test)
            [ -e /usr/src/googletest/CMakeLists.txt ] || echo googletest
            ;;
        docs)
            have doxygen || echo doxygen
            have python3 || echo python3
            ;;
        clang)
            have clang++ || echo clang
            [ -n "$(find /usr/lib -name 'libclang_rt.asan-i386.a' -path '*/clang/14*' 2>/dev/null | head -n 1)" ] ||
                echo libclang-rt-14-dev
            ;;
        check)
            missing_packages clang
            have clang-format || echo clang-format
            have clang-tidy || echo clang-tidy
            have shellcheck || echo shellcheck
            have python3 || echo python3
            ;;
        coverage)
            have gcovr || echo gcovr
            ;;
        package)
            have debootstrap || echo debootstrap
            have dpkg-deb || echo dpkg
            ;;
        analyse)
            missing_packages clang
            have cppcheck || echo cppcheck
            have scan-build || echo clang-tools
            have valgrind || echo valgrind
            # Without these valgrind does not start a 32-bit program.
            installed libc6-dbg:i386 || echo libc6-dbg:i386
            ;;
        mcdc)
            have clang-19 || echo clang-19
            have llvm-cov-19 || echo llvm-19
            [ -n "$(find /usr/lib -name 'libclang_rt.profile-i386.a' -path '*/19/*' 2>/dev/null | head -n 1)" ] ||
                echo libclang-rt-19-dev
            have python3 || echo python3
            ;;
        mutate)
            have python3 || echo python3
            ;;
        machines)
            have debootstrap || echo debootstrap
            ;;
        abi)
            have abidw || echo abigail-tools
            ;;
        bench)
            have valgrind || echo valgrind
            have python3 || echo python3
            ;;
        peers)
            [ -e /usr/lib/i386-linux-gnu/libbenchmark.so ] || echo libbenchmark-dev:i386
            [ -e /usr/include/msgpuck.h ] || echo libmsgpuck-dev
            [ -e /usr/include/flatbuffers/flatbuffers.h ] || echo libflatbuffers-dev
            have flatc || echo flatbuffers-compiler
            [ -e /usr/lib/i386-linux-gnu/libprotobuf-nanopb.a ] || echo libnanopb-dev:i386
            have nanopb_generator.py || echo nanopb
            [ -e /usr/lib/i386-linux-gnu/libmnl.so ] || echo libmnl-dev:i386
            ;;
        esac
    done
}

# From where this machine has its packages of Debian 12; nothing where it has none.
debian_archive() {
    # shellcheck disable=SC2016 # apt's own variable
    apt-get indextargets --format '$(REPO_URI)' 'Codename: bookworm' | head -n 1
}

setup() {
    local packages root=
    packages=$(missing_packages "$@" | xargs)
    [ -n "$packages" ] || return 0
    if ! have apt-get; then
        echo "This machine lacks: $packages (Debian's names). Install them and run this again." >&2
        return 1
    fi
    if [ "$(id -u)" != 0 ]; then
        if ! have sudo; then
            echo "This machine lacks: $packages. Neither root nor sudo is at hand to install them; as root, run" >&2
            echo "    apt-get install --no-install-recommends $packages" >&2
            echo "and then this again." >&2
            return 1
        fi
        root=sudo
    fi
    echo "Installing from Debian: $packages"
    case $packages in
    *:i386*) $root dpkg --add-architecture i386 ;;
    esac
    # Mirrors that are being updated make this fail now and then; the lists of before will do.
    $root apt-get update -qq || true
    # shellcheck disable=SC2086 # a list of words
    if apt-get install -s --no-install-recommends $packages | grep '^Remv' >&2; then
        echo "Installing $packages would remove the packages above. Nothing was installed; make room by hand." >&2
        return 1
    fi
    # shellcheck disable=SC2086
    $root env DEBIAN_FRONTEND=noninteractive apt-get install -qq -y --no-install-recommends $packages >/dev/null
}

# run_suite PRESET CTEST-ARGUMENT...: runs the tests of a preset; the last line is their figure.
run_suite() {
    local results tests skipped
    results=$(mktemp)
    ctest --preset "$1" -j "$(nproc)" --output-junit "$results" "${@:2}"
    tests=$(sed -n 's/^\ttests="\([0-9]*\)"$/\1/p' "$results")
    skipped=$(sed -n 's/^\tskipped="\([0-9]*\)"$/\1/p' "$results")
    rm "$results"
    echo "$((tests - skipped)) tests pass, $skipped skipped"
}
