// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <QStringList>

#include <optional>

namespace zarn {

class ScoreModel;
class Track;

namespace sheet {

enum class Signs : int;

/// "E2 A2 D3 G3 B3 E4" from the lowest string up; empty without strings.
ZARNCORE_EXPORT QString tuningText(const Track &track, unsigned staff, Signs signs);

/// What a player reads: "written 2 semitones higher" for the -2 that it sounds lower, "written an
/// octave higher"; empty for none.
ZARNCORE_EXPORT QString transpositionText(int semitones);

/// One line about a track: its number, name, instrument, tuning, capo and transposition.
ZARNCORE_EXPORT QString trackText(const Track &track, Signs signs);

/// The lines over a picture: title and authors, then the tracks shown.
ZARNCORE_EXPORT QStringList titleLines(const ScoreModel &model, std::optional<unsigned> track,
                                       Signs signs);

} // namespace sheet
} // namespace zarn
