// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/model/ZarnStaff.h>
#include <ZarnCore/model/ZarnVoice.h>
#include <ZarnCore/model/places/ZarnRangeSteps.h>

#include <memory>

namespace zarn {

class ScoreModel;
class ScoreModelRange;

/// Walks the bars that a range selects: staff by staff, track by track, in each the bars from the
/// lower to the higher end.
///
/// - A range over several tracks (`isMultiTrack`) takes the bars of every staff of every track.
/// - In multi-voice mode its ends lie in one track, and it takes the staves from end to end.
/// - Otherwise both ends lie in one staff.
///
/// Other ranges do not resolve, nor those whose ends are not bars of one model: they give no step.
/// See `RangeSteps` for the use.
class ZARNCORE_EXPORT RangeBarIterator final : public RangeSteps<RangeBarIterator> {
public:
    explicit RangeBarIterator(const ScoreModelRange &range);

    bool iterate() const noexcept { return _staff != nullptr; }
    void advance() noexcept
    {
        if (_staff != nullptr && ++_bar == _endBar)
            enterStaff(_track, _staff->index() + 1);
    }

    /// Empty at the end.
    const std::shared_ptr<Bar> &bar() const noexcept
    {
        return iterate() ? _staff->bars()[_bar] : nothing<Bar>();
    }

    /// Asks for the memory that a walk over a voice of the coming bars will wait for: each of its
    /// steps from bar to beats some bars ahead of the next one.
    void prefetch(unsigned slot) const noexcept
    {
        constexpr unsigned ahead = 6;
        if (_endBar - _bar <= ahead)
            return;
        const auto *const bars = _staff->bars().data() + _bar;
        __builtin_prefetch(&bars[ahead]->voices());
        if (const auto &voice = bars[ahead - 2]->voices()[slot])
            __builtin_prefetch(&voice->beats());
        if (const auto &voice = bars[ahead - 4]->voices()[slot])
            __builtin_prefetch(voice->beats().data());
    }

    // Where the iterator stands; without meaning at the end.

    unsigned trackIndex() const noexcept { return _track; }
    unsigned staffIndex() const noexcept { return _staff->index(); }
    unsigned barIndex() const noexcept { return _bar; }

    /// Whether it is the bar of the range's lower end, or of its higher one.
    bool isFirstBar() const noexcept { return _bar == _firstBar; }
    bool isLastBar() const noexcept { return _bar == _lastBar; }

private:
    void enterStaff(unsigned track, unsigned staff) noexcept;

    const ScoreModel *_model = nullptr;
    const Staff *_staff = nullptr; ///< null at the end
    unsigned _bar = 0;
    unsigned _endBar = 0;
    unsigned _firstBar = 0;
    unsigned _lastBar = 0;
    unsigned _track = 0;
    unsigned _lastTrack = 0;
    unsigned _firstStaff = 0;
    unsigned _lastStaff = 0;
};

} // namespace zarn
