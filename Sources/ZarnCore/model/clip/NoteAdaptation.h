// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnBeatAttribute.h>
#include <ZarnCore/model/ZarnNoteAttribute.h>
#include <ZarnCore/model/ZarnVoice.h>

#include <vector>

namespace zarn {

class Staff;

/// Rewrites detached beats of a voice, which follow each other, for another staff, so that they
/// sound the same there: written pitches move by the difference of the transpositions, strings and
/// frets are found anew where the tuning differs, and what the staff cannot have goes. Drums and
/// pitches become rests in each other's staves. Keys that do not exist move by octaves.
class NoteAdaptation {
public:
    /// Where notes go whose string sounds otherwise: to the free one with the lowest fret, or to
    /// none yet.
    enum class Strings { Lowest, Open };

    NoteAdaptation(const Staff &from, const Staff &to, Strings strings);

    /// To be called with the beats of a voice in their order, each while it is still at hand.
    void adapt(const std::shared_ptr<Beat> &beat);
    void adapt(const Voice::Beats &beats);

    /// Whether a note with a pitch has no string on a staff that has some.
    bool hasOpen() const noexcept { return _hasOpen; }

private:
    void adaptNotes(Beat &beat);
    void dropMissingLines(Beat &beat) const;
    bool adaptPitch(Note &note) const;
    void placeOnStrings(Beat &beat);
    void leaveOpen(Beat &beat);
    void dropStrings(Beat &beat) const;
    void dropMarks(Beat &beat) const;
    bool hasOn(OnStaves staves) const noexcept;

    const Staff &_to;
    Strings _strings;
    bool _hasOpen = false;
    bool _isSamePercussion;
    bool _isSilent; ///< drums into pitches, or the other way round
    bool _keepsFrets;
    bool _isFretted;
    bool _isUnpitched;
    int _shift;
    std::vector<const BeatAttributeRow *> _alienToBeats; ///< what the staff cannot have
    std::vector<const NoteAttributeRow *> _alienToNotes;
    std::shared_ptr<Beat> _before; ///< the one in front, adapted
};

} // namespace zarn
