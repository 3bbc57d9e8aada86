// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/model/lyrics/ZarnLyricText.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zarn {

class Beat;
class Track;
class Voice;

/// A line of lyrics of a track, in its first staff. It is sung by the lowest voice that has
/// syllables of it, or notes when none has: on beats with notes, but for grace beats and those that
/// only hold what was struck before, and not in bars that repeat others.
class ZARNCORE_EXPORT LyricLine {
public:
    /// Looks at the track each time it is asked. `line` is below `Syllable::LineCount`.
    LyricLine(const Track &track, unsigned line);

    /// All syllables in order, those that wait for notes behind the others.
    LyricSyllables syllables() const;

    /// Bar of the first syllable on a note.
    std::optional<unsigned> firstBar() const;

    /// A beat whose syllable changes.
    struct Change {
        unsigned bar;
        unsigned beat;
        std::optional<LyricSyllable> syllable; ///< what it sings then, if anything
    };

    /// The line laid out anew.
    struct Layout {
        std::vector<Change> changes; ///< in order
        std::string leftOver;        ///< what found no notes
    };

    /// Lays syllables out from a bar on; those in front of the bar `replaced` stay.
    Layout layOut(const LyricSyllables &syllables, unsigned firstBar, unsigned replaced) const;

    /// The voice that sings, 0 to 3.
    unsigned voice() const noexcept { return _voice; }

private:
    const Voice *voiceOf(unsigned bar) const;
    bool isSung(unsigned bar, const Beat &beat) const;
    unsigned wordlessNotesBefore(unsigned end) const;
    std::optional<LyricSyllable> syllableOf(const Beat &beat) const;

    const Track &_track;
    unsigned _line;
    unsigned _voice = 0;
};

} // namespace zarn
