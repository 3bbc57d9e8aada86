// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <vector>

namespace zarn {

class Beat;
class Note;
class Voice;

/// The same voice of the bar `step` bars on; null where it has no beats.
const Voice *voiceBeside(const Voice &voice, int step);

/// What leads from a note to the next one.
enum class StringLink {
    Hopo,  ///< a hammer-on or a pull-off
    Slide, ///< one that has an aim
};

bool hasLink(const Note &note, StringLink link) noexcept;
bool isLinkedToNext(const Note &note) noexcept;
void takeOff(Note &note, StringLink link);

/// Whether there is what a link from a note would lead to: the next note on its string, before a
/// rest and at most in the next bar of the voice; for a note without a string, a note of the next
/// beat. A hammer-on leads to another pitch. `beat` is the number of the note's beat.
ZARNCORE_EXPORT bool canLeadToNext(const Voice &voice, unsigned beat, const Note &note,
                                   StringLink link);

/// Takes the links off that a note has and that lead to nothing.
void mendStringLinks(const Voice &voice, unsigned beat, Note &note);

/// A note in front of a joint of a voice from which a link may lead over it.
struct LeadingNote {
    const Voice *voice; ///< that of the joint, or the one of the bar before
    unsigned beat;
    Note *note;
};

/// The last note on each string, and those without one of the beat at the joint in front of the
/// beat `index`.
std::vector<LeadingNote> leadingNotes(const Voice &voice, unsigned index);

/// Those of them that have a link.
std::vector<LeadingNote> leadingLinks(const Voice &voice, unsigned index);

/// Takes the hammer-ons, pull-offs and slides off that lead to nothing any more: those of the beats
/// `first` up to, not including, `end`, and those from in front of them.
void mendStringLinks(const Voice &voice, unsigned first, unsigned end);

} // namespace zarn
