#!/usr/bin/env python3
"""Runs listing and, if it is installed, minisign; each verifies signatures of the other.

    listing_test.py [LAUNCHER...] PROGRAM
"""

import re
import shutil
import subprocess
import sys

from harness import check, finish, own_folder, read, run, write_all

PROGRAM = sys.argv[1:]


def minisign(*arguments):
    return subprocess.run(["minisign", *arguments], capture_output=True, input=b"").returncode


def listings():
    run(PROGRAM, ["new", "a.xml"])
    run(PROGRAM, ["add", "a.xml", "--title", "Größe <1>", "--link", "http://h/1", "--priority", "high"])
    run(PROGRAM, ["add", "a.xml", "--title", "Two"])
    run(PROGRAM, ["check", "a.xml"])
    text = read("a.xml").decode()
    check(text.index("Größe &lt;1&gt;") < text.index("Two") and text.count("<item>") == 2, text)
    run(PROGRAM, ["add", "a.xml", "--title", "Three", "--link", "nowhere"], code=2, error="no address: nowhere")
    run(PROGRAM, ["add", "none.xml", "--title", "Three"], code=1, error="none.xml")
    check(read("a.xml").decode() == text, "a refused entry has changed the listing")
    wrong = re.sub(r"(<lastBuildDate>)[^<]*", r"\g<1>someday", text)
    wrong = wrong.replace("http://h/1", "1").replace(">high<", ">urgent<").replace("Two", "")
    write_all({"wrong.xml": wrong.encode()})
    run(PROGRAM, ["check", "wrong.xml"], code=1, out=b"""lastBuildDate: no date, or in the future: someday
entry 1, link: no address: 1
entry 1, priority: not high, normal or low: urgent
entry 2, title: missing
""")


def signatures():
    run(PROGRAM, ["key", "one"])
    run(PROGRAM, ["key", "two"])
    run(PROGRAM, ["key", "one"], code=1, error="there is such a key already: one.pub")
    run(PROGRAM, ["sign", "a.xml", "--key", "one.key", "--serial", "7"])
    signed = read("a.xml.minisig").decode()
    comment = re.search(r"^trusted comment: (timestamp:\d+ serial:7)$", signed, re.M)
    check(comment, signed)
    run(PROGRAM, ["verify", "a.xml", "--key", "one.pub"], out=comment[1].encode() + b"\n")
    run(PROGRAM, ["verify", "a.xml", "--key", "two.pub"], code=1, error="unknown key")
    run(PROGRAM, ["sign", "a.xml", "--key", "one.pub"], code=1, error="no secret key")
    if shutil.which("minisign"):
        check(minisign("-V", "-p", "one.pub", "-m", "a.xml") == 0, "minisign refuses a good signature")
        check(minisign("-S", "-s", "one.key", "-m", "a.xml", "-t", "by minisign") == 0, "minisign can't use the key")
        run(PROGRAM, ["verify", "a.xml", "--key", "one.pub"], out=b"by minisign\n")
    write_all({"a.xml": read("a.xml") + b" "})
    run(PROGRAM, ["verify", "a.xml", "--key", "one.pub"], code=1, error="The signature does not fit the update.")


with own_folder():
    listings()
    signatures()
    run(PROGRAM, ["sign", "a.xml"], code=2, error="--key is needed")
finish()
