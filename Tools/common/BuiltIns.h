// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnCore.h>

#include <QString>

#include <memory>
#include <vector>

namespace zarn {

class ScoreModel;
class Track;

namespace tool {

/// The library's core, with the catalogues loaded: the first call does that. Commands that need
/// no catalogue do not call it.
Core &loadedCore();

/// Loads it for a score with drums: where they stand on the staff is in the catalogue.
void loadDrumKitsFor(const ScoreModel &model);

/// A ready-made track of General MIDI.
struct TrackTemplate {
    enum class Kind { Program, PercussionKey };
    Kind kind = Kind::Program;
    unsigned number = 0; ///< program counted from 0, or percussion key
    QString name;        ///< as General MIDI names it
    QString family;      ///< "Piano", "Drums"
    std::shared_ptr<const Track> track;
};

/// The 128 programs, then the percussion keys. Raises when a template cannot be read.
const std::vector<TrackTemplate> &trackTemplates();

} // namespace tool
} // namespace zarn
