// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/NoteReader.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/TupletAhead.h>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace zarn::io {

namespace {

/// MusicXML 4.0, note-type-value, from the longest to the shortest.
constexpr std::string_view typeNames[] = {"maxima",  "long",   "breve", "whole", "half",
                                          "quarter", "eighth", "16th",  "32nd",  "64th",
                                          "128th",   "256th",  "512th", "1024th"};

/// Names of voices past this number share the last: no part has so many, and each is looked for.
constexpr int mostVoices = 256;

constexpr int semitoneOfStep[] = {0, 2, 4, 5, 7, 9, 11};

std::string inTheTimeOf(const TupletRatio &ratio, int factor)
{
    return std::to_string(ratio.actual * factor) + " in the time of "
        + std::to_string(ratio.normal * factor);
}

/// 0 for C to 6 for B; -1 for anything else.
int stepOf(const char *text)
{
    constexpr std::string_view letters = "CDEFGAB";
    if (text[0] == '\0' || text[1] != '\0')
        return WrittenNote::Unset;
    const auto at = letters.find(text[0]);
    return at == letters.npos ? WrittenNote::Unset : static_cast<int>(at);
}

bool isYes(const char *text)
{
    return std::strcmp(text, "yes") == 0;
}

bool isNo(const char *text)
{
    return std::strcmp(text, "no") == 0;
}

} // namespace

const char *noteTypeName(int type)
{
    return typeNames[type].data();
}

int noteTypeOf(std::string_view name)
{
    const auto *found =
        std::find_if(std::begin(typeNames), std::end(typeNames), [name](std::string_view known) {
            return known.size() == name.size() && known[0] == name[0] && known == name;
        });
    return found == std::end(typeNames) ? WrittenRhythm::NoType
                                        : static_cast<int>(found - std::begin(typeNames));
}

void NoteReader::startPart(const PartFacts &facts, PartTally &tally, SourceTally &whole)
{
    _facts = &facts;
    _chordMarks = {};
    _tally = &tally;
    _notations.startPart(tally, whole);
    _tuplets = {};
}

void NoteReader::read(pugi::xml_node node, WrittenNote &note)
{
    _duration.reset();
    _rhythm = {};
    _modification = {};
    _hasModification = false;
    _notations.startNote();

    note.node = node;
    const char *voice = "1";
    if (node.first_attribute()) { // which few notes have
        if (const auto dynamics = node.attribute("dynamics"))
            readVelocity(dynamics.value(), note);
        note.hidden = isNo(node.attribute("print-object").value());
        note.marks.setHidden(note.hidden);
    }
    for (auto child = node.first_child(); child; child = child.next_sibling()) {
        switch (const auto tag = tagOf(child.name()); tag) {
        case Tag::Grace:
            note.grace = true;
            note.slashed = isYes(child.attribute("slash").value());
            // The stroke tells unless it is said where the time comes from.
            note.isBefore = child.attribute("steal-time-previous") ? true
                : child.attribute("steal-time-following")          ? false
                                                                   : note.slashed;
            break;
        case Tag::Cue:
            note.cue = true;
            note.beatMarks.setCue(true);
            break;
        case Tag::Chord:
            note.chord = true;
            note.beatMarks = _chordMarks;
            break;
        case Tag::Pitch:
            readPitch(child, note);
            break;
        case Tag::Unpitched:
            readUnpitched(child, note);
            break;
        case Tag::Rest:
            note.kind = NoteKind::Rest;
            note.wholeMeasure = isYes(child.attribute("measure").value());
            break;
        case Tag::Duration:
            _duration = _context.decimal(child, 0);
            break;
        case Tag::Tie:
            _notations.readTie(child, note);
            break;
        case Tag::Instrument:
            note.instrument = child.attribute("id").value();
            break;
        case Tag::Voice:
            voice = child.child_value();
            break;
        case Tag::Type:
            readType(child, note);
            break;
        case Tag::Dot:
            ++_rhythm.dots;
            break;
        case Tag::TimeModification:
            _modification = readModification(child);
            _hasModification = true;
            break;
        case Tag::Staff:
            note.staff = std::max(_context.integer(child, 1), 1) - 1;
            break;
        case Tag::Notehead:
            readHead(child, note);
            break;
        case Tag::Notations:
            _notations.read(child, note);
            break;
        case Tag::Play:
            readPlay(child, note);
            break;
        case Tag::Lyric:
            ++_tally->notes.lyrics;
            _notations.addSign(child, tag);
            break;
        case Tag::Accidental:
            readAccidental(child, note);
            break;
        case Tag::Stem:
            readStem(child, note);
            break;
        case Tag::Beam:
            // The inner beams follow from the values; the outer one tells what is joined.
            if (child.attribute("number").as_int(1) == 1) {
                const char first = *child.child_value();
                note.beamedOn = first == 'b' || first == 'c'; // begin, continue
            }
            break;
        default:
            _context.addUnheld(child, tag);
        }
    }
    _notations.finish(note, _rhythm.type, _facts->keys.empty() ? 0 : _facts->keys.back().fifths);
    note.hasSigns = !_notations.signs().empty();
    _chordMarks = note.beatMarks;
    note.voice = voiceNumber(voice);
    const auto &marks = _notations.tupletMarks();
    const auto starts = std::count_if(marks.begin(), marks.end(),
                                      [](const TupletMark &mark) { return mark.starts; });
    _opensTuplets = starts > 0 && !_tuplets.hasOpen(note.voice);
    for (const auto &mark : marks) {
        if (mark.starts && starts == 1 && mark.ratio.isPlain() && _hasModification)
            _tuplets.startAt(note.voice, mark.number,
                             outermostRatio(node, mark.number, _modification));
        else if (mark.starts)
            _tuplets.start(note.voice, mark.number, mark.ratio);
    }
    if (_hasModification)
        _tuplets.split(note.voice, _modification, _rhythm);
    _bracketed = _rhythm;
    if (_hasModification)
        _tuplets.tell(note.voice, _bracketed);
    count(note);
    if (_hasModification && !note.grace)
        addDots(_tuplets.suppliedDots(note.voice));
}

void NoteReader::addDots(int dots)
{
    _rhythm.dots += dots;
    _bracketed.dots += dots;
}

int NoteReader::supplyDots(const WrittenNote &note, const utils::rational &divisions)
{
    if (!_opensTuplets)
        return 0;
    const int dots = missingDots(note.node, divisions);
    _tuplets.supplyDots(note.voice, dots);
    addDots(dots);
    return dots;
}

void NoteReader::finishTuplets(const WrittenNote &note)
{
    const auto &marks = _notations.tupletMarks();
    if (marks.empty())
        return;
    const int ratios = note.rhythm.hasPrimaryTuplet() + note.rhythm.hasSecondaryTuplet();
    for (int lost = _tuplets.hold(note.voice, ratios); lost > 0; --lost) {
        _context.addUnheld(note.node, Tag::Tuplet);
        _context.addProblem(note.node,
                            ratios < 2 ? "a tuplet that leaves the length of its notes as it is "
                                         "lost its bracket"
                                       : "a tuplet inside of two others lost its bracket");
    }
    for (const auto &mark : marks) {
        const auto &ratio = mark.ratio.isPlain() && _hasModification ? _modification : mark.ratio;
        if (mark.starts && !ratio.isPlain() && (ratio.actual == 1 || ratio.normal == 1))
            _context.addProblem(note.node,
                                "a tuplet of " + inTheTimeOf(ratio, 1) + " was made one of "
                                    + inTheTimeOf(ratio, 2));
    }
    for (const auto &mark : marks)
        if (!mark.starts && !_tuplets.stop(note.voice, mark.number) && !note.chord)
            _context.addUnheld(note.node, Tag::Tuplet);
}

void NoteReader::readPitch(pugi::xml_node pitch, WrittenNote &note)
{
    note.kind = NoteKind::Pitched;
    utils::rational alter = 0;
    for (auto child = pitch.first_child(); child; child = child.next_sibling()) {
        switch (const auto tag = tagOf(child.name()); tag) {
        case Tag::Step:
            note.step = stepOf(child.child_value());
            break;
        case Tag::Alter:
            alter = _context.decimal(child, 0);
            break;
        case Tag::Octave:
            note.octave = std::clamp(_context.integer(child, 4), -1, 10);
            break;
        default:
            _context.addUnheld(child, tag);
        }
    }
    if (note.step == WrittenNote::Unset) {
        _context.addProblem(pitch, "a pitch without a step from A to G was read as C");
        note.step = 0;
    }
    note.alter = static_cast<int>(std::clamp<std::int64_t>(alter.round(), -12, 12));
    if (!alter.isInteger()) {
        ++_tally->notes.microtone;
        _context.addProblem(pitch,
                            "a microtone (alter " + alter.toString()
                                + ") was moved to the nearest semitone");
    }
    const int midi = 12 * (note.octave + 1) + semitoneOfStep[note.step] + note.alter;
    note.midi = std::clamp(midi, 0, 127);
    if (note.midi != midi)
        _context.addProblem(pitch, "a pitch outside of the MIDI keys was moved to the nearest key");
}

void NoteReader::readUnpitched(pugi::xml_node unpitched, WrittenNote &note)
{
    note.kind = NoteKind::Unpitched;
    for (auto child = unpitched.first_child(); child; child = child.next_sibling()) {
        switch (const auto tag = tagOf(child.name()); tag) {
        case Tag::DisplayStep:
            note.step = stepOf(child.child_value());
            break;
        case Tag::DisplayOctave:
            note.octave = std::clamp(_context.integer(child, 4), -1, 10);
            break;
        default:
            _context.addUnheld(child, tag);
        }
    }
}

void NoteReader::readHead(pugi::xml_node head, WrittenNote &note)
{
    note.head = head.child_value();
    note.crossHead = std::strcmp(note.head, "x") == 0;
    note.ghost = isYes(head.attribute("parentheses").value());
    const char *const filled = head.attribute("filled").value();
    note.headFill = isYes(filled)        ? HeadFill::Filled
        : std::strcmp(filled, "no") == 0 ? HeadFill::Open
                                         : HeadFill::Auto;
    const bool isSlash = std::strcmp(note.head, "slash") == 0;
    note.beatMarks.setSlashed(isSlash && (!note.chord || note.beatMarks.isSlashed()));
}

void NoteReader::readStem(pugi::xml_node stem, WrittenNote &note)
{
    const std::string_view direction = stem.child_value();
    if (direction == "up")
        note.beatMarks.setStemOrientation(ZarnStemOrientation::Upward);
    else if (direction == "down")
        note.beatMarks.setStemOrientation(ZarnStemOrientation::Downward);
    else if (direction != "none")
        _context.addUnheld(stem, Tag::Stem);
    else if (_rhythm.type >= WrittenRhythm::Quarter - 1) // Longer notes have none anyway.
        note.beatMarks.setStemOrientation(ZarnStemOrientation::None);
}

/// In percent of a forte, which is 90 in MIDI (MusicXML 4.0, dynamics of a note).
void NoteReader::readVelocity(const char *dynamics, WrittenNote &note)
{
    const auto percent = parseDecimal(dynamics);
    if (percent && percent->sign() > 0)
        note.marks.setVelocity(static_cast<unsigned>(
            std::clamp<std::int64_t>((*percent * utils::rational(9, 10)).round(), 1, 127)));
}

void NoteReader::readPlay(pugi::xml_node play, WrittenNote &note)
{
    for (const auto child : play.children()) {
        const bool isMute = std::strcmp(child.name(), "mute") == 0;
        if (isMute && std::strcmp(child.child_value(), "palm") == 0)
            note.marks.setPalmMute(true);
        else
            _context.addUnheld(child);
    }
    note.mayExclude = true;
}

void NoteReader::readAccidental(pugi::xml_node accidental, WrittenNote &note)
{
    const auto says = [&](const char *attribute) {
        return isYes(accidental.attribute(attribute).value());
    };
    if (says("parentheses"))
        note.marks.setAccidentalDisplay(AccidentalDisplay::Parentheses);
    else if (says("bracket") || says("editorial"))
        note.marks.setAccidentalDisplay(AccidentalDisplay::Brackets);
    else if (says("cautionary"))
        note.marks.setAccidentalDisplay(AccidentalDisplay::Shown);
    note.hasAccidental = isAccidentalOf(accidental.child_value(), note.alter);
}

void NoteReader::readType(pugi::xml_node type, WrittenNote &note)
{
    if (std::strcmp(type.attribute("size").value(), "cue") == 0)
        note.beatMarks.setCue(true);
    const std::string_view name = type.child_value();
    if (const int number = noteTypeOf(name); number != WrittenRhythm::NoType)
        _rhythm.type = number;
    else
        _context.addProblem(type, "there is no note type \"" + std::string(name) + "\"");
}

TupletRatio NoteReader::readModification(pugi::xml_node node)
{
    TupletRatio ratio;
    for (auto child = node.first_child(); child; child = child.next_sibling()) {
        const auto tag = tagOf(child.name());
        if (tag == Tag::ActualNotes)
            ratio.actual = _context.integer(child, 1);
        else if (tag == Tag::NormalNotes)
            ratio.normal = _context.integer(child, 1);
    }
    constexpr int mostTerm = 10'000;
    if (ratio.actual >= 1 && ratio.normal >= 1 && ratio.actual <= mostTerm
        && ratio.normal <= mostTerm)
        return ratio;
    _context.addProblem(node,
                        "a time modification of " + std::to_string(ratio.actual) + " in "
                            + std::to_string(ratio.normal) + " was left out");
    return {};
}

int NoteReader::voiceNumber(const char *name)
{
    auto &voices = _tally->voices;
    const auto found = std::find(voices.begin(), voices.end(), name);
    const auto number = static_cast<int>(found - voices.begin());
    if (found != voices.end())
        return number;
    if (number == mostVoices)
        return mostVoices - 1;
    voices.emplace_back(name);
    return number;
}

void NoteReader::count(const WrittenNote &note)
{
    auto &tally = _tally->notes;
    ++tally.total;
    tally.pitched += note.kind == NoteKind::Pitched;
    tally.rests += note.kind == NoteKind::Rest;
    tally.unpitched += note.kind == NoteKind::Unpitched;
    tally.withoutPitch += note.kind == NoteKind::Unknown;
    tally.grace += note.grace;
    tally.graceSlashed += note.slashed;
    tally.chord += note.chord;
    tally.cue += note.cue;
    tally.measureRests += note.kind == NoteKind::Rest && note.wholeMeasure;
    tally.dotted += _rhythm.dots > 0;
    tally.inTuplet += _hasModification;
    tally.hidden += note.hidden;
    tally.hiddenRests += note.hidden && note.kind == NoteKind::Rest;
}

} // namespace zarn::io
