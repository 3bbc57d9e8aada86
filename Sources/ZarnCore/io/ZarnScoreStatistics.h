// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnSourceTally.h>
#include <ZarnCore/model/notes/ZarnUnpitched.h>

#include <QJsonObject>

#include <optional>

namespace zarn {
class ScoreModel;
} // namespace zarn

namespace zarn::io {

using zarn::isUnpitchedNote;

/// Counts of what is written in a score: nothing is unfolded or merged, a tied pair is two notes.
struct ZARNCORE_EXPORT ScoreStatistics {
    /// Counts a model. What the document of an import said in its own terms, signatures of each
    /// part for one, comes from its tally when there is one; a tablature that was made one with
    /// its notes counts as it stood there.
    explicit ScoreStatistics(const ScoreModel &model, const SourceTally &source = {});

    std::uint32_t staves = 0;
    std::uint32_t measures = 0;
    std::uint64_t midiSum = 0; ///< of the written keys of all pitched notes
    std::optional<int> midiLow;
    std::optional<int> midiHigh;

    NoteTally notes;
    std::vector<PartTally> parts;
    std::map<std::string, std::uint32_t> keys;
    std::map<std::string, std::uint32_t> times;
    std::map<std::string, std::uint32_t> clefs;
    std::uint32_t tuplets = 0;

    /// "parts", "staves", "measures", "notes", "midi_sum", "midi_low", "midi_high", "keys",
    /// "times", "clefs", "tuplets" and "per_part".
    QJsonObject toJson() const;
};

} // namespace zarn::io
