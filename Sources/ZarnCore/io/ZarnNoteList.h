// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypesPlaying.h>
#include <ZarnCore/utils/rational.h>

#include <optional>
#include <string>
#include <vector>

namespace zarn {
class ScoreModel;
}

namespace zarn::io {

/// A note of a score with its place; all numbers count from 0.
struct ZARNCORE_EXPORT ListedNote {
    unsigned track = 0;
    unsigned bar = 0;
    unsigned staff = 0;
    unsigned voice = 0;
    utils::rational onset;       ///< in quarters from the start of the bar, as written
    utils::rational length;      ///< in quarters; 0 for a grace note
    std::optional<int> midi;     ///< the pitch as written; nothing for percussion
    std::optional<int> sounding; ///< with the transposition; of percussion its General MIDI key
    std::string spelling;        ///< "C#4"; empty for percussion
    int string = -1;             ///< 0 is the lowest; -1 for none
    int fret = -1;
    bool isGrace = false;
    bool isFurtherOfChord = false;
    bool isTied = false; ///< to the one before
    bool isHidden = false;
    Fingering leftFinger = Fingering::None;
    Fingering rightFinger = Fingering::None;

    /// Values with tabs between them, in the order of `noteListHeading`; "-" for what is not
    /// there. The flags are letters: g grace, c further note of a chord, t tied, h hidden. Fingers
    /// are those of the left hand, 1 to 4, T for the thumb and 0 for an open string, and of the
    /// right hand, p i m a c.
    std::string toString() const;
};

/// All notes, by track, bar, staff, voice and time.
ZARNCORE_EXPORT std::vector<ListedNote> listNotes(const ScoreModel &model);

/// The heading line of the list.
ZARNCORE_EXPORT std::string noteListHeading();

} // namespace zarn::io
