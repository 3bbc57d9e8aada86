// SPDX-License-Identifier: MIT
#include <ZarnLayout/engrave/BarEngraver.h>

#include <ZarnLayout/engrave/BeamChain.h>
#include <ZarnLayout/engrave/ChordInks.h>
#include <ZarnLayout/engrave/ColumnSpaces.h>
#include <ZarnLayout/engrave/HeadCluster.h>
#include <ZarnLayout/engrave/HeadGlyph.h>
#include <ZarnLayout/engrave/TabFret.h>
#include <ZarnLayout/engrave/VoicePlacer.h>

#include <algorithm>
#include <cmath>

namespace zarn::engraving {

using NoteValue = RhythmValue::NoteValue;

namespace {

bool isWritten(const BeatSource &beat)
{
    return !beat.isPlaceHolder;
}

double scaleOf(const BeatSource &beat)
{
    return beat.isGrace() ? graceScale : beat.marks.isCue() ? cueScale : 1;
}

/// The strokes of a tremolo that leads from a beat or to it; 0 for none.
unsigned strokesBeside(const BeatSource &beat)
{
    const unsigned before = beat.index > 0 ? (&beat - 1)->marks.tremoloToNext() : 0;
    return std::max<unsigned>(beat.marks.tremoloToNext(), before);
}

} // namespace

bool isDrawn(const VoiceSource &voice)
{
    return std::any_of(voice.beats.begin(), voice.beats.end(), isWritten);
}

EngravedBar BarEngraver::engrave(const BarSource &source, const ColumnSource &column,
                                 const Onsets &onsets, unsigned barIndex)
{
    _result = {};
    _source = &source;
    _shared = &column;
    _onsets = &onsets;
    _bar = barIndex;
    _result.columns.resize(onsets.size());
    if (source.simile != SimileMark::None) {
        addSimile();
        return std::move(_result);
    }
    _hasVoices = std::count_if(source.voices.begin(), source.voices.end(), isDrawn) > 1;
    std::size_t beats = 0;
    for (const VoiceSource &voice : source.voices)
        beats += voice.beats.size();
    _result.chords.reserve(beats);
    for (const VoiceSource &voice : source.voices)
        addChords(voice);
    // In an empty bar is nothing to be heard: it has a rest, like one that somebody wrote there. A
    // bar that was filled with what is hidden stays blank.
    const bool isHidden = !source.voices.empty() && source.voices.front().number == 0;
    if (_result.chords.empty() && _result.centred.empty() && !isHidden
        && (_row.notation != Notation::Tablature || _row.hasRhythm))
        addCentred(nullptr);
    chooseStems();
    for (Chord &chord : _result.chords) {
        placeHeads(chord);
        placeStem(chord);
    }
    if (_hasVoices)
        VoicePlacer(_row, _pen, source, _bar, _problems).place(_result);
    addInks();
    addSpaces(_result, *_source, _row, _pen.fonts());
    return std::move(_result);
}

void BarEngraver::addChords(const VoiceSource &voice)
{
    for (const BeatSource &beat : voice.beats) {
        if ((!isWritten(beat) || beat.isWholeBarRest) && beat.carriesSigns())
            addSilent(beat, voice.number);
        if (!isWritten(beat))
            continue;
        if (beat.isWholeBarRest && _source->voices.size() >= 1) {
            addCentred(&beat);
            continue;
        }
        Chord chord;
        chord.beat = &beat;
        chord.voice = voice.number;
        chord.scale = scaleOf(beat);
        chord.column = columnOf(beat);
        chord.hasStem = beat.hasStem() && (_row.notation != Notation::Tablature || _row.hasRhythm);
        if (beat.marks.hasTimer() && beat.playingTime < 0 && _row.isFirstOfStaff)
            _problems.add(placeOfChord(_row, _bar, chord),
                          "The beat is never played: it has no playing time.");
        if (!beat.isRest)
            addHeads(chord);
        _result.chords.push_back(std::move(chord));
    }
}

void BarEngraver::addSilent(const BeatSource &beat, unsigned voice)
{
    Chord chord;
    chord.beat = &beat;
    chord.voice = voice;
    chord.column = columnOf(beat);
    _result.silent.push_back(std::move(chord));
}

unsigned BarEngraver::columnOf(const BeatSource &beat) const
{
    return static_cast<unsigned>(std::lower_bound(_onsets->begin(), _onsets->end(), beat.onset)
                                 - _onsets->begin());
}

void BarEngraver::addHeads(Chord &chord)
{
    const BeatSource &beat = *chord.beat;
    const Fonts &fonts = _pen.fonts();
    const int middle = static_cast<int>(_row.lineCount) - 1;
    chord.isSlash = _row.notation == Notation::Slash
        || (_row.notation == Notation::Standard && beat.marks.isSlashed() && beat.noteCount > 1);
    if (chord.isSlash || beat.noteCount == 0) {
        // A slash for the whole beat; strings that are slapped dead are a cross on the staff.
        Head head;
        head.note = beat.firstNote;
        head.line =
            static_cast<std::int16_t>(_row.notation == Notation::Tablature ? middle / 2 : middle);
        head.glyph = fonts.glyph(chord.isSlash ? slashHead(beat.rhythm) : Sign::NoteheadXBlack);
        chord.heads.push_back(head);
    } else {
        for (unsigned i = 0; i < beat.noteCount; ++i) {
            const auto number = static_cast<std::uint16_t>(beat.firstNote + i);
            const NoteSource &note = _source->notes[number];
            if (note.marks.isHidden())
                continue;
            Head head;
            head.note = number;
            if (_row.notation == Notation::Tablature) {
                head.line = static_cast<std::int16_t>(note.string);
                if (note.string < 0 || note.string >= static_cast<int>(_row.lineCount))
                    _problems.add(placeOfChord(_row, _bar, chord, static_cast<int>(i)),
                                  note.string < 0 ? "The note has no string."
                                                  : "The tuning lacks the string of the note.");
                if (note.string < 0)
                    head.line = static_cast<std::int16_t>(i % std::max(1U, _row.lineCount));
            } else {
                head.line =
                    note.line == NoteSource::NoLine ? static_cast<std::int16_t>(middle) : note.line;
                if (note.line == NoteSource::NoLine)
                    _problems.add(placeOfChord(_row, _bar, chord, static_cast<int>(i)),
                                  "The note has no place on the staff.");
                head.glyph = headGlyph(_row, note, beat, fonts);
            }
            chord.heads.push_back(head);
        }
    }
    sortFew(chord.heads.begin(), chord.heads.end(),
            [](const Head &left, const Head &right) { return left.line < right.line; });
}

void BarEngraver::chooseStems()
{
    auto &chords = _result.chords;
    std::vector<bool> isDone(chords.size(), false);
    for (std::size_t first = 0; first < chords.size(); ++first) {
        if (isDone[first])
            continue;
        const auto chain = beamChain(first, chords.size(),
                                     [&](std::size_t i) -> const Chord & { return chords[i]; });
        for (const std::size_t i : chain)
            isDone[i] = true;
        chooseStem(chain);
    }
}

void BarEngraver::chooseStem(const BeamedNumbers &chain)
{
    auto &chords = _result.chords;
    const std::size_t first = chain.front();
    const bool isUpperVoice = chords[first].voice % 2 == 0;
    const int middle = static_cast<int>(_row.lineCount) - 1;
    bool isUp = _row.notation == Notation::Slash;
    bool isForced = _row.notation == Notation::Slash;
    bool isSaid = false;
    if (_row.notation != Notation::Slash) {
        int highest = -1000;
        int lowest = 1000;
        for (const std::size_t i : chain)
            for (const Head &head : chords[i].heads) {
                highest = std::max<int>(highest, head.line);
                lowest = std::min<int>(lowest, head.line);
            }
        isUp = middle - lowest > highest - middle;
        if (_row.notation == Notation::Tablature)
            isUp = false;
        // Hands and feet in one voice: drummers read stems that point upwards.
        if (chords[first].beat->isGrace()
            || (_row.isPercussion && _row.notation == Notation::Standard))
            isUp = true;
    }
    if (_hasVoices) {
        isUp = isUpperVoice;
        isForced = true;
    }
    for (const std::size_t i : chain) {
        const ZarnStemOrientation said = chords[i].beat->marks.stemOrientation();
        const bool saysSide =
            said == ZarnStemOrientation::Upward || said == ZarnStemOrientation::Downward;
        if (saysSide && !isSaid && _row.notation != Notation::Tablature) {
            isUp = said == ZarnStemOrientation::Upward;
            isForced = isSaid = true;
        }
    }
    const bool isAcross = chords[first].beat->crossBeam != 0 && _row.notation == Notation::Standard;
    if (isAcross) {
        isUp = chords[first].beat->isCrossStemUp;
        isForced = true;
    }
    for (const std::size_t i : chain) {
        chords[i].isStemUp = isUp;
        chords[i].isForced = isForced;
        chords[i].isCrossBeamed = isAcross;
        chords[i].hasRival = _hasVoices;
        chords[i].isBeamed = (isAcross || chain.size() > 1) && chords[i].beat->flagCount() > 0;
    }
}

void BarEngraver::placeHeads(Chord &chord)
{
    if (chord.isRest())
        return;
    const Fonts &fonts = _pen.fonts();
    if (_row.notation == Notation::Tablature) {
        // Numbers stand around the middle of a head, so that they are below the notes.
        chord.width = fonts.box(Sign::NoteheadBlack).right * chord.scale;
        for (Head &head : chord.heads) {
            head.y = _row.yOfString(head.line);
            if (chord.beat->noteCount > 0)
                head.glyph = fonts.glyph(Sign::NoteheadBlack);
            head.width = fretWidth(_source->notes, head, *chord.beat, _pen) * chord.scale;
            head.x = chord.width / 2 - head.width / 2;
            // A string sounds one note: what else is written on it stands beside.
            if (&head != chord.heads.data() && (&head - 1)->line == head.line) {
                head.x = (&head - 1)->x + (&head - 1)->width + 0.5;
                _problems.add(placeOfChord(_row, _bar, chord, head.note - chord.beat->firstNote),
                              "The string has several notes at once.");
            }
        }
        return;
    }
    HeadsOnStem heads;
    for (Head &head : chord.heads) {
        head.y = _row.yOfLine(head.line);
        head.width = fonts.box(head.glyph).right * chord.scale;
        heads.push_back(&head);
    }
    chord.width = placeOnStem(heads, chord.isStemUp, chord.scale, fonts);
}

void BarEngraver::placeStem(Chord &chord)
{
    if (chord.isRest() || !chord.hasStem)
        return;
    const Fonts &fonts = _pen.fonts();
    const double scale = chord.scale;
    const int flags = chord.beat->flagCount();
    const int direction = chord.isStemUp ? -1 : 1;
    if (_row.notation == Notation::Tablature) {
        const bool isShort = chord.beat->rhythm.getNoteValue() == NoteValue::Half;
        const double edge = chord.isStemUp ? -1.0 : _row.height() + 1.0;
        chord.stemX = chord.width / 2;
        chord.stemRoot = edge + direction * (isShort ? 1.5 : 0);
        // Beams leave room to the dots, which stand where the stem begins.
        double length = 2.75 + 0.5 * std::max(0, flags - 2) + 0.25 * std::max(0, flags - 3);
        // The strokes of a tremolo are behind the dots and in front of the flags.
        if (const unsigned strokes = chord.beat->marks.tremolo(); strokes > 0) {
            const double dots = chord.beat->rhythm.getAugmentationDot() > 0 ? 0.8 : 0;
            const Box &sign = fonts.box(tremoloSign(strokes));
            const double inmost = std::abs(tremoloPoint(chord, 0, fonts).y) + sign.height() / 2;
            length = std::max(length, (isShort ? 1.5 : 0) + dots + inmost);
        }
        chord.stemTip = edge + direction * length;
        return;
    }
    const Head &nearTip = chord.isStemUp ? chord.heads.back() : chord.heads.front();
    const Head &root = chord.isStemUp ? chord.heads.front() : chord.heads.back();
    const Point anchor = chord.isStemUp ? fonts.stemUp(root.glyph) : fonts.stemDown(root.glyph);
    chord.stemX = stemBeside(chord.width, chord.isStemUp, fonts);
    chord.stemRoot = root.y + anchor.y * scale;
    double length = (3.5 + 0.75 * std::max(0, flags - 2)) * (scale < 1 ? 0.75 : 1);
    const unsigned strokes = chord.beat->marks.tremolo();
    if (strokes > 0) {
        const Box &head = fonts.box(nearTip.glyph);
        const double taller =
            std::max(0.0, (chord.isStemUp ? -head.top : head.bottom) * scale - 0.5);
        length = std::max(
            {length, 3.0 + 0.8 * strokes + taller, 1.5 + 0.75 * flags + 0.8 * strokes + taller});
    }
    const unsigned between = chord.isBeamed ? 0 : strokesBeside(*chord.beat);
    if (between > 0) // Clear of the end of the stem, of the head and its dot.
        length = std::max(length, 1.55 + 0.75 * between);
    double tip = nearTip.y + direction * length;
    // A flag ends before a head that stands on its side of the stem.
    if (flags > 0 && !chord.isBeamed && chord.isStemUp) {
        const double reach = fonts.box(flagOf(flags, true)).bottom * scale;
        for (const Head &head : chord.heads)
            if (head.isDisplaced)
                tip = std::min(tip, head.y - 0.6 * scale - reach);
    }
    // Flags of downward stems come up to the head: crosses and triangles have corners there.
    if (flags > 0 && !chord.isBeamed && !chord.isStemUp
        && nearTip.glyph != fonts.glyph(Sign::NoteheadBlack)) {
        const double reach = -fonts.box(flagOf(flags, false)).top * scale;
        tip = std::max(tip, nearTip.y + fonts.box(nearTip.glyph).bottom * scale + 0.05 + reach);
    }
    const double middle = _row.height() / 2;
    const bool isOutward = chord.isStemUp ? nearTip.y < 0 : nearTip.y > _row.height();
    if (isOutward && flags == 0 && strokes == 0 && between == 0 && scale == 1)
        tip = nearTip.y + direction * 3.0;
    // A stem from far outside reaches the middle line.
    if (scale == 1 && _row.notation == Notation::Standard && !chord.beat->isGrace())
        tip = chord.isStemUp ? std::min(tip, std::max(middle, nearTip.y - 40.0))
                             : std::max(tip, std::min(middle, nearTip.y + 40.0));
    chord.stemTip = tip;
}

void BarEngraver::addCentred(const BeatSource *rest)
{
    if (!_result.centred.empty())
        return;
    const double y = _row.lineCount >= 4 ? _row.yOfLine(static_cast<int>(_row.lineCount) * 2 - 4)
                                         : _row.height() / 2;
    Chord chord;
    chord.beat = rest;
    for (const VoiceSource &voice : _source->voices)
        if (rest && !voice.beats.empty() && &voice.beats.front() <= rest
            && rest <= &voice.beats.back())
            chord.voice = voice.number;
    // Voices that all rest share the sign in its usual place.
    const bool hasChords =
        std::any_of(_source->voices.begin(), _source->voices.end(), [](const VoiceSource &voice) {
            return std::any_of(voice.beats.begin(), voice.beats.end(), [](const BeatSource &beat) {
                return isWritten(beat) && !beat.isWholeBarRest;
            });
        });
    double shift = 0;
    if (_hasVoices && hasChords)
        shift = chord.voice % 2 == 0 ? -2 : 2;
    Ink ink = _pen.glyph(MarkKind::Rest, restSign(_row, NoteValue::Whole, y + shift), 0, y + shift);
    const double width = ink.box.width();
    ink.move(-width / 2 - ink.box.left, 0);
    ink.place = rest ? placeOfChord(_row, _bar, chord) : placeOfBar(_row, _bar);
    _result.centred.push_back(std::move(ink));
    _result.centredWidth = width;
}

void BarEngraver::addSimile()
{
    if (_source->simile == SimileMark::SecondOfDouble)
        return; // the sign of the two stands on the line between them
    const bool isDouble = _source->simile == SimileMark::FirstOfDouble;
    Ink ink = _pen.glyph(MarkKind::Simile, isDouble ? Sign::Repeat2Bars : Sign::Repeat1Bar, 0,
                         _row.height() / 2);
    const double width = ink.box.width();
    ink.move(-width / 2, 0);
    ink.place = placeOfBar(_row, _bar);
    _result.centred.push_back(std::move(ink));
    _result.centredWidth = width;
}

void BarEngraver::addInks()
{
    ChordInks inks(_row, _pen, *_source, _bar, _hasVoices);
    inks.add(_result);
}

} // namespace zarn::engraving
