// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/writer/NoteWriter.h>

#include <ZarnCore/io/midi/DrumStaff.h>
#include <ZarnCore/io/musicxml/MusicXmlTag.h>
#include <ZarnCore/io/musicxml/NoteReader.h>
#include <ZarnCore/io/musicxml/signs/Articulations.h>
#include <ZarnCore/io/musicxml/signs/Bends.h>
#include <ZarnCore/io/musicxml/signs/Fermatas.h>
#include <ZarnCore/io/musicxml/signs/Lyrics.h>
#include <ZarnCore/io/musicxml/signs/Ornaments.h>
#include <ZarnCore/io/musicxml/signs/Technical.h>
#include <ZarnCore/io/musicxml/writer/AttributesWriter.h>
#include <ZarnCore/io/musicxml/writer/ElementStock.h>
#include <ZarnCore/io/musicxml/writer/ExportContext.h>
#include <ZarnCore/io/musicxml/writer/LineSigns.h>
#include <ZarnCore/io/musicxml/writer/MeasureCursor.h>
#include <ZarnCore/model/notes/StaffLineOfNote.h>
#include <ZarnCore/music/ZarnMusic.h>

#include <algorithm>

namespace zarn::io {

using utils::rational;
using NoteValue = RhythmValue::NoteValue;

namespace {

constexpr const char *steps[] = {"C", "D", "E", "F", "G", "A", "B"};
constexpr int stepsOfOctave = 7;

constexpr int middleLine = 4;
constexpr int highestOctave = 9;

/// The number of a value in `WrittenRhythm`, and its tuplets: values past the ends of the scale are
/// held with a ratio of their own.
struct WrittenType {
    int type;
    bool isBeyond = false;
};

WrittenType typeOf(const RhythmValue &rhythm)
{
    const auto value = rhythm.getNoteValue();
    const int type = static_cast<int>(value) + 1;
    const auto ratio = rhythm.getPrimaryTupletRatio();
    if (rhythm.hasSecondaryTuplet())
        return {type};
    if (value == NoteValue::TwoHundredFiftySixth && ratio == RhythmValue::TupletRatio(4, 2))
        return {type + 1, true};
    if (value == NoteValue::TwoHundredFiftySixth && ratio == RhythmValue::TupletRatio(8, 2))
        return {type + 2, true};
    if (value == NoteValue::Long && ratio == RhythmValue::TupletRatio(2, 4))
        return {type - 1, true};
    return {type};
}

/// Whether nothing but lines and octaves is to be written of time that is kept free.
bool isBare(const Beat &beat)
{
    auto marks = beat.marks();
    marks.setPlaceHolder(false);
    marks.setOttavia(Ottavia::None);
    return marks.isPlain() && !beat.hasDetails();
}

/// Null for the direction that a program chooses.
const char *stemOf(ZarnStemOrientation orientation)
{
    switch (orientation) {
    case ZarnStemOrientation::Upward:
        return "up";
    case ZarnStemOrientation::Downward:
        return "down";
    case ZarnStemOrientation::None:
        return "none";
    case ZarnStemOrientation::Undefined:
        break;
    }
    return nullptr;
}

void addYes(pugi::xml_node node, const char *name)
{
    addAttribute(node, name, "yes");
}

} // namespace

bool isFreeTime(const Beat &beat)
{
    return beat.isPlaceHolder() && !beat.isGrace() && isBare(beat);
}

void NoteWriter::startBar(const Bar &bar, int fifths)
{
    _bar = &bar;
    _fifths = fifths;
    _accidentals.startBar(fifths);
}

pugi::xml_node NoteWriter::startNote(const RhythmicBeat &beat, MeasureCursor &cursor)
{
    auto node = _stock.addEmpty(cursor.measure(), "note");
    if (beat.beat->isGrace()) {
        const bool isSlashed = beat.beat->isSlashedGrace();
        auto grace = addElement(node, "grace");
        if (isSlashed)
            addYes(grace, "slash");
        // A stroke means that the time is taken from before, unless it is said.
        if (isSlashed != (beat.beat->graceType() == GraceType::BeforeBeat))
            addAttribute(grace, isSlashed ? "steal-time-following" : "steal-time-previous", "50");
    }
    if (beat.beat->isCue())
        addElement(node, "cue");
    return node;
}

void NoteWriter::write(const RhythmicBeat &beat, const VoicePlace &place, MeasureCursor &cursor,
                       LineSigns &signs)
{
    const auto &notes = beat.beat->notes();
    _context.addUnheldIf(beat.beat->beamMode() != BeamMode::Auto && !beat.isBeamSaid
                             && !place.staff->isAlternate,
                         "beam that is as it would be anyway");
    _context.addUnheldIf(beat.beat->isSlashedGrace() && !beat.beat->isGrace(),
                         "stroke through a beat that is no grace beat");
    if (!beat.beat->isGrace())
        _duration = 0;
    _hasNotations = signs.isBusy() || (_fermatas && !_fermatas->empty()) || !beat.isPlain;
    if (notes.empty()) {
        if (!place.staff->isAlternate)
            tellRest(beat);
        auto node = startNote(beat, cursor);
        if (beat.beat->isPlaceHolder())
            addAttribute(node, "print-object", "no");
        auto rest = addElement(node, "rest");
        if (beat.fillsBar())
            addYes(rest, "measure");
        if (!beat.beat->isGrace())
            _duration = cursor.advance(beat.length);
        writeTime(beat, nullptr, place, node);
        writeNotations(beat, nullptr, true, place, node, signs);
        if (!place.staff->isAlternate)
            _context.addUnheldIf(writeLyrics(beat.beat->lyrics(), node) != 0,
                                 "syllable without text");
        return;
    }
    if (!beat.beat->isGrace())
        _duration = beat.isInChord ? cursor.lastDuration() : cursor.advance(beat.length);
    for (const auto &note : notes) {
        const bool isFirst = note == notes.front();
        auto node = startNote(beat, cursor);
        if (note->isHidden())
            addAttribute(node, "print-object", "no");
        if (note->velocity() != 0)
            // In percent of a forte, which is 90 in MIDI (MusicXML 4.0, dynamics of a note).
            node.prepend_attribute("dynamics")
                .set_value(decimalText(note->velocity() * 100.0 / 90).c_str());
        if (!isFirst || beat.isInChord)
            addElement(node, "chord");
        if (_plan.isUnpitched(*note))
            writeUnpitched(*note, *beat.beat, *place.staff, node);
        else
            writePitch(*note, *beat.beat, *place.staff, node);
        writeTime(beat, note.get(), place, node);
        // Some readers take a beam of a further note of a chord for that of another beat.
        if (isFirst && (beat.isBeamedFrom || beat.isBeamedOn))
            writeBeams(beat, node);
        writeNotations(beat, note.get(), isFirst, place, node, signs);
        if (isFirst && beat.beat->hasDetails() && !place.staff->isAlternate)
            _context.addUnheldIf(writeLyrics(beat.beat->lyrics(), node) != 0,
                                 "syllable without text");
        if (note->isPalmMuted())
            addElement(addElement(node, "play"), "mute", "palm");
    }
}

/// Signs of notes that a rest may have all the same, for the notes that come in its place.
void NoteWriter::tellRest(const RhythmicBeat &beat)
{
    const Beat &rest = *beat.beat;
    _context.addUnheldIf(rest.isWholeBarRest() && rest.isGrace(),
                         "whole-bar rest without time of its own");
    _context.addUnheldIf(beat.fillsBar() && rest.rhythmValue().hasPrimaryTuplet(),
                         "tuplet of a whole-bar rest");
    _context.addUnheldIf(rest.stemOrientation() != ZarnStemOrientation::Undefined,
                         "stem of a rest");
    _context.addUnheldIf(rest.isSlashed(), "slashes of a rest");
    _context.addUnheldIf(rest.whammyBar().type != WhammyBarType::NoWhammyBar,
                         "whammy bar of a rest");
    _context.addUnheldIf(rest.barVibrato() != Vibrato::None, "vibrato of a rest");
    _context.addUnheldIf(rest.arpeggioDirection() != Direction::None || rest.isNonArpeggio(),
                         "arpeggio of a rest");
}

void NoteWriter::writePitch(const Note &note, const Beat &beat, const PartStaff &staff,
                            pugi::xml_node node)
{
    const int midi = note.midi() != Note::Unset ? note.midi() : writtenMidi(note);
    _isPitched = midi >= 0;
    if (!_isPitched) {
        _context.addProblem("a note without a pitch was written without one");
        return writeUnpitched(note, beat, staff, node);
    }
    _pitch = _spelling.of(note, midi, _fifths);
    if (_pitch.octave < 0) {
        _context.addProblem(
            "a note lower than MusicXML can write was written in its lowest octave");
        _pitch.octave = 0;
    }
    auto pitch = _stock.addEmpty(node, "pitch");
    _stock.addText(pitch, "step", steps[_pitch.step]);
    if (_pitch.alter != 0)
        _stock.addNumber(pitch, "alter", _pitch.alter);
    _stock.addNumber(pitch, "octave", _pitch.octave);
}

/// Places are those of pitches under the clef at hand; under those for percussion and tablature,
/// of the treble clef (MusicXML 4.0, display-step).
void NoteWriter::writeUnpitched(const Note &note, const Beat &beat, const PartStaff &staff,
                                pugi::xml_node node)
{
    _isPitched = false;
    const auto look = lookOfKey(note, *_bar);
    const int line = look ? look->line : staffLineOf(note, beat, *_bar).value_or(middleLine);
    _context.addUnheldIf(!look && note.staffLine() == Note::NoStaffLine
                             && note.percussionArticulation() == Note::Unset,
                         "drum that stands where its pitch does");
    _usualHead = look ? look->head : NoteHead::Normal;
    const ClefType clef = staff.isTablature ? ClefType::G2 : shownClef(clefOver(beat, *_bar));
    // MusicXML counts octaves from C of MIDI key 12.
    const int step = Music::lineOffsetFromClefAndOttavia(clef, 0) - stepsOfOctave + line;
    const int inside = std::clamp(step, 0, stepsOfOctave * (highestOctave + 1) - 1);
    if (inside != step)
        _context.addProblem("a note farther from its staff than MusicXML can write was moved");
    auto unpitched = addElement(node, "unpitched");
    addElement(unpitched, "display-step", steps[inside % stepsOfOctave]);
    addElement(unpitched, "display-octave", inside / stepsOfOctave);
}

/// What stands between the pitch and the beams, in the order of the schema.
void NoteWriter::writeTime(const RhythmicBeat &beat, const Note *note, const VoicePlace &place,
                           pugi::xml_node node)
{
    if (!beat.beat->isGrace())
        _stock.addNumber(node, "duration", _duration);
    if (note && !beat.beat->isCue()) {
        if (note->isTied())
            addAttribute(addElement(node, "tie"), "type", "stop");
        if (note->isTieOrigin())
            addAttribute(addElement(node, "tie"), "type", "start");
    }
    if (note && !_isPitched && note->midi() != Note::Unset)
        addAttribute(addElement(node, "instrument"), "id", _plan.percussionId(note->midi()));
    _stock.addNumber(node, "voice", place.voiceNumber);
    if (!beat.fillsBar()) {
        const auto written = typeOf(beat.beat->rhythmValue());
        _stock.addText(node, "type", noteTypeName(written.type));
        for (unsigned dot = 0; dot < beat.beat->rhythmValue().getAugmentationDot(); ++dot)
            addElement(node, "dot");
        if (note && _isPitched)
            writeAccidental(*note, *place.staff, node);
        // Grace notes have no brackets, which would tell the two ratios apart.
        _context.addUnheldIf(beat.beat->isGrace() && beat.tuplets.count > 1,
                             "tuplet inside of another at a grace note");
        if (beat.tuplets.count > 0 && !written.isBeyond) {
            auto product = beat.tuplets.product();
            // The halves of a tremolo; the tree holds no ratio with a 1 in it.
            if (beat.isOfTremolo && product == TupletRatio{4, 2})
                product = {2, 1};
            auto modification = addElement(node, "time-modification");
            addElement(modification, "actual-notes", product.actual);
            addElement(modification, "normal-notes", product.normal);
            addElement(modification, "normal-type", noteTypeName(written.type));
        }
    }
    if (const char *const stem = stemOf(beat.beat->stemOrientation()); stem && note) {
        _stock.addText(node, "stem", stem);
        // Readers take it for what such notes are anyway.
        _context.addUnheldIf(beat.beat->stemOrientation() == ZarnStemOrientation::None
                                 && beat.beat->rhythmValue().getNoteValue()
                                     < RhythmValue::NoteValue::Half,
                             "missing stem of a long note");
    }
    if (note)
        writeHead(*note, *beat.beat, node);
    if (place.hasSeveralStaves)
        _stock.addNumber(node, "staff", place.staffNumber);
}

/// By the rules of the bar: what the key, or a note before it in the bar, does not say already.
void NoteWriter::writeAccidental(const Note &note, const PartStaff &staff, pugi::xml_node node)
{
    // A tablature shows none; what is wished is kept where it stands alone.
    if (staff.isAlternate
        || (staff.isTablature && note.accidentalDisplay() == AccidentalDisplay::Auto))
        return;
    const auto display = note.accidentalDisplay();
    const bool isNeeded =
        !note.isTied() && _accidentals.take(_pitch.octave, _pitch.step, _pitch.alter);
    _context.addUnheldIf(display == AccidentalDisplay::Hidden, "hidden accidental");
    if ((!isNeeded && display == AccidentalDisplay::Auto) || display == AccidentalDisplay::Hidden)
        return;
    auto accidental = addElement(node, "accidental", accidentalName(_pitch.alter));
    if (display == AccidentalDisplay::Shown)
        addYes(accidental, "cautionary");
    else if (display == AccidentalDisplay::Parentheses)
        addYes(accidental, "parentheses");
    else if (display == AccidentalDisplay::Brackets)
        addYes(accidental, "bracket");
}

void NoteWriter::writeHead(const Note &note, const Beat &beat, pugi::xml_node node)
{
    const bool isGhost =
        note.antiAccent() == AntiAccent::Normal || note.antiAccent() == AntiAccent::Strong;
    const bool isUsual = !_isPitched && note.noteHead() == NoteHead::Normal;
    const auto head = beat.isSlashed() ? NoteHead::Slash
        : note.isDead()                ? NoteHead::Cross
        : isUsual                      ? _usualHead
                                       : note.noteHead();
    _context.addUnheldIf(beat.isSlashed() && note.noteHead() != NoteHead::Normal,
                         "head under a slash");
    _context.addUnheldIf(!beat.isSlashed() && head == NoteHead::Slash, "slash of a single head");
    _context.addUnheldIf(!note.isDead() && head == NoteHead::Cross && note.fret() != Note::Unset,
                         "cross of a fretted note that is not dead");
    if (head == NoteHead::Normal && !isGhost && note.headFill() == HeadFill::Auto)
        return;
    // An x without a fret says nothing but that the note is dead.
    const bool isPlus =
        note.isDead() && note.noteHead() == NoteHead::Cross && note.fret() == Note::Unset;
    auto element = addElement(node, "notehead",
                              isPlus                        ? "cross"
                                  : head == NoteHead::Cross ? "x"
                                                            : noteHeadToString(head).c_str());
    if (note.headFill() != HeadFill::Auto)
        addAttribute(element, "filled", note.headFill() == HeadFill::Filled ? "yes" : "no");
    if (isGhost)
        addYes(element, "parentheses");
}

/// All levels: where a neighbour has no beam of a level, a hook stands towards the beam.
void NoteWriter::writeBeams(const RhythmicBeat &beat, pugi::xml_node node)
{
    const int flags = flagsOf(*beat.beat);
    for (int level = 1; level <= std::min(flags, 8); ++level) {
        const bool from = beat.isBeamedFrom && level <= beat.beamsFrom;
        const bool on = beat.isBeamedOn && level <= beat.beamsOn;
        const char *const text = from ? on ? "continue" : "end"
            : on                      ? "begin"
            : beat.isBeamedFrom       ? "backward hook"
                                      : "forward hook";
        _stock.addNumbered(node, "beam", level, text);
    }
}

void NoteWriter::writeTuplets(const RhythmicBeat &beat, pugi::xml_node notations)
{
    if (typeOf(beat.beat->rhythmValue()).isBeyond)
        return;
    for (std::size_t level = 0; level < 2; ++level)
        if (beat.starts[level]) {
            auto tuplet = addElement(notations, "tuplet");
            addAttribute(tuplet, "type", "start");
            addAttribute(tuplet, "number", static_cast<int>(level) + 1);
            const auto &ratio = beat.tuplets.ratios[level];
            addElement(addElement(tuplet, "tuplet-actual"), "tuplet-number", ratio.actual);
            addElement(addElement(tuplet, "tuplet-normal"), "tuplet-number", ratio.normal);
        }
    for (std::size_t level = 2; level-- > 0;)
        if (beat.stops[level]) {
            auto tuplet = addElement(notations, "tuplet");
            addAttribute(tuplet, "type", "stop");
            addAttribute(tuplet, "number", static_cast<int>(level) + 1);
        }
}

void NoteWriter::writeStringAndFret(const Note &note, const PartStaff &staff,
                                    pugi::xml_node notations)
{
    const int strings = static_cast<int>(staff.staff->tuning().stringCount());
    if (!isOnString(note, *staff.staff))
        return;
    if (!_isPitched)
        return _context.addUnheld("string and fret of a note without a pitch");
    auto technical = ensureElement(notations, tagName(Tag::Technical));
    addElement(technical, tagName(Tag::String), strings - note.string());
    addElement(technical, tagName(Tag::Fret), note.fret());
}

void NoteWriter::writeArpeggio(const Beat &beat, const Note &note, pugi::xml_node notations)
{
    if (beat.arpeggioDirection() != Direction::None)
        addAttribute(addElement(notations, "arpeggiate"), "direction",
                     beat.arpeggioDirection() == Direction::Down ? "down" : "up");
    const auto byPitch = [](const auto &left, const auto &right) {
        return left->midi() < right->midi();
    };
    if (beat.isNonArpeggio()) {
        const auto ends = std::minmax_element(beat.notes().begin(), beat.notes().end(), byPitch);
        if (ends.first->get() == &note || ends.second->get() == &note)
            addAttribute(addElement(notations, "non-arpeggiate"), "type",
                         ends.first->get() == &note ? "bottom" : "top");
    }
}

void NoteWriter::writeNotations(const RhythmicBeat &placed, const Note *note, bool isFirst,
                                const VoicePlace &place, pugi::xml_node node, LineSigns &signs)
{
    if (!_hasNotations)
        return;
    const auto &beat = *placed.beat;
    auto notations = addElement(node, "notations");
    if (note && note->isTied())
        addAttribute(addElement(notations, "tied"), "type", "stop");
    if (note && note->isTieOrigin())
        addAttribute(addElement(notations, "tied"), "type", "start");
    if (note && note->letsRing())
        addAttribute(addElement(notations, "tied"), "type", "let-ring");
    if (isFirst && placed.tuplets.count > 0)
        writeTuplets(placed, notations);
    if (note && note->fret() != Note::Unset)
        writeStringAndFret(*note, *place.staff, notations);
    const bool isMarked = (note && !note->marks().isPlain()) || !beat.isCommon();
    // The signs of notes stand over the notes, those of strings over both.
    if (isMarked && !place.staff->isAlternate) {
        const SpelledPitch *const pitch = note && _isPitched ? &_pitch : nullptr;
        writeOrnaments(beat, note, isFirst, pitch, _fifths, notations, _context);
        writeTechnical(beat, note, _isPitched, isFirst, _plan.areKeys(), notations, _context);
        writeArticulations(beat, note, isFirst, notations);
        if (note)
            writeArpeggio(beat, *note, notations);
    }
    if (note && note->hasDetails())
        writeBend(note->bend(), notations, _context);
    if (note && isFirst && beat.hasDetails())
        writeWhammyBar(beat.whammyBar(), notations, _context);
    if (!placed.isPlain || signs.isOpen())
        signs.writeNotations(note, isFirst, notations);
    if (isFirst && _fermatas && !_fermatas->empty() && !beat.isGrace() && !place.staff->isAlternate)
        for (const auto &mark : *_fermatas)
            if (mark.span.isOver(placed.onset, placed.onset + placed.length)) {
                auto fermata = addElement(notations, "fermata");
                addAttribute(fermata, "type", "upright");
                fermata.append_child(pugi::node_pcdata).set_value(shapeOf(mark.kind));
            }
    if (!notations.first_child())
        node.remove_child(notations);
}

} // namespace zarn::io
