// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/model/places/ZarnRangeBeatIterator.h>
#include <ZarnCore/model/places/ZarnRangeSteps.h>

#include <memory>

namespace zarn {

/// Walks the notes of the beats that `RangeBeatIterator` gives, in the order of the beats.
///
/// A single place (no multi-selection, not in multi-voice mode) that names a note is that note
/// alone, and no step when the beat does not hold it. MIDI keys, elements and strings above 0 name
/// a note; string 0 alone does not, because that is also what an index holds that never was given
/// a string: set the MIDI key too. See `RangeSteps` for the use.
class ZARNCORE_EXPORT RangeNoteIterator final : public RangeSteps<RangeNoteIterator> {
public:
    explicit RangeNoteIterator(const ScoreModelRange &range);

    bool iterate() const noexcept { return _beats.iterate(); }
    void advance() noexcept
    {
        if (iterate() && ++_note == _endNote)
            enterBeat();
    }

    /// Empty at the end.
    const std::shared_ptr<Note> &note() const noexcept
    {
        return iterate() ? beat().notes()[_note] : nothing<Note>();
    }

private:
    const Beat &beat() const noexcept { return *_beats.beat(); }
    void enterBeat() noexcept;
    void takeNotes() noexcept;

    RangeBeatIterator _beats;
    unsigned _note = 0;
    unsigned _endNote = 0;
};

} // namespace zarn
