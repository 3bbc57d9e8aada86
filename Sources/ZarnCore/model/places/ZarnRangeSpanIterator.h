// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>
#include <ZarnCore/model/places/ZarnRangeBarIterator.h>
#include <ZarnCore/model/places/ZarnRangeSteps.h>

#include <limits>

namespace zarn {

class ScoreModelIndex;
class ScoreModelRange;
class Voice;

/// Walks the stretches of beats that a range selects, one for each voice of a bar that has any.
/// This is where it is decided which beats a range selects:
///
/// - in multi-voice and multi-track mode all beats, of all voices, of the bars that
///   `RangeBarIterator` gives, whatever beats the ends name;
/// - otherwise those of one voice, the one of `first()`, from the earlier end to the later one,
/// both
///   included. An end without a beat is its whole bar. A second end in another voice counts by its
///   time: in its bar the beats up to (or, where it is the earlier one, from) the beat at its
///   drawing offset are taken.
///
/// A range that names a beat that does not exist gives no step. See `RangeSteps` for the use.
class ZARNCORE_EXPORT RangeSpanIterator final : public RangeSteps<RangeSpanIterator> {
public:
    explicit RangeSpanIterator(const ScoreModelRange &range);

    bool iterate() const noexcept { return _voice != nullptr; }
    void advance() noexcept;

    // Not at the end:

    const Voice &voice() const noexcept { return *_voice; }
    unsigned firstBeat() const noexcept { return _firstBeat; }

    /// The number behind the last beat.
    unsigned endBeat() const noexcept { return _endBeat; }

    /// Asks for the memory of what comes, see `RangeBarIterator::prefetch`.
    void prefetch() const noexcept { _bars.prefetch(_slot); }
    BeatSpan span() const noexcept;

private:
    static constexpr unsigned Whole = std::numeric_limits<unsigned>::max();

    bool takeEnds(const ScoreModelRange &range);
    void enterVoice(unsigned slot) noexcept;

    RangeBarIterator _bars;
    const Voice *_voice = nullptr; ///< null at the end
    unsigned _slot = 0;
    unsigned _firstSlot = 0;
    unsigned _endSlot = 0;
    unsigned _firstBeat = 0;
    unsigned _endBeat = 0;

    // Of one voice, where it begins in the first bar and ends in the last.
    unsigned _begin = 0;
    unsigned _end = Whole;
};

} // namespace zarn
