// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/events/ZarnEventShapes.h>

/// Events of effects and channel strips. The track -1 is the master track; slots and parameters
/// are counted from 0.
namespace zarn::evt {

/// Names an effect.
template <Number N>
class EffectEvent : public EventOf<N> {
public:
    EffectEvent(int trackIndex, int slot) : _trackIndex(trackIndex), _slot(slot) { }

    int trackIndex() const noexcept { return _trackIndex; }
    int slot() const noexcept { return _slot; }

private:
    int _trackIndex;
    int _slot;
};

/// Names an effect and whether it is bypassed now.
template <Number N>
class EffectToggleEvent : public EventOf<N> {
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
template <Number N>
class EffectParameterEvent : public EventOf<N> {
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

/// An effect was bypassed, or is heard again.
class RequestEffectBypassChange final
    : public EffectToggleEvent<Number::RequestEffectBypassChange> {
    using EffectToggleEvent::EffectToggleEvent;
};

/// A parameter of an effect changed.
class RequestEffectParameterChange final
    : public EffectParameterEvent<Number::RequestEffectParameterChange> {
    using EffectParameterEvent::EffectParameterEvent;
};

/// Several parameters of an effect changed.
class RequestEffectParametersChange final
    : public EffectEvent<Number::RequestEffectParametersChange> {
    using EffectEvent::EffectEvent;
};

/// The effect in a slot was replaced.
class RequestEffectChange final : public EffectEvent<Number::RequestEffectChange> {
    using EffectEvent::EffectEvent;
};

/// All effects of a track were replaced.
class RequestEffectChainChange final : public TrackEvent<Number::RequestEffectChainChange> {
    using TrackEvent::TrackEvent;
};

/// The effect in a slot was removed. Undo sends `RequestEffectChange`.
class RequestEffectDelete final : public EffectEvent<Number::RequestEffectDelete> {
    using EffectEvent::EffectEvent;
};

/// All effects of a track were removed. Undo sends `RequestEffectChainChange`.
class RequestEffectChainClear final : public TrackEvent<Number::RequestEffectChainClear> {
    using TrackEvent::TrackEvent;
};

/// The effects in two slots changed places.
class RequestEffectsSwap final : public TrackSwapEvent<Number::RequestEffectsSwap> {
    using TrackSwapEvent::TrackSwapEvent;
};

/// The channel strip of the master track changed.
class RequestMasterTrackChannelStripChange final
    : public EventOf<Number::RequestMasterTrackChannelStripChange> { };

/// One parameter of the master track's channel strip changed.
class RequestMasterTrackChannelStripParameterChange final
    : public IndexEvent<Number::RequestMasterTrackChannelStripParameterChange> {
    using IndexEvent::IndexEvent;
};

/// The channel strip of a track changed.
class RequestTrackChannelStripChange final
    : public TrackEvent<Number::RequestTrackChannelStripChange> {
    using TrackEvent::TrackEvent;
};

} // namespace zarn::evt
