// SPDX-License-Identifier: MIT
#pragma once

#include "edit/Values.h"

#include <ZarnCore/model/places/ZarnScoreModelRange.h>

namespace zarn::tool {

class EditSession;

// Where a command acts: the place that its line names (by default as its first parameter), else
// what is selected, else where the cursor is. Each raises `LineError` for a place that is not
// there.

enum class Allowed { Beats, BeatsAndEnd };

/// A beat, or also the place behind the last one.
ScoreModelIndex targetBeat(EditSession &session, const Values &values,
                           Allowed allowed = Allowed::Beats);
ScoreModelRange targetBeats(EditSession &session, const Values &values);

/// The notes that a command means: all of the beats that `targetBeats` finds; with the option
/// "string" those on that string, and with no place in the line and nothing selected the one on the
/// string of the cursor, where there is one.
ScoreModelRange targetNotes(EditSession &session, const Values &values);

unsigned targetBar(EditSession &session, const Values &values);
BarRange targetBars(EditSession &session, const Values &values);

/// The staff that bars stand for, as `targetBars` finds them; raises for a selection of several.
Where targetStaff(EditSession &session, const Values &values);

/// Counted from 0, the lowest.
int targetString(EditSession &session, const Values &values, std::size_t parameter);

/// Raises unless there is such a beat.
void requireBeat(EditSession &session, const Where &where, const BeatPlace &place, int column,
                 Allowed allowed = Allowed::Beats);

/// Bar and beat of the cursor; of a bar as such the first beat.
BeatPlace cursorPlace(EditSession &session);

ScoreModelIndex indexOf(EditSession &session, const Where &where, const BeatPlace &place);

} // namespace zarn::tool
