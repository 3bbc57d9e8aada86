// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/StaffBuilder.h>

#include <algorithm>
#include <utility>

namespace zarn::io {

StaffBuilder::StaffBuilder(const MeterLine &bars, const MakeNote &makeNote)
    : _line(bars), _makeNote(makeNote)
{
}

Staff::Bars StaffBuilder::build(const PlayedNotes &notes)
{
    Staff::Bars bars;
    bars.reserve(_line.bars().size());
    _onsets.clear();
    for (auto &chords : _chords)
        chords.clear();
    std::size_t next = 0;
    for (const MeterBar &place : _line.bars()) {
        const bool isLast = bars.size() + 1 == _line.bars().size();
        for (; next < notes.size() && (notes[next].start < place.end()); ++next) {
            const PlayedNote &note = notes[next];
            auto &chords = _chords[note.voice];
            if (chords.empty() || chords.back().start != note.start) {
                if (!chords.empty())
                    chords.back().end = std::min(chords.back().end, note.start);
                chords.push_back({note.start, note.end, {}, {}});
            }
            Chord &chord = chords.back();
            (note.isGrace ? chord.graces : chord.notes).push_back(&note);
            if (!note.isGrace)
                chord.end = note.end;
        }
        auto bar = std::make_shared<Bar>();
        const auto number = static_cast<unsigned>(bars.size());
        for (unsigned voice = 0; voice < Bar::MaxVoices; ++voice) {
            auto &chords = _chords[voice];
            if (!chords.empty())
                bar->setVoice(voice, writeVoice(place, number, voice));
            // What is held over the bar line goes on in the next bar.
            if (!chords.empty() && chords.back().end > place.end() && !isLast) {
                if (chords.size() > 1)
                    std::swap(chords.front(), chords.back());
                chords.resize(1);
            } else {
                chords.clear();
            }
        }
        if (bar->voiceCount() == 0) {
            auto rest = std::make_shared<Beat>(RhythmValue(RhythmValue::NoteValue::Whole));
            rest->setWholeBarRest(true);
            bar->ensureVoice(0)->addBeat(rest);
        } else if (bar->voices()[0] == nullptr) {
            auto rest = std::make_shared<Beat>(RhythmValue(RhythmValue::NoteValue::Whole));
            rest->setWholeBarRest(true);
            bar->ensureVoice(0)->addBeat(rest);
        }
        bars.push_back(std::move(bar));
    }
    return bars;
}

std::shared_ptr<Voice> StaffBuilder::writeVoice(const MeterBar &bar, unsigned number,
                                                unsigned voice)
{
    const auto &chords = _chords[voice];
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
        auto beat = std::make_shared<Beat>(values[i].rhythm);
        const auto &stretch = _stretches[values[i].stretch];
        if (stretch.isSilent) {
            beat->setPlaceHolder(voice != 0);
        } else {
            const Chord &chord = chords[stretch.chord];
            const bool begins =
                (i == 0 || values[i - 1].stretch != values[i].stretch) && chord.start >= bar.start;
            if (begins)
                for (const PlayedNote *grace : chord.graces)
                    beats.push_back(makeGrace(*grace));
            const bool isLast =
                i + 1 == values.size() || values[i + 1].stretch != values[i].stretch;
            const bool isHeldHere = !begins;
            addNotes(chord, *beat, isHeldHere, !isLast || chord.end > bar.end());
            if (!isHeldHere && voice == 0)
                _onsets.push_back({chord.start, number, beat, chord.notes.front()});
        }
        beats.push_back(std::move(beat));
    }
    auto written = std::make_shared<Voice>();
    written->insertBeats(0, std::move(beats));
    return written;
}

std::shared_ptr<Beat> StaffBuilder::makeGrace(const PlayedNote &note) const
{
    auto beat = std::make_shared<Beat>(RhythmValue(RhythmValue::NoteValue::Eighth));
    beat->setGraceType(GraceType::BeforeBeat);
    beat->setSlashedGrace(true);
    beat->addNote(_makeNote(note));
    return beat;
}

void StaffBuilder::addNotes(const Chord &chord, Beat &beat, bool isHeldHere, bool isHeldOn) const
{
    Beat::Notes notes;
    notes.reserve(chord.notes.size());
    for (const PlayedNote *played : chord.notes) {
        if (played->roll != Roll::None && !isHeldHere)
            beat.setArpeggioDirection(played->roll == Roll::Up ? Direction::Up : Direction::Down);
        auto note = _makeNote(*played);
        note->setTied(isHeldHere);
        note->setTieOrigin(isHeldOn);
        notes.push_back(std::move(note));
    }
    beat.insertNotes(0, std::move(notes));
}

} // namespace zarn::io
