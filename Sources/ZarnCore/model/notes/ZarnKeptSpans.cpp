// SPDX-License-Identifier: MIT
#include <ZarnCore/model/notes/ZarnKeptSpans.h>

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/SpanMender.h>
#include <ZarnCore/model/notes/Ties.h>

#include <algorithm>

namespace zarn {

namespace {

KeptBeats::Place placeOf(const Beat &beat)
{
    const auto voice = beat.parentVoice();
    const auto bar = voice->parentBar();
    return {0, bar->parentStaff()->index(), bar->index(), voice->index(), beat.index()};
}

Beat &beatAt(const Track &track, const KeptBeats::Place &place)
{
    return *track.staves()[place.staff]
                ->bars()[place.bar]
                ->voices()[place.voice]
                ->beats()[place.beat];
}

bool differ(const SpanMark &left, const SpanMark &right) noexcept
{
    return left.needsOpen != right.needsOpen || left.leavesOpen != right.leavesOpen
        || left.isHeld != right.isHeld;
}

} // namespace

std::map<SpanLine, KeptSpans::Ends> KeptSpans::endsOf(const Track &track, unsigned first,
                                                      unsigned end)
{
    std::map<SpanLine, Ends> ends;
    for (const auto &[line, marks] : readSpans(track, first, end))
        ends[line] = {marks.front().needsOpen, marks.back().leavesOpen};
    return ends;
}

void KeptSpans::keep(const Track &track, unsigned first, unsigned last)
{
    const unsigned end = std::min(last, std::max(track.barCount(), 1U) - 1) + 1;
    first = std::min(first, end);
    const auto [found, isNew] = _regions.try_emplace(track.index());
    Region &region = found->second;
    if (isNew) {
        region = {first, end, endsOf(track, first, end)};
        return;
    }
    if (first < region.first) {
        for (const auto &[line, ends] : endsOf(track, first, region.first))
            region.lines.try_emplace(line, ends).first->second.needOpen = ends.needOpen;
        region.first = first;
    }
    if (end > region.end) {
        for (const auto &[line, ends] : endsOf(track, region.end, end))
            region.lines.try_emplace(line, ends).first->second.leaveOpen = ends.leaveOpen;
        region.end = end;
    }
}

void KeptSpans::mend(const ScoreModel &model, unsigned removed)
{
    _changes.clear();
    for (auto &[track, region] : _regions) {
        region.end -= removed;
        if (const auto node = model.track(track))
            mendRegion(*node, region);
    }
    _regions.clear();
    _given.clear();
}

void KeptSpans::mendRegion(const Track &track, const Region &region)
{
    std::set<SpanLine> lines;
    for (const auto &entry : region.lines)
        lines.insert(entry.first);
    const SpanMarksByLine present = readSpans(track, region.first, region.end);
    for (const auto &entry : present)
        lines.insert(entry.first);
    // A syllable held over bars that went may have met the next one, with nothing of its line in
    // them.
    if (region.first > 0)
        for (const auto &[line, marks] : readSpans(track, region.first - 1, region.first))
            if (marks.back().isHeld)
                lines.insert(line);
    for (const SpanLine &line : lines) {
        if (line.staff >= track.staffCount())
            continue;
        const auto found = present.find(line);
        mendLine(track, region, line, found != present.end() ? found->second : SpanMarks(),
                 _given.count(line.kind) != 0);
    }
}

void KeptSpans::mendLine(const Track &track, const Region &region, const SpanLine &line,
                         const SpanMarks &present, bool isGiven)
{
    SpanMarks marks;
    if (const auto before = lastMarkBefore(track, line, region.first))
        marks.push_back(*before);
    const std::size_t first = marks.size();
    marks.insert(marks.end(), present.begin(), present.end());
    const std::size_t end = marks.size();
    if (const auto behind = firstMarkFrom(track, line, region.end))
        marks.push_back(*behind);

    const SpanMarks before = marks;
    SpanMender mender(line.kind, marks, first, end);
    if (isGiven) {
        mender.runForGiven();
    } else {
        const bool isInOpen = first > 0 && before.front().leavesOpen;
        const auto known = region.lines.find(line);
        const Ends ends = known != region.lines.end() ? known->second : Ends{false, isInOpen};
        mender.run(SpanMender::Before{ends.needOpen, ends.leaveOpen});
    }
    for (std::size_t i = 0; i < marks.size(); ++i)
        if (differ(before[i], marks[i])) {
            keepValue(track, line, before[i].place, *before[i].beat);
            rewrite(line, before[i], marks[i]);
        }
    if (!mender.lacksEnd()) {
        // At one moment ends stand in front of begins: what was given to beats of several staves
        // may have come to stand the other way round.
        if (isGiven && !mender.mayStayOpen())
            mendLine(track, region, line, readSpans(track, region.first, region.end)[line], false);
        return;
    }
    const SpanMark &begin = marks[*mender.lacksEnd()];
    if (!endAtNextBeat(track, line, *begin.beat)) {
        keepValue(track, line, begin.place, *begin.beat);
        rewrite(line, begin, {});
        return;
    }
    Region wider = region;
    wider.end = std::max(region.end, _changes.back().place.bar + 1);
    mendLine(track, wider, line, readSpans(track, wider.first, wider.end)[line], false);
}

void KeptSpans::keepValue(const Track &track, const SpanLine &line, KeptBeats::Place place,
                          const Beat &beat)
{
    place.track = track.index();
    const BeatAttribute id = attributeOf(line.kind);
    _changes.push_back({place, id, rowOf(id).get(beat)});
}

bool KeptSpans::endAtNextBeat(const Track &track, const SpanLine &line, const Beat &begin)
{
    const auto voice = begin.parentVoice();
    const auto next = voice ? beatBehindJoint(*voice, begin.index() + 1) : nullptr;
    if (!next || (line.kind == SpanKind::TextSpan && next->textSpan() != TextSpan::None))
        return false;
    const KeptBeats::Place place = placeOf(*next);
    keepValue(track, line, place, *next);
    SpanMark end;
    end.place = place;
    end.beat = next;
    SpanMark meaning = end;
    meaning.needsOpen = true;
    rewrite(line, end, meaning);
    return true;
}

void KeptSpans::putBack(const ScoreModel &model)
{
    for (auto change = _changes.rbegin(); change != _changes.rend(); ++change)
        rowOf(change->id)
            .set(beatAt(*model.tracks()[change->place.track], change->place), change->before);
}

std::vector<KeptBeats::Place> KeptSpans::changed() const
{
    std::vector<KeptBeats::Place> places;
    places.reserve(_changes.size());
    for (const Change &change : _changes)
        places.push_back(change.place);
    return places;
}

} // namespace zarn
