# SPDX-License-Identifier: MIT
"""What a MusicXML document says, in rows that can be counted: notes, ties, slurs, lyrics and so on.

A fact is a tuple with its place: the number of the part, of the measure and the onset from its start,
in 128th notes. Two documents are compared by the facts that they share; times may be one 128th
apart, because programs round them in tuplets.
"""
import collections
import io
import itertools
import pathlib
import re
import xml.etree.ElementTree as ET
import zipfile
from fractions import Fraction

STEPS = {"C": 0, "D": 2, "E": 4, "F": 5, "G": 7, "A": 9, "B": 11}
JUMPS = ("segno", "coda", "tocoda", "dacapo", "dalsegno", "fine")
BOW = "\u203f"
SUFFIXES = (".musicxml", ".xml", ".mxl")

# The rows of a comparison, in the order of their tables.
ROWS = ["onset and pitch", "with length", "with spelling", "with staff and voice", "ties", "strings",
        "frets", "bends, hammer-ons, pull-offs", "slides", "harmonics", "octave shifts", "slurs",
        "tuplet ends", "beams", "key signatures", "time signatures", "clefs", "lyrics", "dynamics",
        "wedges", "pedals", "words", "tempos", "chord symbols", "articulations", "fingerings",
        "jumps", "repeats", "endings"]


def scores_in(folder):
    return sorted(path for path in pathlib.Path(folder).iterdir() if path.suffix in SUFFIXES)


def root_of(path):
    data = pathlib.Path(path).read_bytes()
    if data[:2] == b"PK":
        with zipfile.ZipFile(io.BytesIO(data)) as archive:
            container = ET.fromstring(archive.read("META-INF/container.xml"))
            files = [node for node in container.iter() if node.tag.endswith("rootfile")]
            named = [node.get("full-path") for node in files
                     if "musicxml" in (node.get("media-type") or "musicxml")]
            data = archive.read(named[0])
    return ET.fromstring(data)


def measures_of(root):
    """The measures of each part, also of a timewise document."""
    if root.tag == "score-partwise":
        return [part.findall("measure") for part in root.findall("part")]
    parts = collections.OrderedDict()
    for measure in root.findall("measure"):
        for part in measure.findall("part"):
            parts.setdefault(part.get("id"), []).append(part)
    return list(parts.values())


def plain(text):
    return " ".join((text or "").split())


def sung(lyric):
    """The words of a lyric; the bow between two of them is an element, or a sign of many kinds."""
    parts = (BOW if node.tag == "elision" else node.text or "" for node in lyric
             if node.tag in ("text", "elision"))
    return plain(re.sub("[~%s\ue550-\ue552]+" % BOW, BOW, "".join(parts)))


class Time(int):
    """A time or a length in 128th notes."""


def rounded(quarters):
    return Time(round(quarters * 32))


class Reader:
    """Collects the facts of one part."""

    def __init__(self, facts, part):
        self.facts = facts
        self.part = part
        self.divisions = 1
        self.voices = {}  # number within the staff, by staff and voice
        self.in_force = {}
        self.levels = set()  # by place and staff

    def add(self, row, *fact):
        self.facts[row][(self.part,) + fact] += 1

    def measure(self, number, measure):
        self.number = number
        self.cursor = self.chord_start = Fraction(0)
        for node in measure:
            handler = getattr(self, "read_" + node.tag.replace("-", "_"), None)
            if handler is not None:
                handler(node)

    def length(self, node):
        return Fraction(node.findtext("duration", "0").strip()) / self.divisions

    def read_backup(self, node):
        self.cursor -= self.length(node)

    def read_forward(self, node):
        self.cursor += self.length(node)

    def read_attributes(self, node):
        self.divisions = Fraction(node.findtext("divisions", str(self.divisions)).strip())
        for key in node.findall("key"):
            if key.find("fifths") is not None:
                self.change("key signatures", key, int(key.findtext("fifths")))
        for time in node.findall("time"):
            self.change("time signatures", time, time.findtext("beats"), time.findtext("beat-type"))
        for clef in node.findall("clef"):
            what = (clef.findtext("sign"), clef.findtext("line", "0"),
                    clef.findtext("clef-octave-change", "0"))
            staff = clef.get("number", "1")
            if self.in_force.get(("clefs", staff)) != what:
                self.add("clefs", self.number, rounded(self.cursor), staff, what[0], what[2])
            self.in_force[("clefs", staff)] = what

    def change(self, row, node, *fact):
        """A signature that is another than before; one that is said again is no fact."""
        for staff in (node.get("number"),) if node.get("number") else ("1", "2", "3", "4"):
            is_new = self.in_force.get((row, staff)) != fact
            self.in_force[(row, staff)] = fact
            if is_new and staff == (node.get("number") or "1"):
                self.add(row, self.number, *fact)

    def read_note(self, node):
        is_chord = node.find("chord") is not None
        is_grace = node.find("grace") is not None
        length = Fraction(0) if is_grace else self.length(node)
        onset = self.chord_start if is_chord else self.cursor
        if not is_chord:
            self.chord_start = self.cursor
            self.cursor += length
        place = (self.number, rounded(onset))
        pitch = node.find("pitch")
        unpitched = node.find("unpitched")
        if pitch is not None:
            step, octave = pitch.findtext("step").strip(), int(pitch.findtext("octave"))
            alter = Fraction(pitch.findtext("alter", "0").strip())
            what = STEPS[step] + alter + 12 * (octave + 1)
            spelling = (step, alter, octave)
        elif unpitched is not None:
            what = ("unpitched", unpitched.findtext("display-step"),
                    unpitched.findtext("display-octave"))
            spelling = what
        else:
            return self.read_notations(node, place, None)
        staff, voice = node.findtext("staff", "1").strip(), node.findtext("voice", "1").strip()
        voices = self.voices.setdefault(staff, {})
        rank = voices.setdefault(voice, len(voices))
        self.add("onset and pitch", *place, what, is_grace)
        self.add("with length", *place, what, is_grace, rounded(length))
        self.add("with spelling", *place, spelling, is_grace)
        self.add("with staff and voice", *place, what, is_grace, staff, rank)
        for tie in node.findall("tie"):
            self.add("ties", *place, what, tie.get("type"))
        for beam in node.findall("beam"):
            self.add("beams", *place, beam.get("number", "1"), plain(beam.text))
        for lyric in node.findall("lyric"):
            words = sung(lyric)
            if words:
                self.add("lyrics", *place, lyric.get("number", "1"), words)
        self.read_notations(node, place, what)

    def read_notations(self, node, place, what):
        for notations in node.findall("notations"):
            for slur in notations.findall("slur"):
                if slur.get("type") != "continue":
                    self.add("slurs", *place, slur.get("type"))
            for tuplet in notations.findall("tuplet"):
                self.add("tuplet ends", *place, tuplet.get("type"))
            for kind in ("slide", "glissando"):
                for slide in notations.findall(kind):
                    self.add("slides", *place, what, slide.get("type"))
            for dynamics in notations.findall("dynamics"):
                self.read_dynamics(dynamics, place, node.findtext("staff", "1").strip())
            for articulation in notations.iterfind("articulations/*"):
                self.add("articulations", *place, articulation.tag)
            technical = notations.find("technical")
            for sign in technical if technical is not None else ():
                if sign.tag == "string":
                    self.add("strings", *place, what, plain(sign.text))
                elif sign.tag == "fret":
                    self.add("frets", *place, what, plain(sign.text))
                elif sign.tag in ("bend", "hammer-on", "pull-off"):
                    self.add("bends, hammer-ons, pull-offs", *place, what, sign.tag)
                elif sign.tag == "harmonic":
                    self.add("harmonics", *place, what)
                elif sign.tag in ("fingering", "pluck"):
                    # Said over notes and tablature it is one finger.
                    self.facts["fingerings"][(self.part, *place, what, plain(sign.text))] = 1

    def read_dynamics(self, dynamics, place, staff):
        for level in dynamics:
            # What a staff says twice at one place is one sign.
            if (place, staff, level.tag, level.text) not in self.levels:
                self.levels.add((place, staff, level.tag, level.text))
                self.add("dynamics", *place, level.tag)

    def read_direction(self, node):
        offset = Fraction(node.findtext("offset", "0").strip()) / self.divisions
        place = (self.number, rounded(self.cursor + offset))
        for kind in node.findall("direction-type"):
            for sign in kind:
                if sign.tag == "dynamics":
                    self.read_dynamics(sign, place, node.findtext("staff", "1").strip())
                elif sign.tag == "wedge" and sign.get("type") != "continue":
                    self.add("wedges", self.number, sign.get("type"))
                elif sign.tag == "octave-shift" and sign.get("type") != "continue":
                    self.add("octave shifts", self.number, sign.get("type"), sign.get("size", "8"))
                elif sign.tag == "pedal" and sign.get("type") in ("start", "stop", "change"):
                    self.add("pedals", self.number, sign.get("type"))
                elif sign.tag == "words":
                    for word in plain(sign.text).split():
                        self.add("words", self.number, word)
                elif sign.tag == "metronome":
                    self.facts["tempos"][(self.part, *place, sign.findtext("beat-unit"),
                                          plain(sign.findtext("per-minute")))] = 1
        self.read_sounds(node)

    def read_sounds(self, node):
        for sound in ([node] if node.tag == "sound" else node.findall("sound")):
            for jump in JUMPS:
                if sound.get(jump) is not None:
                    self.facts["jumps"][(self.number, jump)] = 1

    read_sound = read_sounds

    def read_harmony(self, node):
        self.add("chord symbols", self.number, rounded(self.cursor), node.findtext("root/root-step"),
                 node.findtext("root/root-alter", "0"), plain(node.findtext("kind")))

    def read_barline(self, node):
        for repeat in node.findall("repeat"):
            self.facts["repeats"][(self.number, repeat.get("direction"))] = 1
        for ending in node.findall("ending"):
            self.facts["endings"][(self.number, ending.get("number"), ending.get("type"))] = 1


def facts_of(path):
    """Counters of facts by row."""
    facts = {row: collections.Counter() for row in ROWS}
    for number, measures in enumerate(measures_of(root_of(path))):
        reader = Reader(facts, number)
        for index, measure in enumerate(measures):
            reader.measure(index, measure)
    return facts


def near(fact):
    """The same fact at the times around it."""
    around = [[part - 1, part, part + 1] if isinstance(part, Time) else [part] for part in fact]
    return (other for other in itertools.product(*around) if other != fact)


def kept(facts, of):
    """How many facts of a row are still there."""
    count = sum((facts & of).values())
    free = facts - of
    for fact, lost in (of - facts).items():
        for other in near(fact):
            found = min(lost, free[other])
            lost -= found
            free[other] -= found
            count += found
    return count


def note_count(path):
    """Notes with a pitch or a drum, grace notes too, and measures of the first part."""
    parts = measures_of(root_of(path))
    notes = sum(1 for measures in parts for measure in measures for note in measure.findall("note")
                if note.find("rest") is None)
    return notes, len(parts[0]) if parts else 0
