// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/music/ZarnInterval.h>
#include <ZarnCore/music/ZarnKeySignature.h>
#include <ZarnCore/music/ZarnPitchClass.h>

#include <QString>

#include <optional>

namespace zarn {

class Bar;
class Note;

namespace sheet {

enum class Signs : int;

/// Pitches of a bar as the program names them everywhere: as they sound, C4 being middle C, spelled
/// in the key at concert pitch. The tree holds them as they are written for the player.
class ZARNCORE_EXPORT SoundingPitch {
public:
    /// Of C major without transposition.
    SoundingPitch() = default;
    explicit SoundingPitch(const Bar &bar);

    /// "C#4", "C♯4"; empty for a note without a pitch.
    QString text(const Note &note, Signs signs) const;

    /// The MIDI key that is heard; -1 for none.
    int midi(const Note &note) const;

private:
    PitchClass spelling(const Note &note) const;

    int _transposition = 0;
    KeySignature _key{0, true, true};
    std::optional<Interval> _fromWritten; ///< from the written spelling to the sounding one
};

} // namespace sheet
} // namespace zarn
