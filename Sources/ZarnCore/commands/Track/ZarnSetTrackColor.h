// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetAttribute.h>

#include <cstdint>

namespace zarn::cmd {

/// Gives a track a colour. Sends `TrackColorChanged`.
class ZARNCORE_EXPORT SetTrackColor final
    : public SetOnTrack<&Track::color, &Track::setColor, evt::TrackColorChanged> {
public:
    SetTrackColor();
    ~SetTrackColor() override;

    /// 0xRRGGBB. False for a larger number, and for a track that is not there.
    bool init(Score *score, unsigned track, std::uint32_t color);
};

} // namespace zarn::cmd
