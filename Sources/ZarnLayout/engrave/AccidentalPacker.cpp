// SPDX-License-Identifier: MIT
#include <ZarnLayout/engrave/AccidentalPacker.h>

#include <algorithm>

namespace zarn::engraving {

namespace {

constexpr double gapToHead = 0.2;
constexpr double gapToAccidental = 0.12;

Sign signOf(Accidental accidental)
{
    return Sign::AccidentalDoubleFlat
        + (static_cast<int>(accidental) - static_cast<int>(Accidental::DoubleFlat));
}

/// The rightmost place for a sign that lets it stand clear of boxes: it starts at the right and
/// moves left from box to box.
template <class Boxes>
double clearPlace(const Few<Box, 4> &shape, const Boxes &boxes, double gap, double start)
{
    double x = start;
    for (bool moved = true; moved;) {
        moved = false;
        for (const Box &part : shape)
            for (const Box &box : boxes)
                if (part.movedBy(x, 0).meets(
                        {box.left - gap, box.top - 0.05, box.right, box.bottom + 0.05})) {
                    x = box.left - gap - part.right - 1e-6;
                    moved = true;
                }
    }
    return x;
}

} // namespace

Inks accidentalInks(const AccidentalSign &sign, const Pen &pen, double scale)
{
    Inks inks;
    double x = 0;
    const auto add = [&](Sign glyph) {
        inks.push_back(pen.glyph(MarkKind::Accidental, glyph, x, 0, scale));
        x += pen.fonts().advance(pen.fonts().glyph(glyph)) * scale + 0.05 * scale;
    };
    const bool parens = sign.display == AccidentalDisplay::Parentheses;
    const bool brackets = sign.display == AccidentalDisplay::Brackets;
    if (parens || brackets)
        add(parens ? Sign::AccidentalParensLeft : Sign::AccidentalBracketLeft);
    add(signOf(sign.sign));
    if (parens || brackets)
        add(parens ? Sign::AccidentalParensRight : Sign::AccidentalBracketRight);
    return inks;
}

void packAccidentals(std::vector<PackedAccidental> &accidentals, const std::vector<Box> &taken,
                     const Fonts &fonts)
{
    if (accidentals.size() > 1)
        std::stable_sort(accidentals.begin(), accidentals.end(),
                         [](const PackedAccidental &left, const PackedAccidental &right) {
                             return left.y < right.y;
                         });
    Few<std::size_t, 8> order;
    for (std::size_t top = 0, bottom = accidentals.size(); top < bottom;) {
        order.push_back(top++);
        if (top < bottom)
            order.push_back(--bottom);
    }
    double right = 0;
    for (const Box &box : taken)
        right = std::max(right, box.right);
    Few<Box, 16> placed;
    Few<Box, 4> shape; // of a sign
    for (const std::size_t index : order) {
        PackedAccidental &accidental = accidentals[index];
        shape.clear();
        for (const Ink &ink : accidental.inks)
            fonts.eachPart(ink.glyph, [&](const Box &part) {
                shape.push_back(
                    {ink.at.x + part.left * ink.scale, accidental.y + part.top * ink.scale,
                     ink.at.x + part.right * ink.scale, accidental.y + part.bottom * ink.scale});
            });
        // No accidental stands right of the first heads, even where there is room.
        double width = 0;
        for (const Box &part : shape)
            width = std::max(width, part.right);
        double x = clearPlace(shape, taken, gapToHead, -gapToHead - width);
        for (double before = x + 1; before != x;) {
            before = x;
            x = clearPlace(shape, placed, gapToAccidental, x);
            x = clearPlace(shape, taken, gapToHead, x);
        }
        accidental.x = x;
        for (const Box &part : shape)
            placed.push_back(part.movedBy(x, 0));
    }
}

} // namespace zarn::engraving
