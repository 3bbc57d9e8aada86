// SPDX-License-Identifier: MIT
#include <ZarnLayout/session/LinesOverBars.h>

#include <algorithm>
#include <iterator>
#include <tuple>

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

/// Of the dashes that begin, or `Auto` where some end.
MarkSide sideOf(TextSpan span)
{
    return span == TextSpan::Begin     ? MarkSide::Above
        : span == TextSpan::BeginBelow ? MarkSide::Below
                                       : MarkSide::Auto;
}

void passBar(std::vector<OpenWords> &open, const std::vector<OpenWords> &lines)
{
    for (const OpenWords &line : lines) {
        auto place = std::find_if(open.begin(), open.end(), [&](const OpenWords &other) {
            return other.staff >= line.staff;
        });
        if (place != open.end() && place->staff == line.staff)
            place = open.erase(place);
        if (line.side != MarkSide::Auto)
            open.insert(place, line);
    }
}

void passBar(OpenSyllables &open, const ShownColumn &bar)
{
    if (open.empty() && bar.openSyllables.empty())
        return;
    OpenSyllables held;
    if (bar.count == 1)
        std::copy_if(
            open.begin(), open.end(), std::back_inserter(held),
            [&](const OpenSyllable &syllable) { return goesOnThrough(*bar.first, syllable); });
    open.clear();
    std::merge(held.begin(), held.end(), bar.openSyllables.begin(), bar.openSyllables.end(),
               std::back_inserter(open), [](const OpenSyllable &a, const OpenSyllable &b) {
                   return std::tie(a.staff, a.voice, a.verse) < std::tie(b.staff, b.voice, b.verse);
               });
}

} // namespace

std::vector<OpenWords> wordsLinesOf(const BarColumn &bar)
{
    std::vector<OpenWords> lines;
    for (std::size_t staff = 0; staff < bar.staves.size(); ++staff)
        if (const BeatSource *const last = lastMarked(*bar.staves[staff]))
            lines.push_back({static_cast<unsigned>(staff), sideOf(last->details->textSpan)});
    return lines;
}

void passBar(OpenLines &open, const ShownColumn &bar)
{
    passBar(open.words, bar.wordsLines);
    passBar(open.syllables, bar);
}

} // namespace zarn::engraving
