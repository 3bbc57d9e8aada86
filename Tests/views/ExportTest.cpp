// SPDX-License-Identifier: MIT
#include "support/DrawnSample.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnViews/export/ZarnPdfWriter.h>
#include <ZarnViews/export/ZarnPngWriter.h>
#include <ZarnViews/export/ZarnScorePrinter.h>

#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QPrinter>
#include <QTemporaryDir>

#include <cmath>
#include <functional>

namespace {

using namespace zarn;
using namespace zarn::views;

/// How much of a rectangle in staff spaces is ink, 0 to 1.
double inkIn(const QImage &image, const layout::Layout &layout, double left, double top,
             double right, double bottom)
{
    const double scale = layout.staffSpace() * image.dotsPerMeterX() / 1e6;
    double sum = 0;
    int count = 0;
    for (int y = static_cast<int>(std::ceil(top * scale)); y < std::floor(bottom * scale); ++y) {
        for (int x = static_cast<int>(std::ceil(left * scale)); x < std::floor(right * scale);
             ++x) {
            sum += 1 - qGray(image.pixel(x, y)) / 255.0;
            ++count;
        }
    }
    return sum / count;
}

TEST(PngWriterTest, inkIsWhereTheLayoutPutsIt)
{
    const auto layout = test::drawnSample();
    const QImage image = PngWriter(300).image(*layout, 0);
    EXPECT_EQ(image.size(), QSize(2480, 3508));
    EXPECT_EQ(image.pixel(5, 5), 0xFFFFFFFF);
    // The system begins at 10, 25: its top line, the room beside the head, and the head.
    EXPECT_GT(inkIn(image, *layout, 30.5, 24.95, 31.5, 25.05), 0.9);
    EXPECT_LT(inkIn(image, *layout, 36, 25.15, 39, 25.85), 0.01);
    EXPECT_GT(inkIn(image, *layout, 18.3, 26.8, 18.9, 27.2), 0.9);
    // The stem, exactly as thick as it should be, over a place without anything else.
    EXPECT_NEAR(inkIn(image, *layout, 18.8, 25.3, 19.2, 25.7), 0.12 / 0.4, 0.06);
    // The beam slopes upwards.
    EXPECT_GT(inkIn(image, *layout, 24.5, 23.15, 24.9, 23.4), 0.9);
    EXPECT_LT(inkIn(image, *layout, 24.5, 24.0, 24.9, 24.4), 0.05);
    // Three turns of the arpeggio line, upwards from the bottom of the staff.
    EXPECT_GT(inkIn(image, *layout, 29.5, 26, 30.5, 29), 0.05);
    // Texts, also those that the carried font lacks.
    EXPECT_GT(inkIn(image, *layout, 40, 13, 50, 15), 0.1);
    EXPECT_GT(inkIn(image, *layout, 34, 31.5, 36, 33), 0.1);

    const QImage second = PngWriter(72).image(*layout, 1);
    EXPECT_EQ(second.size(), QSize(420, 595));
}

TEST(PngWriterTest, imagesThatNobodyCouldHoldAreRefused)
{
    const auto layout = test::drawnSample();
    QBuffer buffer;
    ASSERT_TRUE(buffer.open(QIODevice::WriteOnly));
    EXPECT_THROW(PngWriter(100000).write(*layout, 0, buffer), CoreException);
    EXPECT_THROW(PngWriter(72).write(*layout, 2, buffer), CoreException);
    EXPECT_TRUE(buffer.data().isEmpty());
    PngWriter(72).write(*layout, 0, buffer);
    EXPECT_EQ(QImage::fromData(buffer.data(), "PNG").size(), QSize(595, 842));
}

TEST(PdfWriterTest, aPageForEachSheetWithTheFontsEmbedded)
{
    const auto layout = test::drawnSample();
    QBuffer buffer;
    ASSERT_TRUE(buffer.open(QIODevice::WriteOnly));
    PdfWriter().write(*layout, buffer);
    const QByteArray &pdf = buffer.data();
    EXPECT_TRUE(pdf.startsWith("%PDF-1.4"));
    EXPECT_TRUE(pdf.trimmed().endsWith("%%EOF"));
    EXPECT_EQ(pdf.count("/Type /Page\n"), 2);
    EXPECT_EQ(pdf.count("/MediaBox [0 0 595."), 1);
    EXPECT_EQ(pdf.count("/MediaBox [0 0 420."), 1);
    EXPECT_GE(pdf.count("/FontFile"), 3) << "Bravura, Edwin bold and italic";
    EXPECT_TRUE(pdf.contains("Bravura"));
    EXPECT_TRUE(pdf.contains("/ToUnicode")) << "texts cannot be searched";

    QBuffer closed;
    EXPECT_THROW(PdfWriter().write(*layout, closed), CoreException);
    layout::Layout::Content nothing;
    nothing.font = layout::MusicFont::builtIn();
    EXPECT_THROW(PdfWriter().write(layout::Layout(nothing), buffer), CoreException);
}

TEST(ScorePrinterTest, aPageRangeIsPrintedInTheOrderThatWasAskedFor)
{
    const auto layout = test::drawnSample();
    const QTemporaryDir folder;
    const auto pagesOf = [&](const std::function<void(QPrinter &)> &setUp) {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(folder.filePath(QStringLiteral("printed.pdf")));
        setUp(printer);
        if (!printLayout(*layout, printer))
            return -1;
        QFile file(printer.outputFileName());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().count("/Type /Page\n");
    };
    EXPECT_EQ(pagesOf([](QPrinter &) {}), 2);
    EXPECT_EQ(pagesOf([](QPrinter &printer) {
                  printer.setPrintRange(QPrinter::PageRange);
                  printer.setFromTo(2, 5);
              }),
              1);
    EXPECT_EQ(pagesOf([](QPrinter &printer) {
                  printer.setPrintRange(QPrinter::PageRange);
                  printer.setFromTo(3, 5);
              }),
              -1);
    EXPECT_EQ(pagesOf([](QPrinter &printer) {
                  printer.setPageOrder(QPrinter::LastPageFirst);
                  printer.setCopyCount(3);
              }),
              6);
}

} // namespace
