// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypesNotation.h>
#include <ZarnCore/music/ZarnNoteAccidental.h>
#include <ZarnCore/music/ZarnNoteName.h>
#include <ZarnCore/music/ZarnPitch.h>

#include <QString>

namespace zarn {

class Interval;

/// Sharps or flats at the start of a staff, and the mode.
class ZARNCORE_EXPORT KeySignature {
public:
    /// Negative counts are flats, positive ones sharps. Counts outside -7 to 7 are brought inside
    /// by twelve fifths, which keeps the sounding root.
    explicit KeySignature(int accidentalCount = 0, bool isMajor = true,
                          bool transposeAsSharps = true) noexcept;
    KeySignature(const KeySignature &) = default;
    KeySignature &operator=(const KeySignature &) = default;
    virtual ~KeySignature();

    /// -7 to 7.
    int accidentalCount() const noexcept { return _accidentalCount; }
    bool isMajor() const noexcept { return _isMajor; }

    /// Whether F sharp is preferred to G flat (and D sharp minor to E flat minor) when a
    /// transposition by semitones can be written either way with six accidentals.
    bool transposeAsSharps() const noexcept { return _transposeAsSharps; }

    /// The tonic, in octave 0.
    core::Pitch rootNote() const noexcept;

    /// What the signature puts on a letter: Flat, Natural or Sharp; an invalid letter raises.
    NoteAccidental accidentalWithStep(NoteName step) const;

    /// Where the accidental with this index (0 to 6, in the order of the signature) stands: 0 is
    /// the bottom line, 1 the space above it, 8 the top line. Without accidentals the places of
    /// sharps are answered. None and Neutral count as the G2 clef. Other indexes raise.
    int staffLineWithAccidentalIndex(int index, ClefType clef) const;

    /// Moves the key by an interval, upwards or, for a negative direction, downwards; an invalid
    /// interval or direction 0 leaves it as it is.
    void transpose(const Interval &interval, int direction);

    /// "Accidentals=-3;Mode=Major;TransposeAs=Sharps".
    QString toQString() const;

    friend bool operator==(const KeySignature &left, const KeySignature &right) noexcept
    {
        return left._accidentalCount == right._accidentalCount && left._isMajor == right._isMajor
            && left._transposeAsSharps == right._transposeAsSharps;
    }
    friend bool operator!=(const KeySignature &left, const KeySignature &right) noexcept
    {
        return !(left == right);
    }

private:
    int _accidentalCount;
    bool _isMajor;
    bool _transposeAsSharps;
};

} // namespace zarn
