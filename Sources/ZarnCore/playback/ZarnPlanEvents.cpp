// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/ZarnPlanEvents.h>

#include <algorithm>

namespace zarn::playback {

std::vector<PlanEvent> eventsOf(const PlaybackPlan &plan)
{
    using Kind = PlanEvent::Kind;
    std::vector<PlanEvent> events;
    events.reserve(plan.notes().size() * 2 + plan.controls().size());
    std::uint32_t index = 0;
    for (const PlannedNote &note : plan.notes()) {
        events.push_back({note.start, note.startSecond, Kind::NoteOn, index});
        events.push_back({note.end, note.endSecond, Kind::NoteOff, index++});
    }
    index = 0;
    for (const PlannedControl &control : plan.controls())
        events.push_back({control.time, control.second, Kind::Control, index++});
    std::sort(events.begin(), events.end(), [](const PlanEvent &left, const PlanEvent &right) {
        if (left.time != right.time)
            return left.time < right.time;
        if (left.kind != right.kind)
            return left.kind < right.kind;
        return left.index < right.index;
    });
    return events;
}

} // namespace zarn::playback
