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
    (["--to", "a@example.com", "--subject", "", "--body", "b"], 2, "needed, and not empty: --subject"),
    (TEXTS + ["--attach"], 2, "a value is missing: --attach"),
    (TEXTS + ["--attach", "none.txt"], 1, "none.txt: there is no such file"),
]


def main(program):
    with own_folder() as folder:
        for arguments, code, error in REFUSALS:
            run(program, arguments, code, error=error)
        if not program[-1].endswith(".exe"):  # Windows programs use the system's mail program
            os.environ.update(PATH=folder + os.pathsep + os.environ["PATH"], TMPDIR=folder)
            write_all({"a.txt": b"text", "xdg-email": b'#!/bin/sh\nprintf "%s\\n" "$@" >seen\n'})
            os.chmod("xdg-email", 0o755)
            run(program, TEXTS + ["--attach", "a.txt", "--as", "b.txt", "--name", "Ann"])
            uri = "mailto:%22Ann%22%20%3Ca@example.com%3E?subject=-s&body=line%201%0D%0Aline%202\n"
            check(read("seen").decode().endswith("/b.txt\n" + uri), read("seen"))
            write_all({"xdg-email": b"#!/bin/sh\nexit 4\n"})
            run(program, TEXTS, 1, error="Send mail failed to send message.")
    finish()


main(sys.argv[1:])
