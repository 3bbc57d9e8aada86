#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints how the processor time of `zarn info`, the whole process, compares with that of a process
that only parses the same file, for the largest scores of a folder.

    Benchmarks/info_against_pugixml.py build/release/bin FOLDER [RUNS]

Each program runs RUNS times (20), by turns; the shortest times are compared, as they suffer least
from what else the machine does. The exit code is 1 when a ratio is above the target."""

import os
import subprocess
import sys
import zipfile
from pathlib import Path

TARGET = 4.0
LARGEST = 5


def text_size(path):
    """Bytes of a score, unpacked."""
    if not zipfile.is_zipfile(path):
        return path.stat().st_size
    with zipfile.ZipFile(path) as archive:
        return max(entry.file_size for entry in archive.infolist())


def processor_time(command):
    """Seconds that a process and the system spend on it."""
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    if status != 0:
        sys.exit(f"{' '.join(map(str, command))} failed")
    return usage.ru_utime + usage.ru_stime


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    programs, folder = Path(sys.argv[1]), Path(sys.argv[2])
    runs = int(sys.argv[3]) if len(sys.argv) > 3 else 20
    scores = [path for path in folder.iterdir() if path.suffix in (".xml", ".musicxml", ".mxl")]
    met = True
    for score in sorted(scores, key=text_size, reverse=True)[:LARGEST]:
        commands = [programs / "pugixmlparse", score], [programs / "zarn", "info", score]
        times = [[processor_time(command) for command in commands] for _ in range(runs)]
        parse, info = (min(column) for column in zip(*times))
        ratio = info / max(parse, 1e-6)
        met = met and ratio <= TARGET
        print(f"{score.name:44} parse {1000 * parse:7.1f} ms   info {1000 * info:7.1f} ms   "
              f"ratio {ratio:5.2f}   target {TARGET} {'met' if ratio <= TARGET else 'MISSED'}")
    sys.exit(0 if met else 1)


if __name__ == "__main__":
    main()
