// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/events/ZarnEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <string>

/// A listener that knows the score from its events alone, as a view does: how many bars, tracks and
/// recordings there are. It listens in front of the others.
class EventMirror {
public:
    explicit EventMirror(zarn::Score &score)
        : _score(score), _bars(static_cast<int>(score.masterTrack()->masterBarCount())),
          _tracks(static_cast<int>(score.trackCount())),
          _recordings(static_cast<int>(score.scoreModel()->audioTrackCount()))
    {
        using namespace zarn::evt;
        constexpr int first = -100;
        score.connect<AddBars>(
            this, [this](const AddBars &e) { _bars += e.count(); }, first);
        score.connect<RemoveBars>(
            this, [this](const RemoveBars &e) { _bars -= e.count(); }, first);
        score.connect<RequestAddTracks>(
            this, [this](const RequestAddTracks &e) { _tracks += e.count(); }, first);
        score.connect<RemoveTrack>(
            this, [this](const RemoveTrack &) { --_tracks; }, first);
        score.connect<AddAudioTrack>(
            this, [this](const AddAudioTrack &) { ++_recordings; }, first);
        score.connect<RemoveAudioTrack>(
            this, [this](const RemoveAudioTrack &) { --_recordings; }, first);
    }
    ~EventMirror()
    {
        using namespace zarn::evt;
        _score.disconnect<AddBars>(this);
        _score.disconnect<RemoveBars>(this);
        _score.disconnect<RequestAddTracks>(this);
        _score.disconnect<RemoveTrack>(this);
        _score.disconnect<AddAudioTrack>(this);
        _score.disconnect<RemoveAudioTrack>(this);
    }
    EventMirror(const EventMirror &) = delete;
    EventMirror &operator=(const EventMirror &) = delete;

    /// Empty when the events told the truth.
    std::string fault() const
    {
        const zarn::ScoreModel &model = *_score.scoreModel();
        const bool isTrue = _bars == static_cast<int>(model.masterTrack()->masterBarCount())
            && _tracks == static_cast<int>(model.trackCount())
            && _recordings == static_cast<int>(model.audioTrackCount());
        return isTrue
            ? std::string()
            : "the events told of " + std::to_string(_bars) + " bars, " + std::to_string(_tracks)
                + " tracks and " + std::to_string(_recordings) + " recordings";
    }

private:
    zarn::Score &_score;
    int _bars;
    int _tracks;
    int _recordings;
};
