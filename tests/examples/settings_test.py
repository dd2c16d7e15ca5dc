#!/usr/bin/env python3
"""Runs settings with tables of command lines, one after another on one key.

    settings_test.py [LAUNCHER...] PROGRAM

{P} in arguments, input and expected output is replaced by a key of this run.
"""

import sys
import uuid

from harness import check, finish, own_folder, read, run

P = "HKEY_CURRENT_USER\\Software\\Quorvel tests\\" + uuid.uuid4().hex
HEADER = "Windows Registry Editor Version 5.00\r\n"
LONG = bytes(range(60))

EXPORT = HEADER + (
    '\r\n[{P}]\r\n@="the default"\r\n"b"=hex:01,ff\r\n"d"=dword:fffffffe\r\n"empty"=hex:\r\n'
    '"q"=hex(b):f0,de,bc,9a,78,56,34,12\r\n"quoted \\"\\\\\\""="a \\"\\\\\\""\r\n"text"="größe €"\r\n'
    "\r\n[{P}\\a]\r\n\r\n[{P}\\a\\b]\r\n"
    '"lines"=hex(1):61,00,0a,00,62,00,00,00\r\n'
    '"long"=hex:' + "".join(f"{byte:02x}," for byte in LONG[:22]) + "\\\r\n  "
    + "".join(f"{byte:02x}," for byte in LONG[22:47]) + "\\\r\n  "
    + ",".join(f"{byte:02x}" for byte in LONG[47:]) + "\r\n"
)
# The same, as other programs may write it.
LOOSE = (
    "\r\n" + HEADER.replace("\r\n", "\n") + "; a comment\n\n [{P}] \n @ = \"the default\" \n\"b\"=hex:1,FF\n"
    '"d"=dword:FFFFFFFE\r"empty"=hex:\r"q"=hex(B):f0,de,bc,9a,\\\n  78 , 56,34,12\n"gone"=-\n'
    '"quoted \\"\\\\\\""="a \\"\\\\\\""\n"text"="größe €"\n[{P}\\A\\B]\n"lines"=hex(1):61,00,0a,00,62,00,00,00\n'
    '"long"=hex:' + ",\\\n".join(f"{byte:02x}" for byte in LONG) + "\n[-{P}\\none]"
)
FAULTS = [
    ("", 1, "the header is missing"),
    ("{H}\n\"a\"=\"b\"", 3, "a value that belongs to no key"),
    ("{H}[{P}]\n\"a\"=\"b", 3, "a text has no end"),
    ("{H}[{P}]\n\"a\"=hex:1,x", 3, "bytes are two hexadecimal digits with commas between them"),
    ("{H}[{P}]\n\"a\"=hex:1,\\", 3, "the text ends in the middle of a value"),
]
READING = "An error has occurred while reading data from the registry."
WRITING = "An error has occurred while writing data to the registry."

# Arguments, exit code, standard output, a part of the one line on standard error, stdin.
ROWS = [
    (["get", "{P}", "text"], 1, "", READING),
    (["set", "{P}", "text", "größe €"], 0, "", None),
    (["set", "{P}", "quoted \"\\\"", "a \"\\\""], 0, "", None),
    (["set", "{P}", "", "the default"], 0, "", None),
    (["set", "{P}", "d", "--type", "dword", "0xfffffffe"], 0, "", None),
    (["set", "{P}", "--type", "qword", "q", "1311768467463790320"], 0, "", None),
    (["set", "{P}", "b", "01fF", "--type", "binary"], 0, "", None),
    (["set", "{P}", "empty", "", "--type", "binary"], 0, "", None),
    (["set", "{P}\\a\\b", "lines", "a\nb"], 0, "", None),
    (["set", "{P}\\a\\b\\", "long", LONG.hex(), "--type", "binary"], 0, "", None),
    (["set", "{P}", "x", "4294967296", "--type", "dword"], 2, "", "not a number of that size: 4294967296"),
    (["get", "{P}", "TEXT"], 0, "größe €\n", None),
    (["list", "{P}"], 0, "a\\\n(default) = the default\nb = hex:01,ff\nd = 4294967294\nempty = hex:\n"
     "q = 1311768467463790320\nquoted \"\\\" = a \"\\\"\ntext = größe €\n", None),
    (["export", "{P}"], 0, EXPORT, None),
    (["export", "{P}", "settings.reg"], 0, "", None),
    (["remove", "{P}"], 0, "", None),
    (["import", "{P}", "settings.reg"], 0, "", None),
    (["export", "{P}"], 0, EXPORT, None),
    (["remove", "{P}"], 0, "", None),
    (["set", "{P}", "gone", "x"], 0, "", None),
    (["import", "{P}", "-"], 0, "", None, LOOSE),
    (["export", "{P}"], 0, EXPORT.replace("\\a]", "\\A]").replace("\\a\\b]", "\\A\\B]"), None),
    (["import", "{P}"], 2, "", "HKEY_USERS\\x is not below {P}", HEADER + "[-{P}]\r\n[HKEY_USERS\\x]\r\n"),
    (["remove", "{P}\\a\\b", "lines"], 0, "", None),
    (["list", "{P}\\a\\b"], 0, "long = hex:" + LONG.hex(",") + "\n", None),
    (["import", "{P}"], 0, "", None, HEADER + "[-{P}\\A]\r\n[{P}\\c]\r\n"),
    (["list", "{P}\\A"], 1, "", READING),
    (["import", "HKCU"], 2, "", "HKEY_CURRENT_USER cannot be removed as a whole", HEADER + "[-{P}]\r\n[-HKEY_CURRENT_USER]"),
    (["import", "{P}"], 0, "", None, "\ufeff" + HEADER + '[{P}\\c]\r\n"half a pair"="\ud800"'),
    (["export", "{P}"], 2, "", "{P}: half a surrogate pair in it"),
    (["set", "{P}\\c", "a\nb", "c"], 0, "", None),
    (["export", "{P}"], 2, "", "{P}\\c: a name in it has more than one line"),
] + [
    (["import", "{P}"], 2, "", f"standard input:{line}: {reason}", text.replace("{H}", HEADER))
    for text, line, reason in FAULTS
] + [(["remove", "{P}"], 0, "", None)]


def main(program):
    with own_folder():
        for arguments, code, out, error, *rest in ROWS:
            arguments = [each.replace("{P}", P) for each in arguments]
            stdin = rest[0].replace("{P}", P) if rest else ""
            stdin = stdin.encode("utf-16-le" if stdin.startswith("\ufeff") else "utf-8", "surrogatepass")
            run(program, arguments, code, out.replace("{P}", P).encode(), error and error.replace("{P}", P), input=stdin)
        in_file = b"\xff\xfe" + EXPORT.replace("{P}", P).encode("utf-16-le")
        check(read("settings.reg") == in_file, "settings.reg is not what is printed in UTF-16")
    finish()


main(sys.argv[1:])
