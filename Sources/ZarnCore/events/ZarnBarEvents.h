// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/events/ZarnEventShapes.h>

/// Events of bars. A bar column is a master bar with its bar in every staff; bars are counted
/// from 0.
namespace zarn::evt {

/// Bar columns were inserted in every track: this many, the first at this index. Undo sends
/// `RemoveBars`.
class AddBars final : public SpanEvent<Number::AddBars> {
    using SpanEvent::SpanEvent;
};

/// Bar columns were removed from every track: this many, the first at this index. Undo sends
/// `AddBars`.
class RemoveBars final : public SpanEvent<Number::RemoveBars> {
    using SpanEvent::SpanEvent;
};

/// The content of bars of one staff changed.
class ModifyBarRange final : public StaffBarsEvent<Number::ModifyBarRange> {
    using StaffBarsEvent::StaffBarsEvent;
};

/// The content of these bar columns changed in all tracks. After a removal they are the columns
/// that are gone, after its undo those that are back.
class ModifyBarRangeAllTracks final : public BarsEvent<Number::ModifyBarRangeAllTracks> {
    using BarsEvent::BarsEvent;
};

/// An attribute of bars of one staff changed.
class BarAttribute final : public StaffBarsEvent<Number::BarAttribute> {
    using StaffBarsEvent::StaffBarsEvent;
};

/// The simile marks of bars of one staff changed.
class SimileMarkBarChanged final : public StaffBarsEvent<Number::SimileMarkBarChanged> {
    using StaffBarsEvent::StaffBarsEvent;
};

/// The widths of bar columns within their systems changed.
class BarLayoutRatiosChanged final : public BarsEvent<Number::BarLayoutRatiosChanged> {
    using BarsEvent::BarsEvent;
};

} // namespace zarn::evt
