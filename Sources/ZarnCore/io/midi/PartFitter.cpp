// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/PartFitter.h>

#include <ZarnCore/io/midi/MidiOddities.h>
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

/// Whether any key is struck twice at one time; the notes are in the order of time.
bool hasDoubles(const PlayedNotes &notes)
{
    constexpr std::size_t nearby = 16;
    for (std::size_t i = 0; i < notes.size(); ++i) {
        std::size_t next = i + 1;
        for (; next < notes.size() && notes[next].start == notes[i].start; ++next)
            if (notes[next].key == notes[i].key || next > i + nearby)
                return true;
    }
    return false;
}

/// One key struck twice at one time is one note, the longer one.
void dropDoubles(const MidiPart &part, PlayedNotes &notes, MidiOddities &oddities)
{
    const auto isEarlier = [](const PlayedNote &left, const PlayedNote &right) {
        if (left.start != right.start)
            return left.start < right.start;
        return left.key != right.key ? left.key < right.key : left.end > right.end;
    };
    sortNearlySorted(notes, isEarlier);
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
        if (!_music.written.empty())
            spellAsWritten(notes, _music.written);
    }
}

void PartFitter::fitRhythm(const MidiPart &part, PlayedNotes &notes, MidiOddities &oddities)
{
    if (part.isDrums)
        _quantizer.quantizeDrums(notes);
    else
        _quantizer.quantize(notes);
    const bool isTold = !_music.written.empty();
    if (isTold)
        placeAsWritten(notes, _music.written, _bars);
    const MidiTime end = _bars.bars().back().end();
    bool hasGraces = false;
    for (PlayedNote &note : notes) {
        note.start = std::min(note.start, end - 1);
        note.end = std::min(note.end, end);
        hasGraces = hasGraces || note.isGrace;
        if (std::abs(note.start - note.playedStart) > farMoved && !note.isTold())
            oddities.add("a note was moved by more than a 32nd", part.midiTrack);
    }
    // Grace notes take no time and go with the notes that they lead to.
    PlayedNotes graces;
    if (hasGraces) {
        const auto isNoGrace = [](const PlayedNote &note) { return !note.isGrace; };
        const auto first = std::stable_partition(notes.begin(), notes.end(), isNoGrace);
        graces.assign(first, notes.end());
        notes.erase(first, notes.end());
    }
    if (isTold || hasDoubles(notes))
        dropDoubles(part, notes, oddities);
    PlayedNotes told;
    if (isTold)
        told = takeTold(notes);
    const auto losses = separateVoices(notes, _bars, part.staves.size() > 1);
    putBack(told, notes);
    for (std::size_t i = 0; i < losses.shortened; ++i)
        oddities.add("a note was made shorter: a staff has four voices", part.midiTrack);
    if (!graces.empty())
        addGraces(graces, notes);
}

} // namespace zarn::io
