// SPDX-License-Identifier: MIT
#include "Fuzzing.h"

#include <ZarnCore/chords/ZarnChord.h>
#include <ZarnCore/chords/ZarnKeySpelling.h>
#include <ZarnCore/scales/ZarnScale.h>

namespace {

using zarn::chord::Chord;

void expectToComeBack(const Chord &chord)
{
    const std::string text = chord.toText();
    const auto read = Chord::fromText(text);
    if (!read || read->toText() != text)
        fuzz::breakLaw("a chord is read as it is written", text);
    if (read->toneSetWithBass() != chord.toneSetWithBass())
        fuzz::breakLaw("a chord that was read again has the same tones", text);
    if (Chord::fromText(chord.toDisplayText()) != read)
        fuzz::breakLaw("a chord is read as it is shown", chord.toDisplayText());
    const auto heard = Chord::fromHarmony(chord.toHarmony());
    if (!heard || heard->toneSetWithBass() != chord.toneSetWithBass())
        fuzz::breakLaw("a chord has the same tones in MusicXML", text);
}

} // namespace

/// The input is a chord symbol, the name of a scale and that of a key.
void fuzz::check(std::string_view input)
{
    if (const auto chord = Chord::fromText(input))
        expectToComeBack(*chord);
    if (const auto scale = zarn::scale::Scale::fromText(input)) {
        const auto read = zarn::scale::Scale::fromText(scale->toText());
        if (!read || *read != *scale)
            breakLaw("a scale is read as it is written", scale->toText());
        for (int size = 3; size <= 7; ++size)
            for (const Chord &chord : scale->chords(size))
                expectToComeBack(chord);
    }
    (void)zarn::chord::KeySpelling::keyFromText(input);
}
