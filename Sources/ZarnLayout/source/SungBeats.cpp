// SPDX-License-Identifier: MIT
#include <ZarnLayout/source/SungBeats.h>

#include <algorithm>

namespace zarn::engraving {

namespace {

/// The last syllable of a bar, if only notes follow that are sung on it.
const Syllable *lastSyllableOf(const VoiceSource &voice, unsigned verse)
{
    for (auto beat = voice.beats.rbegin(); beat != voice.beats.rend(); ++beat) {
        if (const Syllable *const syllable = syllableOf(*beat, verse))
            return syllable;
        if (!holds(*beat, verse))
            break;
    }
    return nullptr;
}

bool isSung(const BeatSource &beat)
{
    return beat.details && !beat.details->lyrics.empty();
}

} // namespace

bool isWordUnfinished(const Syllable &syllable) noexcept
{
    return syllable.syllabic == Syllabic::Begin || syllable.syllabic == Syllabic::Middle;
}

const Syllable *syllableOf(const BeatSource &beat, unsigned verse)
{
    if (beat.details)
        for (const Syllable &syllable : beat.details->lyrics)
            if (syllable.line == verse)
                return &syllable;
    return nullptr;
}

bool holds(const BeatSource &beat, unsigned verse)
{
    return !beat.isRest && !beat.isPlaceHolder && syllableOf(beat, verse) == nullptr;
}

const VoiceSource *voiceOf(const BarSource &bar, unsigned number)
{
    const auto voice =
        std::find_if(bar.voices.begin(), bar.voices.end(),
                     [number](const VoiceSource &other) { return other.number == number; });
    return voice == bar.voices.end() || voice->beats.empty() ? nullptr : &*voice;
}

OpenSyllables openSyllablesOf(const BarColumn &bar)
{
    OpenSyllables open;
    for (unsigned staff = 0; staff < bar.staves.size(); ++staff)
        for (const VoiceSource &voice : bar.staves[staff]->voices) {
            if (std::none_of(voice.beats.begin(), voice.beats.end(), isSung))
                continue;
            for (unsigned verse = 0; verse < Syllable::LineCount; ++verse) {
                const Syllable *const last = lastSyllableOf(voice, verse);
                if (last != nullptr && (last->hasMelisma || isWordUnfinished(*last)))
                    open.push_back({staff, voice.number, verse, isWordUnfinished(*last)});
            }
        }
    return open;
}

bool goesOnThrough(const BarColumn &bar, const OpenSyllable &open)
{
    const VoiceSource *const voice = voiceOf(*bar.staves[open.staff], open.voice);
    return voice != nullptr
        && std::all_of(voice->beats.begin(), voice->beats.end(), [&](const BeatSource &beat) {
               return holds(beat, open.verse) && (open.isWordUnfinished || !isSung(beat));
           });
}

} // namespace zarn::engraving
