// SPDX-License-Identifier: MIT
#include <ZarnViews/export/ZarnPngWriter.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnViews/paint/ZarnScorePainter.h>

#include <QBuffer>
#include <QPainter>

#include <cmath>

namespace zarn::views {
namespace {

constexpr double longestSide = 32767;
constexpr double mostPixels = 300e6;

} // namespace

PngWriter::PngWriter(int dotsPerInch) : _dotsPerInch(dotsPerInch)
{
    ZARN_ASSERT_IN("zarn::views::PngWriter::PngWriter", dotsPerInch >= 1);
}

QImage PngWriter::image(const layout::Layout &layout, std::size_t page) const
{
    constexpr auto function = "zarn::views::PngWriter::image";
    ZARN_ASSERT_IN(function, page < layout.pages().size());
    const layout::LayoutPage &sheet = layout.pages()[page];
    const double dotsPerMicrometre = _dotsPerInch / 25400.0;
    const double width = std::max(1.0, std::round(sheet.width * dotsPerMicrometre));
    const double height = std::max(1.0, std::round(sheet.height * dotsPerMicrometre));
    if (width > longestSide || height > longestSide || width * height > mostPixels)
        ZARN_RAISE_IN(function,
                      "An image of " + std::to_string(static_cast<long long>(width)) + " x "
                          + std::to_string(static_cast<long long>(height))
                          + " pixels is too large; a lower resolution makes it smaller");
    QImage image(static_cast<int>(width), static_cast<int>(height), QImage::Format_RGB32);
    if (image.isNull())
        ZARN_RAISE_IN(function, "There is not enough memory for the image");
    const int perMetre = static_cast<int>(std::lround(_dotsPerInch / 0.0254));
    image.setDotsPerMeterX(perMetre);
    image.setDotsPerMeterY(perMetre);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const double scale =
        layout.staffSpace() * dotsPerMicrometre / static_cast<double>(layout::staffSpace);
    painter.scale(scale, scale);
    ScorePainter().paintPage(painter, layout, page);
    return image;
}

void PngWriter::write(const layout::Layout &layout, std::size_t page, QIODevice &device) const
{
    constexpr auto function = "zarn::views::PngWriter::write";
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image(layout, page).convertToFormat(QImage::Format_Grayscale8).save(&buffer, "PNG"))
        ZARN_RAISE_IN(function, "Qt could not write the image as PNG");
    if (device.write(bytes) != bytes.size())
        ZARN_RAISE_IN(function,
                      "The image could not be written: " + device.errorString().toStdString());
}

} // namespace zarn::views
