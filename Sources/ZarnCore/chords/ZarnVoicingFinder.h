// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/chords/ZarnChordDiagram.h>
#include <ZarnCore/chords/ZarnChordTones.h>
#include <ZarnCore/chords/ZarnFretboard.h>
#include <ZarnCore/chords/ZarnHandModel.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace zarn::chord {

/// What speaks against a voicing. Each is an amount that gets a weight.
enum class VoicingReason : std::uint8_t {
    Hand,      ///< cost of the fingers, see `HandModel`
    Span,      ///< frets between the lowest and the highest stop
    Position,  ///< frets from nut or capo to the lowest stop
    WrongBass, ///< 1 when another tone than the bass is lowest
    FifthBass, ///< 1 when that is the fifth, of a chord that names no bass
    InnerMute, ///< strings left out between others
    OuterMute, ///< strings left out at the ends
    Doubled,   ///< strings that sound the very pitch of another
    OpenAbove, ///< open strings, by the frets that the hand reaches past the first position
    NoRoot,    ///< 1 when the root is left out
    NoFifth,   ///< 1 when the perfect fifth of the chord is left out
    NoColour,  ///< other tones left out
    Variant,   ///< 1 when a better one differs only in strings that either leaves out
    SamePlace, ///< better voicings that begin at the same fret
};
constexpr std::size_t voicingReasonCount = 14;

using VoicingWeights = std::array<float, voicingReasonCount>;

/// One way to play a chord.
struct Voicing {
    FretRow frets;  ///< per course, from the nut
    HandShape hand; ///< fingers per course
    float cost = 0;
    std::array<float, voicingReasonCount> amounts{};
    ToneSet omitted; ///< tones that do not sound

    float amount(VoicingReason reason) const noexcept
    {
        return amounts[static_cast<std::size_t>(reason)];
    }
};

struct VoicingLimits {
    unsigned lastFret = 15;      ///< the highest stop, from nut or capo
    unsigned mostInnerMutes = 2; ///< strings left out between others
};

/// Finds all the ways in which a hand can play a chord on a tuning, the best first.
class ZARNCORE_EXPORT VoicingFinder {
public:
    /// Ranks as players of the instrument do.
    VoicingFinder(Fretboard fretboard, const HandModel &hand);
    VoicingFinder(Fretboard fretboard, const HandModel &hand, const VoicingWeights &weights);

    const Fretboard &fretboard() const noexcept { return _fretboard; }
    const HandModel &hand() const noexcept { return _hand; }
    const VoicingWeights &weights() const noexcept { return _weights; }

    /// Every voicing that holds the tones. Where the instrument has too few strings for them,
    /// those that hold the most. Empty only when there is nothing to play on, or no tone.
    std::vector<Voicing> find(const ChordTones &chord, const VoicingLimits &limits = {}) const;

    /// As a diagram, with frets and fingers for every string, counted from the capo.
    ChordDiagram diagram(const Voicing &voicing, std::string name = {}) const;

private:
    Fretboard _fretboard;
    HandModel _hand;
    VoicingWeights _weights;
};

} // namespace zarn::chord
