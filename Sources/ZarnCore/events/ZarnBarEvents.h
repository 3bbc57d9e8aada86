// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/events/ZarnEventShapes.h>

/// Events of bars. A bar column is a master bar with its bar in every staff; bars are counted
/// from 0.
namespace zarn::evt {

/// Bar columns were inserted in every track: this many, the first at this index; all of them is to
/// be read. Undo sends `RemoveBars`.
///
/// What stood at this index and behind it has moved up with its bar: bars of all staves, master
/// bars, directions and automations. (In a score without bars nothing moves.) Whatever else is
/// different is announced by events of its own behind this one: ties and simile marks of the bars
/// next to the new ones, automations that stay at the start of the score, directions and
/// automations that come back with their bars, the order of playing.
class AddBars final : public SpanEvent<AddBars> {
    using SpanEvent::SpanEvent;
};

/// Bar columns were removed from every track: this many, the first at this index. Undo sends
/// `AddBars`.
///
/// The automations at them are gone too, and what stood behind them has moved down with its bar.
/// Whatever else is different is announced by events of its own, as for `AddBars`: directions that
/// are gone with their bars among it, and automations that were kept as the start of the score.
/// Automations that are gone are told of at the bar that is now at this index, or at the last one.
class RemoveBars final : public SpanEvent<RemoveBars> {
    using SpanEvent::SpanEvent;
};

/// The content of bars of one staff changed: voices, beats or notes. Clefs and simile marks have
/// events of their own.
class ModifyBarRange final : public StaffBarsEvent<ModifyBarRange> {
    using StaffBarsEvent::StaffBarsEvent;
};

/// The content of these bar columns changed in all tracks. Directly behind `RemoveBars` they are
/// the columns that are gone, directly behind the `AddBars` of its undo those that are back.
class ModifyBarRangeAllTracks final : public BarsEvent<ModifyBarRangeAllTracks> {
    using BarsEvent::BarsEvent;
};

/// An attribute of bars of one staff that has no event of its own changed. Nothing sends it yet.
class BarAttribute final : public StaffBarsEvent<BarAttribute> {
    using StaffBarsEvent::StaffBarsEvent;
};

/// The simile marks of bars of one staff changed.
class SimileMarkBarChanged final : public StaffBarsEvent<SimileMarkBarChanged> {
    using StaffBarsEvent::StaffBarsEvent;
};

/// The widths of bar columns within their systems changed.
class BarLayoutRatiosChanged final : public BarsEvent<BarLayoutRatiosChanged> {
    using BarsEvent::BarsEvent;
};

} // namespace zarn::evt
