#!/usr/bin/env python3
"""Runs keys on a sample library and on scheme files.

    keys_test.py SAMPLE [LAUNCHER...] PROGRAM
"""

import shutil
import sys

from harness import finish, own_folder, run, write_all

SHEET = b"""MAIN

Command     Shortcut Key
-------     ------------
Save As...  Ctrl+S
#101        Ctrl+F5
#102        Shift+A
Save As...  F2

"""
DAMAGED = b"keys.dll: 1 damaged tables and menus are left out\n"
FILES = {
    "mine.xml": b'<?xml version="1.0" encoding="utf-8"?><shortcuts format="1">'
                b'<shortcut command="101" key="Ctrl+S"/></shortcuts>',
    "faulty.xml": b'<?xml version="1.0" encoding="utf-8"?><shortcuts format="1">'
                  b'<shortcut command="7" key="F1"/><shortcut command="101" key="X1"/></shortcuts>',
    "noise.dll": b"MZ" + bytes(range(256)) * 20,
}
# Arguments, exit code, output, a part of the one line on standard error.
RUNS = [
    ("sheet --table MAIN keys.dll", 0, DAMAGED + SHEET, None),
    ("conflicts --table MAIN keys.dll", 0, DAMAGED + b"MAIN: 102: Shift+A types the character A, "
     b"which could no longer be entered in text fields.\n", None),
    ("export --table MAIN keys.dll out.xml", 0, DAMAGED, None),
    ("compare --table MAIN keys.dll out.xml", 0, DAMAGED, None),
    ("compare out.xml mine.xml", 1, b"100: Ctrl+S -> no key\n101: Ctrl+F5 -> Ctrl+S\n"
     b"102: Shift+A -> no key\n", None),
    ("import --table MAIN keys.dll mine.xml", 0, DAMAGED + b"MAIN\n\nCommand  Shortcut Key\n"
     b"-------  ------------\n#101     Ctrl+S\n\n", None),
    ("import --table MAIN keys.dll faulty.xml", 1, DAMAGED + b"faulty.xml: row 1: There is no command 7.\n"
     b"faulty.xml: row 2: The key X1 is not valid.\n", "faulty.xml: not used"),
    ("export keys.dll out2.xml", 1, DAMAGED, "several accelerator tables: MAIN 7"),
    ("sheet --table 9 keys.dll", 1, DAMAGED, "no accelerator table 9"),
    ("sheet noise.dll", 1, b"", "noise.dll: not a Windows program or library"),
    ("sheet --format pdf keys.dll", 2, b"", "unknown format: pdf (keys --help)"),
]


sample, *program = sys.argv[1:]
with own_folder():
    shutil.copy(sample, "keys.dll")
    write_all(FILES)
    for arguments, code, out, error in RUNS:
        run(program, arguments.split(), code, out, error)
finish()
