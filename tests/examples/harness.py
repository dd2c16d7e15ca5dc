"""Shared by the tests of the examples: the list of problems, and command lines with their results."""

import contextlib
import os
import subprocess
import sys
import tempfile

problems = []


def check(holds, problem):
    if not holds:
        problems.append(problem)


@contextlib.contextmanager
def own_folder():
    """A temporary folder, which is the current one meanwhile."""
    with tempfile.TemporaryDirectory(prefix="quorvel-") as folder:
        os.chdir(folder)
        try:
            yield folder
        finally:
            os.chdir("/")


def read(name):
    with open(name, "rb") as file:
        return file.read()


def write_all(files):
    for name, content in files.items():
        with open(name, "wb") as file:
            file.write(content)


def run(program, arguments, code=0, out=b"", error=None, **options):
    """`out` is the expected standard output; the one line on standard error must contain `error`."""
    ran = subprocess.run(program + arguments, capture_output=True, **options)
    errors = ran.stderr.decode(errors="replace").replace("\r\n", "\n")
    begin = os.path.basename(program[-1]).removesuffix(".exe") + ": "
    is_reported = errors.startswith(begin) and error in errors and errors.count("\n") == 1 if error else not errors
    check(ran.returncode == code and ran.stdout == out and is_reported,
          f"{' '.join(arguments)}: exit code {ran.returncode}, not {code}; printed {ran.stdout!r}, not {out!r}; "
          f"reported {errors!r}, not {error!r}")


def finish():
    print("\n".join(problems) or "no problems")
    sys.exit(1 if problems else 0)
