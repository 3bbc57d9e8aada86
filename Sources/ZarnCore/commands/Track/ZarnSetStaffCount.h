// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/model/ZarnTrack.h>

namespace zarn::cmd {

/// Adds empty staves behind those of a track, or takes the last ones out with their music. Sends
/// `RequestTrackStaffChanged`.
class ZARNCORE_EXPORT SetStaffCount final : public ScoreCommand {
public:
    /// More than any instrument is written on.
    static constexpr unsigned MostStaves = 16;

    SetStaffCount();
    ~SetStaffCount() override;

    /// False for no staff, for too many, and for a track that is not there.
    bool init(Score *score, unsigned track, unsigned count);

private:
    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;
    Track &track() const;

    unsigned _track = 0;
    unsigned _count = 1;
    unsigned _countBefore = 1;
    Track::Staves _staves; ///< those that are out of the track
};

} // namespace zarn::cmd
