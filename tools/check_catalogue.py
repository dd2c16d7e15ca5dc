#!/usr/bin/env python3
"""Checks the message catalogue, the texts of the dialogs, and their translations.

    check_catalogue.py MESSAGES_DEF [LANGUAGE_DEF...]
    check_catalogue.py --dialogs DIALOGS_RC DIALOG_TEXTS_H [LANGUAGE_DIALOG_TEXTS_H...]

The catalogue is a list of QUORVEL_TEXT(id, name, "text") entries that two very different readers
include: the C++ compiler and the resource compiler. Both forgive mistakes that would only show up on
a user's screen, or crash the formatter there: an insert lost in translation, a missing mnemonic, a
literal split in two. This script refuses them at build time. The texts of the dialogs are
#define NAME "text" lines that the layouts use; the same rules apply to them. Prints one line for each
problem to stderr (file:line: message) and exits with 1, or prints one summary line and exits with 0.
"""

import re
import sys
from collections import namedtuple

MAX_UTF16_UNITS = 4096  # the longest text that fits every consumer of the string table

Entry = namedtuple("Entry", "line id name text")

# An entry is one line, or two lines with the break after the name.
ENTRY = re.compile(r'QUORVEL_TEXT\((?P<id>\d+), (?P<name>kText[A-Z][A-Za-z0-9]*), "(?P<text>.*)"\)')
ENTRY_START = re.compile(r"QUORVEL_TEXT\(\d+, \w+,")

# A text of a dialog.
DEFINITION = re.compile(r'#define (?P<name>DIALOG_TEXT_[A-Z0-9_]+) "(?P<text>.*)"')

# One piece of a literal: an escape that both readers support, or an ordinary character.
PIECE = re.compile(r'\\(?P<escape>[rnt\\])|(?P<plain>[^\\"\x00-\x1f])')
ESCAPES = {"r": "\r", "n": "\n", "t": "\t", "\\": "\\"}

# A text is used by the message formatter or by printf; the file does not say which. So the tokens of
# both are collected; the first alternative that matches is used. The last one is a "%" that neither
# supports.
TOKEN = re.compile(
    r"%%"
    r"|%[-+#0]*\d*(?:\.\d+)?(?:I64|I32|hh|h|ll|l|w|z)?[diuoxXeEfgGcCsSp]"  # printf
    r"|%[1-9]\d?(?:![^!]*!)?"  # message formatter: %1 to %99, perhaps with a !format!
    r"|%[0nrtb.!]"  # message formatter: end without a line break, line break, blank and the like
    r"|%"
)


def parse_literal(raw):
    """The text in a literal; raises ValueError with the problem."""
    text, position = [], 0
    while position < len(raw):
        piece = PIECE.match(raw, position)
        if not piece:
            if raw[position] == '"':
                # A resource script doubles it; C++ reads that as the end of one literal and the start
                # of the next, so the quote is lost.
                raise ValueError("a double quote means different things to the two readers")
            if raw[position] == "\\":
                raise ValueError(f"unknown escape {raw[position:position + 2]}")
            raise ValueError("control character in a text")
        text.append(ESCAPES[piece["escape"]] if piece["escape"] else piece["plain"])
        position = piece.end()
    return "".join(text)


class Checker:
    def __init__(self):
        self.problems = 0

    def report(self, path, line, message):
        self.problems += 1
        print(f"{path}:{line}: {message}", file=sys.stderr)

    def read_entries(self, path):
        """The entries of one file, each checked on its own."""
        try:
            with open(path, encoding="utf-8", newline="") as file:
                lines = file.read().split("\n")
        except (OSError, UnicodeDecodeError) as error:
            self.report(path, 1, f"cannot be read: {error}")
            return []
        lines = [line.removesuffix("\r") for line in lines]

        entries, next_line = [], 0
        while next_line < len(lines):
            number, line = next_line + 1, lines[next_line]
            next_line += 1
            if not line.strip() or line.startswith("//"):
                continue
            if ENTRY_START.fullmatch(line) and next_line < len(lines):
                line += " " + lines[next_line].lstrip(" ")
                next_line += 1
            found = ENTRY.fullmatch(line)
            if not found:
                self.report(path, number, "neither a comment nor a whole entry")
                continue
            try:
                text = parse_literal(found["text"])
            except ValueError as error:
                self.report(path, number, f"{found['name']}: {error}")
                continue
            entries.append(Entry(number, int(found["id"]), found["name"], text))

        self.check_entries(path, entries)
        return entries

    def check_entries(self, path, entries):
        """Ids and names are unique and in order, texts within their limits."""
        seen_ids, seen_names, previous = {}, {}, 0
        for entry in entries:
            if not 1 <= entry.id <= 65535:
                self.report(path, entry.line, f"id {entry.id} is outside 1 to 65535")
            if entry.id in seen_ids:
                self.report(path, entry.line, f"id {entry.id} is also in line {seen_ids[entry.id]}")
            elif entry.id < previous:
                self.report(path, entry.line, f"id {entry.id} comes after {previous}")
            if entry.name in seen_names:
                self.report(path, entry.line, f"{entry.name} is also in line {seen_names[entry.name]}")
            seen_ids.setdefault(entry.id, entry.line)
            seen_names.setdefault(entry.name, entry.line)
            previous = entry.id

            units = len(entry.text.encode("utf-16-le")) // 2
            if units > MAX_UTF16_UNITS:
                self.report(path, entry.line, f"{entry.name}: longer than {MAX_UTF16_UNITS} UTF-16 units")
            if "%" in TOKEN.findall(entry.text):
                self.report(path, entry.line, f'{entry.name}: a "%" that starts no insert')

    def read_definitions(self, path):
        """The texts of dialogs in one file, with the name as their id."""
        entries = {}
        with open(path, encoding="utf-8") as file:
            for number, line in enumerate(file.read().split("\n"), 1):
                if not line or line.startswith("//"):
                    continue
                found = DEFINITION.fullmatch(line)
                if not found:
                    self.report(path, number, "neither a comment nor a whole text")
                    continue
                name = found["name"]
                if name in entries:
                    self.report(path, number, f"{name} is also in line {entries[name].line}")
                try:
                    entries[name] = Entry(number, name, name, parse_literal(found["text"]))
                except ValueError as error:
                    self.report(path, number, f"{name}: {error}")
        return list(entries.values())

    def check_uses(self, layout_path, path, entries):
        """Each text is used in a layout, and each layout uses texts that exist."""
        with open(layout_path, encoding="utf-8") as file:
            used = set(re.findall(r"\bDIALOG_TEXT_[A-Z0-9_]+", file.read()))
        for entry in entries:
            if entry.name not in used:
                self.report(path, entry.line, f"{entry.name} is in no layout")
        for name in sorted(used - {entry.name for entry in entries}):
            self.report(layout_path, 1, f"{name} has no text in {path}")

    def compare(self, main_path, main_entries, path, entries):
        """A translation has the ids and names of the main file, and texts with the same structure."""
        main = {entry.id: entry for entry in main_entries}
        translated = {entry.id for entry in entries}
        last_line = max((entry.line for entry in entries), default=1)
        for entry in main_entries:
            if entry.id not in translated:
                where = f"{entry.name}, {main_path}:{entry.line}"
                self.report(path, last_line, f"id {entry.id} ({where}) is missing")
        for entry in entries:
            original = main.get(entry.id)
            if original is None:
                self.report(path, entry.line, f"id {entry.id} is not in {main_path}")
                continue
            if entry.name != original.name:
                self.report(path, entry.line, f"{entry.name} is named {original.name} in {main_path}")
            for what, measure in MEASURES:
                ours, theirs = measure(entry.text), measure(original.text)
                if ours != theirs:
                    self.report(path, entry.line, f"{entry.name}: {what} {ours} instead of {theirs}")


def inserts(text):
    return sorted(TOKEN.findall(text))


def mnemonics(text):
    return text.replace("&&", "").count("&")


def line_breaks(text):
    return "".join(character for character in text if character in "\r\n")


def trailing_white_space(text):
    return text[len(text.rstrip()):]


# What a translation must share with its original, and how to check it.
MEASURES = [
    ("inserts", inserts),
    ("mnemonics", mnemonics),
    ("line breaks", lambda text: repr(line_breaks(text))),
    ("trailing white space", lambda text: repr(trailing_white_space(text))),
]


def check_messages(checker, main_path, language_paths):
    main_entries = checker.read_entries(main_path)
    if not main_entries:
        checker.report(main_path, 1, "holds no entries")
    for path in language_paths:
        checker.compare(main_path, main_entries, path, checker.read_entries(path))
    return len(main_entries)


def check_dialogs(checker, layout_path, main_path, language_paths):
    main_entries = checker.read_definitions(main_path)
    checker.check_uses(layout_path, main_path, main_entries)
    for path in language_paths:
        checker.compare(main_path, main_entries, path, checker.read_definitions(path))
    return len(main_entries)


def main(arguments):
    checker = Checker()
    if arguments[:1] == ["--dialogs"] and len(arguments) > 2:
        languages = arguments[3:]
        count = check_dialogs(checker, arguments[1], arguments[2], languages)
    elif arguments and not arguments[0].startswith("-"):
        languages = arguments[1:]
        count = check_messages(checker, arguments[0], languages)
    else:
        print(__doc__, file=sys.stderr)
        return 2
    if checker.problems:
        return 1
    print(f"{count} texts, {len(languages)} translation(s): no problems")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
