// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/events/ZarnEventShapes.h>
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>

#include <utility>

/// Events of sounds and audio tracks. Tracks, and sounds within their track, are counted from 0.
namespace zarn::evt {

/// Names a place in the score.
template <class Self>
class PlaceEvent : public EventOf<Self> {
public:
    explicit PlaceEvent(ScoreModelIndex place) : _place(std::move(place)) { }

    const ScoreModelIndex &place() const noexcept { return _place; }

private:
    ScoreModelIndex _place;
};

/// The beat at this place should be heard. Nothing sends it yet.
class RequestPlayBeat final : public PlaceEvent<RequestPlayBeat> {
    using PlaceEvent::PlaceEvent;
};

/// An audio track was inserted at this index. Undo sends `RemoveAudioTrack`.
class AddAudioTrack final : public IndexEvent<AddAudioTrack> {
    using IndexEvent::IndexEvent;
};

/// The audio track at this index was removed. Undo sends `AddAudioTrack`.
class RemoveAudioTrack final : public IndexEvent<RemoveAudioTrack> {
    using IndexEvent::IndexEvent;
};

/// The audio track at this index has another name, file, start, level or place, or was muted or
/// switched on.
class AudioTrackChanged final : public IndexEvent<AudioTrackChanged> {
    using IndexEvent::IndexEvent;
};

/// A track is played with one sound throughout, or no longer so: the old and the new forced sound,
/// -1 for none.
class RequestForcedSoundIndexChange final : public TrackChangeEvent<RequestForcedSoundIndexChange> {
    using TrackChangeEvent::TrackChangeEvent;
};

/// A sound of a track was replaced; automations that switch to it have an event of their own.
class RequestSoundChange final : public TrackSoundEvent<RequestSoundChange> {
    using TrackSoundEvent::TrackSoundEvent;
};

/// A sound was added behind the sounds of a track, at this index. Undo sends
/// `RequestRemoveSound`.
class RequestAddSound final : public TrackSoundEvent<RequestAddSound> {
    using TrackSoundEvent::TrackSoundEvent;
};

/// A sound was inserted at this index. Undo sends `RequestRemoveSound`.
class RequestInsertSound final : public TrackSoundEvent<RequestInsertSound> {
    using TrackSoundEvent::TrackSoundEvent;
};

/// The sound at this index was removed. Undo sends `RequestInsertSound`.
class RequestRemoveSound final : public TrackSoundEvent<RequestRemoveSound> {
    using TrackSoundEvent::TrackSoundEvent;
};

/// Two sounds of a track changed places.
class RequestSwapSounds final : public TrackSwapEvent<RequestSwapSounds> {
    using TrackSwapEvent::TrackSwapEvent;
};

/// Another sound of a track is being edited: the old and the new one, -1 for none. Nothing sends it
/// yet.
class EditingSoundIndexChanged final : public TrackChangeEvent<EditingSoundIndexChanged> {
    using TrackChangeEvent::TrackChangeEvent;
};

} // namespace zarn::evt
