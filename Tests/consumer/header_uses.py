#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes sources that use installed headers.

    header_uses.py INCLUDE_FOLDER FOLDER

FOLDER/alone gets a source for each header that includes it alone (twice, to see its guard). Headers
that another includes before anything else stand alone there; those that include the same share a
source. And every_header.cpp is a program that includes them all and uses every exported class: its
destructor and its run-time type must be there when it is linked.
"""
import pathlib
import re
import sys

NAMESPACE = re.compile(r"^namespace ([\w:]+) \{")
CLASS = re.compile(r"^(?:class|struct) (?:ZARNCORE|ZARNAUDIO|ZARNLAYOUT|ZARNVIEWS|FILESYSTEM|STREAMS)_EXPORT (\w+)\b[^;]*$")
INCLUDE = re.compile(r"^#include [<\"]([^>\"]+)[>\"]", re.MULTILINE)
FIRST = re.compile(r"\A(?:\s|//[^\n]*\n|/\*.*?\*/|#pragma once)*#include [<\"]([^>\"]+)[>\"]", re.DOTALL)
INSTANCE = re.compile(r"^extern template class (\w+<[^;]*>);$")


def exported_classes(text):
    """Qualified names of the classes that a header exports, in order; of a template its instances."""
    scope = []  # (name, how many braces were open in front of it)
    depth = 0
    lines = text.splitlines()
    for before, line in zip([""] + lines, lines):
        if match := NAMESPACE.match(line):
            scope.append((match.group(1), depth))
        elif match := INSTANCE.match(line) or (
                not before.startswith("template <") and CLASS.match(line)):
            yield "::".join([name for name, _ in scope] + [match.group(1)])
        depth += line.count("{") - line.count("}")
        if scope and depth == scope[-1][1]:
            scope.pop()


def write(path, text):
    """Leaves a file alone that is as it should be, so that nothing is compiled again for it."""
    if not path.exists() or path.read_text(encoding="utf-8") != text:
        path.write_text(text, encoding="utf-8")


def main(include, folder):
    include, folder = pathlib.Path(include), pathlib.Path(folder)
    (folder / "alone").mkdir(parents=True, exist_ok=True)
    stale = set((folder / "alone").iterdir())
    includes, uses = "", ""
    headers = {header.relative_to(include).as_posix(): header.read_text(encoding="utf-8")
               for header in sorted(include.rglob("*.h"))}
    first = {match.group(1) for match in map(FIRST.match, headers.values()) if match}
    alike = {}  # headers by what they include
    for name, text in headers.items():
        if name not in first:
            alike.setdefault(frozenset(INCLUDE.findall(text)), []).append(name)
        includes += "#include <%s>\n" % name
        for cls in exported_classes(text):
            uses += "    use<%s>();\n" % cls
    for names in alike.values():
        alone = folder / "alone" / (names[0].replace("/", "_") + ".cpp")
        write(alone, "".join("#include <%s>\n" % name for name in names for _ in range(2)))
        stale.discard(alone)
    for source in stale:  # of headers that are gone
        source.unlink()
    if not uses:
        sys.exit("no exported class in %s" % include)
    write(folder / "every_header.cpp", includes + """
#include <type_traits>
#include <typeinfo>

namespace {

const void *volatile used = nullptr;

template <class T>
void use()
{
    used = &typeid(T);
    if constexpr (std::is_destructible_v<T>) {
        void (*const destroy)(T &) = [](T &object) { object.~T(); };
        used = reinterpret_cast<const void *>(destroy);
    }
}

} // namespace

int main()
{
    using namespace zarn; // for the arguments of templates
""" + uses + "    return used == nullptr;\n}\n")


if __name__ == "__main__":
    main(*sys.argv[1:])
