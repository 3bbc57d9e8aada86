// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/events/ZarnEventShapes.h>
#include <ZarnCore/instruments/automations/ZarnAutomation.h>

/// Events of playback automations; the number of an automation's type says what it drives. They
/// name the bars, counted from 0 and both included, between which automations came, went or
/// changed. Bar 0 stands for the start of a score without bars too.
namespace zarn::evt {

/// Names a kind of automation, and bars.
template <class Self>
class AutomationEvent : public BarsEvent<Self> {
public:
    AutomationEvent(Automation::Type automationType, int firstBar, int lastBar)
        : BarsEvent<Self>(firstBar, lastBar), _automationType(automationType)
    {
    }

    Automation::Type automationType() const noexcept { return _automationType; }

private:
    Automation::Type _automationType;
};

/// Names a kind of automation and whether it is bypassed now.
template <class Self>
class AutomationBypassEvent : public EventOf<Self> {
public:
    AutomationBypassEvent(Automation::Type automationType, bool isBypassed)
        : _automationType(automationType), _isBypassed(isBypassed)
    {
    }

    Automation::Type automationType() const noexcept { return _automationType; }
    bool isBypassed() const noexcept { return _isBypassed; }

private:
    Automation::Type _automationType;
    bool _isBypassed;
};

/// Names a kind of automation of a track, and bars.
template <class Self>
class TrackAutomationEvent : public AutomationEvent<Self> {
public:
    TrackAutomationEvent(int trackIndex, Automation::Type automationType, int firstBar, int lastBar)
        : AutomationEvent<Self>(automationType, firstBar, lastBar), _trackIndex(trackIndex)
    {
    }

    int trackIndex() const noexcept { return _trackIndex; }

private:
    int _trackIndex;
};

/// Names a kind of automation of a track and whether it is bypassed now.
template <class Self>
class TrackAutomationBypassEvent : public EventOf<Self> {
public:
    TrackAutomationBypassEvent(int trackIndex, Automation::Type automationType, bool isBypassed)
        : _trackIndex(trackIndex), _automationType(automationType), _isBypassed(isBypassed)
    {
    }

    int trackIndex() const noexcept { return _trackIndex; }
    Automation::Type automationType() const noexcept { return _automationType; }
    bool isBypassed() const noexcept { return _isBypassed; }

private:
    int _trackIndex;
    Automation::Type _automationType;
    bool _isBypassed;
};

/// Automations of any kind changed: for listeners that do not care where. Sent behind the exact
/// event.
class AutomationChanged final : public EventOf<AutomationChanged> { };

/// Automations of a track were bypassed, or heard again.
class TrackAutomationBypassChanged final
    : public TrackAutomationBypassEvent<TrackAutomationBypassChanged> {
    using TrackAutomationBypassEvent::TrackAutomationBypassEvent;
};

/// Automations of the master track were bypassed, or heard again.
class MasterTrackAutomationBypassChanged final
    : public AutomationBypassEvent<MasterTrackAutomationBypassChanged> {
    using AutomationBypassEvent::AutomationBypassEvent;
};

/// Automations of a track changed.
class TrackAutomationChanged final : public TrackAutomationEvent<TrackAutomationChanged> {
    using TrackAutomationEvent::TrackAutomationEvent;
};

/// Automations of the master track changed.
class MasterTrackAutomationChanged final : public AutomationEvent<MasterTrackAutomationChanged> {
    using AutomationEvent::AutomationEvent;
};

/// Automations of the volume or the panning of a track changed; see `channelStripType`. Sent in
/// front of `TrackAutomationChanged`.
class ChannelStripAutomationChanged final
    : public TrackAutomationEvent<ChannelStripAutomationChanged> {
    using TrackAutomationEvent::TrackAutomationEvent;
};

/// Automations of the volume, the panning or the effects of the mastering changed. Sent in front of
/// `MasterTrackAutomationChanged`.
class MasteringAutomationChanged final : public AutomationEvent<MasteringAutomationChanged> {
    using AutomationEvent::AutomationEvent;
};

/// The places where a track changes its sound changed. Sent behind `TrackAutomationChanged`.
class SoundAutomationChanged final : public TrackBarsEvent<SoundAutomationChanged> {
    using TrackBarsEvent::TrackBarsEvent;
};

} // namespace zarn::evt
