// SPDX-License-Identifier: MIT
#include "EventMirror.h"

#include <ZarnCore/model/ZarnMasterBarAttribute.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <functional>

using namespace zarn;

namespace {

/// Where a direction stands that went with its bar, until an event says so.
constexpr int gone = -2;

} // namespace

template <class Get, class Set>
void EventMirror::readMasterBars(int first, int last, Get get, Set set)
{
    if (!meetBars(first, last))
        return;
    for (int i = first; i <= last; ++i)
        std::invoke(set, *_known.masterBars[i],
                    std::invoke(get, *model().masterTrack()->masterBars()[i]));
}

template <class Read>
void EventMirror::readBars(int track, int staff, int first, int last, Read read)
{
    if (!meetBars(first, last))
        return;
    auto &copies = _known.tracks.at(static_cast<std::size_t>(track))
                       .staves.at(static_cast<std::size_t>(staff));
    const auto &bars = this->track(track).staves().at(static_cast<std::size_t>(staff))->bars();
    for (int i = first; i <= last; ++i)
        read(*copies.at(static_cast<std::size_t>(i)), *bars.at(static_cast<std::size_t>(i)));
}

void EventMirror::readContent(Bar &copy, const Bar &bar)
{
    for (unsigned i = 0; i < Bar::MaxVoices; ++i)
        copy.setVoice(i, bar.voices()[i] != nullptr ? bar.voices()[i]->clone() : nullptr);
    copy.setOttavia(bar.ottavia());
}

// Events of bars.

void EventMirror::hear(const evt::MasterBarDirection &event)
{
    const auto slot = static_cast<std::size_t>(event.mark());
    expectOld(event.oldBar(), event.newBar(),
              _known.directions[slot] == gone ? _goneDirections[slot] : _known.directions[slot]);
    _known.directions[slot] = event.newBar();
}

void EventMirror::hear(const evt::AddBars &event)
{
    const int at = event.index();
    const int count = event.count();
    const bool hadBars = !_known.masterBars.empty();
    const MasterTrack &master = *model().masterTrack();
    for (int i = at; i < at + count; ++i)
        _known.masterBars.insert(_known.masterBars.begin() + i, master.masterBars().at(i)->clone());
    if (!meetBars(at, at + count - 1))
        return;
    for (std::size_t i = 0; i < _known.tracks.size(); ++i) {
        for (std::size_t j = 0; j < _known.tracks[i].staves.size(); ++j) {
            const auto &bars = model().tracks().at(i)->staves().at(j)->bars();
            std::vector<std::shared_ptr<Bar>> added;
            for (int bar = at; bar < at + count; ++bar)
                added.push_back(bars.at(bar)->clone());
            auto &copies = _known.tracks[i].staves[j];
            copies.insert(copies.begin() + at, added.begin(), added.end());
        }
        if (hadBars)
            _known.tracks[i].automations.makeRoom(at, count);
    }
    if (hadBars)
        _known.automations.makeRoom(at, count);
    for (int &direction : _known.directions) {
        if (direction >= at)
            direction += count;
    }
}

void EventMirror::hear(const evt::RemoveBars &event)
{
    const int at = event.index();
    const int count = event.count();
    if (!meetBars(at, at + count - 1))
        return;
    const auto cut = [&](auto &list) { list.erase(list.begin() + at, list.begin() + at + count); };
    cut(_known.masterBars);
    for (ScoreCopy::TrackCopy &copy : _known.tracks) {
        for (auto &staff : copy.staves)
            cut(staff);
        copy.automations.closeGap(at, count);
    }
    _known.automations.closeGap(at, count);
    for (std::size_t i = 0; i < _known.directions.size(); ++i) {
        int &direction = _known.directions[i];
        if (direction >= at + count) {
            direction -= count;
        } else if (direction >= at) {
            _goneDirections[i] = direction;
            direction = gone;
        }
    }
}

void EventMirror::hear(const evt::ModifyBarRange &event)
{
    readBars(event.trackIndex(), event.staffIndex(), event.firstBar(), event.lastBar(),
             readContent);
}

// Directly behind a removal the bars are those that are gone.
void EventMirror::hear(const evt::ModifyBarRangeAllTracks &event)
{
    if (_previousEvent == evt::RemoveBars::TypeNumber)
        return;
    for (std::size_t i = 0; i < _known.tracks.size(); ++i) {
        for (std::size_t j = 0; j < _known.tracks[i].staves.size(); ++j)
            readBars(static_cast<int>(i), static_cast<int>(j), event.firstBar(), event.lastBar(),
                     readContent);
    }
}

void EventMirror::hear(const evt::SimileMarkBarChanged &event)
{
    readBars(event.trackIndex(), event.staffIndex(), event.firstBar(), event.lastBar(),
             [](Bar &copy, const Bar &bar) { copy.setSimileMark(bar.simileMark()); });
}

/// Timers alone: whatever else is different at the beats has an event of its own.
void EventMirror::hear(const evt::RequestTimerChanged &event)
{
    readBars(event.trackIndex(), event.staffIndex(), event.firstBar(), event.lastBar(),
             [](Bar &copy, const Bar &bar) {
                 for (unsigned v = 0; v < Bar::MaxVoices; ++v) {
                     const auto &voice = bar.voices()[v];
                     for (unsigned i = 0; voice != nullptr && i < voice->beatCount(); ++i)
                         if (const auto known = copy.voice(v) ? copy.voice(v)->beat(i) : nullptr)
                             known->setTimer(voice->beats()[i]->hasTimer());
                 }
             });
}

void EventMirror::hear(const evt::TrackClefChanged &event)
{
    readBars(event.trackIndex(), event.staffIndex(), event.firstBar(), event.lastBar(),
             [](Bar &copy, const Bar &bar) {
                 copy.setClef(bar.clef());
                 copy.setClefChanges(bar.clefChanges());
             });
}

void EventMirror::hear(const evt::SetBarSection &event)
{
    readMasterBars(event.firstBar(), event.lastBar(), &MasterBar::section, &MasterBar::setSection);
}

void EventMirror::hear(const evt::UnsetBarSection &event)
{
    readMasterBars(
        event.firstBar(), event.lastBar(), [](const MasterBar &) { return Section(); },
        &MasterBar::setSection);
}

void EventMirror::hear(const evt::MasterBarAttribute &event)
{
    for (const MasterBarAttributeRow &row : masterBarAttributes())
        if (row.event == evt::MasterBarAttribute::TypeNumber)
            readMasterBars(event.firstBar(), event.lastBar(), row.get, row.set);
}

void EventMirror::hear(const evt::MasterBarBeamGroups &event)
{
    readMasterBars(event.firstBar(), event.lastBar(), &MasterBar::beamGroups,
                   &MasterBar::setBeamGroups);
}

void EventMirror::hear(const evt::MasterBarFermata &event)
{
    readMasterBars(event.firstBar(), event.lastBar(), &MasterBar::fermatas,
                   &MasterBar::setFermatas);
}

void EventMirror::hear(const evt::BarLayoutRatiosChanged &event)
{
    readMasterBars(event.firstBar(), event.lastBar(), &MasterBar::layoutRatio,
                   &MasterBar::setLayoutRatio);
    for (std::size_t i = 0; i < _known.tracks.size(); ++i)
        for (std::size_t j = 0; j < _known.tracks[i].staves.size(); ++j)
            readBars(static_cast<int>(i), static_cast<int>(j), event.firstBar(), event.lastBar(),
                     [](Bar &copy, const Bar &bar) { copy.setLayoutRatio(bar.layoutRatio()); });
}

void EventMirror::hear(const evt::AnacrusisChanged &event)
{
    expectOld(event.oldValue(), event.newValue(), _known.head->masterTrack()->hasAnacrusis());
    _known.head->masterTrack()->setAnacrusis(event.newValue());
}

void EventMirror::hear(const evt::MasterBarTimeSignature &event)
{
    for (const MasterBarAttributeRow &row : masterBarAttributes())
        if (row.event == evt::MasterBarTimeSignature::TypeNumber)
            readMasterBars(event.firstBar(), event.lastBar(), row.get, row.set);
}

void EventMirror::hear(const evt::MasterBarKeySignature &event)
{
    readMasterBars(event.firstBar(), event.lastBar(), &MasterBar::concertKeySignature,
                   &MasterBar::setConcertKeySignature);
}

void EventMirror::hear(const evt::MasterBarTripletFeel &event)
{
    readMasterBars(event.firstBar(), event.lastBar(), &MasterBar::tripletFeel,
                   &MasterBar::setTripletFeel);
}

void EventMirror::hear(const evt::MasterBarFreeTime &event)
{
    readMasterBars(event.firstBar(), event.lastBar(), &MasterBar::isFreeTime,
                   &MasterBar::setFreeTime);
}

void EventMirror::hear(const evt::MasterBarDoubleBar &event)
{
    readMasterBars(event.firstBar(), event.lastBar(), &MasterBar::hasDoubleBar,
                   &MasterBar::setDoubleBar);
}

void EventMirror::hear(const evt::MasterBarRepeat &event)
{
    readMasterBars(event.firstBar(), event.lastBar(), &MasterBar::isRepeatStart,
                   &MasterBar::setRepeatStart);
    readMasterBars(event.firstBar(), event.lastBar(), &MasterBar::repeatCount,
                   &MasterBar::setRepeatCount);
}

void EventMirror::hear(const evt::MasterBarAlternateEnding &event)
{
    readMasterBars(event.firstBar(), event.lastBar(), &MasterBar::alternateEndings,
                   &MasterBar::setAlternateEndings);
}

// What is written in all bars goes along.
void EventMirror::hear(const evt::TranspositionOffsetChanged &event)
{
    head(event.trackIndex())
        .setTranspositionOffset(track(event.trackIndex()).transpositionOffset());
    const int last = static_cast<int>(_known.masterBars.size()) - 1;
    for (unsigned i = 0; last >= 0 && i < track(event.trackIndex()).staffCount(); ++i)
        readBars(event.trackIndex(), static_cast<int>(i), 0, last, readContent);
}
