// SPDX-License-Identifier: MIT
#include "EventMirror.h"

#include "EventText.h"

#include <ZarnCore/model/ZarnMasterBarAttribute.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <algorithm>
#include <utility>

using namespace zarn;

namespace {

/// Where a direction stands that went with its bar, until an event says so.
constexpr int gone = -2;

} // namespace

template <class E>
void EventMirror::listen()
{
    constexpr int first = -100;
    _connections.push_back(_score.connectScoped<E>(
        this,
        [this](const E &event) {
            hear(event);
            _events += EventText::of(event) + " ";
            _previousEvent = event.type();
        },
        first));
}

EventMirror::EventMirror(Score &score, unsigned wholeLookEvery)
    : _score(score), _wholeLookEvery(wholeLookEvery), _known(score)
{
    evt::forEachEvent(evt::eventTable, [this](const auto &row) {
        listen<typename std::decay_t<decltype(row)>::Event>();
    });
}

EventMirror::~EventMirror() = default;

unsigned EventMirror::wholeLookInterval(const ScoreModel &model)
{
    constexpr unsigned barsPerStep = 100;
    unsigned bars = model.masterTrack()->masterBarCount();
    for (const auto &track : model.tracks()) {
        for (const auto &staff : track->staves())
            bars += staff->barCount();
    }
    return 1 + bars / barsPerStep;
}

std::string EventMirror::fault()
{
    look(0, static_cast<int>(_known.masterBars.size()));
    return _fault;
}

void EventMirror::look(int from, int to)
{
    if (!_fault.empty())
        return;
    if (const std::string difference = _known.difference(_score, from, to); !difference.empty())
        blame(difference);
}

const ScoreModel &EventMirror::model() const
{
    return *_score.scoreModel();
}

const Track &EventMirror::track(int index) const
{
    return *model().tracks().at(static_cast<std::size_t>(index));
}

// Reading.

void EventMirror::startStep()
{
    _events.clear();
    _doubt.clear();
    _from = 0;
    _to = -1;
}

bool EventMirror::meetBars(int first, int last)
{
    if (first < 0 || first > last || last >= static_cast<int>(_known.masterBars.size())) {
        _doubt = "an event names bars " + std::to_string(first) + " to " + std::to_string(last)
            + " of " + std::to_string(_known.masterBars.size());
        return false;
    }
    _from = _to < 0 ? first : std::min(_from, first);
    _to = std::max(_to, last);
    return true;
}

void EventMirror::blame(const std::string &fault)
{
    if (_fault.empty())
        _fault = "a listener is misled: " + fault + "\n  by " + _events;
}

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

// Events of the whole score.

void EventMirror::hear(const evt::CommandExecuted &)
{
    constexpr int surroundings = 3;
    if (!_doubt.empty())
        blame(_doubt);
    if (++_steps % _wholeLookEvery == 0)
        look(0, static_cast<int>(_known.masterBars.size()));
    else
        look(_from - surroundings, _to + surroundings);
}

void EventMirror::hear(const evt::ScoreCursorMoved &event)
{
    expectOld(event.oldValue(), event.newValue(), _known.cursor);
    _known.cursor = event.newValue();
}

void EventMirror::hear(const evt::ConcertToneChanged &event)
{
    expectOld(event.oldValue(), event.newValue(), _known.head->concertTone());
    _known.head->setConcertTone(event.newValue());
}

void EventMirror::hear(const evt::PropertyChanged &event)
{
    _known.head->setScoreProperty(event.property(), model().property(event.property()));
}

void EventMirror::hear(const evt::PropertiesChanged &)
{
    for (unsigned i = 0; i <= static_cast<unsigned>(ScoreProperty::Notice); ++i)
        hear(evt::PropertyChanged(static_cast<ScoreProperty>(i)));
}

void EventMirror::hear(const evt::HeaderAndFooterChanged &event)
{
    _known.head->setHeaderAndFooter(event.part(), model().headerAndFooter(event.part()));
}

void EventMirror::hear(const evt::GlobalTempoChanged &event)
{
    expectOld(event.oldValue(), event.newValue(), _known.startTempo);
    _known.startTempo = event.newValue();
}

void EventMirror::hear(const evt::RequestMasterBarPlaylistUpdate &)
{
    _known.playList = model().masterTrack()->playlist();
}

void EventMirror::hear(const evt::MasterBarDirection &event)
{
    const auto slot = static_cast<std::size_t>(event.mark());
    expectOld(event.oldBar(), event.newBar(),
              _known.directions[slot] == gone ? _goneDirections[slot] : _known.directions[slot]);
    _known.directions[slot] = event.newBar();
}

void EventMirror::hear(const evt::AddAudioTrack &event)
{
    const auto index = static_cast<unsigned>(event.index());
    _known.head->insertAudioTrack(index,
                                  std::make_shared<AudioTrack>(*model().audioTracks().at(index)));
}

void EventMirror::hear(const evt::RemoveAudioTrack &event)
{
    _known.head->removeAudioTrack(static_cast<unsigned>(event.index()));
}

void EventMirror::hear(const evt::MasterTrackAutomationChanged &event)
{
    _known.automations.read(*model().masterTrack(), event.automationType(),
                            static_cast<unsigned>(event.firstBar()),
                            static_cast<unsigned>(event.lastBar()));
}

void EventMirror::hear(const evt::MasterTrackAutomationBypassChanged &event)
{
    _known.automations.setBypassed(event.automationType(), event.isBypassed());
}

void EventMirror::hear(const evt::TrackAutomationChanged &event)
{
    _known.tracks.at(static_cast<std::size_t>(event.trackIndex()))
        .automations.read(track(event.trackIndex()).automations(), event.automationType(),
                          static_cast<unsigned>(event.firstBar()),
                          static_cast<unsigned>(event.lastBar()));
}

void EventMirror::hear(const evt::TrackAutomationBypassChanged &event)
{
    _known.tracks.at(static_cast<std::size_t>(event.trackIndex()))
        .automations.setBypassed(event.automationType(), event.isBypassed());
}

// Events of bars.

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
    readMasterBars(event.firstBar(), event.lastBar(), &MasterBar::timeSignature,
                   &MasterBar::setTimeSignature);
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

// Events of tracks.

void EventMirror::hear(const evt::RequestAddTracks &event)
{
    for (int i = event.index(); i < event.index() + event.count(); ++i)
        _known.tracks.insert(_known.tracks.begin() + i, ScoreCopy::TrackCopy(track(i)));
    readTrackGroups();
}

void EventMirror::hear(const evt::RemoveTrack &event)
{
    _known.tracks.erase(_known.tracks.begin() + event.trackIndex());
    readTrackGroups();
}

void EventMirror::hear(const evt::TrackNameChanged &event)
{
    head(event.trackIndex()).setName(track(event.trackIndex()).name());
}

void EventMirror::hear(const evt::TrackShortNameChanged &event)
{
    head(event.trackIndex()).setShortName(track(event.trackIndex()).shortName());
}

void EventMirror::hear(const evt::TrackIconChanged &event)
{
    head(event.trackIndex()).setIconID(track(event.trackIndex()).iconID());
}

void EventMirror::hear(const evt::GuitarFullTuningChanged &event)
{
    const auto number = static_cast<std::size_t>(event.staffIndex());
    Staff &copy = *head(event.trackIndex()).staves().at(number);
    const Staff &staff = *track(event.trackIndex()).staves().at(number);
    copy.setTuning(staff.tuning());
    copy.setCapoFret(static_cast<std::uint8_t>(staff.capoFret()));
    copy.setPartialCapoFret(static_cast<std::uint8_t>(staff.partialCapoFret()));
    copy.setPartialCapoStringFlags(staff.partialCapoStringFlags());
    copy.setFretCount(staff.fretCount());
}

void EventMirror::hear(const evt::FullScoreSystemsLayoutChanged &)
{
    _known.head->setFullScoreSystemsLayout(model().fullScoreSystemsLayout());
    _known.head->setFullScoreDefaultBarCountBySystem(model().fullScoreDefaultBarCountBySystem());
}

void EventMirror::hear(const evt::TrackSystemsLayoutChanged &event)
{
    head(event.trackIndex()).setSystemsLayout(track(event.trackIndex()).systemsLayout());
    head(event.trackIndex())
        .setDefaultBarCountBySystem(track(event.trackIndex()).defaultBarCountBySystem());
}

void EventMirror::hear(const evt::ScoreViewLayoutChanged &event)
{
    auto views = _known.head->views();
    const auto number = static_cast<std::size_t>(event.index());
    views.at(number).layout = model().views().at(number).layout;
    _known.head->setViews(views);
    _known.head->setPageSetup(model().pageSetup());
}

void EventMirror::hear(const evt::TrackViewNotationsChanged &event)
{
    head(event.trackIndex()).setChosenNotations(track(event.trackIndex()).chosenNotations());
}

void EventMirror::hear(const evt::ScoreViewMultiRest &event)
{
    auto views = _known.head->views();
    views.at(static_cast<std::size_t>(event.index())).multiRest = event.isEnabled();
    _known.head->setViews(views);
}

void EventMirror::hear(const evt::LyricsChanged &event)
{
    head(event.trackIndex()).setLyricsVisible(track(event.trackIndex()).lyricsVisible());
    head(event.trackIndex()).setLyricsLeftOver(track(event.trackIndex()).lyricsLeftOver());
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

void EventMirror::hear(const evt::ChordsChanged &event)
{
    const auto number = static_cast<std::size_t>(event.staffIndex());
    Staff &copy = *head(event.trackIndex()).staves().at(number);
    const Staff &staff = *track(event.trackIndex()).staves().at(number);
    copy.setChordCollection(staff.chordCollection());
    copy.setChordWorkingSet(staff.chordWorkingSet());
    copy.setDiagramCollection(staff.diagramCollection());
    copy.setDiagramWorkingSet(staff.diagramWorkingSet());
}
