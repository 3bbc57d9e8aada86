// SPDX-License-Identifier: MIT
// Scores that show a part of another.
#include <ZarnCore/ZarnCoreUtils.h>

#include <ZarnCore/model/ZarnMasterBar.h>
#include <ZarnCore/model/ZarnMasterTrack.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/Links.h>
#include <ZarnCore/model/notes/SpanFaults.h>
#include <ZarnCore/score/ZarnScore.h>

#include <algorithm>
#include <set>

namespace zarn {

namespace {

/// Copies tracks and bars of a model into a model without any.
class PartCopy {
public:
    /// The columns ascend.
    PartCopy(const ScoreModel &from, ScoreModel &to, std::vector<unsigned> columns)
        : _from(from), _to(to), _columns(std::move(columns))
    {
    }

    void copySettings() const;
    void copyMasterTrack() const;

    /// Appends a track with those of its bars; the columns of the others stay empty.
    void copyTrack(unsigned track, const std::set<unsigned> &bars) const;

    /// Keeps the groups whose tracks, as far as they were copied, still stand side by side; the
    /// copies are of these tracks.
    void copyTrackGroups(const std::vector<unsigned> &tracks) const;

private:
    bool isWhole() const { return _columns.size() == _from.masterTrack()->masterBarCount(); }
    void copyDirections() const;
    void copyAutomations(const AutomationContainer &from, AutomationContainer &to) const;
    void copyAutomations(Automation::Type type, const AutomationContainer &from,
                         AutomationContainer &to) const;
    std::shared_ptr<Bar> copyBar(const Staff &staff, std::size_t column,
                                 const std::set<unsigned> &bars) const;
    bool hasSimileBars(SimileMark mark, std::size_t column, const std::set<unsigned> &bars) const;

    const ScoreModel &_from;
    ScoreModel &_to;
    std::vector<unsigned> _columns;
};

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

/// Tracks in the order in which they come, with their bars.
using Parts = std::vector<std::pair<unsigned, std::set<unsigned>>>;

std::unique_ptr<Score> copyParts(const Score &score, const Parts &parts,
                                 std::vector<unsigned> columns)
{
    auto preview = std::make_unique<Score>(score.rendererStyleSheet());
    const PartCopy copy(*score.scoreModel(), *preview->scoreModel(), std::move(columns));
    copy.copySettings();
    copy.copyMasterTrack();
    std::vector<unsigned> tracks;
    for (const auto &[track, bars] : parts) {
        copy.copyTrack(track, bars);
        tracks.push_back(track);
    }
    copy.copyTrackGroups(tracks);
    return preview;
}

std::set<unsigned> &barsOf(Parts &parts, unsigned track)
{
    const auto found = std::find_if(parts.begin(), parts.end(),
                                    [track](const auto &part) { return part.first == track; });
    return found != parts.end() ? found->second
                                : parts.emplace_back(track, std::set<unsigned>()).second;
}

} // namespace

std::unique_ptr<Score> ZarnCoreUtils::make_score_preview(const Score &score,
                                                         const std::vector<unsigned> &tracks)
{
    const unsigned barCount = score.masterTrack()->masterBarCount();
    std::set<unsigned> bars;
    for (unsigned bar = 0; bar < barCount; ++bar)
        bars.insert(bars.end(), bar);
    Parts parts;
    for (const unsigned track : tracks) {
        if (track < score.trackCount())
            barsOf(parts, track) = bars;
    }
    return copyParts(score, parts, {bars.begin(), bars.end()});
}

std::unique_ptr<Score> ZarnCoreUtils::make_score_preview(const Score &score, const BarPlaces &bars)
{
    Parts parts;
    std::set<unsigned> columns;
    for (const auto &[track, bar] : bars) {
        if (track >= score.trackCount() || bar >= score.masterTrack()->masterBarCount())
            continue;
        barsOf(parts, track).insert(bar);
        columns.insert(bar);
    }
    return copyParts(score, parts, {columns.begin(), columns.end()});
}

std::unique_ptr<Score> ZarnCoreUtils::make_score_preview(const Score &score, const BarPlaces &bars,
                                                         const GuitarTuning &tuning)
{
    auto preview = make_score_preview(score, bars);
    if (tuning.stringCount() == 0)
        return preview;
    for (const auto &track : preview->tracks()) {
        for (const auto &staff : track->staves()) {
            if (staff->isFretted())
                preview->setGuitarFullTuning(track->index(), staff->index(), tuning,
                                             staff->capoFret(), Retuning::KeepPitches);
        }
    }
    preview->commandStack().clear();
    return preview;
}

} // namespace zarn
