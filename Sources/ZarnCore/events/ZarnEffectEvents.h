// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/events/ZarnEventShapes.h>

/// Events of effects and channel strips. The track -1 is the master track; slots and parameters
/// are counted from 0.
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

/// An effect was bypassed, or is heard again. Nothing sends it yet.
class RequestEffectBypassChange final : public EffectToggleEvent<RequestEffectBypassChange> {
    using EffectToggleEvent::EffectToggleEvent;
};

/// A parameter of an effect changed. Nothing sends it yet.
class RequestEffectParameterChange final
    : public EffectParameterEvent<RequestEffectParameterChange> {
    using EffectParameterEvent::EffectParameterEvent;
};

/// Several parameters of an effect changed. Nothing sends it yet.
class RequestEffectParametersChange final : public EffectEvent<RequestEffectParametersChange> {
    using EffectEvent::EffectEvent;
};

/// The effect in a slot was replaced.
class RequestEffectChange final : public EffectEvent<RequestEffectChange> {
    using EffectEvent::EffectEvent;
};

/// All effects of a track were replaced. Nothing sends it yet.
class RequestEffectChainChange final : public TrackEvent<RequestEffectChainChange> {
    using TrackEvent::TrackEvent;
};

/// The effect in a slot was removed. Undo sends `RequestEffectChange`.
class RequestEffectDelete final : public EffectEvent<RequestEffectDelete> {
    using EffectEvent::EffectEvent;
};

/// All effects of a track were removed. Undo sends `RequestEffectChainChange`. Nothing sends it
/// yet.
class RequestEffectChainClear final : public TrackEvent<RequestEffectChainClear> {
    using TrackEvent::TrackEvent;
};

/// The effects in two slots changed places. Nothing sends it yet.
class RequestEffectsSwap final : public TrackSwapEvent<RequestEffectsSwap> {
    using TrackSwapEvent::TrackSwapEvent;
};

/// The channel strip of the master track changed. Nothing sends it yet.
class RequestMasterTrackChannelStripChange final
    : public EventOf<RequestMasterTrackChannelStripChange> { };

/// One parameter of the master track's channel strip changed. Nothing sends it yet.
class RequestMasterTrackChannelStripParameterChange final
    : public IndexEvent<RequestMasterTrackChannelStripParameterChange> {
    using IndexEvent::IndexEvent;
};

/// The channel strip of a track changed. Nothing sends it yet.
class RequestTrackChannelStripChange final : public TrackEvent<RequestTrackChannelStripChange> {
    using TrackEvent::TrackEvent;
};

} // namespace zarn::evt
