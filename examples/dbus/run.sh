#!/usr/bin/env bash
# run.sh SERVICE CLIENT: runs the two programs on a bus of their own, which ends with them. Exit status: the client's.
set -euo pipefail

if [ "$1" != --on-this-bus ]; then
    # The bus complains about limits that it cannot set.
    exec dbus-run-session -- "$0" --on-this-bus "$@" 3>&2 2>/dev/null
fi
exec 2>&3 3>&-
export DBUS_SYSTEM_BUS_ADDRESS=$DBUS_SESSION_BUS_ADDRESS

"$2" &
service=$!
trap 'kill "$service"' EXIT

# The user "ip-service", as the bus knows it.
while ! dbus-send --session --print-reply --dest=org.freedesktop.DBus /org/freedesktop/DBus \
    org.freedesktop.DBus.NameHasOwner string:gorvanet.user.ip_2dservice | grep -q 'boolean true'; do
    kill -0 "$service"
    sleep 0.05
done
"$3"
