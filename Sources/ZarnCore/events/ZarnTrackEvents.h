// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/events/ZarnEventShapes.h>

/// Events of tracks. Tracks and staves are counted from 0.
namespace zarn::evt {

/// Tracks were inserted: this many, the first at this index. The groups of tracks follow, as with
/// `RemoveTrack` and `SwapTrack`. Undoing the removal of a track sends it too.
class RequestAddTracks final : public SpanEvent<RequestAddTracks> {
    using SpanEvent::SpanEvent;
};

/// A track is about to be removed; it can still be read.
class WillRemoveTrack final : public TrackEvent<WillRemoveTrack> {
    using TrackEvent::TrackEvent;
};

/// A track was removed; later tracks have moved down. Undoing an insertion sends it too.
class RemoveTrack final : public TrackEvent<RemoveTrack> {
    using TrackEvent::TrackEvent;
};

/// Two tracks changed places. A track that moves further sends one event for each track that it
/// passes; the tracks can be read where they come to be in the end.
class SwapTrack final : public SwapEvent<SwapTrack> {
    using SwapEvent::SwapEvent;
};

/// The name of a track changed.
class TrackNameChanged final : public TrackEvent<TrackNameChanged> {
    using TrackEvent::TrackEvent;
};

/// The short name of a track changed.
class TrackShortNameChanged final : public TrackEvent<TrackShortNameChanged> {
    using TrackEvent::TrackEvent;
};

/// The colour of a track changed.
class TrackColorChanged final : public TrackEvent<TrackColorChanged> {
    using TrackEvent::TrackEvent;
};

/// The icon of a track changed.
class TrackIconChanged final : public TrackEvent<TrackIconChanged> {
    using TrackEvent::TrackEvent;
};

/// The strings, the capo or the fret count of a staff changed.
class GuitarFullTuningChanged final : public StaffEvent<GuitarFullTuningChanged> {
    using StaffEvent::StaffEvent;
};

/// The clef of bars of a staff changed.
class TrackClefChanged final : public StaffBarsEvent<TrackClefChanged> {
    using StaffBarsEvent::StaffBarsEvent;
};

/// A track was muted, put on solo, or set free of either.
class TrackPlayback final : public TrackEvent<TrackPlayback> {
    using TrackEvent::TrackEvent;
};

/// A track began or ceased to let all its notes ring.
class LetRingThroughoutChanged final : public TrackToggleEvent<LetRingThroughoutChanged> {
    using TrackToggleEvent::TrackToggleEvent;
};

/// A track began or ceased to accent its beats by itself.
class AutoAccentuationChanged final : public TrackToggleEvent<AutoAccentuationChanged> {
    using TrackToggleEvent::TrackToggleEvent;
};

/// The strength of palm muting of a track changed.
class PalmMuteChanged final : public TrackEvent<PalmMuteChanged> {
    using TrackEvent::TrackEvent;
};

/// The strength of palm muting of a track is being changed and should be heard at once. Nothing
/// sends it yet.
class RequestPalmMuteChange final : public TrackEvent<RequestPalmMuteChange> {
    using TrackEvent::TrackEvent;
};

/// A track began or ceased to brush its chords by itself.
class AutoBrushChanged final : public TrackToggleEvent<AutoBrushChanged> {
    using TrackToggleEvent::TrackToggleEvent;
};

/// How a track is played (with a pick, with the fingers...) changed.
class PlayingStyleChanged final : public TrackEvent<PlayingStyleChanged> {
    using TrackEvent::TrackEvent;
};

/// The bar counts of the systems of a track changed; they are read from the track. Bars that come
/// or go in the middle of a system change its count: the event follows theirs.
class TrackSystemsLayoutChanged final : public TrackEvent<TrackSystemsLayoutChanged> {
    using TrackEvent::TrackEvent;
};

/// The lyrics of a track changed: which lines are shown, or the text that waits for notes. The
/// syllables stand in the beats, whose bars `ModifyBarRange` names behind this.
class LyricsChanged final : public TrackEvent<LyricsChanged> {
    using TrackEvent::TrackEvent;
};

/// A track began or ceased to play each string on a channel of its own.
class UseOneChannelOrkaPerStringChanged final
    : public TrackToggleEvent<UseOneChannelOrkaPerStringChanged> {
    using TrackToggleEvent::TrackToggleEvent;
};

/// The transposition of a track changed, and with it what is written in all of its bars.
class TranspositionOffsetChanged final : public TrackEvent<TranspositionOffsetChanged> {
    using TrackEvent::TrackEvent;
};

/// The staves of a track changed in number or were replaced.
class RequestTrackStaffChanged final : public TrackEvent<RequestTrackStaffChanged> {
    using TrackEvent::TrackEvent;
};

/// The MIDI port or channels of a track changed.
class MIDIConnectionChanged final : public TrackEvent<MIDIConnectionChanged> {
    using TrackEvent::TrackEvent;
};

} // namespace zarn::evt
