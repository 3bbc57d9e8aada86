// SPDX-License-Identifier: MIT
#include <ZarnViews/paint/ZarnScorePainter.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnViews/paint/GlyphPaths.h>
#include <ZarnViews/paint/MarkBrush.h>

#include <QPainter>

namespace zarn::views {

struct ScorePainter::Caches {
    GlyphPaths paths;
};

ScorePainter::ScorePainter(GlyphDrawing glyphs)
    : _glyphs(glyphs), _caches(std::make_unique<Caches>())
{
}

ScorePainter::~ScorePainter() = default;

void ScorePainter::paintPage(QPainter &painter, const layout::Layout &layout, std::size_t page,
                             const layout::Box &exposed)
{
    ZARN_ASSERT_IN("zarn::views::ScorePainter::paintPage", page < layout.pages().size());
    const layout::LayoutPage &sheet = layout.pages()[page];
    painter.save();
    MarkBrush brush(painter, layout.font(), _caches->paths, _glyphs, _ink);
    if (sheet.marks != nullptr)
        brush.paint(*sheet.marks, exposed);
    // Pens and fonts stay from one system to the next.
    const QTransform corner = painter.transform();
    for (const layout::PlacedSystem &system : sheet.systems) {
        painter.setTransform(QTransform::fromTranslate(system.at.x, system.at.y) * corner);
        brush.paint(system.drawing->marks,
                    exposed.isEmpty() ? exposed : exposed.movedBy({-system.at.x, -system.at.y}));
    }
    painter.restore();
}

} // namespace zarn::views
