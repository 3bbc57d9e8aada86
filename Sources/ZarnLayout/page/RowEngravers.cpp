// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/RowEngravers.h>

#include <ZarnLayout/page/BeamEngraver.h>
#include <ZarnLayout/page/BeatSigns.h>
#include <ZarnLayout/page/FormSigns.h>
#include <ZarnLayout/page/SlurEngraver.h>
#include <ZarnLayout/page/Stretches.h>
#include <ZarnLayout/page/StringLinks.h>
#include <ZarnLayout/page/TieEngraver.h>
#include <ZarnLayout/page/TupletEngraver.h>
#include <ZarnLayout/page/WordSigns.h>

namespace zarn::engraving {

namespace {

void addBarNumber(SystemDraft &draft)
{
    if (draft.rows.empty() || draft.first >= draft.end)
        return;
    const unsigned number = draft.score.column(draft.first).number;
    if (number <= 1)
        return;
    RowDraft &row = draft.rows.front();
    const std::string text = std::to_string(number);
    Ink ink = draft.pen.text(MarkKind::BarNumber, TextRole::BarNumber, text, draft.staffLeft, 0);
    const double reach = row.above.reach(ink.box.left, ink.box.right);
    ink.move(0, -reach - 0.4 - ink.box.bottom);
    ink.place.bar = static_cast<std::int32_t>(draft.score.shown[draft.first].bar);
    row.add(std::move(ink));
}

using EngraveRow = void (*)(RowDraft &row, const SystemDraft &draft);

/// What is nearer to the notes comes first.
constexpr EngraveRow rowEngravers[] = {
    addTies,      addTremolos, addStringLinks, addArticulations, addSlurs,  addTuplets,
    addBeatSigns, addBends,    addDynamics,    addStretches,     addLyrics, addChordSymbols,
};

} // namespace

void addRowSigns(SystemDraft &draft)
{
    for (const EngraveRow engrave : rowEngravers)
        for (RowDraft &row : draft.rows)
            engrave(row, draft);
    addFermatas(draft);
    addFormSigns(draft);
    addBarNumber(draft);
}

} // namespace zarn::engraving
