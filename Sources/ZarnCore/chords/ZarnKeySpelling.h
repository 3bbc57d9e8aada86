// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/music/ZarnKeySignature.h>
#include <ZarnCore/music/ZarnPitchClass.h>
#include <ZarnCore/music/ZarnToneSet.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace zarn::chord {

class ChordKind;

/// How roots and basses are spelled in a key.
///
/// A tone of the key has the key's spelling. Elsewhere the spelling with the fewest accidentals in
/// the whole chord is chosen (C#dim7, but Db), then that of the key's side; in minor keys the
/// leading tone is among the choices.
class ZARNCORE_EXPORT KeySpelling {
public:
    explicit KeySpelling(const KeySignature &key = KeySignature());

    /// The key of a tonic: "F#", and in lower case or with "m" behind it a minor key, "f#",
    /// "F#m", "F# minor". Nothing for another text.
    static std::optional<KeySignature> keyFromText(std::string_view text);

    const KeySignature &key() const noexcept { return _key; }
    bool isDiatonic(Tone tone) const noexcept { return _diatonic.contains(tone); }

    /// A single tone.
    PitchClass spelled(Tone tone) const noexcept
    {
        return _spellings[static_cast<std::size_t>(tone.value())];
    }

    /// The root of a chord.
    PitchClass root(Tone tone, const ChordKind &kind) const noexcept;

    /// The bass under a chord; plain, unless the key has it otherwise.
    PitchClass bass(Tone tone, const PitchClass &root, const ChordKind &kind) const noexcept;

private:
    KeySignature _key;
    ToneSet _diatonic;
    Tone _leadingTone;
    PitchClass _leadingSpelling;
    std::array<PitchClass, 12> _spellings;
};

} // namespace zarn::chord
