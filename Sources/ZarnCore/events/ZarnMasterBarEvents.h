// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/events/ZarnEventShapes.h>
#include <ZarnCore/model/form/ZarnDirectionMark.h>

/// Events of what one bar column shares in all tracks. Bars are counted from 0; ranges include
/// both ends.
namespace zarn::evt {

/// Names a direction mark and its bar before and after the change, each as it was counted then.
/// Undo exchanges them.
template <class Self>
class DirectionEvent : public EventOf<Self> {
public:
    DirectionEvent(DirectionMark mark, int oldBar, int newBar)
        : _mark(mark), _oldBar(oldBar), _newBar(newBar)
    {
    }

    DirectionMark mark() const noexcept { return _mark; }
    int oldBar() const noexcept { return _oldBar; }
    int newBar() const noexcept { return _newBar; }

private:
    DirectionMark _mark;
    int _oldBar;
    int _newBar;
};

/// A section mark was put on the bars or changed. Undo sends it or `UnsetBarSection`.
class SetBarSection final : public BarsEvent<SetBarSection> {
    using BarsEvent::BarsEvent;
};

/// The section marks of the bars were removed. Undo sends `SetBarSection`.
class UnsetBarSection final : public BarsEvent<UnsetBarSection> {
    using BarsEvent::BarsEvent;
};

/// An attribute of the bars that has no event of its own changed: whether they begin a movement.
class MasterBarAttribute final : public BarsEvent<MasterBarAttribute> {
    using BarsEvent::BarsEvent;
};

/// The time signature of the bars changed.
class MasterBarTimeSignature final : public BarsEvent<MasterBarTimeSignature> {
    using BarsEvent::BarsEvent;
};

/// The key signature of the bars changed.
class MasterBarKeySignature final : public BarsEvent<MasterBarKeySignature> {
    using BarsEvent::BarsEvent;
};

/// The triplet feel of the bars changed.
class MasterBarTripletFeel final : public BarsEvent<MasterBarTripletFeel> {
    using BarsEvent::BarsEvent;
};

/// The bars began or ceased to be in free time.
class MasterBarFreeTime final : public BarsEvent<MasterBarFreeTime> {
    using BarsEvent::BarsEvent;
};

/// The double bar lines of the bars changed.
class MasterBarDoubleBar final : public BarsEvent<MasterBarDoubleBar> {
    using BarsEvent::BarsEvent;
};

/// A jump or its target (coda, segno...) moved from one bar to another; -1 stands for no bar.
class MasterBarDirection final : public DirectionEvent<MasterBarDirection> {
    using DirectionEvent::DirectionEvent;
};

/// The repeat signs or the repeat counts of the bars changed.
class MasterBarRepeat final : public BarsEvent<MasterBarRepeat> {
    using BarsEvent::BarsEvent;
};

/// The alternate endings of the bars changed.
class MasterBarAlternateEnding final : public BarsEvent<MasterBarAlternateEnding> {
    using BarsEvent::BarsEvent;
};

/// How the beams of the bars are grouped changed.
class MasterBarBeamGroups final : public BarsEvent<MasterBarBeamGroups> {
    using BarsEvent::BarsEvent;
};

/// Fermatas of bars were added, changed or removed: they are over all staves, and the time under
/// them lasts longer.
class MasterBarFermata final : public BarsEvent<MasterBarFermata> {
    using BarsEvent::BarsEvent;
};

/// The order in which the bars are played changed, or the bars have other numbers now.
class RequestMasterBarPlaylistUpdate final : public EventOf<RequestMasterBarPlaylistUpdate> { };

} // namespace zarn::evt
