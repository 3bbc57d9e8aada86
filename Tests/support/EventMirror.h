// SPDX-License-Identifier: MIT
#pragma once

#include "ScoreCopy.h"

#include <ZarnCore/events/ZarnEvents.h>
#include <ZarnCore/utils/SignalContainer.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

/// A listener that knows a score from its events alone, as a view does: it has read the score once,
/// and reads again only what events name. After each step of the command stack it compares what it
/// knows with the score, and keeps the first difference. It listens in front of the others.
class EventMirror {
public:
    /// On a large score it is costly to look at everything each time: with `wholeLookEvery` above 1
    /// the steps between look at the bars around those that were named, and at all that is no bar.
    explicit EventMirror(zarn::Score &score, unsigned wholeLookEvery = 1);
    ~EventMirror();
    EventMirror(const EventMirror &) = delete;
    EventMirror &operator=(const EventMirror &) = delete;

    /// How often a whole look does not slow down many steps on a score of this size.
    static unsigned wholeLookInterval(const zarn::ScoreModel &model);

    /// Looks at everything; the answer is empty as long as the events told the truth.
    std::string fault();

    /// What the looks after the steps so far have found.
    const std::string &firstFault() const noexcept { return _fault; }

    /// How many steps were compared.
    unsigned steps() const noexcept { return _steps; }

private:
    template <class E>
    void listen();

    // What each event makes known; the others say nothing of the model.
    void hear(const zarn::evt::Event &) { }
    void hear(const zarn::evt::CommandPushed &) { startStep(); }
    void hear(const zarn::evt::CommandWillUndo &) { startStep(); }
    void hear(const zarn::evt::CommandWillRedo &) { startStep(); }
    void hear(const zarn::evt::CommandExecuted &);
    void hear(const zarn::evt::ScoreChanged &) { _known = ScoreCopy(_score); }
    void hear(const zarn::evt::ScoreCursorMoved &);
    void hear(const zarn::evt::ConcertToneChanged &);
    void hear(const zarn::evt::PropertyChanged &);
    void hear(const zarn::evt::PropertiesChanged &);
    void hear(const zarn::evt::HeaderAndFooterChanged &);
    void hear(const zarn::evt::GlobalTempoChanged &);
    void hear(const zarn::evt::RequestMasterBarPlaylistUpdate &);
    void hear(const zarn::evt::MasterBarDirection &);
    void hear(const zarn::evt::RequestEffectDelete &);
    void hear(const zarn::evt::RequestEffectChange &);
    void hear(const zarn::evt::RequestEffectBypassChange &);
    void hear(const zarn::evt::RequestEffectParametersChange &);
    void hear(const zarn::evt::RequestEffectChainChange &);
    void hear(const zarn::evt::RequestEffectChainClear &);
    void hear(const zarn::evt::RequestEffectsSwap &);
    void hear(const zarn::evt::RequestMasterTrackChannelStripChange &);
    void hear(const zarn::evt::RequestMasterTrackChannelStripParameterChange &);
    void hear(const zarn::evt::RequestTrackChannelStripChange &);
    void hear(const zarn::evt::AddAudioTrack &);
    void hear(const zarn::evt::RemoveAudioTrack &);
    void hear(const zarn::evt::AudioTrackChanged &);
    void hear(const zarn::evt::MasterTrackAutomationChanged &);
    void hear(const zarn::evt::MasterTrackAutomationBypassChanged &);
    void hear(const zarn::evt::TrackAutomationChanged &);
    void hear(const zarn::evt::TrackAutomationBypassChanged &);
    void hear(const zarn::evt::AddBars &);
    void hear(const zarn::evt::RemoveBars &);
    void hear(const zarn::evt::ModifyBarRange &);
    void hear(const zarn::evt::ModifyBarRangeAllTracks &);
    void hear(const zarn::evt::SimileMarkBarChanged &);
    void hear(const zarn::evt::RequestTimerChanged &);
    void hear(const zarn::evt::BarLayoutRatiosChanged &);
    void hear(const zarn::evt::MasterBarBeamGroups &);
    void hear(const zarn::evt::MasterBarFermata &);
    void hear(const zarn::evt::AnacrusisChanged &);
    void hear(const zarn::evt::TrackClefChanged &);
    void hear(const zarn::evt::SetBarSection &);
    void hear(const zarn::evt::UnsetBarSection &);
    void hear(const zarn::evt::MasterBarAttribute &);
    void hear(const zarn::evt::MasterBarTimeSignature &);
    void hear(const zarn::evt::MasterBarKeySignature &);
    void hear(const zarn::evt::MasterBarTripletFeel &);
    void hear(const zarn::evt::MasterBarFreeTime &);
    void hear(const zarn::evt::MasterBarDoubleBar &);
    void hear(const zarn::evt::MasterBarRepeat &);
    void hear(const zarn::evt::MasterBarAlternateEnding &);
    void hear(const zarn::evt::RequestAddTracks &);
    void hear(const zarn::evt::RemoveTrack &);
    void hear(const zarn::evt::TrackNameChanged &);
    void hear(const zarn::evt::TrackShortNameChanged &);
    void hear(const zarn::evt::TrackIconChanged &);
    void hear(const zarn::evt::GuitarFullTuningChanged &);
    void hear(const zarn::evt::TranspositionOffsetChanged &);
    void hear(const zarn::evt::ChordsChanged &);
    void hear(const zarn::evt::FullScoreSystemsLayoutChanged &);
    void hear(const zarn::evt::TrackSystemsLayoutChanged &);
    void hear(const zarn::evt::ScoreViewLayoutChanged &);
    void hear(const zarn::evt::ScoreViewMultiRest &);
    void hear(const zarn::evt::TrackViewNotationsChanged &);
    void hear(const zarn::evt::LyricsChanged &);
    void hear(const zarn::evt::RequestAddSound &);
    void hear(const zarn::evt::RequestInsertSound &);
    void hear(const zarn::evt::RequestRemoveSound &);
    void hear(const zarn::evt::RequestSoundChange &);
    void hear(const zarn::evt::RequestSwapSounds &);
    void hear(const zarn::evt::RequestForcedSoundIndexChange &);
    void hear(const zarn::evt::TrackSoundEffectsChanged &);
    void hear(const zarn::evt::SwapTrack &);
    void hear(const zarn::evt::TrackColorChanged &);
    void hear(const zarn::evt::LetRingThroughoutChanged &);
    void hear(const zarn::evt::AutoAccentuationChanged &);
    void hear(const zarn::evt::PalmMuteChanged &);
    void hear(const zarn::evt::AutoBrushChanged &);
    void hear(const zarn::evt::PlayingStyleChanged &);
    void hear(const zarn::evt::TrackPlayback &);
    void hear(const zarn::evt::UseOneChannelOrkaPerStringChanged &);
    void hear(const zarn::evt::RequestTrackStaffChanged &);
    void hear(const zarn::evt::MIDIConnectionChanged &);

    void startStep();
    void readMasterEffect(int track, int slot);
    void readMasterEffects(int track);
    void readTrackGroups();
    void readSound(int track, int index);
    zarn::Track &head(int track) { return *_known.tracks.at(static_cast<std::size_t>(track)).head; }
    const zarn::Track &track(int index) const;
    void insertSound(int track, int index);
    const zarn::ScoreModel &model() const;

    template <class Get, class Set>
    void readMasterBars(int first, int last, Get get, Set set);
    template <class Read>
    void readBars(int track, int staff, int first, int last, Read read);
    static void readContent(zarn::Bar &copy, const zarn::Bar &bar);

    /// Bars that an event named; they must be there.
    bool meetBars(int first, int last);
    /// An old value that is not the known one is a fault when the step is done, unless the new one
    /// is: events that take a failure back may speak of what was not told before it.
    template <class Value>
    void expectOld(const Value &old, const Value &now, const Value &known)
    {
        if (!(old == known) && !(now == known) && _doubt.empty())
            _doubt = "an event tells of an old value that nobody heard of";
    }
    void blame(const std::string &fault);

    void look(int from, int to);

    zarn::Score &_score;
    std::vector<utils::ScopedConnection> _connections;
    unsigned _wholeLookEvery;
    unsigned _steps = 0;
    std::string _events; ///< of the step
    std::string _doubt;  ///< about the step
    std::string _fault;
    std::uint32_t _previousEvent = 0;
    int _from = 0; ///< bars that the step named
    int _to = -1;
    ScoreCopy _known;
    std::array<int, zarn::DirectionMarkCount> _goneDirections{};
};
