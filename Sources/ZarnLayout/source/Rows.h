// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnTrackNotations.h>

#include <cstdint>
#include <optional>
#include <vector>

namespace zarn {
class ScoreModel;
}

namespace zarn::engraving {

/// How a row of a system writes the notes of its staff.
enum class Notation : std::uint8_t { Standard, Slash, Tablature };

/// One line of staves that runs through all systems: a staff of a track in one notation.
struct Row {
    unsigned track = 0;
    unsigned staff = 0;
    Notation notation = Notation::Standard;
    unsigned lineCount = 5;

    /// Distance of two lines, in staff spaces.
    double lineDistance = 1;

    /// Tablature that stands alone says the rhythm too.
    bool hasRhythm = true;

    /// The first row of its staff carries what belongs to the staff and not to a notation:
    /// dynamics, lyrics, chord symbols.
    bool isFirstOfStaff = true;
    bool isLastOfStaff = true;
    bool isPercussion = false;

    /// Natural harmonics are normal heads under a circle, as those of bowed strings and harps are,
    /// and not diamonds with letters.
    bool circlesHarmonics = false;

    /// Tablature was asked for, and the staff has no strings.
    bool lacksStrings = false;

    double height() const noexcept { return (lineCount - 1) * lineDistance; }

    friend bool operator==(const Row &a, const Row &b) noexcept
    {
        return a.track == b.track && a.staff == b.staff && a.notation == b.notation
            && a.lineCount == b.lineCount && a.lineDistance == b.lineDistance
            && a.hasRhythm == b.hasRhythm && a.isFirstOfStaff == b.isFirstOfStaff
            && a.isLastOfStaff == b.isLastOfStaff && a.isPercussion == b.isPercussion
            && a.circlesHarmonics == b.circlesHarmonics && a.lacksStrings == b.lacksStrings;
    }

    /// How far a line or space is below the top line, in staff spaces; counted in half spaces
    /// above the bottom line.
    double yOfLine(int line) const noexcept { return height() - line * 0.5 * lineDistance; }

    /// How far a string is below the top line; string 0 is the lowest line.
    double yOfString(int string) const noexcept { return height() - string * lineDistance; }
};

/// The rows of the given tracks, from the top down; no tracks means all of them. `notations` stand
/// in for those that the tracks choose.
std::vector<Row> rowsOf(const ScoreModel &model, const std::vector<unsigned> &tracks,
                        const std::optional<TrackNotations> &notations);

} // namespace zarn::engraving
