// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnBeatAttribute.h>
#include <ZarnCore/model/ZarnVoice.h>
#include <ZarnCore/model/notes/ZarnKeptBeats.h>

namespace zarn {

class Staff;

// What joins the neighbours of a voice: ties, slurs, tremolos between two beats, hammer-ons,
// pull-offs and slides. Each of these has two ends, and both say so or neither does; but a tie may
// begin or end in the open where nothing was parted.
//
// A link that lost its other end goes. A slur or a hairpin goes on where beats came between its own
// or went from between them, and those that met beats which are gone stay apart.

/// Mends what leads over the joints in front of the beats `first` and `last` of a voice: they came
/// to meet others. Nothing leads over a voice without beats.
void mendLinks(Voice &voice, unsigned first, unsigned last);

/// The same but for the ties.
void mendAllButTies(Voice &voice, unsigned first, unsigned last);

/// The same but for the ties, at all joints of the beats `first` up to, not including, `end`, which
/// changed in any way.
void mendThroughout(Voice &voice, unsigned first, unsigned end);

/// Mends what leads over the bar line in front of a bar, in all voices; at the ends of the staff
/// too.
void mendLinksOverBarLine(const Staff &staff, unsigned bar);

/// For notes of the bars `first` to `last` of a staff that come to be on other strings or frets:
/// keeps the beats whose hammer-ons, pull-offs and slides may go, and takes those off that lead to
/// nothing any more.
void keepStringLinks(const Staff &staff, unsigned first, unsigned last, unsigned track,
                     KeptBeats &kept);
void mendStringLinks(const Staff &staff, unsigned first, unsigned last);

/// Draws the slur and the hairpin that beats were put into over them, unless they have others.
/// The beats are `first` up to, not including, `end`; `mendLinks` follows.
void carryOver(const Voice &voice, unsigned first, unsigned end);

/// Keeps slurs and hairpins apart that met the beats which were taken out in front of the beat
/// `index`; `mendLinks` follows.
void keepApart(const Voice &voice, unsigned index, const Voice::Beats &taken);

/// The same for the bar line in front of a bar, where bars were taken out.
void keepApartAtBarLine(const Staff &staff, unsigned bar,
                        const std::vector<std::shared_ptr<Bar>> &taken);

/// Gives the other end of what an attribute of a beat or a note joins it to the same value.
void tellNeighbour(const Beat &beat, BeatAttribute id);
void tellNeighbour(const Beat &beat, const Note &note, NoteAttribute id);

/// Keeps the beats around a stretch of a voice that may be marked otherwise when it changes: the
/// neighbours, and beats from which a hammer-on or a slide leads into it.
void keepAround(const Voice &voice, unsigned first, unsigned end, KeptBeats &kept,
                unsigned track = 0);

} // namespace zarn
