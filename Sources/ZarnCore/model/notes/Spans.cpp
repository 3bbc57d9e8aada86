// SPDX-License-Identifier: MIT
#include <ZarnCore/model/notes/Spans.h>

#include <ZarnCore/model/ZarnBeatAttribute.h>
#include <ZarnCore/model/ZarnTrack.h>

#include <algorithm>
#include <tuple>
#include <utility>

namespace zarn {

namespace {

using utils::rational;

bool endsWord(Syllabic syllabic) noexcept
{
    return syllabic == Syllabic::Middle || syllabic == Syllabic::End;
}
bool goesOn(Syllabic syllabic) noexcept
{
    return syllabic == Syllabic::Begin || syllabic == Syllabic::Middle;
}

/// Calls `visit(line, mark)` for the marks of a beat.
template <class Visit>
void visitMarks(Beat &beat, const KeptBeats::Place &place, Visit visit)
{
    const auto mark = [&](bool needsOpen, bool leavesOpen, bool isHeld = false) {
        return SpanMark{place, &beat, needsOpen, leavesOpen, isHeld, false};
    };
    if (const PedalChange pedal = beat.pedal(); pedal != PedalChange::None)
        visit(SpanLine{SpanKind::Pedal, place.staff, 0, 0},
              mark(pedal != PedalChange::Start, pedal != PedalChange::Stop));
    if (!beat.hasDetails())
        return;
    if (const TextSpan span = beat.textSpan(); span != TextSpan::None)
        visit(SpanLine{SpanKind::TextSpan, place.staff, place.voice, 0},
              mark(span == TextSpan::End, begins(span)));
    for (const SlurEnd &end : beat.slurEnds())
        visit(SpanLine{SpanKind::Slur, 0, 0, end.number}, mark(!end.isBegin, end.isBegin));
    for (const Syllable &syllable : beat.lyrics())
        visit(SpanLine{SpanKind::Word, place.staff, place.voice, syllable.line},
              mark(endsWord(syllable.syllabic), goesOn(syllable.syllabic), syllable.hasMelisma));
}

/// When a mark comes among those of its bar: beats that take no time stand in front of the one that
/// they lead to, and what ends at a time in front of what begins at it.
struct When {
    rational time;
    int zeroBeats; ///< those from this one up to the next that takes time, negative
    int rank;

    friend bool operator<(const When &left, const When &right)
    {
        return std::tie(left.time, left.zeroBeats, left.rank)
            < std::tie(right.time, right.zeroBeats, right.rank);
    }
};

struct TimedMark {
    SpanLine line;
    SpanMark mark;
    When when;
};

/// A rest that fills its bar is as long as that: what stands beside it does not depend on it.
bool takesTime(const Beat &beat)
{
    return !beat.isGrace() && !beat.isWholeBarRest();
}

std::vector<When> timesOf(const Voice &voice)
{
    std::vector<When> times(voice.beatCount());
    rational time;
    for (unsigned i = 0; i < voice.beatCount(); ++i) {
        times[i] = {time, 0, 0};
        if (takesTime(*voice.beats()[i]))
            time += voice.beats()[i]->length();
    }
    for (unsigned i = voice.beatCount(); i-- > 0;)
        if (!takesTime(*voice.beats()[i]))
            times[i].zeroBeats = i + 1 < voice.beatCount() ? times[i + 1].zeroBeats - 1 : -1;
    return times;
}

void readVoice(const Voice &voice, KeptBeats::Place place, std::vector<TimedMark> &marks)
{
    const auto &beats = voice.beats();
    if (!voice.mayHoldSpans() || std::none_of(beats.begin(), beats.end(), [](const auto &beat) {
            return beat->hasSpanMarks();
        }))
        return;
    const std::vector<When> times = timesOf(voice);
    for (unsigned i = 0; i < voice.beatCount(); ++i) {
        if (!beats[i]->hasSpanMarks())
            continue;
        place.beat = i;
        visitMarks(*beats[i], place, [&](const SpanLine &line, const SpanMark &mark) {
            When when = times[i];
            when.rank = static_cast<int>(mark.leavesOpen) - static_cast<int>(mark.needsOpen);
            marks.push_back({line, mark, when});
        });
    }
}

bool isOn(const SpanLine &left, const SpanLine &right) noexcept
{
    return !(left < right) && !(right < left);
}

/// Whether there may be a mark in bars from `first` up to, not including, `end`. Few voices have
/// any: this is a short way past all others.
bool mayHoldSpans(const Track &track, unsigned first, unsigned end)
{
    for (const auto &staff : track.staves()) {
        const auto &bars = staff->bars();
        for (std::size_t i = first; i < std::min<std::size_t>(end, bars.size()); ++i)
            for (const auto &voice : bars[i]->voices())
                if (voice && voice->mayHoldSpans())
                    return true;
    }
    return false;
}

/// The marks of a bar in all staves, line by line and in the order of time.
std::vector<TimedMark> readBar(const Track &track, unsigned bar)
{
    std::vector<TimedMark> marks;
    if (!mayHoldSpans(track, bar, bar + 1))
        return marks;
    for (const auto &staff : track.staves()) {
        if (bar >= staff->barCount())
            continue;
        for (const auto &voice : staff->bars()[bar]->voices())
            if (voice)
                readVoice(*voice, {0, staff->index(), bar, voice->index(), 0}, marks);
    }
    std::stable_sort(marks.begin(), marks.end(), [](const TimedMark &left, const TimedMark &right) {
        return std::tie(left.line, left.when) < std::tie(right.line, right.when);
    });
    for (std::size_t i = 1; i < marks.size(); ++i) {
        const When &before = marks[i - 1].when;
        const When &here = marks[i].when;
        marks[i].mark.isAtOnce = isOn(marks[i - 1].line, marks[i].line) && before.time == here.time
            && before.zeroBeats == here.zeroBeats;
    }
    return marks;
}

void rewriteSlur(const SpanLine &line, const SpanMark &mark, const SpanMark &meaning)
{
    SlurEnds ends = mark.beat->slurEnds();
    SlurEnd made = {static_cast<std::uint8_t>(line.number), mark.leavesOpen};
    const auto found = std::find_if(ends.begin(), ends.end(), [&](const SlurEnd &other) {
        return other.number == made.number && other.isBegin == made.isBegin;
    });
    if (found != ends.end()) {
        made = *found;
        ends.erase(found);
    }
    if (meaning.needsOpen != meaning.leavesOpen) {
        made.isBegin = meaning.leavesOpen;
        const auto at = std::find_if(ends.begin(), ends.end(), [&](const SlurEnd &other) {
            return !made.isBegin && other.isBegin;
        });
        ends.insert(at, made);
    }
    mark.beat->setSlurEnds(ends);
}

void rewriteSyllable(const SpanLine &line, const SpanMark &mark, const SpanMark &meaning)
{
    Syllables syllables = mark.beat->lyrics();
    for (Syllable &syllable : syllables) {
        if (syllable.line != line.number)
            continue;
        if (meaning.needsOpen)
            syllable.syllabic = meaning.leavesOpen ? Syllabic::Middle : Syllabic::End;
        else
            syllable.syllabic = meaning.leavesOpen ? Syllabic::Begin : Syllabic::Single;
        syllable.hasMelisma = meaning.isHeld;
    }
    mark.beat->setLyrics(syllables);
}

} // namespace

SpanMarksByLine readSpans(const Track &track, unsigned first, unsigned end)
{
    SpanMarksByLine lines;
    if (!mayHoldSpans(track, first, end))
        return lines;
    for (unsigned bar = first; bar < end; ++bar)
        for (const TimedMark &timed : readBar(track, bar))
            lines[timed.line].push_back(timed.mark);
    return lines;
}

std::optional<SpanMark> lastMarkBefore(const Track &track, const SpanLine &line, unsigned bar)
{
    while (bar-- > 0) {
        const auto marks = readBar(track, bar);
        for (auto timed = marks.rbegin(); timed != marks.rend(); ++timed)
            if (isOn(timed->line, line))
                return timed->mark;
    }
    return std::nullopt;
}

std::optional<SpanMark> firstMarkFrom(const Track &track, const SpanLine &line, unsigned bar)
{
    for (; bar < track.barCount(); ++bar)
        for (const TimedMark &timed : readBar(track, bar))
            if (isOn(timed.line, line))
                return timed.mark;
    return std::nullopt;
}

BeatAttribute attributeOf(SpanKind kind) noexcept
{
    switch (kind) {
    case SpanKind::Pedal:
        return BeatAttribute::Pedal;
    case SpanKind::TextSpan:
        return BeatAttribute::TextSpan;
    case SpanKind::Slur:
        return BeatAttribute::SlurEnds;
    case SpanKind::Word:
        break;
    }
    return BeatAttribute::Lyrics;
}

void rewrite(const SpanLine &line, const SpanMark &mark, const SpanMark &meaning)
{
    const bool isNone = meaning.needsOpen == meaning.leavesOpen;
    switch (line.kind) {
    case SpanKind::Pedal:
        if (meaning.needsOpen)
            mark.beat->setPedal(meaning.leavesOpen ? PedalChange::Change : PedalChange::Stop);
        else
            mark.beat->setPedal(meaning.leavesOpen ? PedalChange::Start : PedalChange::None);
        return;
    case SpanKind::TextSpan:
        mark.beat->setTextSpan(isNone                              ? TextSpan::None
                                   : !meaning.leavesOpen           ? TextSpan::End
                                   : begins(mark.beat->textSpan()) ? mark.beat->textSpan()
                                                                   : TextSpan::Begin);
        return;
    case SpanKind::Slur:
        return rewriteSlur(line, mark, meaning);
    case SpanKind::Word:
        return rewriteSyllable(line, mark, meaning);
    }
}

} // namespace zarn
