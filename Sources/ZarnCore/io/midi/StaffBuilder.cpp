// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/StaffBuilder.h>

#include <algorithm>
#include <utility>

namespace zarn::io {

StaffBuilder::StaffBuilder(const MeterLine &bars, NodeBlocks &nodes, const MakeNote &makeNote)
    : _line(bars), _nodes(nodes), _makeNote(makeNote)
{
}

Staff::Bars StaffBuilder::build(const PlayedNotes &notes)
{
    Staff::Bars bars;
    bars.reserve(_line.bars().size());
    _onsets.clear();
    _lines = {};
    std::size_t next = 0;
    for (const MeterBar &place : _line.bars()) {
        const bool isLast = bars.size() + 1 == _line.bars().size();
        for (; next < notes.size() && (notes[next].start < place.end()); ++next)
            add(notes[next], _lines[notes[next].voice]);
        auto bar = _nodes.make<Bar>();
        const auto number = static_cast<unsigned>(bars.size());
        for (unsigned voice = 0; voice < Bar::MaxVoices; ++voice) {
            Line &line = _lines[voice];
            if (line.chords.empty())
                continue;
            bar->setVoice(voice, writeVoice(place, number, voice));
            // What is held over the bar line goes on in the next bar.
            if (line.chords.back().end > place.end() && !isLast) {
                keepLast(line);
            } else {
                line.chords.clear();
                line.notes.clear();
            }
        }
        if (bar->voices()[0] == nullptr) {
            auto rest = _nodes.make<Beat>(RhythmValue(RhythmValue::NoteValue::Whole));
            rest->setWholeBarRest(true);
            bar->ensureVoice(0)->addBeat(rest);
        }
        bars.push_back(std::move(bar));
    }
    return bars;
}

void StaffBuilder::add(const PlayedNote &note, Line &line)
{
    auto &chords = line.chords;
    if (chords.empty() || chords.back().start != note.start) {
        if (!chords.empty())
            chords.back().end = std::min(chords.back().end, note.start);
        const std::size_t at = line.notes.size();
        chords.push_back({note.start, note.end, at, at, at});
    }
    Chord &chord = chords.back();
    if (note.isGrace) {
        const auto at = line.notes.begin() + static_cast<std::ptrdiff_t>(chord.notes++);
        line.notes.insert(at, &note);
    } else {
        line.notes.push_back(&note);
        chord.end = note.end;
    }
    chord.last = line.notes.size();
}

void StaffBuilder::keepLast(Line &line)
{
    Chord held = line.chords.back();
    line.notes.erase(line.notes.begin(),
                     line.notes.begin() + static_cast<std::ptrdiff_t>(held.graces));
    held.notes -= held.graces;
    held.last -= held.graces;
    held.graces = 0;
    line.chords.assign(1, held);
}

std::shared_ptr<Voice> StaffBuilder::writeVoice(const MeterBar &bar, unsigned number,
                                                unsigned voice)
{
    const Line &line = _lines[voice];
    const auto &chords = line.chords;
    _stretches.clear();
    MidiTime at = 0;
    for (std::size_t i = 0; i < chords.size(); ++i) {
        const MidiTime start = std::max(chords[i].start - bar.start, MidiTime(0));
        const MidiTime end = std::min(chords[i].end - bar.start, bar.length);
        if (start > at)
            _stretches.push_back({at, start, true, 0});
        _stretches.push_back({start, end, false, i});
        at = end;
    }
    if (at < bar.length)
        _stretches.push_back({at, bar.length, true, 0});

    const auto &values = _rhythm.write(bar, _stretches);
    Voice::Beats beats;
    beats.reserve(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        auto beat = _nodes.make<Beat>(values[i].rhythm);
        const auto &stretch = _stretches[values[i].stretch];
        if (stretch.isSilent) {
            beat->setPlaceHolder(voice != 0);
        } else {
            const Chord &chord = chords[stretch.chord];
            const bool begins =
                (i == 0 || values[i - 1].stretch != values[i].stretch) && chord.start >= bar.start;
            if (begins)
                for (std::size_t grace = chord.graces; grace < chord.notes; ++grace)
                    beats.push_back(makeGrace(*line.notes[grace]));
            const bool isLast =
                i + 1 == values.size() || values[i + 1].stretch != values[i].stretch;
            const bool isHeldHere = !begins;
            addNotes(line, chord, *beat, isHeldHere, !isLast || chord.end > bar.end());
            if (!isHeldHere && voice == 0) {
                const PlayedNote &note = *line.notes[chord.notes];
                _onsets.push_back(
                    {chord.start, note.playedStart, beat.get(), number, note.velocity});
            }
        }
        beats.push_back(std::move(beat));
    }
    auto written = _nodes.make<Voice>();
    written->insertBeats(0, std::move(beats));
    return written;
}

std::shared_ptr<Beat> StaffBuilder::makeGrace(const PlayedNote &note)
{
    auto beat = _nodes.make<Beat>(RhythmValue(RhythmValue::NoteValue::Eighth));
    beat->setGraceType(GraceType::BeforeBeat);
    beat->setSlashedGrace(true);
    beat->addNote(_makeNote(note));
    return beat;
}

void StaffBuilder::addNotes(const Line &line, const Chord &chord, Beat &beat, bool isHeldHere,
                            bool isHeldOn) const
{
    Beat::Notes notes;
    notes.reserve(chord.last - chord.notes);
    for (std::size_t i = chord.notes; i < chord.last; ++i) {
        const PlayedNote *const played = line.notes[i];
        if (played->roll != Roll::None && !isHeldHere)
            beat.setArpeggioDirection(played->roll == Roll::Up ? Direction::Up : Direction::Down);
        auto note = _makeNote(*played);
        note->setTied(isHeldHere || played->isTied);
        note->setTieOrigin(isHeldOn || played->isHeldOn);
        notes.push_back(std::move(note));
    }
    beat.insertNotes(0, std::move(notes));
}

} // namespace zarn::io
