#!/usr/bin/env python3
"""Runs updater with a web server that the test starts at port 80 of a loopback address.

    updater_test.py [LAUNCHER...] PROGRAM

Exits with 77 (skipped) if that port is not available.
"""

import functools
import http.server
import os
import subprocess
import sys
import threading
import uuid

from harness import check, finish, own_folder, read, write_all

ADDRESS = "127.0.44.1"
LISTING = (
    "<?xml version='1.0' encoding='utf-8'?><rss><channel><lastBuildDate>2024-03-12T08:30:00</lastBuildDate>{}"
    "</channel></rss>"
)
ITEM = "<item><title>{}</title><link>http://h/{}</link><pubDate>2024-03-12</pubDate><priority>{}</priority></item>"
FIRST = LISTING.format(ITEM.format("Größe", 1, "high"))
# An escape sequence, C1 controls, a line of its own, a change of the writing direction.
HOSTILE = "a\x1b[2Jb\x9b1mc\nNew: d\u202ee\u2029"
SECOND = LISTING.format(ITEM.format("Größe", 1, "high") + ITEM.format(HOSTILE, 2, ""))
HARMLESS = "New: a\ufffd[2Jb\ufffd1mc\ufffdNew: d\ufffde\ufffd http://h/2\n"
MANY = 60_000  # comparing all pairs would take minutes


def serve(folder):
    handler = functools.partial(http.server.SimpleHTTPRequestHandler, directory=folder)
    try:
        server = http.server.ThreadingHTTPServer((ADDRESS, 80), handler)
    except PermissionError:
        sys.exit(77)
    threading.Thread(target=server.serve_forever, daemon=True).start()


def run(label, key, arguments, code, *texts, answer=""):
    """The output must contain the texts, in this order."""
    command = [*sys.argv[1:], *arguments, "--settings", key, "--file", "local.xml"]
    result = subprocess.run(command, input=answer.encode(), capture_output=True, timeout=60)
    output = result.stdout.decode().replace("\r\n", "\n")
    at = 0
    for text in texts:
        found = output.find(text, at)
        check(found >= 0, f"{label}: no {text!r} in {output[:2000]!r}")
        at = max(found, at)
    check(result.returncode == code, f"{label}: exit code {result.returncode}, {result.stderr.decode()!r}")
    return output


def main(folder):
    serve(folder)
    date = 1_700_000_000

    def write(text):
        """A newer listing each time."""
        nonlocal date
        date += 100
        write_all({"updates.xml": text.encode()})
        os.utime("updates.xml", (date, date))

    def new_key():
        return "Software\\Quorvel tests\\" + uuid.uuid4().hex

    site = ["--site", f"http://{ADDRESS}/updates.xml"]
    key = new_key()
    write(FIRST)
    run("first", key, [*site, "--yes"], 0, "Local update file does not exist.", "Connecting to updates server",
        "new updates available as of 11/14/2023 11:15:00 PM", "Priority  Title", "high      Größe", "New: Größe http://h/1")
    check(read("local.xml") == FIRST.encode(), "another local file")
    run("again at once", key, [], 1, "dated 3/12/2024 9:30:00 AM", "You must wait at least 15 seconds")
    write(SECOND)
    run("declined", new_key(), site, 3, "[y/n]", answer="n\n")
    output = run("newer", new_key(), [*site, "--auto"], 0, "[y/n]", HARMLESS, answer="y\n")
    check("New: Größe" not in output, "newer: the old entry is new")
    check(not set(output) & set("\x1b\x9b\u202e\u2029"), "newer: control characters reach the terminal")
    write("<html>Please log in.</html>")
    run("no listing", new_key(), [*site, "--yes"], 1, "The server did not send an update listing.")
    run("no key", new_key(), [*site, "--key", "updates.xml"], 1)
    items = [f"<item><link>{i}</link></item>" for i in range(MANY + 1)]
    write_all({"local.xml": LISTING.format("".join(items[:-1])).encode()})
    write(LISTING.format("".join(items)))
    run("many", new_key(), [*site, "--yes"], 0, f"New:  {MANY}\n")
    run("reset", key, ["--reset", "--yes"], 0, "Are you sure", "Local update file does not exist.")
    check(not os.path.exists("local.xml"), "reset: the file is still there")
    finish()


with own_folder() as own:
    main(own)
