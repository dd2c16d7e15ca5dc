#!/usr/bin/env python3
"""Runs xmltool with tables of command lines.

    xmltool_test.py [LAUNCHER...] PROGRAM

Each row runs in a new folder that contains the files of the table.
"""

import os
import sys
from collections import namedtuple

from harness import check, finish, own_folder, read, run, write_all

# stdin: bytes; out: the expected standard output; error: a part of the one line on standard error;
# files: the expected content of a file afterwards.
Row = namedtuple("Row", "arguments stdin code out error files", defaults=(b"", 0, b"", None, {}))

LISTING = """<?xml version="1.0" encoding="utf-8"?>
<rss version="2.0">
  <channel>
    <title>News &amp; more</title>
    <item id="a" x=""><title>Première</title></item>
    <item id="b"><title>Second
      one, %s</title></item>
    <empty  a = 'b'/>
  </channel>
</rss>
""" % ("x" * 70)
UTF8 = '<?xml version="1.0" encoding="utf-8"?>'
PLAIN = b"<a>1</a>"


def utf16(text, codec="utf-16-le"):
    return ('\ufeff<?xml version="1.0" encoding="utf-16"?>' + text).encode(codec)


BAD = "<?xml version='1.0'?>\n<a>\n\té\U0001f600<b></c>\n</a>".encode()
FILES = {"listing.xml": LISTING.encode(), "plain.xml": PLAIN, "wide.xml": utf16("<a>é</a>"), "bad.xml": BAD}
OUTLINE = """rss version="2.0"
  channel
    title: News & more
    item id="a" x=""
      title: Première
    item id="b"
      title: Second one, %s…
    empty a = 'b'
""" % ("x" * 47)

ROWS = [
    Row(["check"], LISTING.encode()),
    Row(["check", "bad.xml"], b"", 1, "bad.xml:3:9: mismatched tag\n   é\U0001f600<b></c>\n          ^\n".encode()),
    Row(["print", "listing.xml"], out=OUTLINE.encode()),
    Row(["get", "/rss/channel/item[1]/title", "listing.xml"], out="Première\n".encode()),
    Row(["get", "/rss/channel/empty", "@a", "listing.xml"], out=b"b\n"),
    Row(["get", "/rss/channel/item[3]", "listing.xml"], code=1, error="not found: /rss/channel/item[3]"),
    Row(["get", "/a"], b"<?xml version='1.0' encoding = 'latin1'?><a>\xe9</a>", 2, b"", "without blanks"),
    Row(["print"], b"<!--'>--><a b='1>2>' c=\"'>\">don't<d e='>'/><![CDATA[']]></a>", 0,
        b"a b='1&gt;2&gt;' c=\"'&gt;\"\n  d e='&gt;'\n"),
    Row(["convert", "plain.xml"], code=2, error="--encoding is utf-8, utf-16 or utf-16be"),
    *(Row(["get", path, "plain.xml"], code=2, error="not a path as in /rss/channel/item[2]: " + path)
      for path in "a,//a,/a/,/a[0],/a[1,/a[1]b,/a[1]],/a[99999999999]".split(",")),
    Row(["set", "/a", "@b", "1\"<é", "plain.xml"], files={"plain.xml": (UTF8 + '<a b="1&quot;&lt;é">1</a>').encode()}),
    Row(["set", "/a/b", "@c", "d", "plain.xml"], code=1, error="not found: /a/b", files={"plain.xml": PLAIN}),
    Row(["set", "/a", "@b c", "1", "plain.xml"], code=2, error="would not be well-formed", files={"plain.xml": PLAIN}),
    Row(["add", "/a", "b", "ü&"], b"<a/>", 0, (UTF8 + "<a>\r\n<b>ü&amp;</b>\r\n</a>").encode()),
    # The encoding and the declaration stay.
    Row(["set", "/a", "@b", "1", "wide.xml"], files={"wide.xml": utf16('<a b="1">é</a>')}),
    Row(["convert", "--encoding", "utf-16be", "wide.xml"], files={"wide.xml": utf16("<a>é</a>", "utf-16-be")}),
]


def main(program):
    for row in ROWS:
        with own_folder():
            write_all(FILES)
            run(program, row.arguments, row.code, row.out, row.error, input=row.stdin)
            for name, content in row.files.items():
                check(read(name) == content, f"{row.arguments}: {name} is {read(name)!r}, not {content!r}")
            check(set(os.listdir()) == set(FILES) | set(row.files), f"{row.arguments}: there are {os.listdir()}")
    finish()


main(sys.argv[1:])
