#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that includes between the folders of the library never point upwards.

    check_includes.py SOURCE_DIR     exit 1 and a line for every include that points upwards
    check_includes.py --self-test    checks the checker

The order, lowest first, is the one that ARCHITECTURE.md draws.
"""
import pathlib
import re
import sys

# Folders of one row may include each other and everything in the rows above.
ROWS = [
    ["filesystem"],
    ["base"],
    ["utils"],
    ["types"],
    ["music"],
    ["instruments"],
    ["model"],
    ["events"],
    ["score", "commands"],
    ["io"],
    ["core"],
    ["Tools"],
]
RANK = {name: rank for rank, row in enumerate(ROWS) for name in row}
# Files beside ZarnCore.h: the shared ground, except the shared types, whose tables come from utils,
# and those that stand on top of everything.
TOP = {"ZarnCoreUtils", "ZarnCoreUtilsPreview", "ZarnCoreUtilsSearch", "ZarnCore"}
INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]((?:ZarnCore|filesystem)/[^>"]+)[>"]')


def area(path):
    """Folder that a path below Sources/ or Tools/ belongs to, or None for a stranger."""
    parts = pathlib.PurePosixPath(path).parts
    if parts[0] in ("filesystem", "Tools"):
        return parts[0]
    if parts[0] != "ZarnCore":
        return None
    if len(parts) == 2:
        if parts[1].startswith("ZarnTypes"):
            return "types"
        return "core" if pathlib.PurePosixPath(parts[1]).stem in TOP else "base"
    return parts[1] if parts[1] in RANK else None


def problems(path, text):
    here = area(path)
    if here is None:
        yield "%s: lies in no known folder" % path
        return
    for number, line in enumerate(text.splitlines(), 1):
        match = INCLUDE.match(line)
        if not match:
            continue
        there = area(match.group(1))
        if there is None:
            yield "%s:%d: includes %s from no known folder" % (path, number, match.group(1))
        elif RANK[there] > RANK[here]:
            yield "%s:%d: %s must not include %s (%s)" % (path, number, here, there, match.group(1))


def check(root):
    root = pathlib.Path(root)
    found = []
    for base in (root / "Sources", root):
        for folder in ("ZarnCore", "filesystem", "Tools"):
            for file in sorted((base / folder).rglob("*")) if (base / folder).is_dir() else []:
                if file.suffix in (".h", ".cpp") and file.name != "Precompiled.h":
                    name = file.relative_to(base).as_posix()
                    found.extend(problems(name, file.read_text(encoding="utf-8")))
    return found


def self_test():
    bad = list(problems("ZarnCore/model/ZarnBar.h", "#include <ZarnCore/score/ZarnScore.h>\n"))
    good = list(problems("ZarnCore/score/ZarnScore.h", "#include <ZarnCore/model/ZarnBar.h>\n"
                         "#include <ZarnCore/commands/ZarnCommandStack.h>\n"))
    lost = list(problems("ZarnCore/elsewhere/ZarnX.h", ""))
    assert len(bad) == 1 and "model must not include score" in bad[0], bad
    assert good == [] and len(lost) == 1, (good, lost)


def main(arguments):
    if arguments == ["--self-test"]:
        self_test()
        print("the include checker finds what it should")
        return 0
    found = check(arguments[0])
    print("\n".join(found) if found else "no include points upwards")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
