// SPDX-License-Identifier: MIT
#include <ZarnLayout/source/AccidentalMemory.h>

#include <ZarnCore/music/ZarnKeySignature.h>
#include <ZarnCore/music/ZarnNoteAccidental.h>

#include <algorithm>

namespace zarn::engraving {

namespace {

Accidental accidentalOf(int alteration)
{
    constexpr std::array<Accidental, 5> signs = {Accidental::DoubleFlat, Accidental::Flat,
                                                 Accidental::Natural, Accidental::Sharp,
                                                 Accidental::DoubleSharp};
    return signs[static_cast<std::size_t>(std::clamp(alteration, -2, 2) + 2)];
}

} // namespace

AccidentalMemory::AccidentalMemory(int key)
{
    const KeySignature signature(key);
    for (int step = 0; step < 7; ++step)
        _key[static_cast<std::size_t>(step)] = static_cast<std::int8_t>(
            signature.accidentalWithStep(static_cast<NoteName::Value>(step)).alteration());
    _held.fill(_key);
}

AccidentalSign AccidentalMemory::next(const NoteSource &note, bool isTiedOverBar,
                                      bool differsAtOnce)
{
    if (note.step < 0)
        return {};
    const auto step = static_cast<std::size_t>(note.step);
    const auto octave = static_cast<std::size_t>(std::clamp<int>(note.octave, 0, 11));
    std::int8_t &held = _held[octave][step];
    const AccidentalDisplay display = note.marks.accidentalDisplay();
    bool isShown = held != note.alteration || differsAtOnce;
    if (isTiedOverBar && display == AccidentalDisplay::Auto) {
        if (note.alteration != _key[step])
            held = unsure;
        return {};
    }
    if (display != AccidentalDisplay::Auto)
        isShown = display != AccidentalDisplay::Hidden;
    if (display != AccidentalDisplay::Hidden)
        held = differsAtOnce ? unsure : note.alteration;
    if (!isShown)
        return {};
    return {accidentalOf(note.alteration), display};
}

void setAccidentals(BarSource &bar, const std::vector<bool> &respelled)
{
    struct Read {
        const BeatSource *beat;
        unsigned voice;
    };
    std::vector<Read> reads;
    for (const VoiceSource &voice : bar.voices)
        for (const BeatSource &beat : voice.beats)
            if (beat.noteCount > 0)
                reads.push_back({&beat, voice.number});
    std::stable_sort(reads.begin(), reads.end(), [](const Read &left, const Read &right) {
        if (left.beat->onset != right.beat->onset)
            return left.beat->onset < right.beat->onset;
        return left.beat->graceRank > right.beat->graceRank;
    });
    const auto differsAtOnce = [&](std::size_t number, const NoteSource &note) {
        const BeatSource &beat = *reads[number].beat;
        const auto differs = [&](std::size_t other) {
            const BeatSource &chord = *reads[other].beat;
            return std::any_of(bar.notes.begin() + chord.firstNote,
                               bar.notes.begin() + chord.firstNote + chord.noteCount,
                               [&](const NoteSource &there) {
                                   return there.step == note.step && there.octave == note.octave
                                       && there.alteration != note.alteration;
                               });
        };
        const auto isAtOnce = [&](std::size_t other) {
            return reads[other].beat->onset == beat.onset
                && reads[other].beat->graceRank == beat.graceRank;
        };
        for (std::size_t i = number; i < reads.size() && isAtOnce(i); ++i)
            if (differs(i))
                return true;
        for (std::size_t i = number; i-- > 0 && isAtOnce(i);)
            if (differs(i))
                return true;
        return false;
    };
    AccidentalMemory memory(bar.key);
    for (std::size_t number = 0; number < reads.size(); ++number) {
        const BeatSource &beat = *reads[number].beat;
        for (unsigned i = 0; i < beat.noteCount; ++i) {
            NoteSource &note = bar.notes[beat.firstNote + i];
            if (note.marks.isHidden())
                continue;
            const bool isTied = note.marks.isTied() && !respelled[beat.firstNote + i];
            const bool isTiedOver = isTied && beat.index == 0 && beat.onset.isZero();
            note.accidental =
                isTied && !isTiedOver && note.marks.accidentalDisplay() == AccidentalDisplay::Auto
                ? AccidentalSign()
                : memory.next(note, isTiedOver, differsAtOnce(number, note));
        }
    }
}

} // namespace zarn::engraving
