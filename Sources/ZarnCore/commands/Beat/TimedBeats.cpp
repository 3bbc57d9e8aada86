// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/TimedBeats.h>

#include <ZarnCore/model/barring/BeatCut.h>
#include <ZarnCore/model/notes/Ties.h>

#include <algorithm>
#include <vector>

namespace zarn {

namespace {

using utils::rational;
using Beats = Voice::Beats;

struct TimedBeat {
    std::shared_ptr<Beat> beat;
    rational from;
    rational to;
};
using TimedBeats = std::vector<TimedBeat>;

TimedBeats timed(const Beats &beats, const rational &barLength, rational at)
{
    TimedBeats list;
    for (const auto &beat : beats) {
        const rational end = at + timeOf(*beat, barLength);
        list.push_back({beat, at, end});
        at = end;
    }
    return list;
}

/// Cuts beats at those of the times, which are in order, that lie inside of them.
TimedBeats cutAt(const TimedBeats &beats, const std::vector<rational> &times)
{
    TimedBeats list;
    for (const TimedBeat &whole : beats) {
        auto time = std::upper_bound(times.begin(), times.end(), whole.from);
        std::vector<rational> lengths;
        rational at = whole.from;
        for (; time != times.end() && *time < whole.to; ++time) {
            lengths.push_back(*time - at);
            at = *time;
        }
        if (lengths.empty()) {
            list.push_back(whole);
            continue;
        }
        lengths.push_back(whole.to - at);
        at = whole.from;
        for (const Beats &group : cutBeat(*whole.beat, lengths))
            for (const auto &piece : group) {
                const rational end = at + piece->rhythmValue().getLength();
                list.push_back({piece, at, end});
                at = end;
            }
    }
    return list;
}

std::vector<rational> edgesOf(const TimedBeats &beats)
{
    std::vector<rational> edges;
    for (const TimedBeat &beat : beats) {
        edges.push_back(beat.from);
        edges.push_back(beat.to);
    }
    std::sort(edges.begin(), edges.end());
    edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
    return edges;
}

std::shared_ptr<Beat> withNotes(const Beat &beat, const Beat &added)
{
    auto both = beat.clone();
    for (const auto &note : added.notes()) {
        for (unsigned i = both->noteCount(); i-- > 0;)
            if (sameLocation(*both->notes()[i], *note))
                both->removeNote(i);
        both->addNote(note->clone());
    }
    return both;
}

} // namespace

rational timeOf(const Beat &beat, const rational &barLength)
{
    if (beat.isGrace())
        return {};
    return beat.isWholeBarRest() ? barLength : beat.rhythmValue().getLength();
}

Beats placeHolders(const rational &length)
{
    std::vector<RhythmValue> rhythms;
    RhythmValue::rhythms(length, rhythms);
    Beats beats;
    for (const RhythmValue &rhythm : rhythms) {
        beats.push_back(std::make_shared<Beat>(rhythm));
        beats.back()->setPlaceHolder(true);
    }
    return beats;
}

Beats beatsUntil(const Beats &beats, const rational &barLength, const rational &time)
{
    Beats front;
    rational end;
    for (auto beat = beats.begin(); beat != beats.end() && end < time; ++beat) {
        const rational from = end;
        end += timeOf(**beat, barLength);
        if (end <= time)
            front.push_back(*beat);
        else
            append(front, cutBeat(**beat, {time - from, end - time}).front());
    }
    if (end < time)
        append(front, placeHolders(time - end));
    return front;
}

Beats beatsFrom(const Beats &beats, const rational &barLength, const rational &time)
{
    Beats back;
    rational end;
    for (const auto &beat : beats) {
        const rational from = end;
        end += timeOf(*beat, barLength);
        if (!(from < time)) {
            back.push_back(beat);
            continue;
        }
        if (end <= time)
            continue;
        std::vector<RhythmValue> rhythms;
        RhythmValue::rhythms(end - time, rhythms);
        for (const RhythmValue &rhythm : rhythms) {
            back.push_back(std::make_shared<Beat>(rhythm));
            back.back()->setPlaceHolder(beat->isPlaceHolder());
        }
    }
    return back;
}

Beats mergeBeats(const Beats &beats, const rational &barLength, const Beats &added,
                 const rational &start)
{
    TimedBeats newer = timed(added, barLength, start);
    newer.erase(std::remove_if(newer.begin(), newer.end(),
                               [](const TimedBeat &beat) { return !beat.beat->hasNotes(); }),
                newer.end());
    if (newer.empty())
        return beats;
    TimedBeats older = timed(beats, barLength, rational());
    // A part that takes several rhythms has ends of its own, where the other must be cut as well.
    for (std::size_t before = 0; before != older.size() + newer.size();) {
        before = older.size() + newer.size();
        newer = cutAt(newer, edgesOf(older));
        older = cutAt(older, edgesOf(newer));
    }

    Beats merged;
    rational end;
    auto old = older.begin();
    const auto takeOlder = [&](const rational &until) {
        for (; old != older.end() && old->from < until; ++old) {
            merged.push_back(old->beat);
            end = old->to;
        }
    };
    for (const TimedBeat &piece : newer) {
        takeOlder(piece.from);
        if (end < piece.from) {
            append(merged, placeHolders(piece.from - end));
            end = piece.from;
        }
        for (; old != older.end() && old->beat->isGrace() && old->from == piece.from; ++old)
            merged.push_back(old->beat);
        if (piece.beat->isGrace()) {
            merged.push_back(piece.beat);
            continue;
        }
        end = piece.to;
        if (old == older.end() || old->from != piece.from || old->to != piece.to) {
            merged.push_back(piece.beat);
            continue;
        }
        const bool isSilent = !old->beat->hasNotes() && !old->beat->isDeadSlapped();
        merged.push_back(isSilent ? piece.beat : withNotes(*old->beat, *piece.beat));
        ++old;
    }
    for (; old != older.end(); ++old)
        merged.push_back(old->beat);
    return merged;
}

} // namespace zarn
