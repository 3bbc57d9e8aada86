// SPDX-License-Identifier: MIT
#pragma once

#include "edit/Values.h"

#include <QString>

#include <cstddef>

namespace zarn::tool {

class EditSession;

/// Music as it is typed, and where it goes.
struct TypedMusic {
    QString text; ///< in the notation of `io::readBarsText`, pitches as they sound
    int times = 1;
    int column = 1; ///< of the text in its line
};

/// Writes music into a voice, from a beat on and over what is there; further voices of the text go
/// into the voices behind. Bars that are full lead to the next ones, and those that are missing are
/// added. A beat that is covered in part leaves rests. Raises `LineError` for music that does not
/// fit, and answers false when the score refuses it; nothing has happened then.
bool writeMusic(EditSession &session, const Where &where, const BeatPlace &from,
                const TypedMusic &music);

/// The place behind the last beat of a voice: in the last bar where it has any, unless that is
/// full.
BeatPlace endOfVoice(EditSession &session, const Where &where);

} // namespace zarn::tool
