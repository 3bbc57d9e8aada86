// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>
#include <vector>

namespace zarn {
class Track;
}

namespace zarn::editor {

/// A ready-made track of the catalogue.
struct TrackTemplate {
    QString name;
    /// Program of General MIDI, 0 to 127; -1 is the drum kit.
    int program = 0;
};

/// All of them, the drum kit last; read when they are asked for first.
const std::vector<TrackTemplate> &trackTemplates();

/// A track of its own, detached; empty when the catalogue lacks it.
std::shared_ptr<Track> makeTrack(const TrackTemplate &made);

} // namespace zarn::editor
