// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/PartFitter.h>

#include <ZarnCore/io/midi/MidiOddities.h>
#include <ZarnCore/io/midi/OrnamentFinder.h>
#include <ZarnCore/io/midi/VoiceSeparator.h>
#include <ZarnCore/io/midi/WrittenPlacer.h>

#include <algorithm>
#include <cstdlib>

namespace zarn::io {

namespace {

/// Further than this no note is moved without a word.
constexpr MidiTime farMoved = midiQuarter / 8;

/// How little a note suits a grace note as the one that it leads to.
int farFrom(const PlayedNote &grace, const PlayedNote &main)
{
    constexpr int otherVoice = 1000;
    return std::abs(main.key - grace.key)
        + (grace.isTold() && main.voice != grace.voice ? otherVoice : 0);
}

/// Puts grace notes in front of the nearest notes that begin with them, in their voice.
void addGraces(const PlayedNotes &graces, PlayedNotes &notes)
{
    PlayedNotes all;
    all.reserve(graces.size() + notes.size());
    auto grace = graces.begin();
    for (std::size_t i = 0; i < notes.size(); ++i) {
        for (; grace != graces.end() && grace->start <= notes[i].start; ++grace) {
            const PlayedNote *main = &notes[i];
            for (std::size_t k = i; k < notes.size() && notes[k].start == notes[i].start; ++k)
                if (farFrom(*grace, notes[k]) < farFrom(*grace, *main))
                    main = &notes[k];
            all.push_back(*grace);
            all.back().start = all.back().end = main->start;
            all.back().voice = main->voice;
        }
        all.push_back(notes[i]);
    }
    notes = std::move(all);
}

void tellMoved(const MidiPart &part, const PlayedNotes &notes, MidiOddities &oddities)
{
    for (const PlayedNote &note : notes)
        if (!note.isTold() && std::abs(note.start - note.playedStart) > farMoved)
            oddities.add("a note was moved by more than a 32nd", part.midiTrack);
}

/// One key struck twice at one time is one note, the longer one.
void dropDoubles(const MidiPart &part, PlayedNotes &notes, MidiOddities &oddities)
{
    sortNearlySorted(notes, [](const PlayedNote &left, const PlayedNote &right) {
        if (left.start != right.start)
            return left.start < right.start;
        return left.key != right.key ? left.key < right.key : left.end > right.end;
    });
    const auto last = std::unique(
        notes.begin(), notes.end(), [](const PlayedNote &left, const PlayedNote &right) {
            return left.start == right.start && left.key == right.key && left.string == right.string
                && (!left.isTold() || !right.isTold() || left.voice == right.voice);
        });
    for (auto note = last; note != notes.end(); ++note)
        oddities.add("of two notes of one key at one time one was left out", part.midiTrack);
    notes.erase(last, notes.end());
}

} // namespace

void PartFitter::fit(MidiPart &part, MidiOddities &oddities)
{
    for (PlayedNotes &notes : part.staves) {
        fitRhythm(part, notes, oddities);
        if (part.isDrums)
            continue;
        spell(notes, _music.keys);
        spellAsWritten(notes, _music.written);
    }
}

void PartFitter::fitRhythm(const MidiPart &part, PlayedNotes &notes, MidiOddities &oddities)
{
    if (!_isPlayed && !part.isDrums)
        findOrnaments(notes, _music.tempos, _music.tick);
    if (part.isDrums)
        _quantizer.quantizeDrums(notes);
    else
        _quantizer.quantize(notes);
    placeAsWritten(notes, _music.written, _bars);
    const MidiTime end = _bars.bars().back().end();
    for (PlayedNote &note : notes) {
        note.start = std::min(note.start, end - 1);
        note.end = std::min(note.end, end);
    }
    tellMoved(part, notes, oddities);
    // Grace notes take no time and go with the notes that they lead to.
    PlayedNotes graces;
    const auto isNoGrace = [](const PlayedNote &note) { return !note.isGrace; };
    if (!std::all_of(notes.begin(), notes.end(), isNoGrace)) {
        const auto first = std::stable_partition(notes.begin(), notes.end(), isNoGrace);
        graces.assign(first, notes.end());
        notes.erase(first, notes.end());
    }
    dropDoubles(part, notes, oddities);
    PlayedNotes told = takeTold(notes);
    const auto losses = separateVoices(notes, _bars);
    putBack(told, notes);
    for (std::size_t i = 0; i < losses.shortened; ++i)
        oddities.add("a note was made shorter: a staff has four voices", part.midiTrack);
    if (!graces.empty())
        addGraces(graces, notes);
}

} // namespace zarn::io
