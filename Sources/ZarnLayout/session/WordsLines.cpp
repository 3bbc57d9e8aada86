// SPDX-License-Identifier: MIT
#include <ZarnLayout/session/WordsLines.h>

#include <algorithm>

namespace zarn::engraving {

namespace {

/// The beat that begins or ends dashes last; null for none.
const BeatSource *lastMarked(const BarSource &bar)
{
    const BeatSource *last = nullptr;
    for (const VoiceSource &voice : bar.voices)
        for (const BeatSource &beat : voice.beats)
            if (beat.details && beat.details->textSpan != TextSpan::None
                && (!last || beat.onset >= last->onset))
                last = &beat;
    return last;
}

} // namespace

std::vector<WordsLine> wordsLinesOf(const BarColumn &bar)
{
    std::vector<WordsLine> lines;
    for (std::size_t staff = 0; staff < bar.staves.size(); ++staff)
        if (const BeatSource *const last = lastMarked(*bar.staves[staff]))
            lines.push_back(
                {static_cast<unsigned>(staff), last->details->textSpan == TextSpan::Begin});
    return lines;
}

void passBar(std::vector<unsigned> &open, const ShownColumn &bar)
{
    for (const WordsLine &line : bar.wordsLines) {
        const auto place = std::lower_bound(open.begin(), open.end(), line.staff);
        const bool isThere = place != open.end() && *place == line.staff;
        if (line.isOpen && !isThere)
            open.insert(place, line.staff);
        else if (!line.isOpen && isThere)
            open.erase(place);
    }
}

} // namespace zarn::engraving
