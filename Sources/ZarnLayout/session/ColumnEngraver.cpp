// SPDX-License-Identifier: MIT
#include <ZarnLayout/session/ColumnEngraver.h>

#include <ZarnLayout/engrave/BarEngraver.h>
#include <ZarnLayout/engrave/StaffSigns.h>
#include <ZarnLayout/session/MultiRests.h>

#include <algorithm>

namespace zarn::engraving {

namespace {

constexpr double changedClef = 0.75;

void addClefChanges(EngravedBar &bar, const Row &row, const BarSource &source, const Onsets &onsets,
                    const Pen &pen)
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
        ink.place.bar = 0;
        // The last of several at one place is the one that holds.
        if (!bar.clefs.empty() && bar.clefs.back().column == column)
            bar.clefs.pop_back();
        bar.clefs.push_back({column, std::move(ink)});
    }
}

} // namespace

std::shared_ptr<const EngravedRows> engraveColumn(const ScoreSource &score, const ShownBar &bars,
                                                  const Pen &pen, bool isSpaced)
{
    auto engraved = std::make_shared<EngravedRows>();
    const BarColumn &sources = *score.columns[bars.bar - score.firstBar];
    const ColumnSource &shared = *sources.shared;
    std::vector<const BarSource *> staves;
    for (const auto &staff : sources.staves)
        staves.push_back(staff.get());
    const bool isMultiRest = bars.count > 1;
    Onsets onsets;
    if (!isMultiRest)
        onsets = onsetsOf(staves);
    std::vector<EngravedBar *> rows;
    engraved->rows.reserve(score.rows.size());
    for (std::size_t i = 0; i < score.rows.size(); ++i) {
        const Row &row = score.rows[i];
        if (isMultiRest) {
            engraved->rows.push_back(multiRest(row, bars.count, pen));
        } else {
            const BarSource &source = *staves[score.staffOfRow[i]];
            engraved->rows.push_back(
                BarEngraver(row, pen, engraved->problems).engrave(source, shared, onsets, 0));
            addClefChanges(engraved->rows.back(), row, source, onsets, pen);
        }
        rows.push_back(&engraved->rows.back());
    }
    engraved->isSpaced = isSpaced;
    if (!isSpaced) {
        placeInFront(rows, onsets.size());
        engraved->spaced.onsets = std::move(onsets);
        return engraved;
    }
    const double ratio =
        score.isPart && !staves.empty() ? staves.front()->layoutRatio : shared.layoutRatio;
    engraved->spaced = spaceBar(rows, staves, shared, std::move(onsets), ratio, pen.fonts());
    return engraved;
}

} // namespace zarn::engraving
