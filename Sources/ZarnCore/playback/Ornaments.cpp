// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/Ornaments.h>

#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/notes/ZarnWrittenPitch.h>

#include <algorithm>
#include <array>

namespace zarn::playback {

namespace {

constexpr int octave = 12;
const utils::rational thirtySecond(1, 8);

/// Steps of the scale from the note, in the order of playing.
struct OrnamentRow {
    Ornament ornament;
    std::array<int, 4> steps;
    std::size_t count;
};
constexpr std::array ornaments{
    OrnamentRow{Ornament::Turn, {1, 0, -1, 0}, 4},
    OrnamentRow{Ornament::InvertedTurn, {-1, 0, 1, 0}, 4},
    OrnamentRow{Ornament::LowerMordent, {0, -1, 0, 0}, 3},
    OrnamentRow{Ornament::UpperMordent, {0, 1, 0, 0}, 3},
};

/// Semitones from a note to the next step of the scale of its bar, up (1) or down (-1).
int neighbour(const Beat &beat, const Note &note, int step)
{
    if (step == 0)
        return 0;
    const auto voice = beat.parentVoice();
    const auto bar = voice ? voice->parentBar() : nullptr;
    const KeySignature key = bar ? writtenKeySignature(*bar) : KeySignature();
    NoteName letter = writtenNoteName(note);
    if (!letter.isValid())
        return 2 * step;
    const core::Pitch pitch = writtenPitch(note, writtenMidi(note), key.accidentalCount());
    if (step > 0)
        ++letter;
    else
        --letter;
    const int there = letter.naturalSemitone() + key.accidentalWithStep(letter).alteration();
    const int interval = (there - pitch.naturalStep() - pitch.alteration()) * step;
    const int within = (interval % octave + octave) % octave;
    return std::clamp(within, 1, 3) * step;
}

std::vector<OrnamentNote> trillNotes(const Trill &trill, const utils::rational &length)
{
    const utils::rational each = RhythmValue::noteValueToTimeUnit(trill.speed);
    const auto count = std::max<std::int64_t>((length / each).floor(), 1);
    std::vector<OrnamentNote> notes;
    for (std::int64_t i = 0; i < count; ++i) {
        const utils::rational offset = each * i;
        notes.push_back({offset, i + 1 == count ? length - offset : each,
                         i % 2 == 0 ? 0 : static_cast<int>(trill.interval)});
    }
    return notes;
}

} // namespace

std::vector<OrnamentNote> ornamentNotes(const Beat &beat, const Note &note,
                                        const utils::rational &length)
{
    if (length.sign() <= 0)
        return {};
    if (note.trill().interval != 0)
        return trillNotes(note.trill(), length);
    const auto row = std::find_if(ornaments.begin(), ornaments.end(), [&](const OrnamentRow &each) {
        return each.ornament == note.ornament();
    });
    if (row == ornaments.end())
        return {};
    const utils::rational each = std::min(thirtySecond, length / 4);
    std::vector<OrnamentNote> notes;
    for (std::size_t i = 0; i < row->count; ++i) {
        const utils::rational offset = each * static_cast<std::int64_t>(i);
        notes.push_back({offset, i + 1 == row->count ? length - offset : each,
                         neighbour(beat, note, row->steps[i])});
    }
    return notes;
}

} // namespace zarn::playback
