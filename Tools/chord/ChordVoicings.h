// SPDX-License-Identifier: MIT
#pragma once

#include "common/Arguments.h"

#include <ZarnCore/chords/ZarnChord.h>
#include <ZarnCore/chords/ZarnChordDiagram.h>
#include <ZarnCore/chords/ZarnFretboard.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>

#include <QJsonArray>
#include <QJsonObject>

#include <vector>

namespace zarn::tool {

/// The ways to play a chord on the neck that a person asks for with --tuning and --capo; a guitar
/// in standard tuning when he does not.
class ChordVoicings {
public:
    /// The options that it reads, --all among them.
    static std::vector<Option> options();

    /// Raises `Failure` for a tuning that is none, and `UsageError` for what is no capo.
    ChordVoicings(const chord::Chord &chord, const Arguments &arguments);

    /// The best first; the first few unless all are asked for.
    const std::vector<ChordDiagram> &diagrams() const noexcept { return _diagrams; }
    /// Those that are not among them.
    std::size_t furtherCount() const noexcept { return _furtherCount; }

    const GuitarTuning &tuning() const noexcept { return _tuning; }

    /// An object per diagram with "frets" and "fingers", the lowest string first, -1 for one that
    /// is not played, and with the "tones" and "intervals" that the strings sound.
    QJsonArray toJson() const;

private:
    QJsonObject jsonOf(const ChordDiagram &diagram, const chord::Fretboard &fretboard) const;

    chord::Chord _chord;
    GuitarTuning _tuning;
    chord::Capos _capos;
    std::vector<ChordDiagram> _diagrams;
    std::size_t _furtherCount = 0;
};

} // namespace zarn::tool
