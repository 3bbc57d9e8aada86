// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/utils/rational.h>

#include <memory>
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
ZARNCORE_EXPORT Beats beats(const ScoreModel &model);
ZARNCORE_EXPORT Beats beats(const Track &track);
ZARNCORE_EXPORT Beats beats(const Staff &staff);
ZARNCORE_EXPORT Beats beats(const Bar &bar);
ZARNCORE_EXPORT Beats beats(const Voice &voice);
ZARNCORE_EXPORT unsigned beatCount(const ScoreModel &model);
ZARNCORE_EXPORT unsigned beatCount(const Track &track);
ZARNCORE_EXPORT unsigned beatCount(const Staff &staff);
ZARNCORE_EXPORT unsigned beatCount(const Bar &bar);
ZARNCORE_EXPORT unsigned beatCount(const Voice &voice);

/// The beats that start at an offset, in quarters from the start of the bar: at most one per voice,
/// no grace beats.
ZARNCORE_EXPORT Beats beats(const Bar &bar, const utils::rational &drawingOffset);

/// The notes of all beats. When they are sorted, each beat's notes are, by themselves: those
/// without a string first, then from the lowest string up; on one string, or without one, from the
/// lowest MIDI key up; unpitched notes of one key by staff line and element. Equal notes stay in
/// the order in which the beat holds them.
ZARNCORE_EXPORT Notes notes(const ScoreModel &model, bool sorted = false);
ZARNCORE_EXPORT Notes notes(const Track &track, bool sorted = false);
ZARNCORE_EXPORT Notes notes(const Staff &staff, bool sorted = false);
ZARNCORE_EXPORT Notes notes(const Bar &bar, bool sorted = false);
ZARNCORE_EXPORT Notes notes(const Voice &voice, bool sorted = false);
ZARNCORE_EXPORT Notes notes(const Beat &beat);
ZARNCORE_EXPORT unsigned noteCount(const ScoreModel &model);
ZARNCORE_EXPORT unsigned noteCount(const Track &track);
ZARNCORE_EXPORT unsigned noteCount(const Staff &staff);
ZARNCORE_EXPORT unsigned noteCount(const Bar &bar);
ZARNCORE_EXPORT unsigned noteCount(const Voice &voice);
ZARNCORE_EXPORT unsigned noteCount(const Beat &beat);

/// The notes of the beats that start at an offset.
ZARNCORE_EXPORT Notes notes(const Bar &bar, const utils::rational &drawingOffset, bool sorted);

/// Every tuning of a library: the built-in ones, then the user's.
ZARNCORE_EXPORT Tunings tunings(const GuitarTuningLibrary &library);

} // namespace flatten
} // namespace zarn
