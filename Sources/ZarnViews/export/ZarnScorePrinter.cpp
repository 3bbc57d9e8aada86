// SPDX-License-Identifier: MIT
#include <ZarnViews/export/ZarnScorePrinter.h>

#include <ZarnViews/paint/ZarnScorePainter.h>

#include <QPainter>
#include <QPrinter>

#include <algorithm>
#include <vector>

namespace zarn::views {
namespace {

/// Indexes of the sheets to print, in the order of printing.
std::vector<std::size_t> sheetsToPrint(std::size_t count, const QPrinter &printer)
{
    std::size_t first = 0;
    std::size_t last = count;
    if (printer.printRange() == QPrinter::PageRange) {
        first = static_cast<std::size_t>(std::max(1, printer.fromPage())) - 1;
        if (printer.toPage() > 0)
            last = std::min(count, static_cast<std::size_t>(printer.toPage()));
    }
    std::vector<std::size_t> sheets;
    for (std::size_t sheet = first; sheet < last; ++sheet)
        sheets.push_back(sheet);
    if (printer.pageOrder() == QPrinter::LastPageFirst)
        std::reverse(sheets.begin(), sheets.end());
    if (printer.supportsMultipleCopies() || printer.copyCount() <= 1)
        return sheets;
    std::vector<std::size_t> copies;
    if (printer.collateCopies()) {
        for (int copy = 0; copy < printer.copyCount(); ++copy)
            copies.insert(copies.end(), sheets.begin(), sheets.end());
    } else {
        for (const std::size_t sheet : sheets)
            copies.insert(copies.end(), static_cast<std::size_t>(printer.copyCount()), sheet);
    }
    return copies;
}

} // namespace

bool printLayout(const layout::Layout &layout, QPrinter &printer)
{
    const auto sheets = sheetsToPrint(layout.pages().size(), printer);
    if (sheets.empty())
        return false;
    printer.setFullPage(true);
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    ScorePainter score(GlyphDrawing::Fonts);
    bool isFirst = true;
    for (const std::size_t sheet : sheets) {
        if (printer.printerState() == QPrinter::Aborted || (!isFirst && !printer.newPage()))
            return false;
        isFirst = false;
        const layout::LayoutPage &page = layout.pages()[sheet];
        const QSizeF paper = printer.paperRect(QPrinter::Millimeter).size();
        const double shrink =
            std::min({1.0, paper.width() * 1000 / page.width, paper.height() * 1000 / page.height});
        const double scale =
            layout.millimetres(layout::staffSpace) / layout::staffSpace / 25.4 * shrink;
        painter.save();
        painter.scale(scale * printer.logicalDpiX(), scale * printer.logicalDpiY());
        score.paintPage(painter, layout, sheet);
        painter.restore();
    }
    return true;
}

} // namespace zarn::views
