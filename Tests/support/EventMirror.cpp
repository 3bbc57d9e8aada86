// SPDX-License-Identifier: MIT
#include "EventMirror.h"

#include "EventText.h"

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <algorithm>
#include <utility>

using namespace zarn;

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

void EventMirror::hear(const evt::AudioTrackChanged &event)
{
    const auto index = static_cast<unsigned>(event.index());
    *_known.head->audioTracks().at(index) = *model().audioTracks().at(index);
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
