// SPDX-License-Identifier: MIT
#include <ZarnLayout/engrave/AccidentalPacker.h>

#include <algorithm>
#include <utility>

namespace zarn::engraving {

namespace {

constexpr double gapToHead = 0.2;
constexpr double gapToAccidental = 0.12;

Sign signOf(Accidental accidental)
{
    return Sign::AccidentalDoubleFlat
        + (static_cast<int>(accidental) - static_cast<int>(Accidental::DoubleFlat));
}

/// Calls with each glyph of an accidental and its place, from the left edge of the first one.
template <class Visit>
void eachGlyph(const PackedAccidental &accidental, const Fonts &fonts, const Visit &visit)
{
    double x = 0;
    const auto add = [&](Sign sign) {
        const std::uint32_t glyph = fonts.glyph(sign);
        visit(glyph, x);
        x += fonts.advance(glyph) * accidental.scale + 0.05 * accidental.scale;
    };
    const bool parens = accidental.sign.display == AccidentalDisplay::Parentheses;
    const bool brackets = accidental.sign.display == AccidentalDisplay::Brackets;
    if (parens || brackets)
        add(parens ? Sign::AccidentalParensLeft : Sign::AccidentalBracketLeft);
    add(signOf(accidental.sign.sign));
    if (parens || brackets)
        add(parens ? Sign::AccidentalParensRight : Sign::AccidentalBracketRight);
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

double PackedAccidental::left(const Fonts &fonts) const
{
    double left = 1e9;
    eachGlyph(*this, fonts, [&](std::uint32_t glyph, double glyphX) {
        left = std::min(left, glyphX + fonts.box(glyph).left * scale);
    });
    return x + left;
}

void PackedAccidental::addTo(Inks &inks, const Chord &chord, const Pen &pen) const
{
    eachGlyph(*this, pen.fonts(), [&](std::uint32_t glyph, double glyphX) {
        Ink ink = pen.glyph(MarkKind::Accidental, glyph, glyphX, 0, scale);
        ink.place = place;
        ink.move(x - chord.x, y);
        inks.push_back(std::move(ink));
    });
}

void packAccidentals(PackedAccidentals &accidentals, const TakenBoxes &taken, const Fonts &fonts)
{
    sortFew(accidentals.begin(), accidentals.end(),
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
        const double scale = accidental.scale;
        eachGlyph(accidental, fonts, [&](std::uint32_t glyph, double glyphX) {
            fonts.eachPart(glyph, [&](const Box &part) {
                shape.push_back({glyphX + part.left * scale, accidental.y + part.top * scale,
                                 glyphX + part.right * scale, accidental.y + part.bottom * scale});
            });
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
