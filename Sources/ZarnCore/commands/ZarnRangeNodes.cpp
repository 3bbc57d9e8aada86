// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/ZarnRangeNodes.h>

#include <ZarnCore/model/ZarnBeatSpan.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/ZarnScoreModelRange.h>

#include <algorithm>

namespace zarn {

namespace {

using Bars = std::vector<std::shared_ptr<Bar>>;
using Beats = std::vector<std::shared_ptr<Beat>>;
using Notes = std::vector<std::shared_ptr<Note>>;

void appendBars(Bars &bars, const Staff &staff, int first, int last)
{
    const int count = static_cast<int>(staff.barCount());
    if (first < 0 || first > last || last >= count)
        return;
    bars.insert(bars.end(), staff.bars().begin() + first, staff.bars().begin() + last + 1);
}

bool namesANote(const ScoreModelIndex &index)
{
    const auto isSet = [](std::uint32_t locator) {
        return locator != ScoreModelIndex::Unset && locator != 0;
    };
    return index.noteMidi() != ScoreModelIndex::Unset || isSet(index.noteString())
        || isSet(index.noteInstrumentArticulation()) || index.isNoteValid();
}

} // namespace

template <>
Bars nodesInRange(ScoreModel &model, const ScoreModelRange &range)
{
    Bars bars;
    const auto ends = std::minmax({range.first().barIndex(), range.second().barIndex()});
    const auto staves = stavesOf(range);
    const auto firstTrack = range.first().trackIndex();
    const auto lastTrack = range.isMultiTrack() ? model.trackCount() : firstTrack + 1u;
    for (unsigned t = range.isMultiTrack() ? 0 : static_cast<unsigned>(firstTrack); t < lastTrack;
         ++t) {
        const auto track = model.track(t);
        if (track == nullptr)
            break;
        for (const auto &staff : track->staves()) {
            const unsigned number = staff->index();
            if (range.isMultiTrack() || (staves.first <= number && number <= staves.second))
                appendBars(bars, *staff, ends.first, ends.second);
        }
    }
    return bars;
}

template <>
Beats nodesInRange(ScoreModel &model, const ScoreModelRange &range)
{
    return beatsOf(model, beatSpans(model, range));
}

template <>
Notes nodesInRange(ScoreModel &model, const ScoreModelRange &range)
{
    ScoreModelIndex place = range.first();
    place.setModel(&model);
    if (!range.isMultiSelection() && namesANote(place)) {
        if (const auto note = place.note())
            return {note};
        return {};
    }
    Notes notes;
    for (const auto &beat : nodesInRange<Beat>(model, range))
        notes.insert(notes.end(), beat->notes().begin(), beat->notes().end());
    return notes;
}

std::pair<unsigned, unsigned> stavesOf(const ScoreModelRange &range) noexcept
{
    const unsigned first = range.first().staffIndex();
    return range.isMultiVoice() ? std::minmax({first, range.second().staffIndex()})
                                : std::make_pair(first, first);
}

} // namespace zarn
