// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/chords/ZarnChord.h>
#include <ZarnCore/chords/ZarnKeySpelling.h>

#include <array>
#include <optional>
#include <vector>

namespace zarn::chord {

/// What is heard in a stretch of music: how much each pitch class weighs (say, how long it lasts,
/// more on the beat), and the lowest tone when there is a bass at all.
struct WeightedTones {
    std::array<double, 12> weights = {};
    std::optional<Tone> bass;

    void add(Tone tone, double weight)
    {
        weights[static_cast<std::size_t>(tone.value())] += weight;
    }
    ZARNCORE_EXPORT double total() const noexcept;
};

/// A chord that may stand over a stretch of music, and what that costs, in hundredths.
struct SuggestedChord {
    Chord chord;
    int cost = 0;
};

/// Finds the chord symbols that stand over music in which not every tone belongs to the harmony:
/// a melody has passing notes, and chords are broken.
///
/// Tones outside of a chord cost what they weigh, missing thirds and roots cost most of what is
/// missing, rare kinds and basses other than the root cost a little, and so does a change of
/// chord. Sus chords and extensions are suggested where they last. A tone by itself makes no chord:
/// it belongs to the one before or behind. A fifth in the bass may be one of basses that alternate
/// under a chord, and is not named then.
class ZARNCORE_EXPORT ChordSuggester {
public:
    explicit ChordSuggester(const KeySignature &key = KeySignature());

    /// The best chords of one stretch by itself; none when nothing is heard.
    std::vector<SuggestedChord> suggestions(const WeightedTones &tones,
                                            std::size_t limit = 8) const;

    /// A chord for each stretch of a passage, chosen together: the cheapest way through. The empty
    /// chord where nothing is heard.
    std::vector<Chord> passage(const std::vector<WeightedTones> &stretches) const;

private:
    KeySpelling _spelling;
};

} // namespace zarn::chord
