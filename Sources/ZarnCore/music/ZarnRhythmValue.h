// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/utils/rational.h>

#include <QString>

#include <cstdint>
#include <utility>
#include <vector>

namespace filesystem {
class FileHandle;
}

namespace zarn {

/// A written duration: a note value with dots and up to two nested tuplets.
class ZARNCORE_EXPORT RhythmValue {
public:
    enum class NoteValue : std::uint8_t {
        Long,
        DWhole, ///< breve
        Whole,
        Half,
        Quarter,
        Eighth,
        Sixteenth,
        ThirtySecond,
        SixtyFourth,
        HundredTwentyEighth,
        TwoHundredFiftySixth,
        Invalid, ///< answered for a length that is no note value; a RhythmValue never holds it
    };

    /// `first` notes in the time of `second`: (3, 2) is a triplet, (0, 0) is none.
    using TupletRatio = std::pair<std::uint8_t, std::uint8_t>;

    /// A plain quarter.
    RhythmValue() noexcept = default;

    /// A number that is no note value raises, here and in `setNoteValue`; so do more than 255 dots.
    explicit RhythmValue(NoteValue noteValue, unsigned augmentationDot = 0);

    NoteValue getNoteValue() const noexcept { return _noteValue; }

    /// Number of dots; more than 3 count as 3.
    unsigned getAugmentationDot() const noexcept { return _augmentationDot; }
    TupletRatio getPrimaryTupletRatio() const noexcept { return _primaryTuplet; }

    /// The tuplet inside the primary one; without a primary one it counts for nothing.
    TupletRatio getSecondaryTupletRatio() const noexcept { return _secondaryTuplet; }

    /// Whether both numbers are above 1.
    bool hasPrimaryTuplet() const noexcept { return isTuplet(_primaryTuplet); }
    bool hasSecondaryTuplet() const noexcept { return isTuplet(_secondaryTuplet); }

    /// Length in quarters. The first call after a change computes and keeps it, so two threads
    /// must not make that call at the same time.
    const utils::rational &getLength() const
    {
        if (_dirty)
            _calculateLength();
        return _length;
    }

    /// "Quarter;Dots=0;PriTuplet=0/0;SecTuplet=0/0".
    QString toQString() const;

    void setNoteValue(NoteValue noteValue);

    /// Raises above 255.
    void setAugmentationDot(unsigned dots);
    void setPrimaryTupletRatio(TupletRatio ratio) noexcept
    {
        _primaryTuplet = ratio;
        _dirty = true;
    }
    void setSecondaryTupletRatio(TupletRatio ratio) noexcept
    {
        _secondaryTuplet = ratio;
        _dirty = true;
    }
    void unsetPrimaryTupletRatio() noexcept { setPrimaryTupletRatio({0, 0}); }
    void unsetSecondaryTupletRatio() noexcept { setSecondaryTupletRatio({0, 0}); }

    /// Length of a plain note in quarters; a number that is no note value raises.
    static utils::rational noteValueToTimeUnit(NoteValue noteValue);

    /// The plain note of exactly this length, or `Invalid`.
    static NoteValue noteValueFromTimeUnit(const utils::rational &timeUnit) noexcept;

    /// Splits a length in quarters into rhythm values and appends them to `out`; their lengths
    /// sum exactly to it. A length that is negative, above 65536 quarters, or that no tuplet
    /// with terms up to 255 can complete raises, and `out` stays as it was.
    static void rhythms(const utils::rational &length, std::vector<RhythmValue> &out);

    /// Six bytes: note value, dots, both tuplets; the form of every version. False when the file
    /// fails; bytes that are no rhythm raise. A value that is not read stays as it was.
    bool readFromStream(filesystem::FileHandle &file, int version);

    bool writeToStream(filesystem::FileHandle &file, int version) const;

    /// Equal as written: a triplet of quarters is no other rhythm of the same length.
    friend bool operator==(const RhythmValue &left, const RhythmValue &right) noexcept
    {
        return left._noteValue == right._noteValue
            && left._augmentationDot == right._augmentationDot
            && left._primaryTuplet == right._primaryTuplet
            && left._secondaryTuplet == right._secondaryTuplet;
    }
    friend bool operator!=(const RhythmValue &left, const RhythmValue &right) noexcept
    {
        return !(left == right);
    }

    /// Compares the lengths.
    friend bool operator<(const RhythmValue &left, const RhythmValue &right)
    {
        return left.getLength() < right.getLength();
    }

private:
    static bool isTuplet(const TupletRatio &ratio) noexcept
    {
        return ratio.first > 1 && ratio.second > 1;
    }
    void _calculateLength() const;

    NoteValue _noteValue = NoteValue::Quarter;
    mutable bool _dirty = false;
    TupletRatio _primaryTuplet = {0, 0};
    TupletRatio _secondaryTuplet = {0, 0};
    std::uint8_t _augmentationDot = 0;
    mutable utils::rational _length = 1;
};

} // namespace zarn
