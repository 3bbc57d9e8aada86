// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/BarNumber.h>

#include <ZarnLayout/font/ZarnTextMeasure.h>

#include <algorithm>
#include <string>

namespace zarn::engraving {

BarNumber::BarNumber(unsigned number, const SystemFrame &frame, const Pen &pen)
    : _isShown(number > 1)
{
    if (!_isShown)
        return;
    _ink = pen.text(MarkKind::BarNumber, TextRole::BarNumber, std::to_string(number),
                    frame.staffLeft, 0);
    const double reach = frame.above.reach(_ink.box.left, _ink.box.right);
    _ink.move(0, -reach - 0.4 - _ink.box.bottom);
}

std::shared_ptr<const BuiltSystem> movedBy(const BuiltSystem &system,
                                           std::shared_ptr<const layout::SystemDrawing> &drawing,
                                           std::int32_t bars, unsigned number, const Pen &pen)
{
    const BarNumber text(number, system.bare, pen);
    const bool hasNumber = system.numberMark != BuiltSystem::noMark;
    if (text.isShown() != hasNumber)
        return nullptr;
    auto moved = std::make_shared<BuiltSystem>(system);
    auto redrawn = std::make_shared<layout::SystemDrawing>(*drawing);
    for (layout::BarFrame &bar : redrawn->bars)
        bar.firstBar += bars;
    redrawn->marks = redrawn->marks.movedByBars(bars);
    if (hasNumber) {
        const Ink &ink = text.ink();
        redrawn->marks = redrawn->marks.withText(
            system.numberMark, ink.text,
            {layout::fromSpaces(ink.at.x), layout::fromSpaces(ink.at.y)},
            pen.fonts().texts().measure(ink.text, styleOf(ink.style, ink.scale)));
        moved->addNumber(ink);
    }
    drawing = std::move(redrawn);
    return moved;
}

} // namespace zarn::engraving
