// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/signs/Ornaments.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/writer/ExportContext.h>
#include <ZarnCore/io/musicxml/writer/SpelledPitch.h>
#include <ZarnCore/model/ZarnBeat.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <string_view>

namespace zarn::io {

namespace {

/// An element of <ornaments> and its ornament (MusicXML 4.0): an inverted mordent goes upwards. Of
/// several elements with the same value the first is its name.
struct OrnamentElement {
    Tag tag;
    Ornament ornament;
    bool isDelayed = false;
};

constexpr OrnamentElement ornaments[] = {
    {Tag::Turn, Ornament::Turn},
    {Tag::InvertedTurn, Ornament::InvertedTurn},
    {Tag::Mordent, Ornament::LowerMordent},
    {Tag::InvertedMordent, Ornament::UpperMordent},
    {Tag::DelayedTurn, Ornament::Turn, true},
    {Tag::DelayedInvertedTurn, Ornament::InvertedTurn, true},
};

/// The semitones by which an accidental-value of MusicXML 4.0 alters a step.
struct Alteration {
    std::string_view accidental;
    int semitones;
};

constexpr Alteration alterations[] = {
    {"sharp", 1},       {"flat", -1},      {"natural", 0},       {"double-sharp", 2},
    {"sharp-sharp", 2}, {"flat-flat", -2}, {"natural-sharp", 1}, {"natural-flat", -1},
};

constexpr int semitoneOfStep[] = {0, 2, 4, 5, 7, 9, 11};
constexpr int steps = 7;

} // namespace

int alterInKey(int step, int fifths)
{
    constexpr int orderOfSharps[] = {1, 3, 5, 0, 2, 4, 6}; // of C, D, E, F, G, A, B
    const int order = orderOfSharps[step];
    if (fifths > order)
        return 1;
    return -fifths > steps - 1 - order ? -1 : 0;
}

const char *accidentalName(int semitones)
{
    const auto *const named =
        std::find_if(std::begin(alterations), std::end(alterations),
                     [semitones](const Alteration &row) { return row.semitones == semitones; });
    return named->accidental.data();
}

bool isAccidentalOf(std::string_view name, int semitones)
{
    return std::any_of(std::begin(alterations), std::end(alterations), [&](const Alteration &row) {
        return row.accidental == name && row.semitones == semitones;
    });
}

namespace {

/// What stands beside a trill with a note so many semitones above: the alteration of the next step,
/// where it is not the one of the key.
void writeTrill(const Note &note, const SpelledPitch &pitch, int fifths, pugi::xml_node ornaments,
                ExportContext &context)
{
    const auto trill = note.trill();
    auto mark = addElement(ornaments, tagName(Tag::TrillMark));
    const int step = pitch.step;
    const int upper = (step + 1) % steps;
    const int natural =
        semitoneOfStep[upper] + (upper == 0 ? 12 : 0) - semitoneOfStep[step] - pitch.alter;
    const int alter = static_cast<int>(trill.interval) - natural;
    const auto *const named =
        std::find_if(std::begin(alterations), std::end(alterations),
                     [alter](const Alteration &row) { return row.semitones == alter; });
    if (alter != alterInKey(upper, fifths)) {
        if (named != std::end(alterations))
            addElement(ornaments, tagName(Tag::AccidentalMark), named->accidental.data());
        else if (trill.interval <= 2)
            addAttribute(mark, "trill-step", trill.interval == 1 ? "half" : "whole");
        else
            context.addUnheld("interval of a trill");
    }
    context.addUnheldIf(trill.speed != Trill().speed, "speed of a trill");
}

} // namespace

void writeOrnaments(const Beat &beat, const Note *note, bool isFirst, const SpelledPitch *pitch,
                    int fifths, pugi::xml_node notations, ExportContext &context)
{
    const auto element = [&] { return ensureElement(notations, tagName(Tag::Ornaments)); };
    if (note && note->trill().interval != 0) {
        if (pitch && !beat.isGrace())
            writeTrill(*note, *pitch, fifths, element(), context);
        else
            context.addUnheld("trill on a note without a pitch or time");
    }
    if (note && note->ornament() != Ornament::NoOrnament)
        for (const auto &row : ornaments)
            if (row.ornament == note->ornament() && !row.isDelayed)
                addElement(element(), tagName(row.tag));
    if (!isFirst || beat.tremolo() == 0)
        return;
    const int flags = std::max(static_cast<int>(beat.rhythmValue().getNoteValue())
                                   - static_cast<int>(RhythmValue::NoteValue::Quarter),
                               0);
    const int strokes = static_cast<int>(beat.tremolo()) - flags;
    if (!note || beat.isGrace() || strokes < 1)
        return context.addUnheld("tremolo slower than its note");
    addAttribute(addElement(element(), tagName(Tag::Tremolo), strokes), "type", "single");
}

bool OrnamentReader::read(Tag tag, pugi::xml_node ornament, WrittenNote &note)
{
    switch (tag) {
    case Tag::Tremolo:
        _tremolo = ornament;
        _hasTremolo = true;
        return true;
    case Tag::TrillMark:
        _trill = ornament;
        _hasTrill = true;
        return true;
    case Tag::AccidentalMark:
        // Of a trill it is read there; the turns have no place for one.
        return static_cast<bool>(ornament.parent().child(tagName(Tag::TrillMark)));
    default:
        break;
    }
    const auto *const row =
        std::find_if(std::begin(ornaments), std::end(ornaments),
                     [tag](const OrnamentElement &element) { return element.tag == tag; });
    if (row == std::end(ornaments))
        return false;
    if (row->isDelayed)
        _context.addProblem(ornament, "a delayed turn was read as one on the note");
    note.marks.setOrnament(row->ornament);
    note.mayExclude = true;
    return true;
}

/// The strokes of a tremolo come to the flags that the note has already.
void OrnamentReader::setTremolo(WrittenNote &note, int type)
{
    constexpr int fastest = 4;
    constexpr int unmeasured = 3;
    const int flags = std::max(type - WrittenRhythm::Quarter, 0);
    const bool isMeasured = std::strcmp(_tremolo.attribute("type").value(), "unmeasured") != 0;
    const int strokes = isMeasured ? _context.integer(_tremolo, unmeasured) : 0;
    const int speed = strokes == 0 ? std::max(unmeasured, flags + 1) : strokes + flags;
    if (note.grace || note.kind == NoteKind::Rest || strokes < 0 || flags >= fastest) {
        _context.addUnheld(_tremolo, Tag::Tremolo);
        _context.addProblem(_tremolo, "a tremolo on a note that has no time for it was left out");
        return;
    }
    if (speed > fastest)
        _context.addProblem(_tremolo, "a tremolo faster than 64ths was read as one of 64ths");
    note.beatMarks.setTremolo(static_cast<unsigned>(std::min(speed, fastest)));
    note.mayExclude = true;
}

/// The upper note is the next one of the key, unless the document says how far away it is.
void OrnamentReader::setTrill(WrittenNote &note, int fifths)
{
    if (note.kind != NoteKind::Pitched || note.grace) {
        _context.addUnheld(_trill, Tag::TrillMark);
        _context.addProblem(_trill, "a trill on a note without a pitch or time was left out");
        return;
    }
    const int upper = (note.step + 1) % steps;
    int alter = alterInKey(upper, fifths);
    const auto mark = _trill.parent().child(tagName(Tag::AccidentalMark));
    const auto *const named =
        std::find_if(std::begin(alterations), std::end(alterations),
                     [text = std::string_view(mark.child_value())](const Alteration &alteration) {
                         return alteration.accidental == text;
                     });
    if (named != std::end(alterations))
        alter = named->semitones;
    else if (mark)
        _context.addUnheld(mark, Tag::AccidentalMark);
    int interval = semitoneOfStep[upper] + (upper == 0 ? 12 : 0) + alter - semitoneOfStep[note.step]
        - note.alter;
    const std::string_view step = _trill.attribute("trill-step").value();
    if (!mark && (step == "half" || step == "whole"))
        interval = step == "half" ? 1 : 2;
    Trill trill;
    trill.interval =
        static_cast<std::uint8_t>(std::clamp(interval, 1, static_cast<int>(Trill::WidestInterval)));
    note.marks.setTrill(trill);
    note.mayExclude = true;
}

} // namespace zarn::io
