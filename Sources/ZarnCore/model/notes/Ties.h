// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace zarn {

class Beat;
class Note;
class Staff;
class Track;
class Voice;

/// Whether two notes are at one place of their instrument, as the ends of a tie are: on the same
/// string when both have one, else of the same key, articulation and staff line.
bool sameLocation(const Note &left, const Note &right) noexcept;

/// The beats that meet at the joint in front of a beat of a voice. At the ends of the voice the
/// joint is the one with the same voice of the neighbouring bar. Either may be missing.
Beat *beatInFrontOfJoint(const Voice &voice, unsigned index);
Beat *beatBehindJoint(const Voice &voice, unsigned index);

/// Undoes the ties over the joints in front of the beats `first` and `last` of a voice whose two
/// ends no longer meet: the note before lets go, the note after starts anew. Nothing is held over
/// a voice without beats.
void mendTies(Voice &voice, unsigned first, unsigned last);

/// The same for all joints from the one in front of `first` to the one in front of `last`.
void mendTiesThroughout(Voice &voice, unsigned first, unsigned last);

/// The same for the bar line in front of a bar, in all voices; at the ends of the staff too.
void mendTiesOverBarLine(const Staff &staff, unsigned bar);

/// Lets a note be struck that was held from the one before; a bend that went on from there begins
/// bent.
void strikeAnew(Note &note);

/// Undoes the ties of a note that leaves its beat: the note before lets go, the note after starts
/// anew. `beat` is the number of the beat in its voice.
void releaseTies(const Voice &voice, unsigned beat, const Note &note);

/// A note that is tied to none: nothing in the same bar of its track, or in the one that the tie
/// leads to, has the other end, in whatever voice. Players read it as ringing on, or as held into
/// a further ending.
struct LooseTie {
    unsigned staff;
    unsigned bar;
    bool isBegun; ///< and never ended; else ended and never begun
};

/// In the order of the tree. A tie out of the last bar waits for its end and is not loose.
std::vector<LooseTie> looseTies(const Track &track);

} // namespace zarn
