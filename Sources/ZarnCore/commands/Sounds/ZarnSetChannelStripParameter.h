// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypesEditing.h>
#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/instruments/effects/ZarnVolumePan.h>

namespace zarn::cmd {

/// Sets the volume or the panning of a track or of the master track. Sends
/// `RequestTrackChannelStripChange`, or `RequestMasterTrackChannelStripParameterChange` with the
/// number of the parameter.
class ZARNCORE_EXPORT SetChannelStripParameter final : public ScoreCommand {
public:
    SetChannelStripParameter();
    ~SetChannelStripParameter() override;

    /// The track -1 is the master track. False for a value that the parameter cannot have (see
    /// `isChannelStripValue`), and for a track that is not there.
    bool init(Score *score, int track, ChannelStripParameter parameter, float value);

private:
    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;
    bool isPossible() const;
    void write(const ZarnVolumePan &volumePan);

    int _track = 0;
    ChannelStripParameter _parameter = ChannelStripParameter::Volume;
    float _value = 0;
    ZarnVolumePan _before;
};

} // namespace zarn::cmd
