// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/clip/NoteAdaptation.h>

#include <memory>
#include <optional>
#include <vector>

namespace zarn {

class Command;
class Score;
class ScoreModel;
class ScoreModelIndex;
class Staff;
struct Clip;

/// A staff of a clip, and the one of the score where it goes.
struct PastedStaff {
    const Staff *from;
    const Staff *to;
    unsigned track; ///< of the score
    unsigned staff;
};

/// Where the staves of a clip go when its first one goes to a staff of a track; nothing when the
/// score has not as many.
std::optional<std::vector<PastedStaff>> pastedStaves(const ScoreModel &model, const Clip &clip,
                                                     unsigned track, unsigned staff);

/// The staff of a track where the first staff of a clip goes: the one with its number, if the
/// others fit then, else the first.
unsigned pastedStaffNumber(const ScoreModel &model, const Clip &clip, unsigned track);

/// What writes music for the staff where it goes; a staff that can be fingered gets the strings of
/// notes that have none from `fingeringOf`.
NoteAdaptation adaptationOf(const PastedStaff &pasted);

/// A step that finds strings for the notes of whole bars of a staff, or of beats of a voice, that
/// have none, around those that have.
std::unique_ptr<Command> fingeringOf(Score *score, const ScoreModelIndex &first,
                                     const ScoreModelIndex &last);

} // namespace zarn
