#!/usr/bin/env python3
"""Shows a header of ours to Doxygen with its comments as Doxygen reads them.

    doxygen_filter.py HEADER

A comment above a declaration is for all declarations up to the next blank line or comment; one behind a
declaration is for that. The first comment of a header is for the header, and for the class that it
names at its beginning ("CName: ..."). Lines keep their numbers, so that warnings name the right ones.
"""

import re
import sys

SPECIAL = re.compile(r"([\\@<>&#%$])")
TRAILING = re.compile(r'^(\s*[^\s/"](?:[^"/]|"(?:\\.|[^"\\])*"|/(?!/))*?)\s*//(?!/) ?(.*)$')
# Copying and destruction, which stand below other constructors and mean what they always mean.
SPECIAL_MEMBER = re.compile(r"~\w+\(|operator=\(|\b(\w+)\((?:const \1&|\1&&)")
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
    while end < len(lines):
        text = lines[end].strip()
        if depth == 0 and (not is_declared_here(lines[end]) or text.startswith("//") or SPECIAL_MEMBER.search(text)):
            break
        code = TRAILING.match(lines[end])
        code = code[1] if code else lines[end]
        depth += code.count("{") - code.count("}")
        declarations += depth == 0 and code.rstrip().endswith((";", "}"))
        end += 1
    return end if declarations > 1 and depth == 0 else start


def filtered(source, path):
    lines = source.split("\n")
    result = []
    at = 0
    is_first = True
    while at < len(lines):
        is_group_end = lines[at].endswith(GROUP_END)
        lines[at] = lines[at].removesuffix(GROUP_END)
        match = re.match(r"(\s*)//(?!/) ?", lines[at])
        if not match:
            trailing = TRAILING.match(lines[at])
            line = lines[at]
            if trailing and trailing[1].endswith("{") and OPENING.match(line):
                line = f"/** {escaped(trailing[2])} */ {trailing[1]}"  # of what is opened, not of a member
            elif trailing:
                line = f"{trailing[1]} /**< {escaped(trailing[2])} */"
            result.append(line + (GROUP_END if is_group_end else ""))
            at += 1
            continue
        indent, end = match[1], at
        while end < len(lines) and re.match(r"\s*//", lines[end]):
            end += 1
        texts = [re.sub(r"^\s*// ?", "", line) for line in lines[at:end]]
        continues = at > 0 and TRAILING.match(lines[at - 1]) and len(indent) > 12
        if is_first:
            name = re.match(r"(C\w+)(?: and \w+)?:", texts[0])
            # The command has a line for itself, in the place of that of #pragma once.
            result += [f"/** @class {name[1]}" if name else f"/** @file {path}", *block_comment(texts, " ", "")]
            result[1] = result[1].replace("/** ", "    ", 1)
            end = lines.index("#pragma once") + 1 if "#pragma once" in lines else end
            result += lines[at + len(texts):end - 1]
        elif continues:  # of a comment behind a declaration
            result[-1] = result[-1][: -len(" */")] + "".join(" " + escaped(text) for text in texts) + " */"
            result += [""] * len(texts)
        elif end < len(lines) and is_declared_here(lines[end]):
            comment = block_comment(texts, indent)
            last = group_end(lines, end)
            if last > end:
                comment[0] = f"{indent}/**@{{*/ {comment[0].strip()}"
                lines[last - 1] += GROUP_END
            result += comment
        else:
            result += [""] * len(texts)  # a remark about the code
        is_first = False
        at = end
    return "\n".join(result)


if __name__ == "__main__":
    with open(sys.argv[1], encoding="utf-8") as header:
        sys.stdout.write(filtered(header.read(), sys.argv[1].partition("include/")[2]))
