// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnChangeRhythm.h>

namespace zarn {

ChangeRhythm::~ChangeRhythm() = default;

void ChangeRhythm::begin()
{
    keepSpans(places().range);
}

std::optional<BeatRhythm> ChangeRhythm::next(std::size_t, const Beat &beat) const
{
    const auto rhythm = changed(beat.rhythmValue());
    return rhythm ? std::optional<BeatRhythm>({*rhythm, false}) : std::nullopt;
}

} // namespace zarn
