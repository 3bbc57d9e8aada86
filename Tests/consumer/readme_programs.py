#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Takes the C++ programs out of a text in Markdown, word for word.

    readme_programs.py README.md FOLDER     writes FOLDER/program1.cpp, program2.cpp ...
"""
import pathlib
import re
import sys

FENCED = re.compile(r"^```cpp\n(.*?)^```$", re.MULTILINE | re.DOTALL)


def main(text, folder):
    programs = FENCED.findall(pathlib.Path(text).read_text(encoding="utf-8"))
    if not programs:
        sys.exit("%s shows no program" % text)
    pathlib.Path(folder).mkdir(parents=True, exist_ok=True)
    for number, program in enumerate(programs, 1):
        pathlib.Path(folder, "program%d.cpp" % number).write_text(program, encoding="utf-8")


if __name__ == "__main__":
    main(*sys.argv[1:])
