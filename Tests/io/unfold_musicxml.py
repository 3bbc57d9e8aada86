#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""unfold_musicxml.py [--zarn PROGRAM] FILE_OR_FOLDER...: the bars of MusicXML documents as they are played.

Reads the signs straight from the document (standard library only) and plays them as a musician
would, with nothing of the library in between. With --zarn, compares each list with the line
"Played" of that program's "info", and fails when one differs."""
import io
import os
import re
import subprocess
import sys
import xml.etree.ElementTree as ElementTree
import zipfile


def root_of(path):
    data = open(path, "rb").read()
    if data[:2] == b"PK":
        with zipfile.ZipFile(io.BytesIO(data)) as archive:
            container = ElementTree.fromstring(archive.read("META-INF/container.xml"))
            name = next(e.get("full-path") for e in container.iter() if e.tag.endswith("rootfile"))
            data = archive.read(name)
    return ElementTree.fromstring(data)


class Signs:
    """What stands at the bars, whichever part says it. Bars are counted from 0."""

    def __init__(self, root):
        if root.tag == "score-timewise":
            parts = [list(part) for part in zip(*[list(bar) for bar in root.iter("measure")])]
        else:
            parts = [part.findall("measure") for part in root.findall("part")]
        self.count = max((len(part) for part in parts), default=0)
        self.forward, self.backward, self.endings = set(), {}, {}
        self.jumps, self.marks, self.finals, self.numbers = {}, {}, set(), {}
        for part in parts:
            for bar, measure in enumerate(part):
                self.numbers.setdefault(bar, measure.get("number", ""))
                for line in measure.findall("barline"):
                    self.read_line(bar, line)
                for sound in measure.iter("sound"):
                    self.read_sound(bar, sound)
                for kind in measure.iter("direction-type"):
                    for mark in ("segno", "coda"):
                        if kind.find(mark) is not None:
                            self.marks.setdefault(mark, set()).add(bar)
                for words in measure.iter("words"):
                    self.read_words(bar, (words.text or "").strip().lower().rstrip("."))
            self.read_endings(part)

    def read_line(self, bar, line):
        repeat = line.find("repeat")
        if repeat is not None and repeat.get("direction") == "forward":
            self.forward.add(bar)
        elif repeat is not None:
            self.backward[bar] = max(self.backward.get(bar, 0), int(repeat.get("times") or 2))
        if line.findtext("bar-style") == "light-heavy" and line.get("location", "right") == "right":
            self.finals.add(bar)

    def read_sound(self, bar, sound):
        for mark in ("fine", "tocoda", "coda", "segno"):
            if sound.get(mark):
                self.marks.setdefault(mark, set()).add(bar)
        if sound.get("dacapo") == "yes":
            self.jumps[bar] = "start"
        if sound.get("dalsegno"):
            self.jumps[bar] = "segno"

    def read_words(self, bar, text):
        if text in ("fine", "to coda"):
            self.marks.setdefault(text.replace(" ", ""), set()).add(bar)
        elif re.match(r"d\. ?c\b|da capo", text):
            self.jumps[bar] = "start"
        elif re.match(r"d\. ?s\b|d[ae]l? segno", text):
            self.jumps[bar] = "segno"

    def read_endings(self, measures):
        """Brackets with their passes. One that closes early goes on to the repeat sign in front of
        the next one; an open one behind others that no repeat sign ends, up to the next one."""
        brackets, start = [], None
        for bar, measure in enumerate(measures):
            for line in measure.findall("barline"):
                ending = line.find("ending")
                if ending is None:
                    continue
                passes = {int(n) for n in re.findall(r"\d+", ending.get("number", ""))}
                if ending.get("type") == "start":
                    start = bar
                    brackets.append([bar, bar, passes, False])
                else:
                    if start is None:
                        brackets.append([bar, bar, passes, False])
                    brackets[-1][1] = bar if line.get("location", "right") == "right" else bar - 1
                    brackets[-1][3] = ending.get("type") == "discontinue"
                    start = None
        for i, (first, last, passes, is_open) in enumerate(brackets):
            after = brackets[i + 1][0] if i + 1 < len(brackets) else None
            between = set(range(last + 1, after)) if after is not None else set()
            ends = set(self.backward) & set(range(first, after)) if between else set()
            before = brackets[i - 1] if i > 0 and brackets[i - 1][1] + 1 == first else None
            if between and not between & self.forward:
                if ends == {after - 1} and not passes & brackets[i + 1][2]:
                    last = after - 1
                elif not ends and is_open and before and before[1] not in self.backward:
                    last = after - 1
            for bar in range(first, last + 1):
                self.endings[bar] = self.endings.get(bar, set()) | passes

    def movements(self):
        """A movement begins behind a final bar line where the bars are counted from the start."""
        starts = [0]
        for bar in range(1, self.count):
            if bar - 1 in self.finals and bar - 1 not in self.backward \
                    and self.numbers[bar] in ("0", "1", "X1"):
                starts.append(bar)
        return zip(starts, starts[1:] + [self.count])


def blocks_of(signs, start, end):
    """The block of each bar: where its repeat goes back to, and its last pass."""
    heads, head, ended = [], start, False
    for bar in range(start, end):
        fresh = ended and not signs.endings.get(bar)
        if bar == start or bar in signs.forward or fresh:
            head = bar
        heads.append(head)
        inside = [b for b in range(head, bar + 1)]
        closes = any(b in signs.backward for b in inside) and signs.endings.get(bar) \
            and not signs.endings.get(bar + 1)
        ended = bar in signs.backward or closes
    last = {}
    for bar, head in zip(range(start, end), heads):
        passes = max(signs.endings.get(bar, {0}) | {signs.backward.get(bar, 1)})
        last[head] = max(last.get(head, 1), passes)
    return dict(zip(range(start, end), heads)), last


def nearest(bars, start, end):
    inside = sorted(b for b in bars if start <= b < end)
    return inside[0] if inside else None


def play(signs, start, end):
    head_of, last_pass = blocks_of(signs, start, end)
    played, bar, head, times = [], start, None, 1
    taken, jumped, to_coda = set(), False, False
    while bar < end and len(played) < 100000:
        if head_of[bar] != head:
            head, times = head_of[bar], last_pass[head_of[bar]] if jumped else 1
        passes = signs.endings.get(bar)
        if passes and times not in passes:
            bar += 1
            continue
        played.append(bar)
        if bar in signs.backward and not jumped:
            highest = max((max(p) for b, p in signs.endings.items()
                           if start <= b < end and head_of[b] == head), default=0)
            if times < max(signs.backward[bar], highest):
                times, bar = times + 1, head
                continue
        if jumped and bar in signs.marks.get("fine", ()):
            break
        coda = nearest(signs.marks.get("coda", ()), start, end)
        if jumped and to_coda and bar in signs.marks.get("tocoda", ()) and coda is not None:
            bar, head, jumped, to_coda = coda, None, False, False
            continue
        if bar in signs.jumps and bar not in taken:
            target = start if signs.jumps[bar] == "start" \
                else nearest(signs.marks.get("segno", ()), start, end)
            if target is not None:
                taken.add(bar)
                bar, head, jumped, to_coda = target, None, True, True
                continue
        bar += 1
    return played


def ranges(bars):
    """[0, 1, 2, 0] as "1-3 1"."""
    texts, first = [], None
    for i, bar in enumerate(bars):
        first = bar if first is None else first
        if i + 1 == len(bars) or bars[i + 1] != bar + 1:
            texts.append(str(first + 1) if first == bar else "%d-%d" % (first + 1, bar + 1))
            first = None
    return " ".join(texts)


def unfold(path):
    signs = Signs(root_of(path))
    return [bar for start, end in signs.movements() for bar in play(signs, start, end)], signs.count


def told_by(program, path, count):
    out = subprocess.run([program, "info", path], stdout=subprocess.PIPE, text=True,
                         env={"COLUMNS": "100000"}, check=False).stdout
    found = re.search(r"^Played: ((?:.*\n)(?: +.*\n)*)", out, re.MULTILINE)
    return " ".join(found.group(1).split()) if found else ranges(range(count))


def documents(arguments):
    """The files, and those in the folders; a folder that is not there has none."""
    for path in arguments:
        if os.path.isfile(path):
            yield path
        elif os.path.isdir(path):
            for name in sorted(os.listdir(path)):
                if name.endswith((".musicxml", ".xml", ".mxl")):
                    yield os.path.join(path, name)


def main(arguments):
    program = None
    if arguments[:1] == ["--zarn"]:
        program, arguments = arguments[1], arguments[2:]
    paths = list(documents(arguments))
    differing = 0
    for path in paths:
        bars, count = unfold(path)
        mine = ranges(bars)
        if program is None:
            print("%s: %s" % (path, mine))
            continue
        told = told_by(program, path, count)
        if told != mine:
            differing += 1
            print("%s\n  the signs: %s\n  zarn:      %s" % (path, mine, told))
    if program is not None:
        print("%d of %d documents are unfolded alike" % (len(paths) - differing, len(paths)))
    return 1 if differing else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
