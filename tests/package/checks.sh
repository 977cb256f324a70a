# shellcheck shell=bash
# For the scripts of this directory: one line for each check, which begins with $subject.

subject=
failures=0

# check WHAT COMMAND...: shows what the command says only where it fails.
check() {
    local what=$1
    shift
    if "$@" >output 2>&1; then
        echo "ok      $subject: $what"
    else
        echo "FAILED  $subject: $what"
        sed 's/^/        /' output
        failures=$((failures + 1))
    fi
}

refused() {
    ! "$@"
}
