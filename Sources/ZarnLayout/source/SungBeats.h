// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/source/BarSource.h>

#include <vector>

namespace zarn::engraving {

/// Whether the word goes on behind a syllable.
bool isWordUnfinished(const Syllable &syllable) noexcept;

/// What a beat sings of a verse; null for nothing.
const Syllable *syllableOf(const BeatSource &beat, unsigned verse);

/// Whether a beat is sung on what was sung in front of it.
bool holds(const BeatSource &beat, unsigned verse);

/// Null for a voice that is not there or has no beats.
const VoiceSource *voiceOf(const BarSource &bar, unsigned number);

/// A syllable that a voice still sings at a bar line.
struct OpenSyllable {
    unsigned staff = 0; ///< among the staves of the columns
    unsigned voice = 0;
    unsigned verse = 0;
    bool isWordUnfinished = false; ///< hyphens go on, else the line under held notes

    friend bool operator==(const OpenSyllable &a, const OpenSyllable &b) noexcept
    {
        return a.staff == b.staff && a.voice == b.voice && a.verse == b.verse
            && a.isWordUnfinished == b.isWordUnfinished;
    }
};

/// In order of staves, voices and verses.
using OpenSyllables = std::vector<OpenSyllable>;

/// Those of a bar that its last notes are sung on.
OpenSyllables openSyllablesOf(const BarColumn &bar);

/// Whether a voice sings nothing else in a whole bar. The line under held notes ends where other
/// verses go on alone: it would not be seen to end before the song does.
bool goesOnThrough(const BarColumn &bar, const OpenSyllable &open);

} // namespace zarn::engraving
