// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/playback/ZarnLane.h>
#include <ZarnCore/playback/ZarnPitchMotion.h>
#include <ZarnCore/playback/ZarnPlannedNote.h>
#include <ZarnCore/playback/ZarnPlayedBars.h>
#include <ZarnCore/playback/ZarnTempoMap.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zarn {
class ScoreModel;
}

namespace zarn::playback {

struct ScoreSurvey;

enum class Channels { OnePerTrack, OnePerString };

/// Whether the mute and solo switches of the tracks count.
enum class Audibility { AsSwitched, Everything };

struct PlanOptions {
    Audibility audibility = Audibility::AsSwitched;
    Channels channels = Channels::OnePerTrack;

    /// The bars `first` to `second` alone: from the first time that one of them is played until
    /// they are left. What is played is the part of the whole plan that begins there.
    std::optional<std::pair<unsigned, unsigned>> bars;

    /// These tracks alone; none means all.
    std::vector<unsigned> tracks;
};

/// What a score sounds like when it is played: every note with its time, loudness and channel, and
/// all that changes the sound in between.
///
/// Made once from a model and never changed, so that any number of threads may read it; the model
/// is not needed any more then. Times are exact fractions of a quarter of playing, which `tempo`
/// leads to seconds. Notes may begin in front of 0: grace notes before the first beat.
class ZARNCORE_EXPORT PlaybackPlan {
public:
    explicit PlaybackPlan(const ScoreModel &model, const PlanOptions &options = {});

    const PlayedBars &bars() const noexcept { return _bars; }
    const TempoMap &tempo() const noexcept { return _tempo; }

    /// In order of their starts, those of one time by track, staff and voice.
    const std::vector<PlannedNote> &notes() const noexcept { return _notes; }

    /// In order of time; at the start of the plan the state of every track.
    const std::vector<PlannedControl> &controls() const noexcept { return _controls; }

    /// What the programs stand for where there are samples: the sounds of the tracks as they were.
    const std::vector<Sound> &sounds() const noexcept { return _sounds; }

    const std::vector<PitchMotion> &motions() const noexcept { return _motions; }

    /// The motion of a note; null for one whose pitch stays.
    const PitchMotion *motionOf(const PlannedNote &note) const noexcept
    {
        return note.motion == PlannedNote::NoMotion
            ? nullptr
            : &_motions[static_cast<std::size_t>(note.motion)];
    }

    /// A channel each; the first ones are the main lanes of the tracks, by track.
    const std::vector<Lane> &lanes() const noexcept { return _lanes; }

    /// When the first sound begins, at 0 at the latest, and when the last bar or sound ends.
    const utils::rational &start() const noexcept { return _start; }
    const utils::rational &end() const noexcept { return _end; }

    /// Seconds of playing that were left out in front, in a plan of some bars alone.
    double secondsBefore() const noexcept { return _secondsBefore; }

    /// Percussion notes that nothing says a sound of, by track and bar, each bar once.
    struct UnknownSound {
        unsigned track = 0;
        unsigned bar = 0;
    };
    const std::vector<UnknownSound> &unknownSounds() const noexcept { return _unknown; }

    // For a cursor that shows what is played; nothing without bars, for a place that is not played.

    std::optional<PlayPlace> placeAt(double second) const;
    std::optional<double> secondOf(unsigned bar, const utils::rational &offset,
                                   unsigned pass = 0) const;

private:
    PlaybackPlan(const ScoreModel &model, const PlanOptions &options, const ScoreSurvey &survey);

    void cut(const PlayedBars::Stretch &stretch);
    void endRepeatedKeys();
    void addSeconds();

    PlayedBars _bars;
    TempoMap _tempo;
    std::vector<PlannedNote> _notes;
    std::vector<PlannedControl> _controls;
    std::vector<Sound> _sounds;
    std::vector<PitchMotion> _motions;
    std::vector<Lane> _lanes;
    std::vector<UnknownSound> _unknown;
    utils::rational _start;
    utils::rational _end;
    double _secondsBefore = 0;
};

} // namespace zarn::playback
