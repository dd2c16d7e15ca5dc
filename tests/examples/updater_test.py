#!/usr/bin/env python3
"""Runs updater against a web server of the test's own at port 80 of a loopback address.

    updater_test.py [LAUNCHER...] PROGRAM

Exits with 77, skipped, where that port can't be taken.
"""

import functools
import http.server
import os
import subprocess
import sys
import tempfile
import threading
import uuid

from harness import check, finish, read

ADDRESS = "127.0.44.1"
LISTING = (
    "<?xml version='1.0' encoding='utf-8'?><rss><channel><lastBuildDate>2024-03-12T08:30:00</lastBuildDate>{}"
    "</channel></rss>"
)
ITEM = "<item><title>{}</title><link>http://h/{}</link><pubDate>2024-03-12</pubDate><priority>{}</priority></item>"
FIRST = LISTING.format(ITEM.format("Größe", 1, "high"))
SECOND = LISTING.format(ITEM.format("Größe", 1, "high") + ITEM.format("Second", 2, ""))
RECENT = "You must wait at least 15 seconds before checking for updates again."

class Handler(http.server.SimpleHTTPRequestHandler):
    def log_message(self, *_):
        pass


def serve(folder):
    handler = functools.partial(Handler, directory=folder)
    try:
        server = http.server.ThreadingHTTPServer((ADDRESS, 80), handler)
    except PermissionError:
        sys.exit(77)
    threading.Thread(target=server.serve_forever, daemon=True).start()


def main():
    command = sys.argv[1:]
    folder = tempfile.mkdtemp(prefix="quorvel-updater-")
    listing = os.path.join(folder, "updates.xml")
    serve(folder)

    def write(text, date):
        with open(listing, "w", encoding="utf-8") as file:
            file.write(text)
        os.utime(listing, (date, date))

    def run(label, key, arguments, code, *texts, answer=""):
        """What is printed must hold the texts, in this order."""
        arguments = [*arguments, "--settings", key, "--file", "local.xml"]
        result = subprocess.run(
            command + arguments, input=answer.encode(), capture_output=True, cwd=folder, timeout=60
        )
        output = result.stdout.decode().replace("\r\n", "\n")
        at = 0
        for text in texts:
            found = output.find(text, at)
            check(found >= 0, f"{label}: no {text!r} in {output!r}")
            at = max(found, at)
        check(result.returncode == code, f"{label}: exit code {result.returncode}, {result.stderr.decode()!r}")
        return output

    def new_key():
        return "Software\\Quorvel tests\\" + uuid.uuid4().hex

    site = ["--site", f"http://{ADDRESS}/updates.xml"]
    missing = ["--site", f"http://{ADDRESS}/none.xml"]
    write(FIRST, 1_700_000_000)
    key = new_key()
    run(
        "first", key, [*site, "--yes"], 0, "Local update file does not exist.", "Connecting to updates server",
        "new updates available as of 11/14/2023 11:13:20 PM", "Priority  Title", "high      Größe", "New: Größe http://h/1",
    )
    check(read(os.path.join(folder, "local.xml")) == FIRST.encode(), "first: another file")
    run("again at once", key, [], 1, "dated 3/12/2024 9:30:00 AM", RECENT)

    write(SECOND, 1_700_000_100)
    run("declined", new_key(), site, 3, "[y/n]", answer="n\n")
    output = run("newer", new_key(), [*site, "--auto"], 0, "[y/n]", "New: Second http://h/2", answer="y\n")
    check("New: Größe" not in output, "newer: the old entry is new")
    not_found = "The server has not found anything that matches the requested URI."
    run("missing", new_key(), missing, 1, "An error has occurred while checking for updates.", not_found)

    finish()


main()
