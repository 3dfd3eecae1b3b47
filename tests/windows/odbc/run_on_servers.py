#!/usr/bin/env python3
"""Runs a test program for Windows on database servers of its own.

  run_on_servers.py PROGRAM

The servers run on this machine's system, the program under wine, which reaches the drivers of this
system by the names that Windows would have for them.
"""

import os
import pathlib
import socket
import subprocess
import sys
import tempfile

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "odbc" / "database-servers.sh"


def reserved_port():
    """A socket that keeps its port for a server that asks to use it again."""
    keeper = socket.socket(socket.AF_INET, socket.SOCK_STREAM)
    keeper.bind(("127.0.0.1", 0))
    keeper.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
    return keeper


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    keepers = {engine: reserved_port() for engine in ("postgresql", "mariadb")}
    environment = dict(os.environ)
    with tempfile.TemporaryDirectory() as folder:
        os.chmod(folder, 0o755)  # the servers run as another user

        def run(action, engine):
            port = str(keepers[engine].getsockname()[1])
            subprocess.run([SCRIPT, action, engine, folder, port], check=True)
            return port

        try:
            for engine in keepers:
                environment[f"QBTD_{engine.upper()}_PORT"] = run("start", engine)
            return subprocess.run(["wine", sys.argv[1]], env=environment, check=False).returncode
        finally:
            for engine in keepers:
                run("stop", engine)


if __name__ == "__main__":
    sys.exit(main())
