// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/model/ZarnRangeSpanIterator.h>
#include <ZarnCore/model/ZarnRangeSteps.h>
#include <ZarnCore/model/ZarnVoice.h>

#include <algorithm>
#include <memory>

namespace zarn {

/// Walks the beats that a range selects, in the order of the tree: tracks, staves, bars, voices,
/// beats. `RangeSpanIterator` says which they are, `RangeSteps` how to use it.
class ZARNCORE_EXPORT RangeBeatIterator final : public RangeSteps<RangeBeatIterator> {
public:
    explicit RangeBeatIterator(const ScoreModelRange &range) : _spans(range)
    {
        if (_spans.iterate())
            _beat = _spans.firstBeat();
    }

    bool iterate() const noexcept { return _spans.iterate(); }
    void advance() noexcept
    {
        if (!iterate() || ++_beat < std::min(_spans.endBeat(), _spans.voice().beatCount()))
            return;
        _spans.advance();
        if (_spans.iterate())
            _beat = _spans.firstBeat();
    }

    /// Empty at the end. Stays good until the next step, or until the voice gains or loses beats.
    const std::shared_ptr<Beat> &beat() const noexcept
    {
        return elementAt<Beat>(iterate() ? _spans.voice().beats() : noBeats(), _beat);
    }

private:
    static const Voice::Beats &noBeats() noexcept;

    RangeSpanIterator _spans;
    unsigned _beat = 0;
};

} // namespace zarn
