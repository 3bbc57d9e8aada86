// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/events/ZarnEventShapes.h>
#include <ZarnCore/instruments/automations/ZarnAutomation.h>

/// Events of playback automations; the number of an automation's type says what it drives.
namespace zarn::evt {

/// Names a kind of automation.
template <Number N>
class AutomationEvent : public EventOf<N> {
public:
    explicit AutomationEvent(Automation::Type automationType) : _automationType(automationType) { }

    Automation::Type automationType() const noexcept { return _automationType; }

private:
    Automation::Type _automationType;
};

/// Names a kind of automation and whether it is bypassed now.
template <Number N>
class AutomationBypassEvent : public EventOf<N> {
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

/// Names a kind of automation of a track.
template <Number N>
class TrackAutomationEvent : public EventOf<N> {
public:
    TrackAutomationEvent(int trackIndex, Automation::Type automationType)
        : _trackIndex(trackIndex), _automationType(automationType)
    {
    }

    int trackIndex() const noexcept { return _trackIndex; }
    Automation::Type automationType() const noexcept { return _automationType; }

private:
    int _trackIndex;
    Automation::Type _automationType;
};

/// Names a kind of automation of a track and whether it is bypassed now.
template <Number N>
class TrackAutomationBypassEvent : public EventOf<N> {
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
class AutomationChanged final : public EventOf<Number::AutomationChanged> { };

/// Automations of a track were bypassed, or heard again.
class TrackAutomationBypassChanged final
    : public TrackAutomationBypassEvent<Number::TrackAutomationBypassChanged> {
    using TrackAutomationBypassEvent::TrackAutomationBypassEvent;
};

/// Automations of the master track were bypassed, or heard again.
class MasterTrackAutomationBypassChanged final
    : public AutomationBypassEvent<Number::MasterTrackAutomationBypassChanged> {
    using AutomationBypassEvent::AutomationBypassEvent;
};

/// Automations of a track changed.
class TrackAutomationChanged final : public TrackAutomationEvent<Number::TrackAutomationChanged> {
    using TrackAutomationEvent::TrackAutomationEvent;
};

/// Automations of the master track changed.
class MasterTrackAutomationChanged final
    : public AutomationEvent<Number::MasterTrackAutomationChanged> {
    using AutomationEvent::AutomationEvent;
};

/// Automations of the volume or the panning of a track changed.
class ChannelStripAutomationChanged final
    : public TrackAutomationEvent<Number::ChannelStripAutomationChanged> {
    using TrackAutomationEvent::TrackAutomationEvent;
};

/// Automations of the mastering effects changed.
class MasteringAutomationChanged final
    : public AutomationEvent<Number::MasteringAutomationChanged> {
    using AutomationEvent::AutomationEvent;
};

/// The places where a track changes its sound changed.
class SoundAutomationChanged final : public TrackEvent<Number::SoundAutomationChanged> {
    using TrackEvent::TrackEvent;
};

} // namespace zarn::evt
