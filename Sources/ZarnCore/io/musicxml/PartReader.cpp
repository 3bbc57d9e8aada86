// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/PartReader.h>

#include <ZarnCore/io/musicxml/GapFiller.h>
#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/Wording.h>
#include <ZarnCore/io/musicxml/WrittenAccidentals.h>
#include <ZarnCore/io/musicxml/signs/Fermatas.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace zarn::io {

using utils::rational;

namespace {

/// No measure is longer, in quarters; a duration past it is a typing error.
constexpr std::int64_t longest = 100'000;

/// The notes of a chord do not all know its tuplets: one that ends with the chord ended with the
/// first note.
bool areEquallyLong(const WrittenRhythm &left, const WrittenRhythm &right)
{
    const auto terms = [](const WrittenRhythm &first, const WrittenRhythm &second) {
        return std::int64_t(first.outer.actual) * first.inner.actual * second.outer.normal
            * second.inner.normal;
    };
    return left == right
        || (left.type == right.type && left.dots == right.dots
            && terms(left, right) == terms(right, left));
}

} // namespace

PartReader::PartReader(ImportContext &context, SourceTally &tally)
    : _context(context), _whole(tally), _notes(context), _transpositions(context), _ties(context),
      _attributes(context, tally, _transpositions), _directions(context), _barlines(context)
{
}

void PartReader::startPart(PartFacts &facts, PartTally &tally)
{
    _facts = &facts;
    _tally = &tally;
    _length = 0;
    _timeline.setDivisions(1);
    _transpositions.startPart(facts);
    _ties.startPart();
    _hasStrayStaff = false;
    _notes.startPart(facts, tally, _whole);
}

void PartReader::readMeasure(pugi::xml_node frame, pugi::xml_node content, WrittenMeasure &measure)
{
    measure.node = content;
    measure.notes.clear();
    measure.marks.clear();
    measure.signs.clear();
    measure.spans.clear();
    measure.claims.clear();
    _ties.startMeasure(_timeline.exactReach());
    _timeline.startMeasure();
    _notes.startMeasure();
    _chord.reset();
    for (auto child = content.first_child(); child; child = child.next_sibling()) {
        switch (const auto tag = tagOf(child.name()); tag) {
        case Tag::Note:
            readNote(child, measure);
            break;
        case Tag::Backup:
            jump(child, -1);
            break;
        case Tag::Forward:
            claim(child, measure);
            jump(child, 1);
            break;
        case Tag::Attributes:
            _attributes.read(child, *_facts, _timeline);
            break;
        case Tag::Direction:
            _directions.readDirection(child, _timeline, *_facts, measure);
            break;
        case Tag::Sound:
            _directions.readSound(child, _timeline, *_facts);
            break;
        case Tag::Harmony:
            _directions.readHarmony(child, _timeline, measure);
            break;
        case Tag::Print:
            readPrint(child);
            break;
        case Tag::Barline:
            _barlines.read(child, *_facts);
            break;
        default:
            _context.addUnheld(child, tag);
        }
    }
    if (!_facts->times.empty() && !_facts->times.back().free) {
        measure.meter = TimeSignature(_facts->times.back().beats, _facts->times.back().unit);
        measure.groups = _facts->times.back().groups;
    }
    measure.length = _timeline.exactReach();
    for (auto &note : measure.notes)
        if (note.wholeMeasure && note.onset.isZero()
            && _timeline.isRounding(measure.length, note.length))
            note.length = measure.length;
    keepReminders(measure, _facts->keys.empty() ? 0 : _facts->keys.back().fifths);
    addLength(_timeline.writtenReach());
    ++_tally->measures;
    const bool implicit = std::strcmp(frame.attribute("implicit").value(), "yes") == 0;
    const auto number = parseInteger(frame.attribute("number").value());
    const bool isCounted = std::strcmp(frame.attribute("implicit").value(), "no") == 0;
    _facts->bars.push_back({measure.length, implicit, isCounted, number, content});
}

/// Bars with divisions of their own may add up to what no fraction holds: it is rounded then.
void PartReader::addLength(const rational &length)
{
    constexpr std::int64_t fine = 725'760;
    const auto rounded = [](const rational &exact) {
        return rational(std::llround(exact.toDouble() * fine), fine);
    };
    try {
        _length += length;
    } catch (const CoreException &) {
        _length = rounded(_length) + rounded(length);
    }
}

void PartReader::finishPart()
{
    _barlines.finishPart(*_facts);
    _ties.finishPart();
    _transpositions.finishPart();
    _tally->length = _length.toString();
    _tally->staves = static_cast<std::uint32_t>(std::max<std::size_t>(_facts->staves.size(), 1));
    std::sort(_tally->voices.begin(), _tally->voices.end());
}

void PartReader::readNote(pugi::xml_node node, WrittenMeasure &measure)
{
    auto &note = measure.notes.emplace_back();
    _notes.read(node, note);
    const auto staves = _facts->staves.size();
    if (static_cast<std::size_t>(note.staff) >= staves) {
        constexpr int mostStaves = 64;
        if (note.staff >= mostStaves && !std::exchange(_hasStrayStaff, true))
            _context.addProblem(node,
                                "a note stands on staff " + std::to_string(note.staff + 1)
                                    + "; this and what else is past staff "
                                    + std::to_string(mostStaves) + " went there");
        note.staff = std::min(note.staff, mostStaves - 1);
        _facts->staves.resize(std::max(staves, static_cast<std::size_t>(note.staff) + 1));
    }
    if (note.chord && _chord)
        joinChord(note);
    else
        placeNote(note);
    _notes.finishTuplets(note);
    if (note.kind == NoteKind::Pitched)
        _transpositions.adjust(note);
    _ties.follow(note);
    const auto firstMark = measure.marks.size();
    for (const auto dynamics : _notes.dynamics())
        _directions.readDynamics(dynamics, note.onset, note.staff, measure);
    for (auto mark = firstMark; mark < measure.marks.size(); ++mark)
        measure.marks[mark].note = measure.notes.size() - 1;
    if (note.hasSigns)
        addSigns(measure);
}

/// Takes over the signs of the note read last. A fermata is over all staves, at its time.
void PartReader::addSigns(WrittenMeasure &measure)
{
    const auto index = measure.notes.size() - 1;
    const auto onset = measure.notes.back().onset;
    const auto end = _timeline.exact();
    for (const auto &sign : _notes.signs())
        if (sign.tag == Tag::Fermata)
            _facts->fermatas.push_back({_context.bar(), onset, fermataOf(sign.node), false, end});
        else
            measure.signs.push_back({sign.node, sign.tag, index});
}

/// A new page begins a new system too.
void PartReader::readPrint(pugi::xml_node print)
{
    const auto says = [&](const char *attribute) {
        return std::strcmp(print.attribute(attribute).value(), "yes") == 0;
    };
    if (says("new-system") || says("new-page"))
        _facts->systemStarts.push_back(_context.bar());
}

void PartReader::joinChord(WrittenNote &note)
{
    note.onset = _chord->onset;
    note.tolerance = _chord->tolerance;
    note.length = _chord->length;
    note.rhythm = _chord->rhythm;
    note.grace = _chord->grace;
    const auto &rhythm = _notes.rhythm();
    const bool otherRhythm =
        rhythm.type != WrittenRhythm::NoType && !areEquallyLong(rhythm, _chordRhythm);
    const bool otherDuration = _notes.duration() && _notes.duration() != _chordDuration;
    if (otherRhythm || otherDuration)
        _context.addProblem(note.node, "a chord note of another length took the chord's");
}

/// Whether a rest is one of the whole bar though it does not say so: rests that have no type are as
/// long as nothing but the meter says.
bool PartReader::fillsItsBar(const WrittenNote &note, const rational &length) const
{
    if (note.kind != NoteKind::Rest || note.grace || !note.onset.isZero()
        || _notes.rhythm().type != WrittenRhythm::NoType || _facts->times.empty())
        return false;
    const auto &time = _facts->times.back();
    return !time.free && length == TimeSignature(time.beats, time.unit).barLength();
}

void PartReader::placeNote(WrittenNote &note)
{
    if (note.chord)
        _context.addProblem(note.node, "a chord note that follows no note was read as a note");
    note.chord = false;
    note.onset = _timeline.exact();
    note.tolerance = _timeline.tolerance();

    const auto &rhythm = _notes.rhythm();
    const auto written = _notes.duration().value_or(0) / _timeline.divisions();
    if (fillsItsBar(note, written))
        note.wholeMeasure = true;
    const bool isTimed = written > rational(0) && written < rational(longest);
    auto nominal = nominalLength(rhythm, note);
    const bool isTyped = nominal && !note.wholeMeasure;
    const auto holds = [&] {
        return nominal && (*nominal == written || _timeline.isRounding(*nominal, written));
    };
    const auto isContradicted = [&] { return isTyped && isTimed && !note.grace && !holds(); };
    if (isContradicted() && !(rhythm == _notes.bracketedRhythm())) {
        nominal = nominalLength(_notes.bracketedRhythm(), note);
        if (holds())
            _context.addProblem(note.node,
                                "the time modification contradicts the duration and the tuplets "
                                "around the note, which were taken");
    }
    if (isContradicted())
        if (const int dots = _notes.supplyDots(note, _timeline.divisions()); dots > 0) {
            nominal = nominalLength(rhythm, note);
            _context.addProblem(note.node,
                                "the notes of a tuplet last as long as with "
                                    + std::string(dots == 1 ? "a dot" : "two dots")
                                    + " each, which the document leaves out; they were dotted");
        }
    if (!note.grace) {
        if (isTimed && isTyped && holds()) {
            note.length = *nominal;
            _timeline.advance(note.length, written);
        } else if (isTimed) {
            if (isTyped)
                _context.addProblem(note.node,
                                    "the duration, " + inQuarters(written)
                                        + ", contradicts the note type; it was taken");
            fitLength(note, written);
            if (note.wholeMeasure)
                _timeline.jump(written); // to where the music ends, from which it was rounded
            else
                _timeline.advance(written, written);
        } else {
            _context.addProblem(note.node, "a note without a duration got that of its type");
            note.length = note.rhythm.getLength();
            _timeline.advance(note.length, note.length);
        }
    }
    _chord = {note.onset, note.tolerance, note.length, note.rhythm, note.grace};
    _chordRhythm = rhythm;
    _chordDuration = _notes.duration();
}

/// Gives a note the value that is written, which may fail to fit; its length in quarters.
std::optional<rational> PartReader::nominalLength(const WrittenRhythm &rhythm, WrittenNote &note)
{
    if (rhythm.type == WrittenRhythm::NoType)
        return std::nullopt;
    const auto &fit = _fitter.written(rhythm);
    if (!fit)
        return std::nullopt;
    note.rhythm = fit->value;
    return fit->length;
}

void PartReader::fitLength(WrittenNote &note, const rational &length)
{
    note.length = length;
    if (const auto fit = _fitter.ofLength(length, _notes.rhythm()))
        note.rhythm = fit->value;
    else if (std::vector<RhythmValue> rests; !note.wholeMeasure || !findRestRhythms(length, rests))
        _context.addProblem(note.node, "a length of " + inQuarters(length) + " fits no note value");
}

/// Time that is left to a voice tells that there is one.
void PartReader::claim(pugi::xml_node forward, WrittenMeasure &measure)
{
    const auto voice = forward.child(tagName(Tag::Voice));
    if (!voice)
        return;
    const auto staff = forward.child(tagName(Tag::Staff));
    const int index = staff ? _context.integer(staff, 1) - 1 : 0;
    if (index >= 0 && static_cast<std::size_t>(index) < _facts->staves.size())
        measure.claims.push_back({measure.notes.size(), index,
                                  _notes.voiceNumber(voice.child_value()), _timeline.exact()});
}

void PartReader::jump(pugi::xml_node node, int sign)
{
    const auto duration = node.child("duration");
    const auto length = duration ? _context.decimal(duration, 0) : rational(0);
    if (!duration || length < rational(0) || length > rational(longest) * _timeline.divisions()) {
        _context.addProblem(
            node, std::string("a <") + node.name() + "> without a usable duration was left out");
        return;
    }
    if (!_timeline.jump(rational(sign) * length / _timeline.divisions()))
        _context.addProblem(node, "a <backup> goes back past the start of the bar; it stops there");
}

} // namespace zarn::io
