// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>

#include <optional>

namespace zarn {

class Bar;
class Beat;
class Note;

/// The clef that holds at a beat of a bar.
ClefType clefOver(const Beat &beat, const Bar &bar);

/// Where a note stands on the staff, in half spaces above the bottom line: where its own staff line
/// says, else where its articulation stands in the instrument set of its track, or on a drum kit
/// the one that its key enters, else on a pitched track as its pitch is spelled, under the clef
/// that holds at its beat and the octaves that the number of the clef and the ottava of the beat
/// make up together. Nothing when none of these leads to a line. The beat is the note's and the bar
/// the beat's.
std::optional<int> staffLineOf(const Note &note, const Beat &beat, const Bar &bar);

} // namespace zarn
