// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Sounds/ZarnSetChannelStripParameter.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Automations/AnnounceAutomations.h>
#include <ZarnCore/events/ZarnEffectEvents.h>
#include <ZarnCore/instruments/automations/ZarnChannelStrip.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn::cmd {

SetChannelStripParameter::SetChannelStripParameter()
    : ScoreCommand(QStringLiteral("SetChannelStripParameter"))
{
}
SetChannelStripParameter::~SetChannelStripParameter() = default;

bool SetChannelStripParameter::init(Score *score, int track, ChannelStripParameter parameter,
                                    float value)
{
    ZARN_ASSERT_IN("zarn::cmd::SetChannelStripParameter::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("Type"),
           QString::fromStdString(channelStripParameterToString(parameter)));
    addArg(QStringLiteral("Value"), QString::number(static_cast<double>(value)));
    setScore(score);
    _track = track;
    _parameter = parameter;
    _value = value;
    return isChannelStripValue(parameter, value) && expectPlace([this] { return isPossible(); });
}

bool SetChannelStripParameter::isPossible() const
{
    return _track == masterTrackIndex || model().hasTrackIndex(static_cast<unsigned>(_track));
}

void SetChannelStripParameter::write(const ZarnVolumePan &volumePan)
{
    if (_track == masterTrackIndex)
        model().masterTrack()->setVolumePan(volumePan);
    else
        model().tracks()[static_cast<unsigned>(_track)]->setVolumePan(volumePan);
}

void SetChannelStripParameter::apply()
{
    requirePlace(isPossible());
    _before = _track == masterTrackIndex
        ? model().masterTrack()->volumePan()
        : model().tracks()[static_cast<unsigned>(_track)]->volumePan();
    ZarnVolumePan after = _before;
    if (_parameter == ChannelStripParameter::Volume)
        after.setVolume(_value);
    else
        after.setPan(_value);
    write(after);
}

void SetChannelStripParameter::revert()
{
    write(_before);
}

void SetChannelStripParameter::announceApplied()
{
    if (_track == masterTrackIndex)
        score().notify(
            this, evt::RequestMasterTrackChannelStripParameterChange(static_cast<int>(_parameter)));
    else
        score().notify(this, evt::RequestTrackChannelStripChange(_track));
}

void SetChannelStripParameter::announceReverted()
{
    announceApplied();
}

} // namespace zarn::cmd
