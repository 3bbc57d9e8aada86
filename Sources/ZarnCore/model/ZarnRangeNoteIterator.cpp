// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnRangeNoteIterator.h>

#include <ZarnCore/model/ZarnScoreModelRange.h>

#include <limits>

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
        _endNote = std::numeric_limits<unsigned>::max();
        if (iterate() && !beat().hasNotes())
            enterBeat();
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

/// Goes to the first note of the next beat that has any.
void RangeNoteIterator::enterBeat() noexcept
{
    _note = 0;
    do
        _beats.advance();
    while (iterate() && !beat().hasNotes());
}

const Beat::Notes &RangeNoteIterator::noNotes() noexcept
{
    static const Beat::Notes none;
    return none;
}

} // namespace zarn
