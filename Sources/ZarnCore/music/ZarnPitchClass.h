// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/music/ZarnInterval.h>
#include <ZarnCore/music/ZarnNoteAccidental.h>
#include <ZarnCore/music/ZarnNoteName.h>
#include <ZarnCore/music/ZarnPitch.h>
#include <ZarnCore/music/ZarnSpellingTables.h>
#include <ZarnCore/music/ZarnTone.h>

#include <QSet>
#include <QString>

#include <vector>

class QDebug;
class QDomDocument;
class QDomElement;

namespace zarn {

/// A spelled pitch class: a letter with its accidental, in no octave. There are 35.
///
/// An invalid pitch class stays what it is under augmenting and transposing, and has neither
/// enharmonics nor intervals; asking it for semitones raises.
class ZARNCORE_EXPORT PitchClass {
public:
    /// Invalid.
    PitchClass() noexcept = default;

    /// With a Natural accidental.
    explicit PitchClass(NoteName note) noexcept : _note(note) { }
    PitchClass(NoteName note, NoteAccidental accidental) noexcept
        : _accidental(accidental), _note(note)
    {
    }
    PitchClass(const PitchClass &) noexcept = default;
    PitchClass &operator=(const PitchClass &) noexcept = default;
    /// Inline, since every look-up makes and drops values.
    virtual ~PitchClass() = default;

    NoteName note() const noexcept { return _note; }
    NoteAccidental accidental() const noexcept { return _accidental; }
    explicit operator bool() const noexcept { return _note.isValid() && _accidental.isValid(); }

    /// The key that the spelling stands for.
    Tone tone() const { return Tone(_note, _accidental); }

    /// -2 to 2.
    int alterationSemitones() const;

    /// MIDI number, 12 * octave + letter + accidental: C flat of octave 5 is 59 and B sharp of
    /// octave 4 is 60.
    int midi(int octave) const;

    /// One semitone up or down, on the same letter while a double accidental allows it.
    PitchClass augmented() const noexcept { return altered(spelling::augmented); }
    PitchClass diminished() const noexcept { return altered(spelling::diminished); }
    void augment() noexcept { *this = augmented(); }
    void diminish() noexcept { *this = diminished(); }

    /// An interval higher, and the spelling from which the interval leads here. Where a double
    /// accidental would not do, the letter moves on and the pitch is right. An invalid interval
    /// changes nothing.
    PitchClass transposed(const Interval &interval) const noexcept
    {
        return moved(spelling::transposed, interval);
    }
    PitchClass untransposed(const Interval &interval) const noexcept
    {
        return moved(spelling::untransposed, interval);
    }
    void transpose(const Interval &interval) noexcept { *this = transposed(interval); }
    void untranspose(const Interval &interval) noexcept { *this = untransposed(interval); }

    /// The intervals that lead from this spelling to another; see `Interval::fromPitchClasses`.
    const std::vector<Interval> &interval(const PitchClass &other) const;

    /// All spellings of the same key, this one included; G sharp has two, the others three.
    QSet<PitchClass> enharmonics() const;

    /// "C", "Dbb", "F#"; "Invalid".
    QString toString() const;

    /// For display; an invalid one raises.
    QString symbol() const;

    /// A "PitchClass" element with the texts of letter and accidental.
    QDomElement toXML(QDomDocument &document) const;

    /// The spelling of a pitch; one whose step or alteration is none gives an invalid pitch class.
    static PitchClass fromPitch(const core::Pitch &pitch) noexcept;

    /// The spelling without double accidentals, black keys with flats or with sharps.
    static PitchClass fromPitch(int midi, bool preferFlat) noexcept
    {
        return fromTone(Tone(midi), preferFlat);
    }
    static PitchClass fromTone(Tone tone, bool preferFlat) noexcept
    {
        const auto &table = preferFlat ? spelling::withFlats : spelling::withSharps;
        return fromSpelling(table[static_cast<std::size_t>(tone.value())]);
    }

    /// All spellings.
    static QSet<PitchClass> fromPitch(int midi);
    static QSet<PitchClass> fromTone(Tone tone);

    /// A letter, alone or followed by an accidental: "C", "Dbb", "CSharp". Other texts raise as in
    /// `NoteName` and `NoteAccidental`.
    static PitchClass fromString(const QString &text);

    /// An invalid pitch class raises.
    static core::Pitch toPitch(const PitchClass &pitchClass, int octave);

    /// Order by letter, then accidental.
    friend bool operator<(const PitchClass &left, const PitchClass &right) noexcept
    {
        return left.order() < right.order();
    }
    friend bool operator==(const PitchClass &left, const PitchClass &right) noexcept
    {
        return left._note == right._note && left._accidental == right._accidental;
    }
    friend bool operator!=(const PitchClass &left, const PitchClass &right) noexcept
    {
        return !(left == right);
    }
    friend uint qHash(const PitchClass &pitchClass, uint seed = 0) noexcept
    {
        return static_cast<uint>(pitchClass.order()) * 2654435761u ^ seed;
    }

private:
    friend class Interval;

    /// Number in the tables; only for valid ones.
    std::size_t spellingIndex() const noexcept
    {
        return static_cast<std::size_t>(_note.value()) * spelling::accidentalCount
            + static_cast<std::size_t>(_accidental.value());
    }
    static PitchClass fromSpelling(int spelling) noexcept
    {
        return PitchClass(static_cast<NoteName::Value>(spelling / spelling::accidentalCount),
                          static_cast<NoteAccidental::Value>(spelling % spelling::accidentalCount));
    }
    int order() const noexcept
    {
        return static_cast<int>(_note.value()) * 256 + static_cast<int>(_accidental.value());
    }
    PitchClass altered(const spelling::Spellings &table) const noexcept
    {
        return *this ? fromSpelling(table[spellingIndex()]) : *this;
    }
    PitchClass moved(const spelling::Transpositions &table, const Interval &interval) const noexcept
    {
        return *this && interval.isValid() ? fromSpelling(table[spellingIndex()][interval.cell()])
                                           : *this;
    }

    NoteAccidental _accidental;
    NoteName _note;
};

ZARNCORE_EXPORT QDebug operator<<(QDebug debug, const PitchClass &pitchClass);

} // namespace zarn
