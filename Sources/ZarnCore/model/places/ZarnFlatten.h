// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/utils/rational.h>

#include <memory>
#include <variant>
#include <vector>

namespace zarn {

class Bar;
class Beat;
class GuitarTuning;
class GuitarTuningLibrary;
class Note;
class ScoreModel;
class Staff;
class Track;
class Voice;

/// What lies below a level of the score tree, as one list in the order of the tree: tracks as in
/// the score, staves as in the track, bars, voices, beats and notes likewise. The lists share the
/// nodes; they do not follow later changes.
namespace flatten {

using Tracks = std::vector<std::shared_ptr<Track>>;
using Staves = std::vector<std::shared_ptr<Staff>>;
using Beats = std::vector<std::shared_ptr<Beat>>;
using Notes = std::vector<std::shared_ptr<Note>>;
using Tunings = std::vector<std::shared_ptr<GuitarTuning>>;

/// What stands for a level of the tree when its beats or notes are listed: a score, a track, a
/// staff, a bar or a voice. Made where it is needed and not kept: it only looks at the node.
class Level {
public:
    using Node =
        std::variant<const ScoreModel *, const Track *, const Staff *, const Bar *, const Voice *>;

    Level(const ScoreModel &model) noexcept : _node(&model) { }
    Level(const Track &track) noexcept : _node(&track) { }
    Level(const Staff &staff) noexcept : _node(&staff) { }
    Level(const Bar &bar) noexcept : _node(&bar) { }
    Level(const Voice &voice) noexcept : _node(&voice) { }

    const Node &node() const noexcept { return _node; }

private:
    Node _node;
};

/// The tracks whose instrument category has a bit in common with a mask, such as
/// `InstrumentSet::pitched | InstrumentSet::unpitched` for all but those of an unknown instrument.
/// The codes of members also have bits in their last byte, which they share with strangers: masks
/// are made of codes of groups.
ZARNCORE_EXPORT Tracks tracks(const ScoreModel &model, unsigned typeMask);
ZARNCORE_EXPORT unsigned trackCount(const ScoreModel &model, unsigned typeMask);

/// The staves of those tracks, or of one track.
ZARNCORE_EXPORT Staves staves(const ScoreModel &model, unsigned typeMask);
ZARNCORE_EXPORT unsigned staffCount(const ScoreModel &model, unsigned typeMask);
ZARNCORE_EXPORT Staves staves(const Track &track);
ZARNCORE_EXPORT unsigned staffCount(const Track &track);

/// The beats of all voices.
ZARNCORE_EXPORT Beats beats(const Level &level);
ZARNCORE_EXPORT unsigned beatCount(const Level &level);

/// The beats that start at an offset, in quarters from the start of the bar: at most one per voice,
/// no grace beats.
ZARNCORE_EXPORT Beats beats(const Bar &bar, const utils::rational &drawingOffset);

/// The notes of all beats. When they are sorted, each beat's notes are, by themselves: those
/// without a string first, then from the lowest string up; on one string, or without one, from the
/// lowest MIDI key up; unpitched notes of one key by staff line and element. Equal notes stay in
/// the order in which the beat holds them.
ZARNCORE_EXPORT Notes notes(const Level &level, bool sorted = false);
ZARNCORE_EXPORT Notes notes(const Beat &beat);
ZARNCORE_EXPORT unsigned noteCount(const Level &level);
ZARNCORE_EXPORT unsigned noteCount(const Beat &beat);

/// The notes of the beats that start at an offset.
ZARNCORE_EXPORT Notes notes(const Bar &bar, const utils::rational &drawingOffset, bool sorted);

/// Every tuning of a library: the built-in ones, then the user's.
ZARNCORE_EXPORT Tunings tunings(const GuitarTuningLibrary &library);

} // namespace flatten
} // namespace zarn
