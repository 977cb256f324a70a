"""Instructions of a round trip over D-Bus, plain and through the library and the host, in the client and in the service.

Callgrind counts all of a process. So the same run is made with more trips of one kind, and the difference divided.
"""

import pathlib
import subprocess
import sys
import tempfile

TRIPS = 100
MESSAGES = ("SetMtu", "GetIPv6Props")

Counts = tuple[int, int]  # of the client, of the services


def total(profile: pathlib.Path) -> int:
    lines = profile.read_text().splitlines()
    return int(next(line for line in lines if line.startswith("totals:")).split()[1])


def count(program: str, message: str, plain: int, library: int) -> Counts:
    """All instructions of a run with so many trips of each kind."""
    with tempfile.TemporaryDirectory() as directory:
        command = ["valgrind", "--quiet", "--tool=callgrind", f"--callgrind-out-file={directory}/%p", program, message,
                   str(plain), str(library)]
        with subprocess.Popen(command) as client:
            if client.wait() != 0:
                raise subprocess.CalledProcessError(client.returncode, command)
        totals = {path.name: total(path) for path in pathlib.Path(directory).iterdir()}
    of_client = totals.pop(str(client.pid))
    return of_client, sum(totals.values())


def per_trip(fewer: Counts, more: Counts) -> Counts:
    return (more[0] - fewer[0]) // TRIPS, (more[1] - fewer[1]) // TRIPS


def main() -> int:
    program = sys.argv[1]
    print("Instructions of a round trip    client   service")
    for message in MESSAGES:
        fewer = count(program, message, TRIPS, TRIPS)
        plain = per_trip(fewer, count(program, message, 2 * TRIPS, TRIPS))
        library = per_trip(fewer, count(program, message, TRIPS, 2 * TRIPS))
        for kind, counts in (("plain sd-bus", plain), ("library and host", library)):
            print(f"{message:12}  {kind:16}  {counts[0]:7}  {counts[1]:8}")
    return 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except subprocess.CalledProcessError as error:
        sys.exit(str(error))
