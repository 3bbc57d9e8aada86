// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace zarn {

class ScoreBase;
class Sound;
class Track;

/// Another sound in the place of one of a track's, there and back. The automations that switch to
/// the one switch to the other.
///
/// An automation means a sound of the list when it holds the very same one, or else the first that
/// is equal: documents hold the sounds of automations and of the list apart.
class ZARNCORE_EXPORT TrackSoundChange {
public:
    /// The second needs the track as the first left it.
    void apply(Track &track, unsigned index, std::shared_ptr<const Sound> sound);
    void revert(Track &track);

    unsigned index() const noexcept { return _index; }

    /// Sends the events of the automations that were given another sound; none when there are none.
    void announceAutomations(ScoreBase &score, const void *sender, unsigned track) const;

private:
    /// A place where the track switches to the sound, and the sound as it was held there.
    struct Switch {
        std::uint32_t bar;
        float position;
        std::shared_ptr<const Sound> sound;
    };

    unsigned _index = 0;
    std::shared_ptr<const Sound> _before;
    std::vector<Switch> _switches; ///< in the order of their places
};

} // namespace zarn
