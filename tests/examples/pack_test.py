#!/usr/bin/env python3
"""Runs pack on files and reads its output with other programs.

    pack_test.py [LAUNCHER...] PROGRAM

Streams are compared with Python's zlib, archives are read by Python's zipfile.
"""

import datetime
import os
import subprocess
import sys
import zipfile
import zlib

from harness import check, finish, own_folder, read, run, write_all

TEXT = "".join(f"{i * i} lines of text\n" for i in range(20000)).encode()
STREAM = zlib.compress(TEXT)
FILES = {
    "text": TEXT,
    "größe.txt": b"x" * 100,
    "empty": b"",
    "stream": STREAM,
    "cut": STREAM[:-1],
    "kept": b"kept",
}

# Arguments, exit code, a part of the one line on standard error.
REFUSALS = [
    ("", 2, "a command, a source and a target are needed (pack --help)"),
    ("--level 10 deflate text out", 2, "not a level from 0 to 9: 10"),
    ("deflate none kept", 1, "none: The file could not be located."),
    ("inflate cut kept", 1, "cut: An error has occurred while inflating data. No further progress is possible."),
]


def pack(program, arguments):
    """Must succeed, and print a line with the sizes."""
    ran = subprocess.run(program + arguments.split(), capture_output=True)
    source, target = arguments.split()[-2:]
    line = f"{source}: {os.path.getsize(source)} bytes, {target}: {os.path.getsize(target)} bytes\n"
    check(ran.returncode == 0 and not ran.stderr and ran.stdout.decode() == line, f"{arguments}: {ran}")
    return read(target)


def check_streams(program):
    for level, source in (("", "text"), ("--level 0 ", "größe.txt")):
        check(zlib.decompress(pack(program, f"{level}deflate {source} out")) == FILES[source], f"{level}{source}")
    check(pack(program, "--progress inflate stream out") == TEXT, "Python's stream is not what it was")
    subprocess.run(program + ["deflate", "out", "out"], stdout=subprocess.DEVNULL)
    check(read("out") == STREAM, "a file packed into its own place")


def check_archives(program, is_windows):
    for source in ("text", "größe.txt", "empty"):
        pack(program, f"zip {source} out")
        with zipfile.ZipFile("out") as archive:
            entry = archive.infolist()[0]
            # On Windows in the active code page, which the reader treats as that of DOS.
            name = entry.filename.encode("cp437").decode("cp1252") if is_windows else entry.filename
            now = datetime.datetime.now(datetime.timezone.utc).replace(tzinfo=None)
            age = abs(now - datetime.datetime(*entry.date_time))
            check(name == source and age < datetime.timedelta(minutes=10), f"{source}: {name}, packed {age} from now in UTC")
            check(archive.read(entry) == FILES[source], f"{source}: zipfile reads other bytes")


def main(program):
    os.environ["TZ"] = "Europe/Berlin"  # local time is never UTC there
    with own_folder():
        write_all(FILES)
        check_streams(program)
        check_archives(program, program[-1].endswith(".exe"))
        for arguments, code, error in REFUSALS:
            run(program, arguments.split(), code, error=error)
        check(read("kept") == b"kept", "a failure has changed its target")
        left = set(os.listdir()) - set(FILES) - {"out"}
        check(not left, f"not removed: {left}")
    finish()


main(sys.argv[1:])
