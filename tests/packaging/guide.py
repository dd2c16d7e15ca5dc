#!/usr/bin/env python3
"""Builds the programs that the pages show, with an installed library, and runs them.

    guide.py --tree DIR --work DIR [--windows] [--cmake ARGUMENT]... PAGE... [-- RUNNER...]

A program is a block of C++ with a main function. What it prints is the next block of plain text; a block
of resources or a line that calls it, "./name LANGUAGES", may come between. A program that includes a
header of Windows is built for that system alone, and run while another program presses OK.
"""

import argparse
import os
import pathlib
import re
import shutil
import subprocess
import sys

HELPERS = pathlib.Path(__file__).resolve().parent / "guide"
BLOCK = re.compile(r"^```([\w+]+)\n(.*?)^```$", re.MULTILINE | re.DOTALL)


def programs(page):
    """[{name, cpp, rc, sh, text}] of a page, whose blocks of other kinds are left out."""
    found = []
    for kind, text in BLOCK.findall(page.read_text(encoding="utf-8")):
        if kind == "cpp" and re.search(r"^int main\(", text, re.MULTILINE):
            name = "first" if page.stem == "README" else page.stem
            found.append({"name": name + ("" if not found else str(len(found))), "cpp": text})
        elif found and kind in ("rc", "sh", "text") and "text" not in found[-1]:
            found[-1][kind] = text
    return found


def project(all_programs):
    lines = ["cmake_minimum_required(VERSION 3.25)\nproject(guide LANGUAGES CXX)\nif(WIN32)\n  enable_language(RC)",
             "  add_executable(press press.cpp)\nendif()\nfind_package(quorvel 1 REQUIRED)"]
    for each in all_programs:
        sources = each["name"] + ".cpp" + (f" {each['name']}.rc" if "rc" in each else "")
        lines.append(f"add_executable({each['name']} {sources})\n"
                     f"target_link_libraries({each['name']} PRIVATE quorvel::quorvel)")
    return "\n".join(lines) + "\n"


def run(command, **keywords):
    result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, **keywords)
    if result.returncode != 0:
        sys.exit(f"failed ({result.returncode}): {command}\n{result.stdout.decode(errors='replace')}")


def output_of(program, build, languages, arguments):
    """Runs a program in an empty folder of its own."""
    folder = build / "run" / program["name"]
    folder.mkdir(parents=True)
    command = [*arguments.runner, build / (program["name"] + (".exe" if arguments.windows else ""))]
    if "LANGUAGES" in program.get("sh", ""):
        command.append(languages)
    # Links and messages go to programs that do nothing.
    environment = {**os.environ, "PATH": f"{HELPERS / 'bin'}:{os.environ['PATH']}",
                   "QUORVEL_REGISTRY": str(folder / "registry.db"), "LC_ALL": "C.UTF-8", "TZ": "Europe/Berlin",
                   "WINERUN_LOCALE": "C.UTF-8", "WINERUN_TZ": "Europe/Berlin"}
    with subprocess.Popen(command, cwd=folder, env=environment, stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE) as running:
        if "rc" in program:
            caption = re.search(r'^CAPTION "(.*)"$', program["rc"], re.MULTILINE)[1]
            run([*arguments.runner, build / "press.exe", caption], env=environment)
        output, _ = running.communicate(timeout=60)
    if running.returncode != 0:
        return f"(exit code {running.returncode})\n"
    return output.decode(errors="replace").replace("\r\n", "\n")


def main():
    parser = argparse.ArgumentParser()
    for folder in ("--tree", "--work"):
        parser.add_argument(folder, type=pathlib.Path, required=True)
    parser.add_argument("--windows", action="store_true")
    parser.add_argument("--cmake", action="append", default=[])
    parser.add_argument("pages", type=pathlib.Path, nargs="+")
    split = sys.argv.index("--") if "--" in sys.argv else len(sys.argv)
    arguments = parser.parse_args(sys.argv[1:split])
    arguments.runner = sys.argv[split + 1:]

    shutil.rmtree(arguments.work, ignore_errors=True)
    arguments.work.mkdir(parents=True)
    build = arguments.work / "build"
    wanted = []
    for page in arguments.pages:
        found = programs(page)
        if not found and (page.stem != "README" or page.parent.name != "guide"):
            sys.exit(f"{page}: no program")
        wanted += [each for each in found if arguments.windows or "/win/" not in each["cpp"]]
    for each in wanted:
        for kind in {"cpp", "rc"} & each.keys():
            (arguments.work / f"{each['name']}.{kind}").write_text(each[kind], encoding="utf-8")
    shutil.copy(HELPERS / "press.cpp", arguments.work)
    (arguments.work / "CMakeLists.txt").write_text(project(wanted), encoding="utf-8")
    package = next(arguments.tree.rglob("quorvelConfig.cmake")).parent
    run(["cmake", "-S", arguments.work, "-B", build, "-G", "Ninja", f"-Dquorvel_DIR={package}",
         "-DCMAKE_CXX_FLAGS_INIT=-Wall -Wextra", "-DCMAKE_COMPILE_WARNING_AS_ERROR=ON", *arguments.cmake])
    run(["cmake", "--build", build])
    if arguments.windows:
        for dll in (arguments.tree / "bin").glob("*.dll"):
            shutil.copy(dll, build)

    german = next(arguments.tree.rglob("Quorvel_DEU.dll"))
    languages = ("Z:" if arguments.windows else "") + str(german.parent)
    wrong = 0
    for each in wanted:
        if (output := output_of(each, build, languages, arguments)) != each.get("text"):
            wrong += 1
            print(f"== {each['name']} prints\n{output}== and the page says\n{each.get('text')}")
    print(f"guide: {len(wanted) - wrong} of {len(wanted)} programs print what their pages say")
    return 1 if wrong or not wanted else 0


if __name__ == "__main__":
    sys.exit(main())
