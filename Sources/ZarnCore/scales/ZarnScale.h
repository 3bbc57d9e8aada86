// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/chords/ZarnChord.h>
#include <ZarnCore/music/ZarnPitchClass.h>
#include <ZarnCore/music/ZarnToneSet.h>
#include <ZarnCore/scales/ZarnScaleKind.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zarn::scale {

/// A mode of a scale: the tone that it starts on, and what that scale is called.
struct Mode {
    PitchClass tonic;
    /// Null when the table has no such scale.
    const ScaleKind *kind = nullptr;
};

/// A scale on a tonic. A value.
class ZARNCORE_EXPORT Scale {
public:
    /// An invalid tonic counts as C.
    Scale(const PitchClass &tonic, const ScaleKind &kind) noexcept;

    /// On a key that is spelled so that the scale has as few accidentals as may be; where both
    /// spellings have as many, with flats or with sharps.
    static Scale onTone(Tone tonic, const ScaleKind &kind, bool preferFlat) noexcept;

    /// "C dorian", "f# harmonic minor", "B flat minor", "Am pentatonic", "Bb" (major); nothing for
    /// another text.
    static std::optional<Scale> fromText(std::string_view text);

    /// "C dorian".
    std::string toText() const;

    const PitchClass &tonic() const noexcept { return _tonic; }
    const ScaleKind &kind() const noexcept { return *_kind; }

    /// Spelled, ascending from the tonic.
    std::vector<PitchClass> tones() const;
    ToneSet toneSet() const noexcept { return _kind->tones().transposed(_tonic.tone().value()); }

    /// The scales of the same tones from each of them, the own one first.
    std::vector<Mode> modes() const;

    /// The chords that grow on each tone when every other one is stacked on it, of 3 to 7 tones:
    /// in C major of four Cmaj7, Dm7, Em7, Fmaj7, G7, Am7, Bm7b5. Other sizes are brought there,
    /// and scales of few tones have chords of as many at the most.
    std::vector<chord::Chord> chords(int size) const;

    friend bool operator==(const Scale &left, const Scale &right) noexcept
    {
        return left._tonic == right._tonic && left._kind == right._kind;
    }
    friend bool operator!=(const Scale &left, const Scale &right) noexcept
    {
        return !(left == right);
    }

private:
    PitchClass _tonic;
    const ScaleKind *_kind;
};

} // namespace zarn::scale
