// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetAttribute.h>

namespace zarn {

/// The length of a beat as it is written.
struct BeatRhythm {
    RhythmValue value;
    bool isWholeBarRest = false;
};
ZARNCORE_EXPORT BeatRhythm beatRhythm(const Beat &beat);
ZARNCORE_EXPORT void setBeatRhythm(Beat &beat, const BeatRhythm &rhythm);

} // namespace zarn

namespace zarn::cmd {

/// Gives beats a note value. The beats behind them move; nothing fills or cuts the bar.
class ZARNCORE_EXPORT SetBeatRhythm final : public SetOnRange<Beat, &beatRhythm, &setBeatRhythm> {
public:
    static constexpr unsigned MostDots = 3;

    SetBeatRhythm();
    ~SetBeatRhythm() override;

    /// Every beat of the range; a rest of a whole bar becomes a rest of this value. False when the
    /// range holds no beat, and for a value that is not written.
    bool init(Score *score, const ScoreModelRange &range, const RhythmValue &rhythm);

    /// At most three dots, and tuplets of two numbers each, the inner one in an outer one.
    static bool isWritable(const RhythmValue &rhythm) noexcept;

private:
    void begin() override;
};

} // namespace zarn::cmd
