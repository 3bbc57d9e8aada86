// SPDX-License-Identifier: MIT
#include <ZarnCore/model/lyrics/ZarnLyricLine.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/model/ZarnTrack.h>

#include <algorithm>

namespace zarn {

namespace {

/// The lowest voice of the first staff with a beat of a kind; nothing when there is none.
template <class IsOne>
std::optional<unsigned> lowestVoice(const Track &track, IsOne isOne)
{
    std::optional<unsigned> lowest;
    for (const auto &bar : track.bars(0)) {
        for (unsigned i = 0; i < lowest.value_or(Bar::MaxVoices); ++i) {
            const auto &voice = bar->voices()[i];
            if (voice
                && std::any_of(voice->beats().begin(), voice->beats().end(),
                               [&](const auto &beat) { return isOne(*beat); }))
                lowest = i;
        }
        if (lowest == 0U)
            break;
    }
    return lowest;
}

} // namespace

LyricLine::LyricLine(const Track &track, unsigned line) : _track(track), _line(line)
{
    ZARN_ASSERT_IN("zarn::LyricLine::LyricLine", line < Syllable::LineCount);
    const auto singing =
        lowestVoice(track, [this](const Beat &beat) { return syllableOf(beat).has_value(); });
    _voice = singing
        ? *singing
        : lowestVoice(track, [](const Beat &beat) { return beat.hasNotes(); }).value_or(0);
}

const Voice *LyricLine::voiceOf(unsigned bar) const
{
    return _track.bars(0)[bar]->voices()[_voice].get();
}

bool LyricLine::isSung(unsigned bar, const Beat &beat) const
{
    if (!beat.hasNotes() || beat.isGrace() || _track.bars(0)[bar]->simileMark() != SimileMark::None)
        return false;
    const auto &notes = beat.notes();
    return !std::all_of(notes.begin(), notes.end(),
                        [](const auto &note) { return note->isTied(); });
}

std::optional<LyricSyllable> LyricLine::syllableOf(const Beat &beat) const
{
    if (beat.hasDetails())
        for (const Syllable &syllable : beat.lyrics())
            if (syllable.line == _line)
                return LyricSyllable{syllable.text, syllable.syllabic, syllable.hasMelisma, 1};
    return std::nullopt;
}

std::optional<unsigned> LyricLine::firstBar() const
{
    for (unsigned i = 0; i < _track.barCount(); ++i)
        if (const Voice *const voice = voiceOf(i))
            for (const auto &beat : voice->beats())
                if (syllableOf(*beat))
                    return i;
    return std::nullopt;
}

LyricSyllables LyricLine::syllables() const
{
    LyricSyllables all;
    for (unsigned i = 0; i < _track.barCount(); ++i) {
        const Voice *const voice = voiceOf(i);
        if (voice == nullptr)
            continue;
        for (const auto &beat : voice->beats()) {
            if (auto syllable = syllableOf(*beat))
                all.push_back(*std::move(syllable));
            else if (!all.empty() && isSung(i, *beat))
                ++all.back().notes;
        }
    }
    LyricSyllables waiting = lyricsFromText(_track.lyricsLeftOver()[_line]);
    if (!all.empty() && !waiting.empty()) {
        // What waits says how long the syllable in front of it is held: notes may have come since.
        const bool isHeld = waiting.front().text.empty();
        all.back().notes = 1 + (isHeld ? waiting.front().notes : 0);
        if (isHeld)
            waiting.erase(waiting.begin());
    } else if (!all.empty() && !all.back().hasMelisma) {
        all.back().notes = 1;
    }
    all.insert(all.end(), waiting.begin(), waiting.end());
    return all;
}

LyricLine::Layout LyricLine::layOut(const LyricSyllables &syllables, unsigned firstBar,
                                    unsigned replaced) const
{
    Layout layout;
    std::size_t next = 0;
    unsigned taken = 0; // notes of the syllable in front of the next that are behind us
    for (unsigned i = std::min(firstBar, replaced); i < _track.barCount(); ++i) {
        const Voice *const voice = voiceOf(i);
        if (voice == nullptr)
            continue;
        for (const auto &beat : voice->beats()) {
            std::optional<LyricSyllable> syllable;
            if (i >= firstBar && isSung(i, *beat)) {
                if (next > 0 && taken < syllables[next - 1].notes) {
                    ++taken;
                } else if (next < syllables.size()) {
                    if (!syllables[next].text.empty())
                        syllable = syllables[next];
                    ++next;
                    taken = 1;
                }
            }
            const auto present = syllableOf(*beat);
            if (syllable)
                syllable->notes = 1;
            if (syllable != present)
                layout.changes.push_back({i, beat->index(), syllable});
        }
    }
    if (next == syllables.size())
        return layout;
    LyricSyllables waiting(syllables.begin() + static_cast<std::ptrdiff_t>(next), syllables.end());
    LyricSyllable held;
    if (next == 0)
        held.notes = replaced == 0 ? 0 : wordlessNotesBefore(firstBar);
    else
        held.notes = syllables[next - 1].notes - (syllables[next - 1].text.empty() ? 0 : 1);
    if (held.notes > 0)
        waiting.insert(waiting.begin(), held);
    layout.leftOver = lyricsToText(waiting);
    return layout;
}

/// Notes behind the last syllable in front of a bar; 0 when there is none.
unsigned LyricLine::wordlessNotesBefore(unsigned end) const
{
    bool isAnySung = false;
    unsigned notes = 0;
    for (unsigned i = 0; i < end; ++i) {
        const Voice *const voice = voiceOf(i);
        if (voice == nullptr)
            continue;
        for (const auto &beat : voice->beats()) {
            if (syllableOf(*beat)) {
                isAnySung = true;
                notes = 0;
            } else if (isSung(i, *beat)) {
                ++notes;
            }
        }
    }
    return isAnySung ? notes : 0;
}

} // namespace zarn
