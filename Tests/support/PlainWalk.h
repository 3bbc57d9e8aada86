// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

#include <algorithm>
#include <memory>
#include <vector>

/// What a range selects, found without any iterator: every node of the tree is asked whether it
/// belongs to it. `whole` takes every node, whatever the range.
struct PlainWalk {
    std::vector<std::shared_ptr<zarn::Bar>> bars;
    std::vector<std::shared_ptr<zarn::Beat>> beats;
    std::vector<std::shared_ptr<zarn::Note>> notes;

    static PlainWalk whole(const zarn::ScoreModel &model)
    {
        PlainWalk walk;
        walk.visit(
            model, 0, ~0U, [](auto...) { return true; }, [](auto...) { return true; });
        return walk;
    }

    static PlainWalk of(const zarn::ScoreModelRange &range)
    {
        PlainWalk walk;
        const Places ends{&range.first(), &range.second()};
        if (ends[0]->model() == nullptr || ends[0]->model() != ends[1]->model())
            return walk;
        const zarn::ScoreModel &model = *ends[0]->model();
        if (!hasBar(model, *ends[0]) || !hasBar(model, *ends[1]))
            return walk;
        const auto mode = static_cast<unsigned>(range.selectionMode());
        const bool allVoices = (mode & 2) != 0;
        const bool hasBeats = allVoices || (hasBeat(model, *ends[0]) && hasBeat(model, *ends[1]));
        const auto bars = std::minmax({ends[0]->barIndex(), ends[1]->barIndex()});
        walk.visit(
            model, static_cast<unsigned>(bars.first), static_cast<unsigned>(bars.second),
            [&](int track, unsigned staff) { return takesStaff(ends, mode, track, staff); },
            [&](const zarn::Voice &voice, int bar, const zarn::Beat &beat) {
                return hasBeats && (allVoices || takesBeat(ends, voice, bar, beat));
            });
        if (namesANote(range)) {
            const auto all = std::move(walk.notes);
            walk.notes.clear();
            for (const auto &note : all)
                if (note == range.first().note())
                    walk.notes.push_back(note);
        }
        return walk;
    }

private:
    using Places = const zarn::ScoreModelIndex *[2];

    template <class TakesStaff, class TakesBeat>
    void visit(const zarn::ScoreModel &model, unsigned firstBar, unsigned lastBar,
               const TakesStaff &takesStaff, const TakesBeat &takesBeat)
    {
        for (const auto &track : model.tracks())
            for (const auto &staff : track->staves()) {
                if (!takesStaff(static_cast<int>(track->index()), staff->index()))
                    continue;
                for (unsigned i = firstBar; i <= lastBar && i < staff->barCount(); ++i) {
                    const auto &bar = staff->bars()[i];
                    bars.push_back(bar);
                    for (const auto &voice : bar->voices())
                        for (const auto &beat : voice ? voice->beats() : zarn::Voice::Beats()) {
                            if (!takesBeat(*voice, static_cast<int>(i), *beat))
                                continue;
                            beats.push_back(beat);
                            for (const auto &note : beat->notes())
                                notes.push_back(note);
                        }
                }
            }
    }

    static bool hasBar(const zarn::ScoreModel &model, const zarn::ScoreModelIndex &place)
    {
        const auto track = model.track(static_cast<unsigned>(place.trackIndex()));
        const auto staff = track ? track->staff(place.staffIndex()) : nullptr;
        return staff && staff->bar(static_cast<unsigned>(place.barIndex()));
    }

    static bool hasBeat(const zarn::ScoreModel &model, const zarn::ScoreModelIndex &place)
    {
        if (place.beatIndex() == -1)
            return true;
        const auto bar = model.track(static_cast<unsigned>(place.trackIndex()))
                             ->bar(static_cast<unsigned>(place.barIndex()), place.staffIndex());
        const auto voice = bar->voice(place.voiceIndex());
        return voice && voice->beat(static_cast<unsigned>(place.beatIndex()));
    }

    static bool takesStaff(const Places &ends, unsigned mode, int track, unsigned staff)
    {
        const auto lies = [](auto number, auto a, auto b) {
            return std::min(a, b) <= number && number <= std::max(a, b);
        };
        if (mode == 7)
            return true;
        if (track != ends[0]->trackIndex() || track != ends[1]->trackIndex())
            return false;
        if ((mode & 2) != 0)
            return lies(staff, ends[0]->staffIndex(), ends[1]->staffIndex());
        return staff == ends[0]->staffIndex() && staff == ends[1]->staffIndex();
    }

    static bool takesBeat(const Places &ends, const zarn::Voice &voice, int bar,
                          const zarn::Beat &beat)
    {
        if (voice.index() != ends[0]->voiceIndex())
            return false;
        bool isBehindAnEnd = false;
        bool isBeforeAnEnd = false;
        for (const auto *end : ends) {
            if (bar != end->barIndex() || end->beatIndex() == -1) {
                isBehindAnEnd |= bar >= end->barIndex();
                isBeforeAnEnd |= bar <= end->barIndex();
            } else if (voice.index() == end->voiceIndex()) {
                const int number = static_cast<int>(beat.index());
                isBehindAnEnd |= number >= end->beatIndex();
                isBeforeAnEnd |= number <= end->beatIndex();
            } else {
                const auto time = end->beatDrawingOffset();
                const auto start = voice.beatDrawingOffset(beat);
                isBehindAnEnd |= time < start + beat.length() || time == start;
                isBeforeAnEnd |= start <= time;
            }
        }
        return isBehindAnEnd && isBeforeAnEnd;
    }

    static bool namesANote(const zarn::ScoreModelRange &range)
    {
        const zarn::ScoreModelIndex &place = range.first();
        const auto isNamed = [](std::uint32_t value, std::uint32_t unset) {
            return value != unset && value != zarn::ScoreModelIndex::Unset;
        };
        return (static_cast<unsigned>(range.selectionMode()) & 3) == 0 && place == range.second()
            && (isNamed(place.noteMidi(), zarn::ScoreModelIndex::Unset)
                || isNamed(place.noteString(), 0)
                || isNamed(place.noteInstrumentArticulation(), 0));
    }
};
