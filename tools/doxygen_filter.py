#!/usr/bin/env python3
"""Shows the public headers to Doxygen, and checks that they document every exported name.

  doxygen_filter.py HEADER                  prints the header with its comments as Doxygen wants them
  doxygen_filter.py --check LIST HEADER...  exits with 1 when an exported name is declared in no header or documented by
                                            no comment

The headers are written to be read as they are: one comment for each family, between two rules, before the family's
prototypes. Here each of them becomes a group, with the prototypes and records up to the next rule as its members.
Indented lines are tables and formulas: they stay as they are. Paragraphs flow.
"""
import glob
import os
import re
import sys

TYPES = {"s": "floats", "d": "doubles", "c": "FloatCplx", "z": "DoubleCplx", "w": "16-bit integers", "v": "ShortCplx",
         "i": "32-bit integers", "j": "IntCplx"}
NAME = re.compile(r"ark(?:([sdcz][sdcz]?|[wvij])?(r(?=F))?(b)?)([A-Z]\w*)$")


def parts_of(name):
    """The name's type letters, whether it has the r and the b, and its operation: arkwbMpy1 is ('w', '', 'b', 'Mpy1')."""
    match = NAME.match(name)
    if not match:
        return None
    return [part or "" for part in match.groups()]


def operation_of(name):
    parts = parts_of(name)
    return parts[3] if parts else name


def brief_of(name):
    """What a name says by itself, by the key in types.h."""
    types, split, vector, operation = parts_of(name)
    if not types:
        return operation
    words = " with ".join(TYPES[letter] for letter in types)
    if vector:
        words = "vectors of " + words
    if split:
        words += " in arrays for real and imaginary parts"
    return f"{operation}: {words}"


def text_of(comment):
    """The lines of a comment without stars and rules."""
    lines = []
    for line in comment:
        line = re.sub(r"^\s*/\*+ ?|\s*\*/\s*$", "", line)
        line = re.sub(r"^\s*\* ?", "", line) if line.strip() != "*" else ""
        if not re.fullmatch(r"\s*-{20,}\s*", line):
            lines.append(line.rstrip())
    while lines and not lines[0]:
        lines.pop(0)
    while lines and not lines[-1]:
        lines.pop()
    return lines


def escaped(text, names=()):
    """Text as Doxygen shall show it, with links to the functions of these names. It takes what is in quotes as it is."""
    def one(part):
        part = re.sub(r"([\\@#$%&<>|])", r"\\\1", part)
        return re.sub(r"\bark\w+", lambda m: f'@ref {m[0]} "{m[0]}"' if m[0] in names else m[0], part)

    return "".join(part if part.startswith('"') else one(part) for part in re.split(r'("[^"]*")', text))


def doxygen_of(lines, names=()):
    """Comment text in Doxygen's form: indented lines stay, paragraphs become one line each."""
    out, block, paragraph = [], [], []

    def end_block():
        while block and not block[-1]:
            block.pop()
        if block:
            margin = min(len(line) - len(line.lstrip()) for line in block if line)
            out.extend(["", "@verbatim", *(line[margin:] for line in block), "@endverbatim", ""])
            block.clear()

    def end_paragraph():
        if paragraph:
            out.extend([escaped(" ".join(paragraph), names), ""])
            paragraph.clear()

    for line in lines:
        if line.startswith(" ") or (not line and block):
            end_paragraph()
            block.append(line)
        else:
            end_block()
            if line:
                paragraph.append(line)
            else:
                end_paragraph()
    end_block()
    end_paragraph()
    return out


def functions_beside(path):
    """The names of all functions in the header's folder."""
    names = set()
    for header in glob.glob(os.path.join(os.path.dirname(path) or ".", "*.h")):
        names.update(re.findall(r"^ARKPX_API [^(]*?\b(ark\w+) *\(", open(header, encoding="utf-8").read(), re.M))
    return names


class Header:
    """A header as a sequence of items: families, with what each declares."""

    def __init__(self, path):
        self.path = path
        self.names = functions_beside(path)
        self.base = os.path.basename(path)
        self.out = []
        self.documented = {}  # name: the text that documents it
        self.declared = []
        self.module = "header_" + self.base.replace(".", "_")
        self.group = None
        self.group_text = ""
        self.own = None  # the comment right above, which documents the declarations up to the next blank line
        self.general = ""  # what holds for all families of the header
        self.read(open(path, encoding="utf-8").read().split("\n"))

    def read(self, lines):
        i = 0
        first_comment = True
        depth = 0  # inside a record or an enumeration
        while i < len(lines):
            line = lines[i]
            if depth == 0 and re.match(r"/\*", line):
                comment = []
                while True:
                    comment.append(lines[i])
                    i += 1
                    if "*/" in comment[-1]:
                        break
                followed = i < len(lines) and lines[i].strip() != ""
                if first_comment:
                    self.begin_file(text_of(comment))
                    first_comment = False
                elif re.match(r"/\* -{20,}", comment[0]):
                    self.begin_family(text_of(comment))
                elif followed and not lines[i].startswith("#"):
                    self.own = text_of(comment)
                elif len(comment) > 1:
                    self.general += "\n".join(text_of(comment)) + "\n"
                    self.comment([f"@addtogroup {self.module}", *doxygen_of(text_of(comment), self.names)])
                continue
            i += 1
            if depth == 0 and line.startswith("ARKPX_API"):
                prototype = line
                while ";" not in prototype:
                    prototype += " " + lines[i].strip()
                    i += 1
                self.function(prototype)
                continue
            if not line.strip():
                self.own = None
            if line == "#ifdef __cplusplus" and lines[i] == "}":
                self.end_family()
            begins = re.match(r"typedef (?:struct|union) (\w+) \{(?:\s*/\* (.*) \*/)?|(enum) \{", line)
            if begins or re.match(r"typedef .*;", line):
                self.record(line, begins)
                depth = 1 if begins and "}" not in line else 0
                if begins:
                    line = re.sub(r"\s*/\*.*", "", line)
            elif depth and line.startswith("}"):
                depth = 0
            self.out.append(re.sub(r"([;,}]\s*|\w\s+)/\* (.*) \*/$", r"\1/**< \2 */", line) if depth else line)

    def comment(self, text):
        self.out.extend(["/**", *text, "*/"])

    def begin_file(self, text):
        title = re.sub(r"^arkpx\S* - ", "", text[0]).rstrip(".")
        self.comment([f"@file {self.base}", escaped(title[:1].upper() + title[1:]) + "."])
        self.comment([f"@defgroup {self.module} {self.base}: {title}", *doxygen_of(text[1:], self.names)])

    def begin_family(self, text):
        self.end_family()
        slug = re.sub(r"[^a-z0-9]+", "_", text[0].lower()).strip("_")
        self.group = f"{self.module[7:]}_{slug}"
        self.group_text = "\n".join(text)
        if re.search(r"what both levels|The flag word|The 16-bit transforms", text[0]):
            self.general += self.group_text + "\n"
        self.comment([f"@defgroup {self.group} {text[0]}", f"@ingroup {self.module}", *doxygen_of(text[1:], self.names), "@{"])

    def end_family(self):
        if self.group:
            self.comment(["@}"])
        self.group = None
        self.own = None

    def function(self, prototype):
        match = re.match(r"ARKPX_API [^(]*?\b(ark\w+) *\(", prototype)
        if not match:
            sys.exit(f"{self.path}: no name in '{prototype}'")
        name = match[1]
        self.declared.append(name)
        if self.own:
            self.documented[name] = operation_of(name) + ": " + "\n".join(self.own)
        elif self.group:
            self.documented[name] = self.group_text + "\n" + self.general
        own = doxygen_of(self.own, self.names) if self.own else ["@brief " + escaped(brief_of(name)) + "."]
        self.comment([*own, *([] if self.group else [f"@ingroup {self.module}"])])
        self.out.append(prototype)

    def record(self, line, begins):
        """Documents a record by the comment above it, the one behind its first line, or by its family."""
        text = doxygen_of(self.own, self.names) if self.own else []
        if not text and begins and begins[2]:
            text = [f"Record {escaped(begins[2])}."]
        if not text:
            text = ["Values of this family." if "enum" in line else "Record of this family."]
        self.comment([*text, *([] if self.group else [f"@ingroup {self.module}"])])


def words_missing(name, text):
    """The words of the operation's name of which the text says nothing."""
    operation = operation_of(name)
    if operation.rstrip("123") in text:
        return []
    text = text.lower()
    words = re.findall(r"[A-Z]+(?![a-z])|[A-Z][a-z]*", operation)
    return [word for word in words if word.lower() not in text]


def check(exports, headers):
    names = open(exports, encoding="utf-8").read().split()
    read = [Header(path) for path in headers]
    declared = [name for header in read for name in header.declared]
    failures = []
    for name in names:
        header = next((header for header in read if name in header.declared), None)
        if not header:
            failures.append(f"{name}: declared in no header")
        elif not parts_of(name):
            failures.append(f"{name}: does not follow the key of names in types.h")
        elif name not in header.documented:
            failures.append(f"{name}: {header.path} has no comment for it")
        elif words_missing(name, header.documented[name]):
            failures.append(f"{name}: its comment in {header.path} does not speak of "
                            + " ".join(words_missing(name, header.documented[name])))
    failures += [f"{name}: declared twice" for name in sorted({n for n in declared if declared.count(n) > 1})]
    failures += [f"{name}: in no list of exports" for name in declared if name not in names]
    for failure in failures:
        print(failure, file=sys.stderr)
    print(f"{len(names)} names, {len(failures)} without documentation")
    return 1 if failures else 0


if __name__ == "__main__":
    if sys.argv[1:2] == ["--check"]:
        sys.exit(check(sys.argv[2], sys.argv[3:]))
    print("\n".join(Header(sys.argv[1]).out))
