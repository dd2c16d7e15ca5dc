"""Tests of the checks in tools/: each rule is broken once and followed once."""

import contextlib
import io
import json
import os
import struct
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "..", "tools"))
import bench_page  # noqa: E402
import bench_ratios  # noqa: E402
import build_progress  # noqa: E402
import check_exports  # noqa: E402
import check_layers  # noqa: E402
import check_pictures  # noqa: E402
import doxygen_filter  # noqa: E402

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
    ("src/net/a.cpp", '#include "util/text/t.h"', None),
    ("src/net/a.cpp", "#include <quorvel/net/n.h>\n#include <vector>", None),
    ("src/util/text/a.cpp", "#include <quorvel/net/n.h>", "text may not use net"),
    ("src/util/text/win/a.cpp", '#include "../../../net/win/w.h"', "text may not use net"),
    ("src/net/a.cpp", "#include <quorvel/net/controls/c.h>", "net may not use controls"),
    ("src/net/controls/a.cpp", "#include <quorvel/net/n.h>", None),
    ("src/net/a.cpp", '  # include "win/w.h"', "a portable file includes"),
    ("src/net/win/a.cpp", '#include "w.h"', None),
    ("src/net/win/a.cpp", '#include "net/win/w.h"', None),  # and no header of the system's net/
    ("include/quorvel/net/a.h", '#include "util/text/t.h"', "which is not installed"),
    ("include/quorvel/net/t.h", "", "src/util/text/t.h has the same name"),
    ("src/net/t.cpp", "", None),
    ("src/other/a.cpp", "", "belongs to no component"),
    ("src/net/a.cpp", "#include <quorvel/gone/x.h>", "belongs to no component"),
    ("src/net/a.cpp", "#include <sys/socket.h>", "belongs to the platform"),
    ("src/framework/a.cpp", "#include <windows.h>", "belongs to the platform"),
    ("src/platform/a.cpp", "#include <unistd.h>\n#ifdef __linux__\nint e = errno;", None),
    ("src/platform/linux/a.cpp", '#include "platform/win32.h"', "is for the layer's callers"),
    ("src/net/a.cpp", '#include "platform/win32.h"', None),
    ("src/net/a.cpp", "#if defined(_WIN32)", "distinguished by files"),
    ("src/framework/a.cpp", "#if defined(_WIN32)", None),
    ("src/net/a.cpp", "int e = errno;", "errno belongs"),
    ("src/net/a.cpp", '// errno\n/* #include <windows.h>\nerrno */ auto t = "// errno";', None),
]

# the files of net, which uses text, and the component that it does not need
USES = [
    ({"src/net/a.cpp": '#include "util/text/t.h"'}, []),
    ({"include/quorvel/net/n.h": '#include "util/text/t.h"'}, []),
    ({"src/net/a.cpp": '// #include "util/text/t.h"'}, ["src/net: no file needs text"]),
    ({"src/net/a.cpp": "#include <quorvel/platform/p.h>"}, ["src/net: no file needs text"]),
    ({"src/net/controls/c.cpp": '#include "util/text/t.h"'}, ["src/net: no file needs text"]),
]

# the colour type of a PNG, the chunks after its header, the problem
PICTURES = [
    (2, [b"IDAT"], None),
    (3, [b"PLTE", b"IDAT", b"tRNS"], None),  # a chunk after the pixels has no meaning
    (3, [b"PLTE", b"tRNS", b"IDAT"], "has transparent colours"),
    (2, [b"tRNS", b"IDAT"], "has transparent colours"),
    (4, [b"IDAT"], "has an alpha channel"),
    (6, [b"IDAT"], "has an alpha channel"),
    (2, [], "has no pixels"),
]

# the second, a line of the build, the text in a log
STEPS = [
    (0, "-- Configuring done\n", None),
    (0, "[1/200] Building CXX object a.o\n", None),
    (1, "[20/200] Building CXX object b.o\n", "  20 of 200 steps, 0:01 min"),
    (2, "[21/200] Building CXX object c.o\n", None),
    (40, "[22/200] Building CXX object d.o\n", "  22 of 200 steps, 0:40 min"),
    (41, "[23/200] Building CXX object e.o\n", None),
    (95, "[200/200] Linking\n", "  200 of 200 steps, 1:35 min"),
]

# a header, and what Doxygen reads; the first comment is for the header and not in these
HEADERS_FOR_DOXYGEN = [
    ("// Both.\nint F();\nint G();\n\nint H();", "/**@{*/ /** Both. */\nint F();\nint G(); /**@}*/\n\nint H();"),
    ("// One in\n// two lines.\nint F(int a,\n      int b);", "/** One in\n two lines. */\nint F(int a,\n      int b);"),
    ("int F(); // a <b>", "int F(); /**< a \\<b\\> */"),
    ('auto t = "// text";', 'auto t = "// text";'),
    ("struct S { // ours\n};", "/** ours */ struct S {\n};"),
    ("// A remark.\n\nint F();", "\n\nint F();"),
    ("    // Fills it.\n    A(int);\n    A(const A& o);", "    /** Fills it. */\n    A(int);\n    A(const A& o);"),
]

# mangled, as listed; None for what is dropped
NAMES = [
    ("_ZN1A1fEPKDs", "A::f(wchar_t const*)"),
    ("_ZN1A1fEPKw", "A::f(wchar_t const*)"),
    ("_ZN1A1gElmxy", "A::g(int, unsigned int, int, unsigned int)"),
    ("_ZN1A1hEed", "A::h(long double, double)"),
    ("_ZN1A1iB5cxx11Ev", "A::i()"),
    ("_ZN1A1vEP13__va_list_tag", "A::v(char*)"),
    ("_ZN5Story4tellEv", "Story::tell()"),
    ("_ZTV1A", None),
    ("_ZTI1A", None),
    ("_ZThn8_N1A1fEv", None),
    ("_ZTS9CFraction", None),
    ("_ZTISt6vectorIiSaIiEE", "typeinfo for std::vector<int, std::allocator<int> >"),
    ("_ZTVN5boost9exceptionE", "vtable for boost::exception"),
    ("_ZNKSt6thread8joinableEv", "std::thread::joinable() const"),
    ("_ZN5boost3refEv", "boost::ref()"),
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
                if expected is None:
                    self.assertEqual(checker.problems, [])
                else:
                    self.assertEqual(len(checker.problems), 1, checker.problems)
                    self.assertIn(expected, checker.problems[0])


    def test_permissions_that_nobody_uses(self):
        for files, expected in USES:
            with self.subTest(files=files), tempfile.TemporaryDirectory() as root:
                checker = checker_of(root, files)
                checker.check_tree()
                checker.check_uses()
                found = [each for each in checker.problems if each.startswith("src/net: ")]
                self.assertEqual(found, expected)


class Pictures(unittest.TestCase):
    def test_transparency(self):
        def chunk(kind, content=b"data"):
            return struct.pack(">I", len(content)) + kind + content + b"\0" * 4

        for colour_type, kinds, expected in PICTURES:
            with self.subTest(colour_type=colour_type, kinds=kinds):
                header = struct.pack(">IIBBBBB", 1, 1, 8, colour_type, 0, 0, 0)
                picture = check_pictures.SIGNATURE + chunk(b"IHDR", header)
                picture += b"".join(chunk(kind) for kind in kinds)
                self.assertEqual(check_pictures.fault(picture), expected)
        self.assertEqual(check_pictures.fault(b"GIF89a"), "is no PNG")

    def test_page(self):
        page = "![A](gallery/a.png) text\n![B](other/b.png)\n![C](gallery/c.png)"
        self.assertEqual(
            check_pictures.differences(["a.png", "b.png"], page, "gallery"),
            ["is not on the page: b.png", "does not exist: c.png"],
        )


class DoxygenFilter(unittest.TestCase):
    def test_comments(self):
        for header, expected in HEADERS_FOR_DOXYGEN:
            with self.subTest(header=header):
                result = doxygen_filter.filtered("// First.\n#pragma once\n\n" + header, "h.h")
                self.assertEqual(result, "/** @file h.h\n     First. */\n\n" + expected)


# name, times of three repetitions, their unit
BENCHMARKS = [
    ("Md5/Quorvel/64", (10, 10, 20), "ns"),
    ("Md5/EVP_Digest/64", (0.02, 0.03, 0.02), "us"),
    ("ToUtf8/Own/ASCII", (2, 2, 2), "us"),
    ("ToUtf8/ICU/ASCII", (30, 29, 31), "us"),
    ("XmlSave/Own", (3, 3, 3), "ms"),
    ("XmlSave/pugixml", (), "ms"),  # refused
    ("PostStatus", (159, 160, 161), "ns"),
]


class BenchRatios(unittest.TestCase):
    def test_page_has_medians_and_the_spread_of_what_moves(self):
        rows = []
        for i, (name, times, unit) in enumerate(BENCHMARKS):
            common = {"run_name": name, "family_index": i, "per_family_instance_index": 0,
                      "run_type": "iteration", "time_unit": unit}
            rows += [{**common, "repetition_index": j, "cpu_time": time}
                     for j, time in enumerate(times)]
            if not times:
                rows.append({**common, "repetition_index": 0, "error_occurred": True})
        context = {"date": "2024-03-12T08:30:00", "num_cpus": 2, "load_avg": [0.5]}
        with tempfile.TemporaryDirectory() as folder:
            paths = [os.path.join(folder, name) for name in ("results", "windows", "page")]
            with open(paths[0], "w", encoding="utf-8") as file:
                json.dump({"context": context, "benchmarks": rows}, file)
            with open(paths[1], "w", encoding="utf-8") as file:
                file.write("painting a page      2.000 ms, bare     1.000 ms, ratio 2.00\n")
            results = bench_ratios.Results(paths[:1])
            with contextlib.redirect_stdout(io.StringIO()) as output:
                bench_ratios.print_ratios(results, "Md5", "EVP_Digest",
                                          *results.families["Md5"].values())
            bench_page.write_page(paths[2], results, paths[1])
            with open(paths[2], encoding="utf-8") as file:
                page = file.read()
        self.assertRegex(output.getvalue(), r"Md5 +64 +EVP_Digest +2.00  \(1.00 to 3.00\)\n")
        for line in ("| MD5 | `EVP_Digest` | 2.0 (1.00 to 3.0) | - | - |",
                     "| UTF-16 to UTF-8 | 15 | - | - | - | - |",
                     "| save 10 MB | pugixml | - |",
                     "| post and take a status | - | 160 ns |",
                     "| painting a page | 2 ms | 0.50 |"):
            self.assertIn(line + "\n", page)


class BuildProgress(unittest.TestCase):
    def test_lines_of_a_log(self):
        now = 0
        progress = build_progress.Progress(is_terminal=False, clock=lambda: now)
        for now, line, expected in STEPS:
            self.assertEqual(progress.text(line), expected, line)

    def test_a_failure_begins_with_the_step_that_failed(self):
        lines = ["[1/3] a\n", "FAILED: b.o\n", "b.cpp:1: error\n", "[3/3] c\n"]
        self.assertEqual(build_progress.failure(lines), lines[1:])
        self.assertEqual(build_progress.failure(lines[:1]), lines[:1])


class Exports(unittest.TestCase):
    def test_names(self):
        for mangled, expected in NAMES:
            with self.subTest(name=mangled):
                self.assertEqual(bool(check_exports.NOISE.match(mangled)), expected is None)
                if expected:
                    demangled = check_exports.output_of("c++filt", text=mangled).strip()
                    self.assertEqual(check_exports.spell(demangled), expected)

    def test_list_lines_for_one_system(self):
        lines = ["# comment", "", "both()", "linux: a()", "windows: b()"]
        self.assertEqual(check_exports.listed_names(lines, "linux"), {"both()", "a()"})
        self.assertEqual(check_exports.listed_names(lines, "windows"), {"both()", "b()"})


if __name__ == "__main__":
    unittest.main()
