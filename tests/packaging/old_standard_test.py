#!/usr/bin/env python3
"""Each public header, compiled as C++17, must give one #error line that names C++20, and no other error.

    old_standard_test.py COMPILER INCLUDE-FOLDER HEADER...
"""

import subprocess
import sys

compiler, folder, *headers = sys.argv[1:]
wrong = []
for header in headers:
    result = subprocess.run(
        [compiler, "-std=c++17", "-fsyntax-only", "-x", "c++", "-I", folder, "-"],
        input=f"#include <{header}>\n", capture_output=True, text=True,
    )
    errors = [line for line in result.stderr.splitlines() if "error: " in line]
    # The second ends the compilation.
    if len(errors) != 2 or "C++20" not in errors[0] or "fatal error: " not in errors[1]:
        wrong.append(f"{header}: {len(errors)} errors\n" + "\n".join(errors[:3]))
print("\n".join(wrong))
sys.exit(1 if wrong or not headers else 0)
