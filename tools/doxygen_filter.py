#!/usr/bin/env python3
"""Shows a header of ours to Doxygen with its comments as Doxygen reads them.

    doxygen_filter.py HEADER

A comment above a declaration or macro is for all of them up to the next blank line or comment; one
behind a declaration is for that, in place of the one above. The first comment of a header is for the
header, and for the class that it names at its beginning ("CName: ..."). Copying, moving and the handlers
of messages get a standard comment when they have none: a class whose copies share something says so.
Lines keep their numbers, so that warnings name the right ones.
"""

import re
import sys

SPECIAL = re.compile(r"([\\@<>&#%$])")
TRAILING = re.compile(r'^(\s*[^\s/"](?:[^"/]|"(?:\\.|[^"\\])*"|/(?!/))*?)\s*//(?!/) ?(.*)$')
# Copying and destruction, which stand below other constructors and mean what they always mean.
SPECIAL_MEMBER = re.compile(r"~\w+\(|\b(\w+)\((?:const \1&|\1&&)(?: \w+)?\)|\b(\w+)& operator=\((?:const )?\2&")
# The comments of members that have none.
COPY = re.compile(r"\b(\w+)\(const \1&(?: \w+)?\)|\b(\w+)& operator=\(const \2&")
MOVE = re.compile(r"\b(\w+)\(\1&&|\b(\w+)& operator=\(\2&&")
HANDLER = re.compile(r"(?:void|BOOL|int|UINT|LRESULT|HBRUSH|HCURSOR) On[A-Z]\w*\([^)]*\);$")
STANDARD = (
    (COPY, "Copies the value; a later change of one object does not change the other."),
    (MOVE, "Takes the value of the other object, which stays valid."),
    (HANDLER, "A row of the class's message map calls it."),
)
MACRO = re.compile(r"#\s*define\b")
OPENING = re.compile(r"\s*(?:class|struct|enum)\b")
GROUP_END = " /**@}*/"


def escaped(text):
    """Plain text; `code` stays."""
    parts = text.split("`")
    return "`".join(part if i % 2 else SPECIAL.sub(r"\\\1", part) for i, part in enumerate(parts))


def block_comment(lines, indent, command=""):
    """One /** comment on as many lines; what is indented further stands as it is written."""
    result = []
    is_verbatim = False
    for line in lines:
        deep = line.startswith("    ")
        text = line if deep else escaped(line)
        if deep != is_verbatim and (deep or line):
            text = ("@verbatim " if deep else "@endverbatim ") + text
            is_verbatim = deep
        result.append(f"{indent} {text}")
    result[0] = f"{indent}/** {command}{result[0].strip()}"
    result[-1] += " @endverbatim */" if is_verbatim else " */"
    return result


def is_declared_here(line):
    """Whether the line can begin a declaration that a comment is about."""
    text = line.strip()
    return bool(text) and not text.startswith(("#", "}", "public:", "protected:", "private:"))


def group_end(lines, start):
    """The line after the declarations that share a comment, or `start` for a single one."""
    end, depth, declarations = start, 0, 0
    is_special = bool(SPECIAL_MEMBER.search(lines[start]))
    while end < len(lines):
        text = lines[end].strip()
        if depth == 0 and (not is_declared_here(lines[end]) or text.startswith("//")):
            break
        if depth == 0 and SPECIAL_MEMBER.search(text) and not is_special:
            break
        code = TRAILING.match(lines[end])
        code = code[1] if code else lines[end]
        depth += code.count("{") - code.count("}")
        declarations += depth == 0 and code.rstrip().endswith((";", "}"))
        end += 1
    return end if declarations > 1 and depth == 0 else start


def macro_ends(lines, start):
    """The last lines of the macros that share a comment."""
    ends = []
    at = start
    while at < len(lines) and lines[at].strip() and not lines[at].strip().startswith("//"):
        is_macro = MACRO.match(lines[at])
        while lines[at].endswith("\\"):
            at += 1
        if is_macro:
            ends.append(at)
        at += 1
    return ends


def standard(lines, at):
    """The standard comment of the declaration that ends in a line, or an empty text."""
    if not lines[at].endswith(";"):
        return ""
    start = at
    while lines[start - 1].strip() and not re.search(r"[;:{})]$|//", lines[start - 1]):
        start -= 1
    declaration = " ".join(line.strip() for line in lines[start : at + 1])
    if HANDLER.match(declaration) and "    DECLARE_MESSAGE_MAP()" not in lines:
        return ""
    return next((text for pattern, text in STANDARD if pattern.search(declaration)), "")


def filtered(source, path):
    """The header for Doxygen: a walk over its lines, by a comment or a line of code at a time."""
    lines = source.split("\n")
    result = []
    macro_texts = {}  # of the macros that follow the first of a group, by their last lines
    group_lasts = set()
    at = 0
    is_first = True
    described_end = 0  # behind the declarations that have a comment above
    while at < len(lines):
        match = re.match(r"(\s*)//(?!/) ?", lines[at])
        if not match:
            trailing = TRAILING.match(lines[at])
            line = lines[at]
            if at in macro_texts and not trailing:
                line = f"{line} /**< {macro_texts[at]} */"
            elif trailing and "{" in trailing[1] and OPENING.match(line):
                line = f"/** {escaped(trailing[2])} */ {trailing[1]}"  # of what is opened, not of a member
            elif trailing:
                line = f"{trailing[1]} /**< {escaped(trailing[2])} */"
            elif at >= described_end and standard(lines, at):
                line = f"{line} /**< {standard(lines, at)} */"
            result.append(line + (GROUP_END if at in group_lasts else ""))
            at += 1
            continue
        indent, end = match[1], at
        while end < len(lines) and re.match(r"\s*//", lines[end]):
            end += 1
        texts = [re.sub(r"^\s*// ?", "", line) for line in lines[at:end] if "clang-format o" not in line]
        result += [""] * (end - at - len(texts))
        continues = at > 0 and TRAILING.match(lines[at - 1]) and len(indent) > 12
        if is_first:
            name = re.match(r"(C\w+)(?: and \w+)?:", texts[0])
            # The command has a line for itself, in the place of that of #pragma once.
            result += [f"/** @file */ /** @class {name[1]}" if name else f"/** @file {path}", *block_comment(texts, " ", "")]
            result[1] = result[1].replace("/** ", "    ", 1)
            end = lines.index("#pragma once") + 1 if "#pragma once" in lines else end
            result += lines[at + len(texts):end - 1]
        elif continues:  # of a comment behind a declaration
            result[-1] = result[-1][: -len(" */")] + "".join(" " + escaped(text) for text in texts) + " */"
            result += [""] * len(texts)
        elif texts and MACRO.match(lines[end]):
            result += block_comment(texts, indent)
        elif texts and is_declared_here(lines[end]):
            comment = block_comment(texts, indent)
            last = group_end(lines, end)
            if last > end:
                comment[0] = f"{indent}/**@{{*/ {comment[0].strip()}"
                group_lasts.add(last - 1)
            result += comment
            described_end = max(last, end + 1)
        else:
            result += [""] * len(texts)  # a remark about the code
        if texts and not is_first and not continues:
            has_comment = bool(MACRO.match(lines[end]))  # a block of its own
            for last in macro_ends(lines, end)[has_comment:]:
                macro_texts[last] = escaped(" ".join(texts))
        is_first = False
        at = end
    return "\n".join(result)


if __name__ == "__main__":
    with open(sys.argv[1], encoding="utf-8") as header:
        sys.stdout.write(filtered(header.read(), sys.argv[1].partition("include/")[2]))
