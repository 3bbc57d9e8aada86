// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnMarkedPlace.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/places/ZarnRangeSpanIterator.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

namespace zarn {

/// Which notes of its beats a range means: all, or the one that it names when it is one place.
class NotePlaces {
public:
    explicit NotePlaces(const ScoreModelRange &range);

    bool has(const MarkedPlace &place, const Note &note) const noexcept
    {
        if (!_isOnePlace)
            return true;
        if (place.isFretted)
            return note.string() == _string;
        return (_midi == Note::Unset || note.midi() == _midi)
            && (_articulation == Note::Unset || note.percussionArticulation() == _articulation);
    }

private:
    bool _isOnePlace;
    int _string;
    int _midi;
    int _articulation;
};

/// Calls `visit(place, beat)` for the beats that a range selects in a model, in tree order, until
/// it answers false.
template <class Visit>
void visitBeats(ScoreModel &model, const ScoreModelRange &range, Visit visit)
{
    const Staff *staff = nullptr;
    std::optional<MarkedPlace> place;
    for (RangeSpanIterator it(rangeIn(model, range)); it.oneStep();) {
        const BeatSpan span = it.span();
        const auto &next = model.tracks()[span.track]->staves()[span.staff];
        if (next.get() != staff) {
            staff = next.get();
            place.emplace(*staff);
        }
        const auto &beats = it.voice().beats();
        for (unsigned i = it.firstBeat(); i < it.endBeat(); ++i)
            if (!visit(*place, *beats[i]))
                return;
    }
}

/// Calls `visit(place, beat, node)` for the beats or the notes that a range means.
template <class Visit>
void visitNodes(ScoreModel &model, const ScoreModelRange &range, const Beat *, Visit visit)
{
    visitBeats(model, range,
               [&](const MarkedPlace &place, Beat &beat) { return visit(place, beat, beat); });
}
template <class Visit>
void visitNodes(ScoreModel &model, const ScoreModelRange &range, const Note *, Visit visit)
{
    const NotePlaces places(range);
    visitBeats(model, range, [&](const MarkedPlace &place, Beat &beat) {
        for (const auto &note : beat.notes())
            if (places.has(place, *note) && !visit(place, beat, *note))
                return false;
        return true;
    });
}

} // namespace zarn
