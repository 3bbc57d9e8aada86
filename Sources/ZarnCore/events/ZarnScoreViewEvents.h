// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/events/ZarnEventShapes.h>

/// Events of the score's views. Views are counted from 0, the first one being the full score. How
/// they lay the music out is part of the score; the events of all else are for applications to
/// send.
namespace zarn::evt {

/// Names a view and its zoom before and after the change.
template <class Self>
class ViewZoomEvent : public EventOf<Self> {
public:
    ViewZoomEvent(int index, double oldZoom, double newZoom)
        : _index(index), _oldZoom(oldZoom), _newZoom(newZoom)
    {
    }

    int index() const noexcept { return _index; }
    double oldZoom() const noexcept { return _oldZoom; }
    double newZoom() const noexcept { return _newZoom; }

private:
    int _index;
    double _oldZoom;
    double _newZoom;
};

/// Names a view and a track in it.
template <class Self>
class TrackViewEvent : public EventOf<Self> {
public:
    TrackViewEvent(int index, int trackIndex) : _index(index), _trackIndex(trackIndex) { }

    int index() const noexcept { return _index; }
    int trackIndex() const noexcept { return _trackIndex; }

private:
    int _index;
    int _trackIndex;
};

/// The layout of a view changed, or the sheet that all views share.
class ScoreViewLayoutChanged final : public IndexEvent<ScoreViewLayoutChanged> {
    using IndexEvent::IndexEvent;
};

/// The zoom factor of a view changed; 1 is the natural size.
class ScoreViewZoomChanged final : public ViewZoomEvent<ScoreViewZoomChanged> {
    using ViewZoomEvent::ViewZoomEvent;
};

/// How a view chooses its zoom changed.
class ScoreViewZoomPolicyChanged final : public IndexEvent<ScoreViewZoomPolicyChanged> {
    using IndexEvent::IndexEvent;
};

/// How a view breaks the music into systems changed: bars per system, or what is automatic.
class ScoreViewSystemLayoutChanged final : public IndexEvent<ScoreViewSystemLayoutChanged> {
    using IndexEvent::IndexEvent;
};

/// Another track became the current one; -1 stands for none.
class CurrentTrackChanged final : public ChangeEvent<CurrentTrackChanged, int> {
    using ChangeEvent::ChangeEvent;
};

/// A view was added at this index; later views move up.
class ScoreViewAdded final : public IndexEvent<ScoreViewAdded> {
    using IndexEvent::IndexEvent;
};

/// The view at this index was removed; later views move down.
class ScoreViewRemoved final : public IndexEvent<ScoreViewRemoved> {
    using IndexEvent::IndexEvent;
};

/// Two views changed places.
class ScoreViewSwapped final : public SwapEvent<ScoreViewSwapped> {
    using SwapEvent::SwapEvent;
};

/// All views were removed.
class ScoreViewCleared final : public EventOf<ScoreViewCleared> { };

/// Another view became the active one; -1 stands for none.
class ScoreViewActivated final : public ChangeEvent<ScoreViewActivated, int> {
    using ChangeEvent::ChangeEvent;
};

/// A view began or ceased to draw runs of empty bars as one.
class ScoreViewMultiRest final : public IndexToggleEvent<ScoreViewMultiRest> {
    using IndexToggleEvent::IndexToggleEvent;
};

/// The notations that a view shows for a track changed.
class TrackViewNotationsChanged final : public TrackViewEvent<TrackViewNotationsChanged> {
    using TrackViewEvent::TrackViewEvent;
};

} // namespace zarn::evt
