#!/usr/bin/env python3
"""Runs mail; on Linux with an xdg-email that records its arguments.

    mail_test.py [LAUNCHER...] PROGRAM
"""

import os
import sys

from harness import check, finish, own_folder, read, run, write_all

TEXTS = ["--to", "a@example.com", "--subject", "-s", "--body", "line 1\nline 2"]

# Arguments, exit code, a part of the one line on standard error.
REFUSALS = [
    ([], 2, "needed, and not empty: --to (mail --help)"),
    (["--to", "a@example.com", "--subject", "s"], 2, "needed, and not empty: --body"),
    (["--to", "a@example.com", "--subject", "", "--body", "b"], 2, "needed, and not empty: --subject"),
    (TEXTS + ["--attach"], 2, "a value is missing: --attach"),
    (TEXTS + ["--attach", "none.txt"], 1, "none.txt: there is no such file"),
]


def install(last_line):
    write_all({"xdg-email": f'#!/bin/sh\nprintf "%s\\n" "$@" >seen\n{last_line}\n'.encode()})
    os.chmod("xdg-email", 0o755)


def main(program):
    with own_folder() as folder:
        for arguments, code, error in REFUSALS:
            run(program, arguments, code, error=error)
        if not program[-1].endswith(".exe"):  # Windows programs use the system's mail program
            os.environ["PATH"] = folder + os.pathsep + os.environ["PATH"]
            os.environ["TMPDIR"] = folder
            write_all({"a.txt": b"text"})
            uri = "mailto:a@example.com?subject=-s&body=line%201%0D%0Aline%202\n"
            install("exit 0")
            run(program, TEXTS)
            check(read("seen").decode() == "--utf8\n" + uri, read("seen"))
            run(program, TEXTS + ["--attach", "a.txt"])
            check(read("seen").decode() == f"--utf8\n--attach\n{os.path.realpath('a.txt')}\n{uri}", read("seen"))
            run(program, TEXTS + ["--attach", "a.txt", "--as", "b.txt", "--name", "Ann"])
            check("/b.txt\nmailto:%22Ann%22" in read("seen").decode(), read("seen"))
            install("exit 4")
            run(program, TEXTS, 1, error="Send mail failed to send message.")
            os.remove("xdg-email")
            os.environ["PATH"] = folder
            run([os.path.realpath(program[-1])], TEXTS, 1, error="Unable to load mail system support.")
    finish()


main(sys.argv[1:])
