// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/model/ZarnVoice.h>
#include <ZarnCore/model/places/ZarnRangeSpanIterator.h>
#include <ZarnCore/model/places/ZarnRangeSteps.h>

#include <memory>

namespace zarn {

/// Walks the beats that a range selects, in the order of the tree: tracks, staves, bars, voices,
/// beats. `RangeSpanIterator` says which they are, `RangeSteps` how to use it.
class ZARNCORE_EXPORT RangeBeatIterator final : public RangeSteps<RangeBeatIterator> {
public:
    explicit RangeBeatIterator(const ScoreModelRange &range) : _spans(range) { enterSpan(); }

    bool iterate() const noexcept { return _beat != _end; }
    void advance() noexcept
    {
        if (_beat == _end || ++_beat != _end)
            return;
        _spans.advance();
        enterSpan();
    }

    /// Empty at the end.
    const std::shared_ptr<Beat> &beat() const noexcept
    {
        return iterate() ? *_beat : nothing<Beat>();
    }

private:
    void enterSpan() noexcept
    {
        _beat = _end = nullptr;
        if (!_spans.iterate())
            return;
        const auto &beats = _spans.voice().beats();
        _beat = beats.data() + _spans.firstBeat();
        _end = beats.data() + _spans.endBeat();
        // Walks wait for memory more than for anything else: beats are asked for ahead of time.
        constexpr int ahead = 8;
        for (auto beat = _beat; beat != _end && beat != _beat + ahead; ++beat)
            __builtin_prefetch(&(*beat)->notes());
        _spans.prefetch();
    }

    RangeSpanIterator _spans;
    const std::shared_ptr<Beat> *_beat = nullptr; ///< in the voice
    const std::shared_ptr<Beat> *_end = nullptr;
};

} // namespace zarn
