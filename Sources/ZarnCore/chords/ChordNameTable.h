// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/chords/ZarnChordKind.h>
#include <ZarnCore/music/ZarnToneSet.h>

#include <array>
#include <cstdint>
#include <utility>
#include <vector>

namespace zarn::chord {

/// What readings of tones cost, in hundredths.
namespace cost {

constexpr int thirdOrFifthInBass = 62;
constexpr int seventhOrSixthInBass = 80;
/// On top, for a seventh under a major or minor triad: C7/Bb is rather called C/Bb.
constexpr int seventhUnderTriad = 50;
constexpr int extensionInBass = 110;
/// On top, for an inversion that has a plainer name: C6/A is Am7.
constexpr int plainerTwin = 50;
constexpr int foreignBass = 155;
/// On top, for a bass from outside under four tones and more.
constexpr int foreignBassOfSeventh = 60;
constexpr int omittedTone = 35;
/// On top, for the fifth of a suspended chord.
constexpr int omittedSuspended = 100;
/// On top, for that of a sixth chord of four tones, which is an inverted triad then.
constexpr int omittedOfSixth = 50;
/// In place of the inversion; at least as much as the best name that has its root.
constexpr int omittedRoot = 105;
/// Omissions that have to be said.
constexpr int saidFifth = 90;
constexpr int saidThird = 150;
/// Where the tones lie: a minor seventh over the root in the bass, but beyond its octave, and a
/// fourth within it that is called the eleventh of a dominant chord, or of a minor seventh chord
/// whose third is beside it. Fourths one above the other are another matter.
constexpr int farSeventh = 30;
constexpr int lowEleventh = 50;
/// For a major thirteenth chord that lies within an octave as a whole: a minor chord with a ninth
/// or eleventh over its third, rather.
constexpr int closeThirteenth = 60;
/// How much worse than the best name an alternative may be.
constexpr int farFetched = 250;

int ofInversion(Degree bass, const ChordKind &kind) noexcept;
int ofOmission(Degree degree, const ChordKind &kind) noexcept;
int ofSaidOmission(Degree degree, const ChordKind &kind) noexcept;
bool hasPlainerTwin(const ChordKind &kind) noexcept;

} // namespace cost

/// All readings of the sets of tones that have a bass: the table behind the recognizer.
///
/// A set is counted from its bass, so that the 24,576 pairs of set and bass become the 2,048 sets
/// that have C in them.
class ChordNameTable {
public:
    struct Entry {
        std::int16_t cost;
        std::uint8_t kind;
        /// Semitones from the bass up to the root.
        std::uint8_t root;
        /// Degrees that are left out, a bit for each place in the kind's list.
        std::uint8_t unheard;
        /// Those of them that the name has to say.
        std::uint8_t said;
        bool isBassForeign;
    };

    /// Filled when it is asked for first.
    static const ChordNameTable &instance();

    /// The readings of a set with C in it, the cheapest ones first; at the same cost those with
    /// their root in the bass are in front.
    std::pair<const Entry *, const Entry *> entries(ToneSet tones) const noexcept
    {
        const auto index = static_cast<std::size_t>(tones.bits() >> 1);
        return {_entries.data() + _begins[index], _entries.data() + _begins[index + 1]};
    }

private:
    ChordNameTable();

    std::array<std::uint32_t, ToneSet::possibleSets / 2 + 1> _begins = {};
    std::vector<Entry> _entries;
};

} // namespace zarn::chord
