// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/music/ZarnRhythmValue.h>

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace zarn {

/// A metronome mark as the words of a tempo hold it: so many notes a minute, or one note that takes
/// the time of another. The words of a tempo with such a mark in them are written without the
/// number that the tempo has besides, which is what sounds.
struct ZARNCORE_EXPORT MetronomeMark {
    struct Note {
        RhythmValue::NoteValue value = RhythmValue::NoteValue::Quarter;
        int dots = 0;

        double quarters() const;
    };

    static constexpr int MostDots = 4;

    Note note;
    std::optional<Note> equal; ///< the note behind the sign, which holds from here on
    double perMinute = 0;
    bool isInParentheses = false;

    /// "♩. = 92" or "(♪ = ♩)", in UTF-8. Notes from breves to 32nds have a sign.
    std::string text() const;

    /// By how much an equation makes the quarter faster; 1 for a number.
    double factor() const;
};

using TempoPiece = std::variant<std::string, MetronomeMark>;

/// The words of a tempo and the marks in them, which single spaces part.
ZARNCORE_EXPORT std::vector<TempoPiece> tempoPieces(const std::string &text);

ZARNCORE_EXPORT bool hasMetronomeMark(const std::string &text);

} // namespace zarn
