// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/model/ZarnAudioTrack.h>

namespace zarn::cmd {

/// Changes a recording that plays along: its name, file, start, level, place and whether it is
/// muted. Sends `AudioTrackChanged`.
class ZARNCORE_EXPORT SetAudioTrack final : public ScoreCommand {
public:
    SetAudioTrack();
    ~SetAudioTrack() override;

    /// Gives the audio track `index` what `track` has. False for an audio track that is not there,
    /// and for values that are not possible.
    bool init(Score *score, unsigned index, const AudioTrack &track);

private:
    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;
    bool isThere() const;

    unsigned _index = 0;
    AudioTrack _other; ///< what the track is to have; when it has that, what it had
};

} // namespace zarn::cmd
