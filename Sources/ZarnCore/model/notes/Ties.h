// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace zarn {

class Beat;
class Note;
class Staff;
class Voice;

/// Whether two notes are at one place of their instrument, as the ends of a tie are: on the same
/// string when both have one, else of the same key, articulation and staff line.
bool sameLocation(const Note &left, const Note &right) noexcept;

/// The beats that meet at the joint in front of a beat of a voice. At the ends of the voice the
/// joint is the one with the same voice of the neighbouring bar. Either may be empty.
std::shared_ptr<Beat> beatInFrontOfJoint(const Voice &voice, unsigned index);
std::shared_ptr<Beat> beatBehindJoint(const Voice &voice, unsigned index);

/// Undoes the ties over the joints in front of the beats `first` and `last` of a voice whose two
/// ends no longer meet: the note before lets go, the note after starts anew.
void mendTies(Voice &voice, unsigned first, unsigned last);

/// The same for the bar line in front of a bar, in all voices; at the ends of the staff too.
void mendTiesOverBarLine(const Staff &staff, unsigned bar);

/// Undoes the ties of a note that leaves its beat: the note before lets go, the note after starts
/// anew. `beat` is the number of the beat in its voice.
void releaseTies(const Voice &voice, unsigned beat, const Note &note);

} // namespace zarn
