// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnVoice.h>

namespace zarn {

// Lists of beats as stretches of time from the start of their bar. Beats of a voice stay as they
// are: where one is cut, the answer has copies of its parts. `barLength` is that of rests which
// fill the bar.

/// The time that a beat takes, attached or not.
utils::rational timeOf(const Beat &beat, const utils::rational &barLength);

Voice::Beats placeHolders(const utils::rational &length);

inline void append(Voice::Beats &beats, const Voice::Beats &more)
{
    beats.insert(beats.end(), more.begin(), more.end());
}

/// What is in front of a time; place holders lead up to it when there is too little.
Voice::Beats beatsUntil(const Voice::Beats &beats, const utils::rational &barLength,
                        const utils::rational &time);

/// What begins at a time or behind it; of a beat that has begun, the rest is silent.
Voice::Beats beatsFrom(const Voice::Beats &beats, const utils::rational &barLength,
                       const utils::rational &time);

/// The beats with the notes of others, which begin at a time, added to them: both are cut where the
/// other's notes begin and end. A rest takes what comes as it is. A note gives way to one on its
/// string, or of its key.
Voice::Beats mergeBeats(const Voice::Beats &beats, const utils::rational &barLength,
                        const Voice::Beats &added, const utils::rational &start);

} // namespace zarn
