#!/usr/bin/env python3
"""Runs pack on files and reads what it makes with other programs.

    pack_test.py [LAUNCHER...] PROGRAM

Streams are compared with Python's zlib, archives are read by Python's zipfile and by unzip.
"""

import os
import pty
import subprocess
import sys
import tempfile
import zipfile
import zlib

TEXT = "".join(f"{i * i} lines of text\n" for i in range(20000)).encode()
NOISE = bytes(i * i * 2654435761 >> 13 & 255 for i in range(200000))
STREAM = zlib.compress(TEXT)
FILES = {
    "text": TEXT,
    "noise": NOISE,
    "größe.txt": b"x" * 100,
    "empty": b"",
    "stream": STREAM,
    "cut": STREAM[:-1],
    "damaged": STREAM[:500] + b"####" + STREAM[504:],
    "kept": b"kept",
}
DEFLATING = "An error has occurred while deflating data."
INFLATING = "An error has occurred while inflating data."

# Arguments, exit code, what the one line on standard error must hold. A target "kept" is kept.
REFUSALS = [
    ("", 2, "a command, a source and a target are needed (pack --help)"),
    ("deflate text", 2, "a command, a source and a target are needed"),
    ("deflate text out more", 2, "a command, a source and a target are needed"),
    ("squeeze text out", 2, "unknown command: squeeze"),
    ("deflate text out --level", 2, "not a level from 0 to 9: "),
    ("--level 10 deflate text out", 2, "not a level from 0 to 9: 10"),
    ("deflate none kept", 1, "none: The file could not be located."),
    ("deflate text none/out", 1, "none/out.part1: All or part of the path is invalid."),
    ("deflate empty kept", 1, "empty: The file is empty."),
    ("inflate empty kept", 1, "empty: The file is empty."),
    ("inflate cut kept", 1, f"cut: {INFLATING} No further progress is possible."),
    ("inflate damaged kept", 1, f"damaged: {INFLATING} The input data is corrupted."),
    ("inflate text kept", 1, f"text: {INFLATING} The input data is corrupted."),
    ("zip none kept", 1, "none: The file could not be located."),
]


class Folder:
    """The files of the table in a folder of their own, and the program run in it."""

    def __init__(self, program, path):
        self.program, self.path, self.problems = program, path, []
        for name, content in FILES.items():
            with open(os.path.join(path, name), "wb") as file:
                file.write(content)

    def read(self, name):
        with open(os.path.join(self.path, name), "rb") as file:
            return file.read()

    def run(self, arguments, **options):
        return subprocess.run(self.program + arguments.split(), cwd=self.path, capture_output=True, **options)

    def check(self, holds, what):
        if not holds:
            self.problems.append(what)

    def pack(self, arguments):
        """Must succeed, with a line that tells the sizes."""
        source, target = arguments.split()[-2:]
        run = self.run(arguments)
        out = run.stdout.decode()
        self.check(run.returncode == 0 and not run.stderr, f"{arguments}: {run}")
        sizes = tuple(os.path.getsize(os.path.join(self.path, name)) for name in (source, target))
        self.check(out == f"{source}: {sizes[0]} bytes, {target}: {sizes[1]} bytes\n", f"{arguments}: printed {out}")
        return self.read(target)


def check_streams(folder):
    for level, source in (("", "text"), ("--level 0 ", "text"), ("--level 9 ", "noise"), ("", "größe.txt")):
        stream = folder.pack(f"{level}deflate {source} out")
        folder.check(zlib.decompress(stream) == FILES[source], f"{level}{source}: another stream")
        folder.check(folder.pack("inflate out back") == FILES[source], f"{level}{source}: not what it was")
    folder.check(folder.pack("--progress inflate stream back") == TEXT, "Python's stream is not what it was")
    folder.run("deflate back back")
    folder.check(folder.read("back") == STREAM, "a file packed into its own place")


def check_archives(folder, is_windows):
    for source in ("text", "größe.txt", "empty"):
        folder.pack(f"--level 9 zip {source} out.zip")
        with zipfile.ZipFile(os.path.join(folder.path, "out.zip")) as archive:
            folder.check(archive.testzip() is None, f"{source}: a checksum is wrong")
            names = archive.namelist()
            if is_windows:  # the active code page, which the reader takes for that of DOS
                names = [name.encode("cp437").decode("cp1252") for name in names]
            folder.check(names == [source], f"{source}: zipfile sees {names}")
            folder.check(archive.read(archive.infolist()[0]) == FILES[source], f"{source}: zipfile reads other bytes")
        reader = {"cwd": folder.path, "capture_output": True, "env": {**os.environ, "LC_ALL": "C.UTF-8"}}
        unzip = subprocess.run(["unzip", "-p", "out.zip"], **reader)
        folder.check(unzip.returncode == 0 and unzip.stdout == FILES[source], f"{source}: unzip reads other bytes")
        listing = subprocess.run(["unzip", "-Z1", "out.zip"], **reader).stdout
        if not is_windows or source.isascii():
            folder.check(listing.decode() == source + "\n", f"{source}: unzip sees {listing}")


def check_refusals(folder):
    for arguments, code, error in REFUSALS:
        run = folder.run(arguments)
        errors = run.stderr.decode().replace("\r\n", "\n")
        folder.check(run.returncode == code, f"{arguments}: exit code {run.returncode}")
        folder.check(
            errors.startswith("pack: ") and error in errors and errors.count("\n") == 1, f"{arguments}: error {errors}"
        )
        folder.check(not run.stdout, f"{arguments}: printed {run.stdout}")
    folder.check(folder.read("kept") == b"kept", "a failure has changed its target")
    folder.check(folder.run("--help").stdout.startswith(b"usage: pack "), "no help")


def check_progress(folder):
    """On a terminal there is a line that goes up to 100% and is wiped off."""
    terminal, side = pty.openpty()
    run = subprocess.run(folder.program + ["--progress", "deflate", "noise", "out"], cwd=folder.path, stderr=side)
    os.close(side)
    shown = b""
    try:
        while chunk := os.read(terminal, 4096):
            shown += chunk
    except OSError:  # the end of a terminal
        pass
    steps = shown.decode().split("\r")
    folder.check(run.returncode == 0, "no progress on a terminal")
    folder.check("pack: Deflating data. Please wait. 0%" == steps[1], f"progress begins with {steps[1]}")
    folder.check("pack: Deflating data. Please wait. 100%" in steps, f"progress shows {steps}")
    folder.check(not steps[-1].strip() and not steps[-2].strip(), f"progress ends with {steps[-2:]}")


def main(program):
    is_windows = program[-1].endswith(".exe")
    with tempfile.TemporaryDirectory() as path:
        folder = Folder(program, path)
        check_streams(folder)
        check_archives(folder, is_windows)
        check_refusals(folder)
        if not is_windows:
            check_progress(folder)
        left = set(os.listdir(path)) - set(FILES) - {"out", "back", "out.zip"}
        folder.check(not left, f"left behind: {left}")
    for problem in folder.problems:
        print(problem)
    print(f"{len(folder.problems)} problems")
    return 1 if folder.problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
