#!/usr/bin/env python3
"""Compares the exported names of a library with the written list.

    check_exports.py LIST LIBRARY             prints missing and additional names, and exits with 1
    check_exports.py --write LIST LIBRARY...  writes the list from a Linux and a Windows library

One list serves both builds: a line that begins with "linux: " or "windows: " is only for that build.
The list deliberately does not distinguish the two kinds of wide character, nor integers of different
width, since a handle-sized or 64-bit value is spelled differently in each build.
"""

import os
import re
import subprocess
import sys

# Names that the compiler adds for a class: vtables, type information, thunks, guards. Those of foreign
# classes are kept, so that they and instances of foreign templates are reported as not listed.
NOISE = re.compile(
    r"_ZT[VTISC](?!N?K?(?:S|9__gnu_cxx|5boost)|P?F)|_ZT[vhc]|_ZG[VR](?!Z?N?K?(?:S|9__gnu_cxx|5boost))"
    r"|_(?:init|fini|edata|end|_bss_start)$"
)
VERSION = re.compile(r"QUORVEL_\d+")
SPELLINGS = [
    (re.compile(r"\[abi:\w+\]"), ""),
    (re.compile(r"\bchar16_t\b"), "wchar_t"),
    (re.compile(r"__va_list_tag\*"), "char*"),
    (re.compile(r"\blong(?: long)?\b(?! double)"), "int"),
]


def spell(name):
    """A demangled name in a spelling that both builds share."""
    for pattern, replacement in SPELLINGS:
        name = pattern.sub(replacement, name)
    return name


def listed_names(lines, system):
    """The names of a list that are for this system."""
    names = set()
    for line in lines:
        line = line.strip()
        if not line or line.startswith("#"):
            continue
        prefix = re.match(r"(linux|windows): (.*)", line)
        if not prefix:
            names.add(line)
        elif prefix[1] == system:
            names.add(prefix[2])
    return names


def output_of(*command, text=None):
    return subprocess.run(command, input=text, capture_output=True, text=True, check=True).stdout


def mangled_names(library, system):
    if system == "linux":
        for line in output_of("nm", "-D", "--defined-only", library).splitlines():
            *_, kind, name = line.split()
            name, _, version = name.partition("@@")
            if kind != "A":  # the version itself
                yield name if VERSION.fullmatch(version) and kind != "u" else f"{name} ({kind}, '{version}')"
        return
    table = output_of("objdump", "-p", library).partition("[Ordinal/Name Pointer] Table")[2]
    for line in re.findall(r"^\s*\[ *\d+\] (?:\+base\[ *\d+\]\s+[0-9a-f]+ )?(\S+)$", table, re.MULTILINE):
        yield re.sub(r"@\d+$", "", line)  # the argument bytes of stdcall


def exported_names(library):
    """(system, names): the system is the library's own."""
    with open(library, "rb") as file:
        system = "linux" if file.read(4) == b"\x7fELF" else "windows"
    names = [name for name in mangled_names(library, system) if not NOISE.match(name)]
    return system, {spell(name) for name in output_of("c++filt", text="\n".join(names)).splitlines()}


def compare(list_path, library):
    system, exported = exported_names(library)
    with open(list_path, encoding="utf-8") as file:
        listed = listed_names(file, system)
    for name in sorted(listed - exported):
        print(f"missing from {os.path.basename(library)}: {name}")
    for name in sorted(exported - listed):
        print(f"not in {os.path.basename(list_path)}: {name}")
    if listed != exported:
        print(f"to accept: check_exports.py --write {list_path} LINUX_LIBRARY WINDOWS_LIBRARY")
        return 1
    print(f"{os.path.basename(library)}: {len(exported)} names, as listed")
    return 0


def write(list_path, libraries):
    by_system = dict(exported_names(library) for library in libraries)
    if sorted(by_system) != ["linux", "windows"]:
        print("--write needs a Linux and a Windows library", file=sys.stderr)
        return 2
    linux, windows = by_system["linux"], by_system["windows"]
    with open(list_path, "w", encoding="utf-8") as file:
        for name in sorted(linux | windows):
            prefix = "linux: " if name not in windows else "windows: " if name not in linux else ""
            file.write(f"{prefix}{name}\n")
    return 0


def main(arguments):
    if len(arguments) == 4 and arguments[0] == "--write":
        return write(arguments[1], arguments[2:])
    if len(arguments) == 2:
        return compare(*arguments)
    print(__doc__, file=sys.stderr)
    return 2


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
