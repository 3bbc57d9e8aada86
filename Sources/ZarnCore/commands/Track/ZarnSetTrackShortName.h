// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetAttribute.h>

namespace zarn::cmd {

/// Sets the name of a track that stands at all systems but the first.
class ZARNCORE_EXPORT SetTrackShortName final
    : public SetOnTrack<&Track::shortName, &Track::setShortName, evt::TrackShortNameChanged> {
public:
    SetTrackShortName();
    ~SetTrackShortName() override;

    /// False for a track that is not there.
    bool init(Score *score, unsigned track, const QString &name);
};

} // namespace zarn::cmd
