// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetAttribute.h>

namespace zarn::cmd {

/// Names a track.
class ZARNCORE_EXPORT SetTrackName final
    : public SetOnTrack<&Track::name, &Track::setName, evt::TrackNameChanged> {
public:
    SetTrackName();
    ~SetTrackName() override;

    /// False for a track that is not there.
    bool init(Score *score, unsigned track, const QString &name);
};

} // namespace zarn::cmd
