// SPDX-License-Identifier: MIT
#include <ZarnLayout/session/ScoreEngraver.h>

#include <ZarnLayout/engrave/BarEngraver.h>
#include <ZarnLayout/engrave/StaffSigns.h>
#include <ZarnLayout/session/MultiRests.h>
#include <ZarnLayout/source/SourceReader.h>

#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>

namespace zarn::engraving {

namespace {

constexpr double changedClef = 0.75;

void addClefChanges(EngravedBar &bar, const Row &row, const BarSource &source, const Onsets &onsets,
                    unsigned barIndex, const Pen &pen)
{
    if (row.notation != Notation::Standard || row.isPercussion)
        return;
    const StaffSigns signs(pen);
    for (const ClefChange &change : source.clefChanges) {
        const auto column = static_cast<unsigned>(
            std::lower_bound(onsets.begin(), onsets.end(), change.position) - onsets.begin());
        Inks inks = signs.clef(row, change.clef, source.ottavia, changedClef);
        Ink &ink = inks.front();
        ink.place.track = static_cast<std::int16_t>(row.track);
        ink.place.staff = static_cast<std::int8_t>(row.staff);
        ink.place.bar = static_cast<std::int32_t>(barIndex);
        // The last of several at one place is the one that holds.
        if (!bar.clefs.empty() && bar.clefs.back().column == column)
            bar.clefs.pop_back();
        bar.clefs.push_back({column, std::move(ink)});
    }
}

void readHeads(EngravedScore &score, const ScoreModel &model)
{
    for (const auto &track : model.tracks()) {
        TrackHead head;
        head.name = track->name();
        head.shortName = track->shortName();
        head.lyricsVisible = track->settings().lyricsVisible;
        if (const auto staff = track->staff(0))
            head.stringCount = staff->tuning().stringCount();
        score.tracks.push_back(std::move(head));
    }
    score.groups = model.trackGroups();
}

void reportLengths(const StaffSource &staff, const std::vector<ColumnSource> &columns,
                   unsigned firstBar, Problems &problems)
{
    for (std::size_t i = 0; i < staff.bars.size(); ++i)
        for (const VoiceSource &voice : staff.bars[i].voices) {
            if (voice.beats.empty())
                continue;
            const BeatSource &last = voice.beats.back();
            if (last.onset + last.length <= columns[i].length)
                continue;
            MarkPlace place;
            place.track = static_cast<std::int16_t>(staff.track);
            place.staff = static_cast<std::int8_t>(staff.staff);
            place.bar = static_cast<std::int32_t>(firstBar + i);
            place.voice = static_cast<std::int8_t>(voice.number);
            problems.add(place, "The voice is longer than its bar.");
        }
}

} // namespace

EngravedScore engraveScore(const ScoreModel &model, const layout::LayoutOptions &options,
                           const Pen &pen, Problems &problems)
{
    EngravedScore score;
    score.rows = rowsOf(model, options.tracks, options.notations);
    readHeads(score, model);
    const unsigned barCount = model.masterTrack()->masterBarCount();
    score.firstBar = std::min(options.firstBar, barCount);
    const unsigned end = options.lastBar && *options.lastBar < barCount
        ? std::max(*options.lastBar + 1, score.firstBar)
        : barCount;
    score.columns = readColumns(model, score.firstBar, end);
    for (const Row &row : score.rows) {
        const bool isNew = score.staves.empty() || score.staves.back().track != row.track
            || score.staves.back().staff != row.staff;
        if (isNew) {
            score.staves.push_back(readStaff(model, row.track, row.staff, score.firstBar, end));
            reportLengths(score.staves.back(), score.columns, score.firstBar, problems);
        }
        score.staffOfRow.push_back(static_cast<unsigned>(score.staves.size() - 1));
    }
    score.shown = shownBars(score, options.multiRest);

    const bool isOneTrack = !score.rows.empty()
        && std::all_of(score.rows.begin(), score.rows.end(),
                       [&](const Row &row) { return row.track == score.rows.front().track; });
    const bool isPart = isOneTrack && model.trackCount() > 1;
    score.bars.resize(score.rows.size());
    for (auto &row : score.bars)
        row.resize(score.shown.size());
    score.spaced.reserve(score.shown.size());
    std::vector<const BarSource *> staves(score.staves.size());
    std::vector<EngravedBar *> rows(score.rows.size());
    for (unsigned shown = 0; shown < score.shown.size(); ++shown) {
        const unsigned bar = score.shown[shown].bar;
        for (std::size_t i = 0; i < staves.size(); ++i)
            staves[i] = &score.staves[i].bars[bar - score.firstBar];
        const ColumnSource &column = score.column(shown);
        Onsets onsets = onsetsOf(staves);
        if (score.shown[shown].count > 1)
            onsets.clear();
        for (unsigned i = 0; i < score.rows.size(); ++i) {
            const BarSource &source = *staves[score.staffOfRow[i]];
            EngravedBar &target = score.bars[i][shown];
            if (score.shown[shown].count > 1)
                target = multiRest(score.rows[i], score.shown[shown], pen);
            else
                target =
                    BarEngraver(score.rows[i], pen, problems).engrave(source, column, onsets, bar);
            if (score.shown[shown].count == 1)
                addClefChanges(target, score.rows[i], source, onsets, bar, pen);
            rows[i] = &target;
        }
        const double ratio =
            isPart && !staves.empty() ? staves.front()->layoutRatio : column.layoutRatio;
        score.spaced.push_back(
            spaceBar(rows, staves, column, std::move(onsets), ratio, pen.fonts()));
    }
    return score;
}

} // namespace zarn::engraving
