// SPDX-License-Identifier: MIT
#include <ZarnLayout/source/Rows.h>

#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>

namespace zarn::engraving {

namespace {

constexpr double tabLineDistance = 1.5;
constexpr unsigned staffLines = 5;

const Note *firstNote(const Staff &staff)
{
    for (const auto &bar : staff.bars())
        for (const auto &voice : bar->voices())
            if (voice)
                for (const auto &beat : voice->beats())
                    if (beat->noteCount() > 0)
                        return beat->notes().front().get();
    return nullptr;
}

unsigned linesOf(const Track &track, const Staff &staff)
{
    if (!InstrumentSet::isUnpitched(track.type()))
        return staffLines;
    const auto set = track.instrumentSet();
    if (!set || set->lineCount() == 0)
        return staffLines;
    // Music from elsewhere may have places of its own, which mean five lines.
    const int top = 2 * (static_cast<int>(set->lineCount()) - 1);
    const Note *const note = firstNote(staff);
    const bool isElsewhere = note && note->staffLine() != Note::NoStaffLine
        && (note->staffLine() < -2 || note->staffLine() > top + 2);
    return isElsewhere ? std::max(staffLines, set->lineCount()) : set->lineCount();
}

void addRows(std::vector<Row> &rows, const Track &track, const TrackNotations &notations)
{
    for (const auto &staff : track.staves()) {
        Row row;
        row.track = track.index();
        row.staff = staff->index();
        row.isPercussion = InstrumentSet::isUnpitched(track.type());
        row.circlesHarmonics = !InstrumentSet::isStringed(track.type());
        const bool hasTablature = notations.tablature && staff->isFretted();
        row.lacksStrings = notations.tablature && !hasTablature;
        const std::size_t first = rows.size();
        // Tablature of a staff without strings is written in notes: nothing is left out.
        if (notations.standard || (notations.tablature && !hasTablature && !notations.slash)) {
            row.lineCount = linesOf(track, *staff);
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
