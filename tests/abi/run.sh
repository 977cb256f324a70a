#!/bin/bash
# run.sh PROGRAM ARGUMENT...: runs it as a process that binds lazily, whatever the environment says.
unset LD_BIND_NOW
exec "$@"
