// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/RestPlacer.h>

#include <ZarnLayout/engrave/ChordInks.h>
#include <ZarnLayout/page/InkField.h>

#include <algorithm>
#include <utility>

namespace zarn::engraving {

namespace {

/// The sign of a rest as it looks where it stands: with a line of its own outside the staff.
void fitToStaff(Inks &rest, const Row &row, const Pen &pen)
{
    using NoteValue = RhythmValue::NoteValue;
    for (Ink &ink : rest)
        for (const auto &[sign, value] : {std::make_pair(Sign::RestWhole, NoteValue::Whole),
                                          std::make_pair(Sign::RestHalf, NoteValue::Half)}) {
            if (ink.kind != MarkKind::Rest || ink.glyph != pen.fonts().glyph(sign))
                continue;
            const MarkPlace place = ink.place;
            ink =
                pen.glyph(ink.kind, restSign(row, value, ink.at.y), ink.at.x, ink.at.y, ink.scale);
            ink.place = place;
            break;
        }
}

} // namespace

void addRests(RowDraft &row, std::vector<WaitingRest> rests, const Pen &pen)
{
    if (rests.empty())
        return;
    constexpr int farthest = 16;
    InkField field;
    field.add(row.inks);
    for (WaitingRest &waiting : rests) {
        Inks &rest = waiting.inks;
        if (rest.empty())
            continue;
        const bool isWhole = rest.front().glyph == pen.fonts().glyph(Sign::RestWhole);
        const double gap = isWhole ? 0.3 : 0.1;
        const double outward = waiting.isAbove ? -1 : 1;
        const auto moved = [&](double aside, double shift) {
            Inks inks = rest;
            move(inks, aside, shift);
            fitToStaff(inks, *row.row, pen);
            return inks;
        };
        const auto isFree = [&](const Inks &inks) {
            return std::all_of(inks.begin(), inks.end(), [&](const Ink &ink) {
                const Box &box = ink.box;
                return field.isFree(
                    {box.left - gap, box.top - gap, box.right + gap, box.bottom + gap});
            });
        };
        // Away from the other voices; towards them where there is nothing but their ink, and aside
        // where that reaches too far both ways.
        Inks free;
        for (const double aside : {0.0, -0.8, 0.8, -1.6, 1.6})
            for (const double step : {outward, -outward})
                for (int steps = 0; steps < farthest && free.empty(); ++steps)
                    if (Inks inks = moved(aside, step * steps); isFree(inks))
                        free = std::move(inks);
        rest = free.empty() ? moved(0, 0) : std::move(free);
        field.add(rest);
        row.add(std::move(rest));
    }
}

} // namespace zarn::engraving
