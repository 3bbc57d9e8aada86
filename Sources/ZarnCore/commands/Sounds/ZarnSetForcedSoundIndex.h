// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnScoreCommand.h>

namespace zarn::cmd {

/// Makes a track play with one of its sounds throughout, or leaves it to its automations again,
/// which stay as they are. Sends `RequestForcedSoundIndexChange`.
class ZARNCORE_EXPORT SetForcedSoundIndex final : public ScoreCommand {
public:
    SetForcedSoundIndex();
    ~SetForcedSoundIndex() override;

    /// -1 is no sound. False for another one that is not there.
    bool init(Score *score, unsigned track, int index);

private:
    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;
    bool isPossible() const;

    unsigned _track = 0;
    int _index = -1;
    int _before = -1;
};

} // namespace zarn::cmd
