#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks how the folders and files of the library depend on each other.

    check_includes.py SOURCE_DIR     exit 1 and a line for every fault
    check_includes.py --self-test    checks the checker

- Includes never point upwards; the order, lowest first, is the one that ARCHITECTURE.md draws.
- A published header includes published headers alone.
- What a class declares is defined in the folder of its header, so that no layer promises what only
  a higher one keeps.
"""
import pathlib
import re
import sys

# Folders of one row may include each other and everything in the rows above.
ROWS = [
    ["filesystem"],
    ["streams"],
    ["base"],
    ["utils"],
    ["types"],
    ["music"],
    ["instruments"],
    ["chords"],
    ["scales"],
    ["model"],
    ["fingering"],
    ["events"],
    ["score", "commands"],
    ["playback"],
    ["io"],
    ["core"],
    ["ZarnAudio"],
    ["ZarnLayout"],
    ["ZarnViews"],
    ["Tools"],
]
RANK = {name: rank for rank, row in enumerate(ROWS) for name in row}
# Files beside ZarnCore.h: the shared ground, except the shared types, whose tables come from utils,
# and those that stand on top of everything.
TOP = {"ZarnCoreUtils", "VoiceSearch", "ZarnCore"}
INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]((?:ZarnCore|ZarnAudio|ZarnLayout|ZarnViews|filesystem|streams)/[^>"]+)[>"]')
CLASS = re.compile(r"^(?:class|struct) (?:[A-Z_]+_EXPORT )?([\w:]+)(?: final)?(?: :[^;]*)?(?: \{.*)?$",
                   re.MULTILINE)
# "Type Class::member(", at the start of a line as the formatting puts it.
DEFINITION = re.compile(r"^(?=\S)(?:[\w:<>,&*\[\] ]+[ &*])?((?:\w+::)+)~?(?:\w+|operator\W+)\(",
                        re.MULTILINE)


def area(path):
    """Folder that a path below Sources/ or Tools/ belongs to, or None for a stranger."""
    parts = pathlib.PurePosixPath(path).parts
    if parts[0] in ("filesystem", "streams", "ZarnAudio", "ZarnLayout", "ZarnViews", "Tools"):
        return parts[0]
    if parts[0] != "ZarnCore":
        return None
    if len(parts) == 2:
        if parts[1].startswith("ZarnTypes"):
            return "types"
        return "core" if pathlib.PurePosixPath(parts[1]).stem in TOP else "base"
    return parts[1] if parts[1] in RANK else None


def is_published(path):
    """Whether a header is installed."""
    folder, name = pathlib.PurePosixPath(path).parts[:-1], pathlib.PurePosixPath(path).name
    if folder[0] in ("filesystem", "streams"):
        return name != "ZipSource.h"
    if folder[-1] == "utils":
        return not name.startswith("Json")
    return name.startswith("Zarn")


def misplaced(files):
    """Definitions of members outside of the folder of their class's header; `files` are texts by
    path."""
    folders = {}
    for path, text in files.items():
        if path.endswith(".h"):
            for name in CLASS.findall(text):
                folders.setdefault(name, set()).add(pathlib.PurePosixPath(path).parent)
    for path, text in files.items():
        if not path.endswith(".cpp"):
            continue
        own = set(CLASS.findall(text))
        for match in DEFINITION.finditer(text):
            owner = match.group(1)[:-2]
            if owner.partition("::")[0] in own:  # a class of this source that is called like another
                continue
            while owner and owner not in folders:
                owner = owner.rpartition("::")[0]
            if owner and pathlib.PurePosixPath(path).parent not in folders[owner]:
                line = text.count("\n", 0, match.start()) + 1
                yield "%s:%d: defines a member of %s, which is declared in %s" % (
                    path, line, owner, ", ".join(sorted(map(str, folders[owner]))))


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
        if path.endswith(".h") and is_published(path) and not is_published(match.group(1)):
            yield "%s:%d: a published header must not include %s" % (path, number, match.group(1))


def check(root):
    root = pathlib.Path(root)
    files = {}
    for base in (root / "Sources", root):
        for folder in ("ZarnCore", "ZarnAudio", "ZarnLayout", "ZarnViews", "filesystem", "streams", "Tools"):
            for file in sorted((base / folder).rglob("*")) if (base / folder).is_dir() else []:
                if file.suffix in (".h", ".cpp") and file.name != "Precompiled.h":
                    files[file.relative_to(base).as_posix()] = file.read_text(encoding="utf-8")
    found = [problem for name, text in files.items() for problem in problems(name, text)]
    return found + list(misplaced(files))


def self_test():
    bad = list(problems("ZarnCore/model/ZarnBar.h", "#include <ZarnCore/score/ZarnScore.h>\n"))
    bad += problems("ZarnCore/io/ZarnX.h", "#include <ZarnLayout/draw/ZarnLayout.h>\n")
    good = list(problems("ZarnCore/score/ZarnScore.h", "#include <ZarnCore/model/ZarnBar.h>\n"
                         "#include <ZarnCore/commands/ZarnCommandStack.h>\n"))
    lost = list(problems("ZarnCore/elsewhere/ZarnX.h", ""))
    assert len(bad) == 2 and "model must not include score" in bad[0], bad
    assert "io must not include ZarnLayout" in bad[1], bad
    assert good == [] and len(lost) == 1, (good, lost)

    inner = "#include <ZarnCore/model/ChildOrder.h>\n"
    assert len(list(problems("ZarnCore/model/ZarnBar.h", inner))) == 1
    assert not list(problems("ZarnCore/model/ZarnBar.cpp", inner))

    header = "class ZARNCORE_EXPORT Scale final : public Base {\n    int tone();\n};\n"
    files = {"ZarnCore/music/ZarnScale.h": header,
             "ZarnCore/music/ZarnScale.cpp": "int Scale::tone()\n{\n}\n",
             "ZarnCore/model/ZarnBar.cpp": "const std::vector<int> &Scale::tones(int a)\n{\n"
                                           "    return Scale::other(a);\n}\n"}
    faults = list(misplaced(files))
    assert len(faults) == 1 and "ZarnBar.cpp:1: defines a member of Scale" in faults[0], faults


def main(arguments):
    if arguments == ["--self-test"]:
        self_test()
        print("the include checker finds what it should")
        return 0
    found = check(arguments[0])
    print("\n".join(found) if found else "all folders depend on each other as they should")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
