// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/model/ZarnTrackNotations.h>

#include <optional>

namespace zarn {
class Track;
}

namespace zarn::cmd {

/// Chooses the notations that a track is shown in, in all views. Sends `TrackViewNotationsChanged`
/// for each view.
class ZARNCORE_EXPORT SetTrackNotations final : public ScoreCommand {
public:
    SetTrackNotations();
    ~SetTrackNotations() override;

    /// Nothing leaves them to the instrument. False for none at all, and for a track that is not
    /// there.
    bool init(Score *score, unsigned track, const std::optional<TrackNotations> &notations);

private:
    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;
    void announce();

    unsigned _track = 0;
    std::optional<TrackNotations> _notations;
    std::optional<TrackNotations> _before;
};

} // namespace zarn::cmd
