// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/playback/BeatStrokes.h>
#include <ZarnCore/playback/PlayedVoice.h>

#include <optional>

namespace zarn::playback {

/// The tremolos between two beats of a voice. Beats are their numbers in the list of the voice,
/// which has to outlast this.
class TremoloPairs {
public:
    explicit TremoloPairs(const PlayedBeats &beats) : _beats(beats) { }

    /// The beat that takes turns with this one in a tremolo that begins here: the next one that is
    /// no grace beat.
    std::optional<std::uint32_t> partnerBehind(std::uint32_t beat) const;

    /// The beat where a tremolo begins that ends here.
    std::optional<std::uint32_t> partnerBefore(std::uint32_t beat) const;

    /// How a beat that begins or ends a tremolo is struck; empty for other beats.
    std::vector<Stroke> strokesOf(std::uint32_t beat) const;

private:
    std::vector<Stroke> strokes(std::uint32_t first, std::uint32_t second, TremoloSide side) const;

    const PlayedBeats &_beats;
};

} // namespace zarn::playback
