// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>
#include <ZarnCore/music/ZarnKeySignature.h>
#include <ZarnCore/music/ZarnTimeSignature.h>

#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace zarn {
class ScoreModel;
class Track;
} // namespace zarn

namespace zarn::editor {

struct NewTrack {
    std::shared_ptr<Track> track;
    /// Of its strings; nothing leaves them as they are.
    std::optional<GuitarTuning> tuning;
    unsigned capo = 0; ///< a fret, 0 for none
};

struct NewScoreSettings {
    std::vector<NewTrack> tracks; ///< none means a guitar
    unsigned bars = 16;
    TimeSignature meter{4, 4};
    KeySignature key{0, true};
    int tempo = 120; ///< quarters per minute
    QString title;
};

/// A score without notes.
std::shared_ptr<ScoreModel> newScore(NewScoreSettings settings = {});

} // namespace zarn::editor
