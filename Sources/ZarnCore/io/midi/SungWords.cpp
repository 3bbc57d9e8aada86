// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/SungWords.h>

#include <ZarnCore/model/ZarnTrack.h>

#include <algorithm>

namespace zarn::io {

namespace {

using playback::PlannedNote;

bool hasLyrics(const Voice &voice)
{
    return std::any_of(voice.beats().begin(), voice.beats().end(), [](const auto &beat) {
        return !beat->isCommon() && !beat->lyrics().empty();
    });
}

bool hasLyrics(const Track &track)
{
    for (const auto &staff : track.staves())
        for (const auto &bar : staff->bars())
            for (const auto &voice : bar->voices())
                if (voice && hasLyrics(*voice))
                    return true;
    return false;
}

/// The line for a pass, counted from 0; of fewer lines the last one.
const Syllable *syllableFor(const Syllables &syllables, unsigned pass)
{
    const Syllable *sung = nullptr;
    for (const Syllable &syllable : syllables)
        if (!syllable.text.empty() && (sung == nullptr || syllable.line <= pass))
            sung = &syllable;
    return sung;
}

} // namespace

void addLyrics(const Track &track, const playback::PlaybackPlan &plan, const TickMap &ticks,
               MidiTrack &midi)
{
    if (!hasLyrics(track))
        return;
    // A beat that is struck again and again sings once.
    struct Sung {
        std::uint32_t playedBar = static_cast<std::uint32_t>(-1);
        std::uint32_t beat = 0;
    };
    std::vector<Sung> last(track.staffCount() * Bar::MaxVoices);
    utils::rational sungAt = -1000;
    for (const PlannedNote &note : plan.notes()) {
        if (note.track != track.index())
            continue;
        Sung &sung = last[note.staff * Bar::MaxVoices + note.voice];
        if (sung.playedBar == note.playedBar && sung.beat == note.beat)
            continue;
        sung = {note.playedBar, note.beat};
        const auto &voice = track.staves()[note.staff]->bars()[note.bar]->voices()[note.voice];
        const Syllable *const syllable = syllableFor(voice->beats()[note.beat]->lyrics(),
                                                     plan.bars().bars()[note.playedBar].pass);
        if (syllable == nullptr || note.start == sungAt)
            continue;
        sungAt = note.start;
        const bool endsWord =
            syllable->syllabic == Syllabic::Single || syllable->syllabic == Syllabic::End;
        midi.addMeta(ticks.tickOf(note.start), MidiMeta::Lyric,
                     syllable->text + (endsWord ? " " : ""));
    }
}

} // namespace zarn::io
