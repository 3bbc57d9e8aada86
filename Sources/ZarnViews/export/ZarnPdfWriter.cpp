// SPDX-License-Identifier: MIT
#include <ZarnViews/export/ZarnPdfWriter.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnViews/paint/ZarnScorePainter.h>

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

namespace zarn::views {
namespace {

constexpr auto function = "zarn::views::PdfWriter::write";
constexpr int dotsPerInch = 1200;

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
        pdf.setResolution(dotsPerInch);
        pdf.setTitle(QString::fromStdString(layout.title()));
        pdf.setPageLayout(pageLayoutOf(layout.pages().front()));
        QPainter painter;
        if (!painter.begin(&pdf))
            ZARN_RAISE_IN(function, "Qt could not begin a PDF document");
        const double scale =
            layout.millimetres(layout::staffSpace) / layout::staffSpace * dotsPerInch / 25.4;
        ScorePainter score(GlyphDrawing::Fonts);
        for (std::size_t page = 0; page < layout.pages().size(); ++page) {
            if (page > 0) {
                pdf.setPageLayout(pageLayoutOf(layout.pages()[page]));
                pdf.newPage();
            }
            painter.save();
            painter.scale(scale, scale);
            score.paintPage(painter, layout, page);
            painter.restore();
        }
    }
    if (device.write(bytes) != bytes.size())
        ZARN_RAISE_IN(function,
                      "The PDF could not be written: " + device.errorString().toStdString());
}

} // namespace zarn::views
