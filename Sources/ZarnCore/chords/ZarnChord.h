// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/chords/ZarnChordDegree.h>
#include <ZarnCore/chords/ZarnChordKind.h>
#include <ZarnCore/chords/ZarnHarmony.h>
#include <ZarnCore/music/ZarnPitchClass.h>
#include <ZarnCore/music/ZarnToneSet.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zarn::chord {

/// A tone of a chord with the degree that it is.
struct ChordTone {
    Degree degree;
    PitchClass pitch;
    /// Whether players leave it out without being misunderstood.
    bool isOmissible = false;
};

/// A chord as a symbol names it: a root, a kind, degrees that are altered, added or omitted, and
/// perhaps a bass. A value; a symbol that is not understood makes none, so its owner keeps the
/// text as it was written.
class ZARNCORE_EXPORT Chord {
public:
    /// "N.C.": no chord, without root and tones.
    Chord() noexcept;
    /// A major triad. An invalid root makes no chord.
    explicit Chord(const PitchClass &root) noexcept;
    Chord(const PitchClass &root, const ChordKind &kind) noexcept;

    /// The chord of some degrees in the plainest way: the kind that has them all, or one with as
    /// few changes as the table allows. "C7" with a flat ninth is the kind "7b9".
    static Chord fromDegrees(const PitchClass &root, const DegreeList &degrees);

    /// Reads "F#m7b5/E", in ASCII or with the usual signs; "N.C." is the empty chord. Nothing for
    /// a text that is no chord symbol.
    static std::optional<Chord> fromText(std::string_view text);

    /// In the writing of the table, ASCII: "Bbmaj7#11/D". What it writes it reads as `simplified`.
    std::string toText() const;

    /// With signs for accidentals: "B♭maj7♯11/D".
    std::string toDisplayText() const;

    /// The chord that the elements of MusicXML say; nothing when they have no root or a degree
    /// beyond the thirteenth, unless they say that there is no chord. `toHarmony` gives the same
    /// elements again, with degrees in the order altered, added, omitted.
    static std::optional<Chord> fromHarmony(const Harmony &harmony);
    Harmony toHarmony() const;

    bool isNone() const noexcept { return !_root; }
    /// Invalid when the chord is none.
    const PitchClass &root() const noexcept { return _root; }
    const ChordKind &kind() const noexcept { return *_kind; }

    /// What differs from the kind. An altered degree stands in the place of the kind's own with
    /// its number, or is added when there is none.
    const DegreeList &altered() const noexcept { return _altered; }
    const DegreeList &added() const noexcept { return _added; }
    const DegreeList &omitted() const noexcept { return _omitted; }
    void alter(Degree degree) { _altered.append(degree); }
    void add(Degree degree) { _added.append(degree); }
    /// Omits what the chord has under the degree's number.
    void omit(Degree degree) { _omitted.append(degree); }

    /// Whether a bass is named, perhaps the root itself.
    bool hasBass() const noexcept { return bool(_bass) || _inversion >= 0; }
    /// The named bass or that of the inversion, else the root.
    PitchClass bass() const;
    void setBass(const PitchClass &bass) noexcept { _bass = bass; }
    void unsetBass() noexcept;
    /// Which of the chord's tones is in the bass, from the root, 0; for chords that are named by
    /// their inversion. A bass that is set has priority.
    void setInversion(int inversion) noexcept { _inversion = inversion; }

    /// The degrees after all changes, ascending; without the bass unless it is one of them.
    DegreeList degrees() const noexcept;

    /// The degrees spelled, ascending from the root; without a bass from outside.
    std::vector<ChordTone> tones() const;

    /// What may be heard: `tones` as pitch classes, and with the bass.
    ToneSet toneSet() const;
    ToneSet toneSetWithBass() const;
    /// Those of `toneSet` that players leave out.
    ToneSet omissibleTones() const;

    /// The chord an interval higher, bass and all; spelled by letters.
    Chord transposed(const Interval &interval) const;

    /// The same root, tones and bass as `fromDegrees` says them. Names of functions stay.
    Chord simplified() const;

    /// Equal in all parts; see `simplified`.
    friend bool operator==(const Chord &left, const Chord &right) noexcept
    {
        return left._root == right._root && left._kind == right._kind
            && left._altered == right._altered && left._added == right._added
            && left._omitted == right._omitted && left._bass == right._bass
            && left._inversion == right._inversion;
    }
    friend bool operator!=(const Chord &left, const Chord &right) noexcept
    {
        return !(left == right);
    }

private:
    PitchClass _root;
    PitchClass _bass;
    const ChordKind *_kind;
    DegreeList _altered;
    DegreeList _added;
    DegreeList _omitted;
    int _inversion = -1;
};

} // namespace zarn::chord
