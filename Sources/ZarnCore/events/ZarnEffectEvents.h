// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/events/ZarnEventShapes.h>

/// Events of effects and channel strips. The track -1 is the master track; slots and parameters
/// are counted from 0. The effects of a track are those of one of its sounds, which
/// `TrackSoundEffectsChanged` names in front of the event that says what happened to them.
namespace zarn::evt {

/// Names an effect.
template <class Self>
class EffectEvent : public EventOf<Self> {
public:
    EffectEvent(int trackIndex, int slot) : _trackIndex(trackIndex), _slot(slot) { }

    int trackIndex() const noexcept { return _trackIndex; }
    int slot() const noexcept { return _slot; }

private:
    int _trackIndex;
    int _slot;
};

/// Names an effect and whether it is bypassed now.
template <class Self>
class EffectToggleEvent : public EventOf<Self> {
public:
    EffectToggleEvent(int trackIndex, int slot, bool isBypassed)
        : _trackIndex(trackIndex), _slot(slot), _isBypassed(isBypassed)
    {
    }

    int trackIndex() const noexcept { return _trackIndex; }
    int slot() const noexcept { return _slot; }
    bool isBypassed() const noexcept { return _isBypassed; }

private:
    int _trackIndex;
    int _slot;
    bool _isBypassed;
};

/// Names a parameter of an effect.
template <class Self>
class EffectParameterEvent : public EventOf<Self> {
public:
    EffectParameterEvent(int trackIndex, int slot, int parameter)
        : _trackIndex(trackIndex), _slot(slot), _parameter(parameter)
    {
    }

    int trackIndex() const noexcept { return _trackIndex; }
    int slot() const noexcept { return _slot; }
    int parameter() const noexcept { return _parameter; }

private:
    int _trackIndex;
    int _slot;
    int _parameter;
};

/// The effects of a sound of a track changed; the next event says what about them.
class TrackSoundEffectsChanged final : public TrackSoundEvent<TrackSoundEffectsChanged> {
    using TrackSoundEvent::TrackSoundEvent;
};

/// An effect was bypassed, or is heard again.
class RequestEffectBypassChange final : public EffectToggleEvent<RequestEffectBypassChange> {
    using EffectToggleEvent::EffectToggleEvent;
};

/// A parameter of an effect changed. Nothing sends it yet.
class RequestEffectParameterChange final
    : public EffectParameterEvent<RequestEffectParameterChange> {
    using EffectParameterEvent::EffectParameterEvent;
};

/// Several parameters of an effect changed.
class RequestEffectParametersChange final : public EffectEvent<RequestEffectParametersChange> {
    using EffectEvent::EffectEvent;
};

/// The effect in a slot was replaced, or the slot was filled or emptied.
class RequestEffectChange final : public EffectEvent<RequestEffectChange> {
    using EffectEvent::EffectEvent;
};

/// All effects of a track were replaced.
class RequestEffectChainChange final : public TrackEvent<RequestEffectChainChange> {
    using TrackEvent::TrackEvent;
};

/// The effect in a slot was removed. Undo sends `RequestEffectChange`.
class RequestEffectDelete final : public EffectEvent<RequestEffectDelete> {
    using EffectEvent::EffectEvent;
};

/// All effects of a track were removed. Undo sends `RequestEffectChainChange`.
class RequestEffectChainClear final : public TrackEvent<RequestEffectChainClear> {
    using TrackEvent::TrackEvent;
};

/// The effects in two slots changed places.
class RequestEffectsSwap final : public TrackSwapEvent<RequestEffectsSwap> {
    using TrackSwapEvent::TrackSwapEvent;
};

/// Volume and panning of the master track changed.
class RequestMasterTrackChannelStripChange final
    : public EventOf<RequestMasterTrackChannelStripChange> { };

/// One parameter of the master track's channel strip changed: the `ChannelStripParameter` of this
/// number.
class RequestMasterTrackChannelStripParameterChange final
    : public IndexEvent<RequestMasterTrackChannelStripParameterChange> {
    using IndexEvent::IndexEvent;
};

/// The volume or the panning of a track changed.
class RequestTrackChannelStripChange final : public TrackEvent<RequestTrackChannelStripChange> {
    using TrackEvent::TrackEvent;
};

} // namespace zarn::evt
