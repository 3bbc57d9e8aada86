// SPDX-License-Identifier: MIT
#include <ZarnLayout/session/MultiRests.h>

#include <algorithm>

namespace zarn::engraving {

namespace {

bool isEmpty(const BarColumn &column)
{
    return std::all_of(column.staves.begin(), column.staves.end(),
                       [](const auto &staff) { return staff->isEmpty(); });
}

bool hasDirections(const ColumnSource &column)
{
    return !column.directions.empty() || !column.jumps.empty();
}

/// Whether a run of rests goes on over the line in front of a bar.
bool goesOn(const ScoreSource &score, std::size_t bar)
{
    const ColumnSource &before = *score.columns[bar - 1]->shared;
    const ColumnSource &here = *score.columns[bar]->shared;
    const bool isPlainLine = !before.doubleBar && before.repeatCount == 0 && !here.repeatStart
        && before.barLine == here.barLine && before.endings == here.endings;
    const bool isPlainBar = here.section.isEmpty() && !here.showsMeter && here.tempos.empty()
        && !hasDirections(here) && !hasDirections(before) && here.fermatas.empty()
        && before.fermatas.empty() && !here.movementStart && !here.newFeel
        && before.freeTime == here.freeTime && before.length == here.length;
    const auto &staves = score.columns[bar]->staves;
    const bool keepsKeys = std::all_of(staves.begin(), staves.end(), [](const auto &source) {
        return source->key == source->keyBefore && source->clef == source->clefBefore;
    });
    return isPlainLine && isPlainBar && keepsKeys;
}

} // namespace

void findShownBars(const ScoreSource &score, std::vector<ShownBar> &shown)
{
    shown.clear();
    shown.reserve(score.columns.size());
    bool wasEmpty = false;
    for (std::size_t i = 0; i < score.columns.size(); ++i) {
        const bool isRest = score.multiRest && isEmpty(*score.columns[i]);
        if (isRest && wasEmpty && goesOn(score, i))
            ++shown.back().count;
        else
            shown.push_back({score.firstBar + static_cast<unsigned>(i), 1});
        wasEmpty = isRest;
    }
}

EngravedBar multiRest(const Row &row, unsigned count, const Pen &pen)
{
    EngravedBar bar;
    const double y = row.height() / 2;
    constexpr double width = 10;
    const Box &left = pen.fonts().box(Sign::RestHBarLeft);
    const Box &right = pen.fonts().box(Sign::RestHBarRight);
    bar.centred.push_back(
        pen.glyph(MarkKind::MultiRest, Sign::RestHBarLeft, -width / 2 - left.left, y));
    bar.centred.push_back(
        pen.glyph(MarkKind::MultiRest, Sign::RestHBarRight, width / 2 - right.right, y));
    bar.centred.push_back(pen.line(MarkKind::MultiRest,
                                   {-width / 2 + left.right - left.left - 0.1, y},
                                   {width / 2 - right.width() + 0.1, y}, 1.0));
    for (Ink &digit : pen.glyphs(MarkKind::MultiRest, digitsOf(count, Sign::TimeSig0), 0, -1.8))
        bar.centred.push_back(std::move(digit));
    for (Ink &ink : bar.centred) {
        ink.place.track = static_cast<std::int16_t>(row.track);
        ink.place.staff = static_cast<std::int8_t>(row.staff);
        ink.place.bar = 0;
    }
    bar.centredWidth = width;
    return bar;
}

} // namespace zarn::engraving
