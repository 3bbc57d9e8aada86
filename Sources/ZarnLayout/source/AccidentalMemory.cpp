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

AccidentalSign AccidentalMemory::next(const NoteSource &note, bool isTiedOverBar)
{
    if (note.step < 0)
        return {};
    const auto step = static_cast<std::size_t>(note.step);
    const auto octave = static_cast<std::size_t>(std::clamp<int>(note.octave, 0, 11));
    std::int8_t &held = _held[octave][step];
    const AccidentalDisplay display = note.marks.accidentalDisplay();
    bool isShown = held != note.alteration;
    if (isTiedOverBar && display == AccidentalDisplay::Auto) {
        if (note.alteration != _key[step])
            held = unsure;
        return {};
    }
    if (display != AccidentalDisplay::Auto)
        isShown = display != AccidentalDisplay::Hidden;
    if (display != AccidentalDisplay::Hidden)
        held = note.alteration;
    if (!isShown)
        return {};
    return {accidentalOf(note.alteration), display};
}

void setAccidentals(BarSource &bar)
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
    AccidentalMemory memory(bar.key);
    for (const Read &read : reads)
        for (unsigned i = 0; i < read.beat->noteCount; ++i) {
            NoteSource &note = bar.notes[read.beat->firstNote + i];
            const bool isTiedOver =
                note.marks.isTied() && read.beat->index == 0 && read.beat->onset.isZero();
            note.accidental = note.marks.isTied() && !isTiedOver
                    && note.marks.accidentalDisplay() == AccidentalDisplay::Auto
                ? AccidentalSign()
                : memory.next(note, isTiedOver);
        }
}

} // namespace zarn::engraving
