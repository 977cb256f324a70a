#!/usr/bin/env bash
# dbus.sh PROGRAM [ARGUMENT ...]: a bus, a service and two clients, all processes of their own, started and stopped.
set -euo pipefail

program=$1
shift
directory=$(mktemp -d)
processes=()

stop_everything() {
    [ ${#processes[@]} -eq 0 ] || kill "${processes[@]}" 2>/dev/null || true
    wait
    rm -rf "$directory"
}
trap stop_everything EXIT

cat >"$directory/bus.conf" <<CONFIGURATION
<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <listen>unix:path=$directory/bus</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow own="*"/>
    <allow send_destination="*"/>
    <allow receive_sender="*"/>
  </policy>
</busconfig>
CONFIGURATION

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

start dbus-daemon --config-file="$directory/bus.conf" --nofork --nopidfile --print-address=3 2>/dev/null
export DBUS_SYSTEM_BUS_ADDRESS="unix:path=$directory/bus"

start "$program" "$@" --ready 3 service
start "$program" "$@" --ready 3 listener
"$program" "$@" client
finish
finish
echo
echo "  Three processes talked over D-Bus; all of them have ended, and the bus with them."
