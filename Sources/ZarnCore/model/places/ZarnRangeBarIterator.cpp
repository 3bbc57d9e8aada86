// SPDX-License-Identifier: MIT
#include <ZarnCore/model/places/ZarnRangeBarIterator.h>

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

#include <algorithm>
#include <limits>
#include <tuple>

namespace zarn {

RangeBarIterator::RangeBarIterator(const ScoreModelRange &range)
{
    const ScoreModelIndex &first = range.first();
    const ScoreModelIndex &second = range.second();
    if (first.model() != second.model() || !first.isBarValid() || !second.isBarValid())
        return;
    _model = first.model();
    if (range.isMultiTrack()) {
        _lastTrack = _model->trackCount() - 1;
        _lastStaff = std::numeric_limits<unsigned>::max();
    } else {
        const bool isInReach = range.isMultiVoice() || first.staffIndex() == second.staffIndex();
        if (first.trackIndex() != second.trackIndex() || !isInReach)
            return;
        _track = _lastTrack = static_cast<unsigned>(first.trackIndex());
        std::tie(_firstStaff, _lastStaff) = std::minmax({first.staffIndex(), second.staffIndex()});
    }
    const auto bars = std::minmax({first.barIndex(), second.barIndex()});
    _firstBar = static_cast<unsigned>(bars.first);
    _lastBar = static_cast<unsigned>(bars.second);
    enterStaff(_track, _firstStaff);
}

/// Goes to the first selected bar of a staff, or of the next one that has any.
void RangeBarIterator::enterStaff(unsigned track, unsigned staff) noexcept
{
    for (_track = track; _track <= _lastTrack && _track < _model->trackCount(); ++_track) {
        const auto &staves = _model->tracks()[_track]->staves();
        for (; staff < staves.size() && staff <= _lastStaff; ++staff) {
            _staff = staves[staff].get();
            _bar = _firstBar;
            _endBar = std::min(_lastBar + 1, _staff->barCount());
            if (_bar < _endBar)
                return;
        }
        staff = _firstStaff;
    }
    _staff = nullptr;
}

} // namespace zarn
