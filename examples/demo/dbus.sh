#!/usr/bin/env bash
# dbus.sh PROGRAM [ARGUMENT ...]: a bus, a service and two clients, all processes of their own, started and stopped.
set -euo pipefail

if [ "$1" != --on-this-bus ]; then
    # The bus complains about limits that it cannot set.
    exec dbus-run-session -- "$0" --on-this-bus "$@" 3>&2 2>/dev/null
fi
exec 2>&3 3>&-
export DBUS_SYSTEM_BUS_ADDRESS=$DBUS_SESSION_BUS_ADDRESS
program=$2
shift 2
directory=$(mktemp -d)
processes=()

stop_everything() {
    [ ${#processes[@]} -eq 0 ] || kill "${processes[@]}" 2>/dev/null || true
    wait
    rm -rf "$directory"
}
trap stop_everything EXIT

# Starts a process that writes a line to file descriptor 3 when it is ready, and waits for that.
start() {
    local pipe=$directory/ready
    mkfifo "$pipe"
    "$@" 3>"$pipe" &
    processes+=($!)
    timeout 20 head -n 1 "$pipe" >/dev/null
    rm "$pipe"
}

# Asks the process that was started last to end. It must not have failed.
finish() {
    local process=${processes[-1]}
    unset 'processes[-1]'
    kill -TERM "$process"
    wait "$process"
}

start "$program" "$@" --ready 3 service
start "$program" "$@" --ready 3 listener
"$program" "$@" client
finish
finish
echo
echo "  Three processes talked over D-Bus; all of them have ended, and the bus with them."
