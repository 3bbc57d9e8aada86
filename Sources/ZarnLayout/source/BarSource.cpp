// SPDX-License-Identifier: MIT
#include <ZarnLayout/source/BarSource.h>

#include <algorithm>

namespace zarn::engraving {

bool BarSource::isEmpty() const noexcept
{
    if (simile != SimileMark::None || !clefChanges.empty())
        return false;
    return std::all_of(voices.begin(), voices.end(), [](const VoiceSource &voice) {
        return std::all_of(voice.beats.begin(), voice.beats.end(), [](const BeatSource &beat) {
            return (beat.isWholeBarRest || beat.isPlaceHolder || beat.isRest) && !beat.details;
        });
    });
}

} // namespace zarn::engraving
