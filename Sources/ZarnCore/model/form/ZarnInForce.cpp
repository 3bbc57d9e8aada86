// SPDX-License-Identifier: MIT
#include <ZarnCore/model/form/ZarnInForce.h>

#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/model/ZarnMasterTrack.h>

#include <algorithm>

namespace zarn {

namespace {

TempoMark startOf(const MasterTrack &track)
{
    const TempoSettings &settings = track.tempoSettings();
    TempoMark mark;
    mark.value = settings.value;
    mark.unit = settings.unit;
    mark.text = settings.label;
    mark.isGiven = settings != TempoSettings();
    mark.isVisible = mark.isGiven && settings.visible;
    return mark;
}

TempoMark markOf(const Automation &automation)
{
    TempoMark mark;
    mark.bar = automation.index();
    mark.position = automation.position();
    mark.value = static_cast<double>(automation.value());
    if (const auto *const tempo = dynamic_cast<const TempoAutomation *>(&automation))
        mark.unit = static_cast<TempoUnit>(tempo->unit());
    mark.text = automation.text();
    mark.isLinear = automation.isLinear();
    mark.isVisible = automation.isVisible();
    return mark;
}

} // namespace

TempoMark tempoInForce(const MasterTrack &track, unsigned bar, float position)
{
    if (const Automation *const here = track.automation(Automation::Tempo, bar, position))
        return markOf(*here);
    const Automation *const before = track.previousAutomation(Automation::Tempo, bar, position);
    return before != nullptr ? markOf(*before) : startOf(track);
}

InForce inForce(const MasterTrack &track, unsigned bar, float position)
{
    InForce found;
    found.tempo = tempoInForce(track, bar, position);
    const auto &bars = track.masterBars();
    if (bars.empty())
        return found;
    const MasterBar &here = *bars[std::min<std::size_t>(bar, bars.size() - 1)];
    found.meter = here.timeSignature();
    found.key = here.concertKeySignature();
    return found;
}

std::vector<TempoMark> temposOf(const MasterTrack &track)
{
    std::vector<TempoMark> marks;
    const auto automations = track.automations(Automation::Tempo);
    if (!track.hasAutomation(Automation::Tempo, 0, 0))
        marks.push_back(startOf(track));
    for (const Automation *const automation : automations)
        marks.push_back(markOf(*automation));
    return marks;
}

} // namespace zarn
