// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/events/ZarnEventShapes.h>

/// Events of tracks. Tracks and staves are counted from 0.
namespace zarn::evt {

/// Tracks were inserted: this many, the first at this index. Undoing the removal of a track sends
/// it too.
class RequestAddTracks final : public SpanEvent<Number::RequestAddTracks> {
    using SpanEvent::SpanEvent;
};

/// A track is about to be removed; it can still be read.
class WillRemoveTrack final : public TrackEvent<Number::WillRemoveTrack> {
    using TrackEvent::TrackEvent;
};

/// A track was removed; later tracks have moved down. Undoing an insertion sends it too.
class RemoveTrack final : public TrackEvent<Number::RemoveTrack> {
    using TrackEvent::TrackEvent;
};

/// Two tracks changed places.
class SwapTrack final : public SwapEvent<Number::SwapTrack> {
    using SwapEvent::SwapEvent;
};

/// The name of a track changed.
class TrackNameChanged final : public TrackEvent<Number::TrackNameChanged> {
    using TrackEvent::TrackEvent;
};

/// The short name of a track changed.
class TrackShortNameChanged final : public TrackEvent<Number::TrackShortNameChanged> {
    using TrackEvent::TrackEvent;
};

/// The colour of a track changed.
class TrackColorChanged final : public TrackEvent<Number::TrackColorChanged> {
    using TrackEvent::TrackEvent;
};

/// The icon of a track changed.
class TrackIconChanged final : public TrackEvent<Number::TrackIconChanged> {
    using TrackEvent::TrackEvent;
};

/// The strings, the capo or the fret count of a staff changed.
class GuitarFullTuningChanged final : public StaffEvent<Number::GuitarFullTuningChanged> {
    using StaffEvent::StaffEvent;
};

/// The clef of bars of a staff changed.
class TrackClefChanged final : public StaffBarsEvent<Number::TrackClefChanged> {
    using StaffBarsEvent::StaffBarsEvent;
};

/// A track was muted, put on solo, or set free of either.
class TrackPlayback final : public TrackEvent<Number::TrackPlayback> {
    using TrackEvent::TrackEvent;
};

/// A track began or ceased to let all its notes ring.
class LetRingThroughoutChanged final : public TrackToggleEvent<Number::LetRingThroughoutChanged> {
    using TrackToggleEvent::TrackToggleEvent;
};

/// A track began or ceased to accent its beats by itself.
class AutoAccentuationChanged final : public TrackToggleEvent<Number::AutoAccentuationChanged> {
    using TrackToggleEvent::TrackToggleEvent;
};

/// The strength of palm muting of a track changed.
class PalmMuteChanged final : public TrackEvent<Number::PalmMuteChanged> {
    using TrackEvent::TrackEvent;
};

/// The strength of palm muting of a track is being changed and should be heard at once.
class RequestPalmMuteChange final : public TrackEvent<Number::RequestPalmMuteChange> {
    using TrackEvent::TrackEvent;
};

/// A track began or ceased to brush its chords by itself.
class AutoBrushChanged final : public TrackToggleEvent<Number::AutoBrushChanged> {
    using TrackToggleEvent::TrackToggleEvent;
};

/// How a track is played (with a pick, with the fingers...) changed.
class PlayingStyleChanged final : public TrackEvent<Number::PlayingStyleChanged> {
    using TrackEvent::TrackEvent;
};

/// The bar counts of the systems of a track changed; they are read from the track.
class TrackSystemsLayoutChanged final : public TrackEvent<Number::TrackSystemsLayoutChanged> {
    using TrackEvent::TrackEvent;
};

/// The lyrics of a track changed.
class LyricsChanged final : public TrackEvent<Number::LyricsChanged> {
    using TrackEvent::TrackEvent;
};

/// A track began or ceased to play each string on a channel of its own.
class UseOneChannelOrkaPerStringChanged final
    : public TrackToggleEvent<Number::UseOneChannelOrkaPerStringChanged> {
    using TrackToggleEvent::TrackToggleEvent;
};

/// The transposition of a track changed.
class TranspositionOffsetChanged final : public TrackEvent<Number::TranspositionOffsetChanged> {
    using TrackEvent::TrackEvent;
};

/// The staves of a track changed in number or were replaced.
class RequestTrackStaffChanged final : public TrackEvent<Number::RequestTrackStaffChanged> {
    using TrackEvent::TrackEvent;
};

/// The MIDI port or channels of a track changed.
class MIDIConnectionChanged final : public TrackEvent<Number::MIDIConnectionChanged> {
    using TrackEvent::TrackEvent;
};

} // namespace zarn::evt
