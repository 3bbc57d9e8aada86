// SPDX-License-Identifier: MIT
#include <ZarnCore/model/places/ZarnRangeNoteIterator.h>

#include <ZarnCore/model/places/ZarnScoreModelRange.h>

namespace zarn {
namespace {

bool namesANote(const ScoreModelRange &range)
{
    if (range.isMultiSelection() || range.isMultiVoice())
        return false;
    const auto isSet = [](std::uint32_t locator) {
        return locator != ScoreModelIndex::Unset && locator != 0;
    };
    const ScoreModelIndex &place = range.first();
    return place.noteMidi() != ScoreModelIndex::Unset || isSet(place.noteString())
        || isSet(place.noteInstrumentArticulation());
}

} // namespace

RangeNoteIterator::RangeNoteIterator(const ScoreModelRange &range) : _beats(range)
{
    if (!namesANote(range)) {
        takeNotes();
        return;
    }
    const auto note = range.first().note();
    while (iterate() && note == nullptr)
        _beats.advance();
    if (!iterate())
        return;
    _note = static_cast<unsigned>(beat().indexOfNote(*note));
    _endNote = _note + 1;
}

void RangeNoteIterator::enterBeat() noexcept
{
    _beats.advance();
    takeNotes();
}

/// Goes to the first note of the beat, or of the next one that has any.
void RangeNoteIterator::takeNotes() noexcept
{
    while (iterate() && !beat().hasNotes())
        _beats.advance();
    _note = 0;
    _endNote = iterate() ? beat().noteCount() : 0;
}

} // namespace zarn
