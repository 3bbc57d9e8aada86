// SPDX-License-Identifier: MIT
#include <ZarnLayout/source/Rows.h>

#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>

namespace zarn::engraving {

namespace {

constexpr double tabLineDistance = 1.5;
constexpr unsigned staffLines = 5;

unsigned linesOf(const Track &track)
{
    if (!InstrumentSet::isUnpitched(track.type()))
        return staffLines;
    const auto set = track.instrumentSet();
    return set && set->lineCount() > 0 ? set->lineCount() : staffLines;
}

void addRows(std::vector<Row> &rows, const Track &track, const TrackNotations &notations)
{
    for (const auto &staff : track.staves()) {
        Row row;
        row.track = track.index();
        row.staff = staff->index();
        row.isPercussion = InstrumentSet::isUnpitched(track.type());
        const bool hasTablature = notations.tablature && staff->isFretted();
        const std::size_t first = rows.size();
        // Tablature of a staff without strings is written in notes: nothing is left out.
        if (notations.standard || (notations.tablature && !hasTablature && !notations.slash)) {
            row.lineCount = linesOf(track);
            rows.push_back(row);
        }
        if (notations.slash) {
            row.notation = Notation::Slash;
            row.lineCount = staffLines;
            rows.push_back(row);
        }
        if (hasTablature) {
            row.notation = Notation::Tablature;
            row.lineCount = staff->tuning().stringCount();
            row.lineDistance = tabLineDistance;
            row.hasRhythm = rows.size() == first;
            rows.push_back(row);
        }
        for (std::size_t i = first; i < rows.size(); ++i) {
            rows[i].isFirstOfStaff = i == first;
            rows[i].isLastOfStaff = i + 1 == rows.size();
        }
    }
}

} // namespace

std::vector<Row> rowsOf(const ScoreModel &model, const std::vector<unsigned> &tracks,
                        const std::optional<TrackNotations> &notations)
{
    std::vector<Row> rows;
    for (const auto &track : model.tracks())
        if (tracks.empty()
            || std::find(tracks.begin(), tracks.end(), track->index()) != tracks.end())
            addRows(rows, *track, notations.value_or(track->notations()));
    return rows;
}

} // namespace zarn::engraving
