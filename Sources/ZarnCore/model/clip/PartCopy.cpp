// SPDX-License-Identifier: MIT
#include <ZarnCore/model/clip/PartCopy.h>

#include <ZarnCore/model/ZarnMasterBar.h>
#include <ZarnCore/model/ZarnMasterTrack.h>
#include <ZarnCore/model/notes/Links.h>
#include <ZarnCore/model/notes/SpanFaults.h>

#include <algorithm>
#include <utility>

namespace zarn {

void PartCopy::copySettings() const
{
    for (auto i = 0u; i <= static_cast<unsigned>(ScoreProperty::Notice); ++i) {
        const auto property = static_cast<ScoreProperty>(i);
        _to.setScoreProperty(property, _from.property(property));
    }
    for (auto i = 0u; i < HeaderAndFooterCount; ++i) {
        const auto place = static_cast<HeaderAndFooter>(i);
        _to.setHeaderAndFooter(place, _from.headerAndFooter(place));
    }
    _to.setPageSetup(_from.pageSetup());
    _to.setConcertTone(_from.concertTone());
    _to.setIgnoreCapo(_from.ignoreCapo());
    _to.setPrintable(_from.isPrintable());
    _to.setProtected(_from.isProtected());
    _to.setFullScoreDefaultBarCountBySystem(_from.fullScoreDefaultBarCountBySystem());
    _to.setViews(_from.views());
    if (isWhole())
        _to.setFullScoreSystemsLayout(_from.fullScoreSystemsLayout());
}

void PartCopy::copyMasterTrack() const
{
    const MasterTrack &from = *_from.masterTrack();
    MasterTrack &to = *_to.masterTrack();
    to.setTempoSettings(from.tempoSettings());
    to.setMastering(from.mastering());
    to.setAnacrusis(from.hasAnacrusis() && !_columns.empty() && _columns.front() == 0);
    MasterTrack::MasterBars bars;
    bars.reserve(_columns.size());
    for (const unsigned column : _columns)
        bars.push_back(from.masterBars()[column]->clone());
    to.insertMasterBarBlock(0, std::move(bars));
    copyAutomations(from, to);
    copyDirections();
    to.updatePlayList();
}

void PartCopy::copyDirections() const
{
    auto directions = _from.masterTrack()->directionSlots();
    for (int &bar : directions) {
        const auto place = std::find(_columns.begin(), _columns.end(), static_cast<unsigned>(bar));
        bar = bar >= 0 && place != _columns.end() ? static_cast<int>(place - _columns.begin()) : -1;
    }
    _to.masterTrack()->setDirectionSlots(directions);
}

void PartCopy::copyAutomations(const AutomationContainer &from, AutomationContainer &to) const
{
    for (unsigned type = Automation::DSPParam_00; type <= Automation::DSPParam_31; ++type)
        copyAutomations(static_cast<Automation::Type>(type), from, to);
    for (const auto type : {Automation::Tempo, Automation::Sound, Automation::Unknown})
        copyAutomations(type, from, to);
}

void PartCopy::copyAutomations(Automation::Type type, const AutomationContainer &from,
                               AutomationContainer &to) const
{
    to.bypassType(type, from.isTypeBypassed(type));
    if (!from.hasAutomations(type))
        return;
    const auto copyTo = [](const Automation &automation, std::size_t column) {
        auto copy = automation.cloneAutomation();
        copy->setIndex(static_cast<std::uint32_t>(column));
        return copy;
    };
    for (std::size_t i = 0; i < _columns.size(); ++i) {
        const unsigned bar = _columns[i];
        const bool isJump = i == 0 ? bar != 0 : _columns[i - 1] + 1 != bar;
        const auto *before = isJump ? from.previousAutomation(type, bar, 0) : nullptr;
        if (before != nullptr && !from.hasAutomation(type, bar, 0)) {
            auto copy = copyTo(*before, i);
            copy->setPosition(0);
            to.insertAutomation(std::move(copy));
        }
        for (const auto *automation : from.automations(type, bar, bar))
            to.insertAutomation(copyTo(*automation, i));
    }
}

void PartCopy::copyTrack(unsigned track, const std::set<unsigned> &bars) const
{
    const Track &from = *_from.tracks()[track];
    const auto to = from.cloneWithoutBars();
    copyAutomations(from.automations(), to->mutableAutomations());
    for (unsigned s = 0; s < from.staffCount(); ++s) {
        Staff::Bars copies;
        copies.reserve(_columns.size());
        for (std::size_t i = 0; i < _columns.size(); ++i)
            copies.push_back(copyBar(*from.staves()[s], i, bars));
        to->staff(s)->insertBars(0, std::move(copies));
    }
    _to.addTrack(to);
    if (isWhole() && bars.size() == _columns.size())
        return;
    for (const auto &staff : to->staves()) {
        for (const auto &bar : staff->bars()) {
            for (const auto &voice : bar->voices()) {
                if (voice != nullptr)
                    mendLinks(*voice, 0, voice->beatCount());
            }
        }
    }
    mendBrokenSpans(*to);
}

void PartCopy::copyTrackGroups(const std::vector<unsigned> &tracks) const
{
    std::vector<TrackGroup> groups;
    for (TrackGroup group : _from.trackGroups()) {
        const auto isIn = [first = group.first, last = group.last](unsigned track) {
            return first <= track && track <= last;
        };
        const auto begin = std::find_if(tracks.begin(), tracks.end(), isIn);
        const auto end = std::find_if_not(begin, tracks.end(), isIn);
        if (begin == end || std::any_of(end, tracks.end(), isIn))
            continue;
        group.first = static_cast<unsigned>(begin - tracks.begin());
        group.last = static_cast<unsigned>(end - tracks.begin()) - 1;
        groups.push_back(std::move(group));
    }
    _to.setTrackGroups(std::move(groups));
}

std::shared_ptr<Bar> PartCopy::copyBar(const Staff &staff, std::size_t column,
                                       const std::set<unsigned> &bars) const
{
    unsigned index = _columns[column];
    const Bar &bar = *staff.bars()[index];
    const bool isListed = bars.count(index) != 0;
    if (isListed && (!bar.isSimile() || hasSimileBars(bar.simileMark(), column, bars)))
        return bar.clone();
    const auto stepBack = [&] {
        const unsigned step = staff.bars()[index]->simileMark() == SimileMark::Simple ? 1 : 2;
        const bool hasOrigin = staff.bars()[index]->isSimile() && index >= step;
        index -= hasOrigin ? step : 0;
        return hasOrigin;
    };
    while (isListed && stepBack()) { }
    auto copy = isListed ? staff.bars()[index]->clone() : std::make_shared<Bar>();
    copy->setSimileMark(SimileMark::None);
    copy->setClef(bar.clef());
    copy->setOttavia(bar.ottavia());
    copy->setLayoutRatio(bar.layoutRatio());
    if (!isListed)
        copy->setClefChanges(bar.clefChanges());
    return copy;
}

/// Whether the bars that a mark stands for, and the other half of a double one, are there too.
bool PartCopy::hasSimileBars(SimileMark mark, std::size_t column,
                             const std::set<unsigned> &bars) const
{
    const int first = mark == SimileMark::Simple ? -1
        : mark == SimileMark::SecondOfDouble     ? -3
                                                 : -2;
    const int last = mark == SimileMark::FirstOfDouble ? 1 : -1;
    for (int offset = first; offset <= last; ++offset) {
        const auto bar = std::int64_t{_columns[column]} + offset;
        if (bar < 0 || bar >= std::int64_t{_from.masterTrack()->masterBarCount()})
            continue; // not there in the score either
        const auto place = static_cast<std::int64_t>(column) + offset;
        if (place < 0 || place >= static_cast<std::int64_t>(_columns.size())
            || _columns[static_cast<std::size_t>(place)] != bar
            || bars.count(static_cast<unsigned>(bar)) == 0)
            return false;
    }
    return true;
}

} // namespace zarn
