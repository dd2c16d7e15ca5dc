#!/usr/bin/env python3
"""Checks that the pictures of the documentation are opaque and shown.

    check_pictures.py FOLDER

Windows leaves the alpha channel of drawn pixels at zero: with an alpha channel, a web page would show
a window without its text. Prints each PNG below FOLDER that can be transparent, and exits with 1. Where a
folder of pictures has a page beside it, as gallery has gallery.md, that shows each of them and no others.
"""

import os
import re
import struct
import sys

SIGNATURE = b"\x89PNG\r\n\x1a\n"


def fault(picture):
    """The problem of the bytes of a PNG file, or None."""
    if not picture.startswith(SIGNATURE):
        return "is no PNG"
    position = len(SIGNATURE)
    while position + 8 <= len(picture):
        size, kind = struct.unpack(">I4s", picture[position : position + 8])
        if kind == b"IHDR" and picture[position + 17] in (4, 6):  # the colour types with alpha
            return "has an alpha channel"
        if kind == b"tRNS":
            return "has transparent colours"
        if kind == b"IDAT":
            return None
        position += 12 + size  # with the checksum
    return "has no pixels"


def differences(names, text, folder):
    """What a page does not show of the pictures in the folder beside it, or shows without need."""
    shown = set(re.findall(r"\]\(%s/([^)]+\.png)\)" % re.escape(folder), text))
    return ["is not on the page: " + name for name in sorted(set(names) - shown)] + [
        "does not exist: " + name for name in sorted(shown - set(names))
    ]


def main(arguments):
    if len(arguments) != 1:
        print(__doc__, file=sys.stderr)
        return 2
    count = problems = 0
    for folder, _, names in sorted(os.walk(arguments[0])):
        pictures = sorted(each for each in names if each.endswith(".png"))
        if os.path.isfile(folder + ".md"):
            with open(folder + ".md", encoding="utf-8") as page:
                for difference in differences(pictures, page.read(), os.path.basename(folder)):
                    problems += 1
                    print(f"{folder}.md: {difference}", file=sys.stderr)
        for name in pictures:
            count += 1
            with open(os.path.join(folder, name), "rb") as file:
                found = fault(file.read())
            if found:
                problems += 1
                print(f"{os.path.join(folder, name)}: {found}", file=sys.stderr)
    if not problems:
        print(f"{count} pictures: no problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
