// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Beat/ZarnSetBeatRhythm.h>
#include <ZarnCore/commands/ZarnSetEach.h>

#include <cstddef>
#include <optional>

namespace zarn {

/// Base of commands that change the note values of beats, each from what it was. The beats behind
/// them move; nothing fills or cuts the bar. A rest of a whole bar becomes a rest of its value.
class ZARNCORE_EXPORT ChangeRhythm
    : public SetEach<RangePlaces<Beat, evt::ModifyBarRange>, &beatRhythm, &setBeatRhythm> {
protected:
    using SetEach::SetEach;
    ~ChangeRhythm() override;

    /// What a beat of this value becomes; nothing to leave it as it is.
    virtual std::optional<RhythmValue> changed(const RhythmValue &rhythm) const = 0;

private:
    void begin() final;
    std::optional<BeatRhythm> next(std::size_t number, const Beat &beat) const final;
};

} // namespace zarn
