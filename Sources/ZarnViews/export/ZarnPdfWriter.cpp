// SPDX-License-Identifier: MIT
#include <ZarnViews/export/ZarnPdfWriter.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnViews/paint/ZarnScorePainter.h>

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

#include <cmath>

namespace zarn::views {
namespace {

constexpr auto function = "zarn::views::PdfWriter::write";

/// A dot for each unit of the layout: coordinates are whole numbers, and short to write. What is
/// rounded off is less than a hundredth of a millimetre over A4.
int dotsPerInch(const layout::Layout &layout)
{
    return static_cast<int>(std::lround(25.4 / layout.millimetres(1)));
}

QPageLayout pageLayoutOf(const layout::LayoutPage &page)
{
    const QPageSize size(QSizeF(page.width / 1000.0, page.height / 1000.0), QPageSize::Millimeter,
                         QString(), QPageSize::ExactMatch);
    return {size, QPageLayout::Portrait, QMarginsF()};
}

} // namespace

void PdfWriter::write(const layout::Layout &layout, QIODevice &device) const
{
    ZARN_ASSERT_IN(function, !layout.pages().empty());
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter pdf(&buffer);
        pdf.setResolution(dotsPerInch(layout));
        pdf.setTitle(QString::fromStdString(layout.title()));
        pdf.setPageLayout(pageLayoutOf(layout.pages().front()));
        QPainter painter;
        if (!painter.begin(&pdf))
            ZARN_RAISE_IN(function, "Qt could not begin a PDF document");
        ScorePainter score(GlyphDrawing::Fonts);
        for (std::size_t page = 0; page < layout.pages().size(); ++page) {
            if (page > 0) {
                pdf.setPageLayout(pageLayoutOf(layout.pages()[page]));
                pdf.newPage();
            }
            score.paintPage(painter, layout, page);
        }
    }
    if (device.write(bytes) != bytes.size())
        ZARN_RAISE_IN(function,
                      "The PDF could not be written: " + device.errorString().toStdString());
}

} // namespace zarn::views
