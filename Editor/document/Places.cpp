// SPDX-License-Identifier: MIT
#include "document/Places.h"

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>

#include <algorithm>

namespace zarn::editor {
namespace {

/// On the highest string, as cursors of fretted staves are.
void nameString(ScoreModelIndex &place)
{
    const auto staff = place.staff();
    if (staff != nullptr && staff->isFretted())
        place.setNoteString(staff->tuning().stringCount() - 1);
}

} // namespace

ScoreModelIndex placeOfMark(ScoreModel &model, const layout::DrawPlace &place)
{
    ScoreModelIndex index(&model, place.track, place.bar, std::max<int>(place.beat, 0),
                          static_cast<unsigned>(std::max<int>(place.voice, 0)),
                          static_cast<unsigned>(std::max<int>(place.staff, 0)));
    const auto beat = index.beat();
    const auto note = beat != nullptr && place.note >= 0
        ? beat->note(static_cast<unsigned>(place.note))
        : nullptr;
    if (note != nullptr && note->string() != Note::Unset)
        index.setNoteString(static_cast<std::uint32_t>(note->string()));
    else if (note != nullptr && note->midi() != Note::Unset)
        index.setNoteMidi(static_cast<std::uint32_t>(note->midi()));
    else
        nameString(index);
    return index;
}

ScoreModelIndex placeOfSpot(ScoreModel &model, const layout::FoundSpot &spot, unsigned voice)
{
    ScoreModelIndex index(&model, spot.staff.track, spot.bar, 0, voice,
                          static_cast<unsigned>(std::max(spot.staff.staff, 0)));
    const auto beats = index.voice();
    if (beats != nullptr && !beats->isEmpty() && !index.setBeatOffset(spot.offset)) {
        // Behind the last beat the next one is entered, unless the bar is full.
        const auto master = index.masterBar();
        const bool isFull = master != nullptr && beats->length() >= master->length();
        index.setBeatIndex(static_cast<int>(beats->beatCount()) - (isFull ? 1 : 0));
    }
    const auto staff = index.staff();
    if (staff == nullptr || !staff->isFretted())
        return index;
    const int strings = static_cast<int>(staff->tuning().stringCount());
    if (spot.staff.kind == layout::StaffKind::Tablature)
        index.setNoteString(static_cast<std::uint32_t>(
            std::clamp(strings - 1 - (spot.step + 1) / 2, 0, strings - 1)));
    else
        index.setNoteString(static_cast<std::uint32_t>(strings - 1));
    return index;
}

layout::FoundSpot spotOfPlace(const ScoreModelIndex &place, layout::StaffKind kind)
{
    layout::FoundSpot spot;
    spot.staff.track = place.trackIndex();
    spot.staff.staff = static_cast<std::int32_t>(place.staffIndex());
    spot.staff.kind = kind;
    spot.bar = place.barIndex();
    const auto voice = place.voice();
    if (voice != nullptr)
        spot.offset = place.isBeatValid() ? place.beatDrawingOffset() : voice->length();
    const auto staff = place.staff();
    if (staff != nullptr && staff->isFretted())
        spot.step = 2
            * (static_cast<int>(staff->tuning().stringCount()) - 1
               - static_cast<int>(place.noteString()));
    return spot;
}

layout::DrawPlace drawPlaceOf(const ScoreModelIndex &place)
{
    layout::DrawPlace draw;
    draw.track = static_cast<std::int16_t>(place.trackIndex());
    draw.bar = place.barIndex();
    draw.staff = static_cast<std::int8_t>(place.staffIndex());
    draw.voice = static_cast<std::int8_t>(place.voiceIndex());
    draw.beat = static_cast<std::int16_t>(place.beatIndex());
    const auto beat = place.beat();
    const auto note = beat != nullptr ? place.note() : nullptr;
    if (note != nullptr)
        draw.note = static_cast<std::int16_t>(beat->indexOfNote(*note));
    return draw;
}

std::vector<layout::DrawPlace> drawPlacesOf(ScoreModel &model, const ScoreModelRange &range)
{
    std::vector<layout::DrawPlace> places;
    if (range.isMultiVoice()) {
        const auto [first, last] =
            std::minmax({range.first().barIndex(), range.second().barIndex()});
        layout::DrawPlace place;
        if (!range.isMultiTrack()) {
            place.track = static_cast<std::int16_t>(range.first().trackIndex());
            place.staff = static_cast<std::int8_t>(range.first().staffIndex());
        }
        for (place.bar = first; place.bar <= last; ++place.bar)
            places.push_back(place);
        return places;
    }
    for (const BeatSpan &span : beatSpans(model, range)) {
        layout::DrawPlace place;
        place.track = static_cast<std::int16_t>(span.track);
        place.bar = static_cast<std::int32_t>(span.bar);
        place.staff = static_cast<std::int8_t>(span.staff);
        place.voice = static_cast<std::int8_t>(span.voice);
        for (unsigned beat = span.firstBeat; beat <= span.lastBeat; ++beat) {
            place.beat = static_cast<std::int16_t>(beat);
            places.push_back(place);
        }
    }
    return places;
}

} // namespace zarn::editor
