// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/RowEngravers.h>

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
    Ink ink =
        draft.pen.text(MarkKind::BarNumber, TextRole::BarNumber, text, draft.staffLeft, 0);
    const double reach = row.above.reach(ink.box.left, ink.box.right);
    ink.move(0, -reach - 0.4 - ink.box.bottom);
    ink.place.bar = static_cast<std::int32_t>(draft.score.shown[draft.first].bar);
    row.add(std::move(ink));
}

} // namespace

void addRowSigns(SystemDraft &draft)
{
    addBarNumber(draft);
}

} // namespace zarn::engraving
