#!/usr/bin/env python3
"""Checks that every source file stays within its layer.

    check_layers.py COMPONENTS ROOT

COMPONENTS is the build's list of its components, one line each:
    component NAME FOLDER uses NAME...
A component is the files in src/FOLDER and include/quorvel/FOLDER; the longest matching folder counts.
The rules are in docs/architecture.md; each message below names the broken rule. Prints one
line for each problem (file:line: message, or the component's folder) and exits with 1, or one summary
line.
"""

import os
import re
import sys
from collections import namedtuple

Component = namedtuple("Component", "name folder uses")

SOURCES = (".h", ".cpp", ".inl")
INCLUDE = re.compile(r'^\s*#\s*include\s*(?P<open>[<"])(?P<path>[^>"]+)[>"]')
CONDITION = re.compile(r"^\s*#\s*(?:if|ifdef|ifndef|elif)\b")
SYSTEM_MACRO = re.compile(r"\b(?:_WIN32|_WIN64|WIN32|WIN64|__MINGW32__|__linux__|__linux|__unix__|__unix)\b")
ERRNO = re.compile(r"\berrno\b")
# A comment or a literal: the one that begins first hides the delimiters of the other.
COMMENT_OR_LITERAL = re.compile(
    r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])*\'', re.DOTALL
)

# Headers of the system that only the platform may see.
SYSTEM_HEADER = re.compile(
    r"(?:windows|winsock2?|ws2tcpip|sqlite3|c?errno)(?:\.h)?$|unicode/"
    r"|(?:sys|netinet|arpa|net|linux)/"
    r"|(?:unistd|fcntl|dlfcn|pthread|poll|netdb|dirent|pwd|grp|termios|spawn|semaphore|langinfo|iconv|"
    r"signal|link|ifaddrs|sched|glob|fnmatch|ftw|mqueue|syslog|utime|aio)\.h$"
)
# Where the systems may differ by preprocessor, and where their headers may be seen.
TWO_SYSTEMS = ("src/platform/", "include/quorvel/platform/", "src/framework/", "include/quorvel/framework/")
PLATFORM = ("src/platform/", "include/quorvel/platform/")
# Headers that include the whole Linux layer. Inside the layer they would make every file depend on
# all others.
LINUX_LAYER = "src/platform/linux/"
UMBRELLAS = ("src/platform/win32.h", "src/platform/linux/api.h")


def read_components(path):
    components = {}
    with open(path, encoding="utf-8") as file:
        for line in file:
            words = line.split()
            if len(words) < 4 or words[0] != "component" or words[3] != "uses":
                raise ValueError(f"{path}: not a component line: {line.strip()}")
            components[words[1]] = Component(words[1], words[2], words[4:])
    for component in components.values():
        for used in component.uses:
            if used not in components:
                raise ValueError(f"{path}: {component.name} uses {used}, which is no component")
    return components


def reachable(components, name):
    """The component itself and what it may use, directly or not."""
    seen, waiting = set(), [name]
    while waiting:
        name = waiting.pop()
        if name not in seen:
            seen.add(name)
            waiting.extend(components[name].uses)
    return seen


def without_comments(text, keep_literals):
    def blank(match):
        found = match[0]
        if keep_literals and found[0] in "\"'":
            return found
        return "\n" * found.count("\n") or " "

    return COMMENT_OR_LITERAL.sub(blank, text)


class Checker:
    def __init__(self, components, root):
        self.components, self.root = components, root
        self.allowed = {name: reachable(components, name) for name in components}
        self.included = {name: set() for name in components}
        self.headers = {}
        self.problems = []

    def component_of(self, path):
        """The component of a path below the root, or None."""
        folder = re.sub(r"^(?:src|include/quorvel)/", "", os.path.dirname(path) + "/")
        fitting = [c for c in self.components.values() if folder.startswith(c.folder + "/")]
        return max(fitting, key=lambda component: len(component.folder), default=None)

    def resolve(self, path, opened, include):
        """The included file as a path below the root; None if it is not one of our files."""
        if include.startswith("quorvel/"):
            return "include/" + include
        if opened == '"':
            for folder in (os.path.dirname(path), "src"):
                candidate = os.path.normpath(os.path.join(folder, include)).replace(os.sep, "/")
                if os.path.exists(os.path.join(self.root, candidate)):
                    return candidate
        return None

    def check_include(self, path, component, opened, include):
        target = self.resolve(path, opened, include)
        # Our own src/net has the same name as a folder of system headers.
        if target is None and SYSTEM_HEADER.match(include) and not path.startswith(PLATFORM):
            yield f"<{include}> belongs to the platform"
        if path.startswith("include/") and not (target or "include/").startswith("include/"):
            yield f"a public header includes {include}, which is not installed"
        if target is None:
            return
        if "/win/" in target and "/win/" not in path and not path.startswith(PLATFORM):
            yield f"a portable file includes {include}"
        if target in UMBRELLAS and path.startswith(LINUX_LAYER):
            yield f"{include} is for the layer's callers: include the header that is used"
        used = self.component_of(target)
        if used is None:
            yield f"{include} belongs to no component"
            return
        self.included[component.name].add(used.name)
        if used.name not in self.allowed[component.name]:
            yield f"{component.name} may not use {used.name} ({include})"

    def check_file(self, path):
        component = self.component_of(path)
        if component is None:
            self.problems.append(f"{path}:1: belongs to no component")
            return
        with open(os.path.join(self.root, path), encoding="utf-8") as file:
            text = file.read()
        lines = without_comments(text, keep_literals=True).split("\n")
        bare_lines = without_comments(text, keep_literals=False).split("\n")
        for number, (line, bare) in enumerate(zip(lines, bare_lines), 1):
            found = []
            include = INCLUDE.match(line)
            if include:
                found += self.check_include(path, component, include["open"], include["path"])
            elif CONDITION.match(line) and SYSTEM_MACRO.search(line) and not path.startswith(TWO_SYSTEMS):
                found.append("the operating system is distinguished by files here, not by #if")
            elif ERRNO.search(bare) and not path.startswith(PLATFORM):
                found.append("errno belongs to the platform")
            self.problems += [f"{path}:{number}: {message}" for message in found]

    def check_name(self, path):
        """An include is unambiguous when no two headers have the same name."""
        name = os.path.basename(path)
        former = self.headers.setdefault(name, path)
        if name.endswith(".h") and former != path:
            self.problems.append(f"{path}:1: {former} has the same name")

    def check_tree(self):
        count = 0
        for top in ("src", "include/quorvel"):
            for folder, _, names in sorted(os.walk(os.path.join(self.root, top))):
                for name in sorted(names):
                    if name.endswith(SOURCES):
                        path = os.path.relpath(os.path.join(folder, name), self.root)
                        self.check_file(path.replace(os.sep, "/"))
                        self.check_name(path.replace(os.sep, "/"))
                        count += 1
        return count

    def check_uses(self):
        """After check_tree: an unused permission would hide the next include that breaks a layer."""
        for component in self.components.values():
            for used in component.uses:
                if used not in self.included[component.name]:
                    self.problems.append(f"src/{component.folder}: no file needs {used}")


def main(arguments):
    if len(arguments) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    try:
        checker = Checker(read_components(arguments[0]), arguments[1])
    except ValueError as error:
        print(error, file=sys.stderr)
        return 1
    count = checker.check_tree()
    checker.check_uses()
    for problem in checker.problems:
        print(problem, file=sys.stderr)
    if not checker.problems:
        print(f"{count} files in {len(checker.components)} components: no problems")
    return 1 if checker.problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
