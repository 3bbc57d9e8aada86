// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypesSigns.h>
#include <ZarnCore/model/attributes/ZarnBarre.h>
#include <ZarnCore/model/attributes/ZarnChordMark.h>
#include <ZarnCore/model/attributes/ZarnSlurEnd.h>
#include <ZarnCore/model/attributes/ZarnStrum.h>
#include <ZarnCore/model/attributes/ZarnSyllable.h>
#include <ZarnCore/model/attributes/ZarnWhammyBar.h>

#include <cstdint>
#include <string>

namespace zarn {

/// What few beats have: held apart from them, and only where there is any.
struct ZARNCORE_EXPORT BeatDetails {
    std::string text;      ///< words over the beat, UTF-8
    std::string textBelow; ///< words under it
    ChordMark chord;
    WhammyBar whammyBar;
    Syllables lyrics;
    SlurEnds slurEnds;
    Barre barre;

    // Of the brush or the arpeggio, as in `Strum`.
    std::uint16_t strumLength = 0;
    StrumAnchor strumAnchor = StrumAnchor::StartsOnBeat;

    /// Of the words over or under the beat.
    TextSpan textSpan = TextSpan::None;

    // Of the outermost slur.
    SlurLine slurLine = SlurLine::Solid;
    SlurSide slurSide = SlurSide::Auto;

    // Of the dynamics of both kinds, and of the hairpin.
    MarkSide dynamicSide = MarkSide::Auto;
    MarkSide hairpinSide = MarkSide::Auto;

    friend ZARNCORE_EXPORT bool operator==(const BeatDetails &left, const BeatDetails &right);
    friend bool operator!=(const BeatDetails &left, const BeatDetails &right)
    {
        return !(left == right);
    }
};

} // namespace zarn
