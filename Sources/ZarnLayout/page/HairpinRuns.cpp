// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/HairpinRuns.h>

#include <algorithm>

namespace zarn::engraving {

namespace {

bool hasPlace(const PlacedChord &chord)
{
    return !chord.beat().isPlaceHolder && !chord.beat().isWholeBarRest;
}

/// Whether what the last beat of a hairpin carries holds to the end of its bar: all does behind
/// which nothing is drawn, but for hidden beats with others behind them, which are there to end it.
bool holdsToBarLine(const PlacedChord &chord)
{
    return hasPlace(chord)
        || std::any_of(chord.source->voices.begin(), chord.source->voices.end(),
                       [&](const VoiceSource &voice) {
                           return !voice.beats.empty() && &voice.beats.back() == chord.chord->beat;
                       });
}

/// Whether a hairpin goes on as another one, which another voice of the staff carries from there.
bool goesOnAs(const HairpinRun &run, const HairpinRun &other)
{
    const BeatSource &last = run.last->beat();
    const BeatSource &first = other.first->beat();
    if (run.kind != other.kind || run.kind == Hairpin::Swell || first.marks.beginsHairpin()
        || run.last->chord->voice == other.first->chord->voice)
        return false;
    const bool isNextBar = other.first->shownBar == run.last->shownBar + 1;
    return isNextBar
        ? !run.next && holdsToBarLine(*run.last) && first.onset.isZero()
        : other.first->shownBar == run.last->shownBar && first.onset == last.onset + last.length;
}

/// Makes one of hairpins that several voices carry one after another.
void joinVoices(std::vector<HairpinRun> &runs)
{
    const bool isOneVoice =
        runs.empty() || runs.front().first->chord->voice == runs.back().first->chord->voice;
    if (isOneVoice)
        return;
    for (std::size_t i = 0; i < runs.size(); ++i)
        for (std::size_t k = 0; k < runs.size();) {
            if (k == i || !goesOnAs(runs[i], runs[k])) {
                ++k;
                continue;
            }
            runs[i].last = runs[k].last;
            runs[i].next = runs[k].next;
            runs.erase(runs.begin() + static_cast<std::ptrdiff_t>(k));
            i -= k < i ? 1 : 0;
            k = 0;
        }
}

} // namespace

std::vector<HairpinRun> hairpinRuns(const std::vector<const PlacedChord *> &carriers)
{
    std::vector<HairpinRun> runs;
    bool isOpen = false;
    const PlacedChord *before = nullptr;
    for (const PlacedChord *const chord : carriers) {
        const BeatMarks &marks = chord->beat().marks;
        const Hairpin kind = marks.hairpin();
        // What is not drawn does not part a hairpin.
        if (kind == Hairpin::NoHairpin && !hasPlace(*chord))
            continue;
        const bool isSameVoice = before && before->chord->voice == chord->chord->voice;
        if (isOpen && isSameVoice && before->shownBar == chord->shownBar)
            runs.back().next = chord;
        const bool goesOn = isOpen && isSameVoice && kind == runs.back().kind
            && kind != Hairpin::Swell && chord->shownBar <= before->shownBar + 1
            && !marks.beginsHairpin();
        if (goesOn) {
            runs.back().last = chord;
            runs.back().next = nullptr;
        } else if (kind != Hairpin::NoHairpin) {
            runs.push_back({kind, chord, chord, nullptr, !isSameVoice});
        }
        isOpen = kind != Hairpin::NoHairpin;
        before = chord;
    }
    joinVoices(runs);
    return runs;
}

double endOfBeat(const SystemDraft &draft, const PlacedChord &chord)
{
    const BarPlace &bar = draft.barOf(chord);
    if (holdsToBarLine(chord))
        return bar.right;
    const auto &onsets = draft.score.spaced(chord.shownBar).onsets;
    const auto end =
        std::lower_bound(onsets.begin(), onsets.end(), chord.beat().onset + chord.beat().length);
    const auto column = static_cast<std::size_t>(end - onsets.begin());
    return column < bar.columns.size() ? bar.columns[column] : bar.right;
}

} // namespace zarn::engraving
