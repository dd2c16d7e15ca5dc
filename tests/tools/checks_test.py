"""Tests of the checks in tools/: each rule is broken once and followed once."""

import os
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "..", "tools"))
import check_layers  # noqa: E402

COMPONENTS = """component platform platform uses
component framework framework uses platform
component text util/text uses framework
component net net uses text
component controls net/controls uses net
"""
HEADERS = [
    "include/quorvel/platform/p.h",
    "src/platform/win32.h",
    "include/quorvel/net/n.h",
    "include/quorvel/net/controls/c.h",
    "src/net/win/w.h",
    "src/util/text/t.h",
]

# file, its text, a part of the expected message or None
LAYERS = [
    ("src/net/a.cpp", "#include <quorvel/platform/p.h>", None),  # through text and framework
    ("src/util/text/a.cpp", "#include <quorvel/net/n.h>", "text may not use net"),
    ("src/util/text/win/a.cpp", '#include "../../../net/win/w.h"', "text may not use net"),
    ("src/net/a.cpp", "#include <quorvel/net/controls/c.h>", "net may not use controls"),
    ("src/net/a.cpp", '  # include "win/w.h"', "a portable file includes"),
    ("src/net/win/a.cpp", '#include "net/win/w.h"', None),  # and no header of the system's net/
    ("include/quorvel/net/a.h", '#include "util/text/t.h"', "which is not installed"),
    ("include/quorvel/net/t.h", "", "src/util/text/t.h has the same name"),
    ("src/net/a.cpp", "#include <quorvel/missing/x.h>", "belongs to no component"),
    ("src/net/a.cpp", "#include <sys/socket.h>", "belongs to the platform"),
    ("src/platform/linux/a.cpp", '#include "platform/win32.h"', "is for the layer's callers"),
    ("src/net/a.cpp", "#if defined(_WIN32)", "distinguished by files"),
    ("src/net/a.cpp", "int e = errno;", "errno belongs"),
    ("src/net/a.cpp", '// errno\n/* #include <windows.h>\nerrno */ auto t = "// errno";', None),
]

# the files of net, which uses text, and the component that it does not need
USES = [
    ({"src/net/a.cpp": '#include "util/text/t.h"'}, []),
    ({"src/net/controls/c.cpp": '#include "util/text/t.h"'}, ["src/net: no file needs text"]),
]


def checker_of(root, files):
    for name in [*HEADERS, *files, "components.txt"]:
        os.makedirs(os.path.dirname(os.path.join(root, name)), exist_ok=True)
        with open(os.path.join(root, name), "w", encoding="utf-8") as file:
            file.write(COMPONENTS if name == "components.txt" else files.get(name, ""))
    list_path = os.path.join(root, "components.txt")
    return check_layers.Checker(check_layers.read_components(list_path), root)


class Layers(unittest.TestCase):
    def test_rules(self):
        for path, text, expected in LAYERS:
            with self.subTest(path=path, text=text), tempfile.TemporaryDirectory() as root:
                checker = checker_of(root, {path: text})
                self.assertEqual(checker.check_tree(), len(HEADERS) + 1)
                self.assertEqual(len(checker.problems), 0 if expected is None else 1, checker.problems)
                self.assertIn(expected or "", "".join(checker.problems))

    def test_permissions_that_nobody_uses(self):
        for files, expected in USES:
            with self.subTest(files=files), tempfile.TemporaryDirectory() as root:
                checker = checker_of(root, files)
                checker.check_tree()
                checker.check_uses()
                found = [each for each in checker.problems if each.startswith("src/net: ")]
                self.assertEqual(found, expected)


if __name__ == "__main__":
    unittest.main()
