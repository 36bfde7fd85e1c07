#!/usr/bin/env python3
"""A network printer for tests: takes raw jobs on a port of the loopback and keeps them.

usage: sink.py DIRECTORY PORT_FILE

A connection is a job; its bytes become DIRECTORY/job-N.prn when it ends, N counting from 1.  The port
is a free one, written to PORT_FILE once the printer listens.  Jobs are taken one after the other.
"""
import pathlib
import socket
import sys


def next_job(directory):
    number = 1
    while (directory / f"job-{number}.prn").exists():
        number += 1
    return directory / f"job-{number}.prn"


def receive(connection, path):
    with connection, open(path, "wb") as file:
        while data := connection.recv(65536):
            file.write(data)


def main(directory, port_file):
    with socket.create_server(("127.0.0.1", 0)) as printer:
        ready = port_file.with_suffix(".new")
        ready.write_text(str(printer.getsockname()[1]))
        ready.rename(port_file)
        while True:
            connection, _ = printer.accept()
            incoming = directory / ".incoming"
            receive(connection, incoming)
            incoming.rename(next_job(directory))


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]))
