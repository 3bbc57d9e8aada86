// SPDX-License-Identifier: MIT
// From a file to the first page on the screen, painting, and PDF: a band of 300 bars. The first of
// two figures is what is to be reached, the second one ours.
#include "BandScore.h"
#include "RatioReport.h"

#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnMusicXmlExporter.h>
#include <ZarnCore/io/ZarnMusicXmlImporter.h>
#include <ZarnLayout/session/ZarnScoreLayout.h>
#include <ZarnViews/export/ZarnPdfWriter.h>
#include <ZarnViews/paint/ZarnScorePainter.h>
#include <ZarnViews/widgets/ZarnScoreCanvas.h>

#include <filesystem/RAMFileSystem.h>

#include <QApplication>
#include <QBuffer>
#include <QImage>
#include <QLoggingCategory>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace zarn;
using namespace zarn::layout;

constexpr unsigned barCount = 300;
constexpr double dotsPerMillimetre = 120 / 25.4;

const std::shared_ptr<const Layout> &sharedBand()
{
    static const auto layout = layOut(*bench::band::make(barCount));
    return layout;
}

const Layout &band()
{
    return *sharedBand();
}

/// The median of some runs, in milliseconds.
double timeOf(const std::function<void()> &work)
{
    std::vector<double> times;
    for (int i = 0; i < 9; ++i) {
        const double start = bench::threadSeconds();
        work();
        times.push_back((bench::threadSeconds() - start) * 1000);
    }
    std::nth_element(times.begin(), times.begin() + 4, times.end());
    return times[4];
}

QImage paint(const Layout &layout, std::size_t page, views::ScorePainter &painter)
{
    const LayoutPage &sheet = layout.pages()[page];
    QImage image(static_cast<int>(sheet.width / 1000.0 * dotsPerMillimetre),
                 static_cast<int>(sheet.height / 1000.0 * dotsPerMillimetre),
                 QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter device(&image);
    device.setRenderHint(QPainter::Antialiasing);
    const double scale = layout.millimetres(staffSpace) * dotsPerMillimetre / staffSpace;
    device.scale(scale, scale);
    painter.paintPage(device, layout, page);
    return image;
}

/// Of a page with 2,000 marks, from nothing.
double paintTime()
{
    const std::size_t page = 1;
    std::size_t marks = 0;
    for (const PlacedSystem &system : band().pages()[page].systems)
        marks += system.drawing->marks.marks().size();
    const double time = timeOf([&] {
        views::ScorePainter painter;
        paint(band(), page, painter);
    });
    return time * 2000 / static_cast<double>(marks);
}

double openingTime()
{
    filesystem::RAMFileSystem files;
    io::ExportReport losses;
    auto written = files.open("band.musicxml", filesystem::OpenMode::Write);
    io::MusicXmlExporter().write(*bench::band::make(barCount), *written, losses);
    written->close();
    return timeOf([&] {
        const auto file = files.open("band.musicxml", filesystem::OpenMode::Read);
        io::ImportReport repairs;
        const auto model = io::MusicXmlImporter().read(*file, repairs);
        views::ScorePainter painter;
        paint(*layOut(*model), 0, painter);
    });
}

/// A window is painted anew, a step further on, from the tiles that it has.
double scrollingTime()
{
    views::ScoreCanvas canvas;
    canvas.resize(1280, 900);
    canvas.setLayout(sharedBand());
    QImage window(canvas.size(), QImage::Format_ARGB32_Premultiplied);
    QScrollBar &bar = *canvas.verticalScrollBar();
    const int top = bar.pageStep();
    constexpr int step = 60;
    for (const int place : {top, top + step}) {
        bar.setValue(place);
        canvas.render(&window);
    }
    return timeOf([&] {
        bar.setValue(bar.value() == top ? top + step : top);
        canvas.render(&window);
    });
}

QByteArray pdfOf(const Layout &layout)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    views::PdfWriter().write(layout, buffer);
    return buffer.data();
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QLoggingCategory::setFilterRules(QStringLiteral("zarn.*=false"));
    const QApplication application(argc, argv);
    bench::RatioReport report;
    const auto pages = static_cast<double>(band().pages().size());
    report.compareValues("views: MusicXML file to the first page, ms", 1,
                         [] { return std::make_pair(230.0, openingTime()); });
    report.compareValues("views: 2,000 marks painted at 120 dpi, ms", 1,
                         [] { return std::make_pair(30.0, paintTime()); });
    report.compareValues("views: scrolled by a step, ms", 1,
                         [] { return std::make_pair(4.0, scrollingTime()); });
    report.compareValues("views: a page as PDF, kB", 1, [pages] {
        return std::make_pair(12.0, static_cast<double>(pdfOf(band()).size()) / 1000 / pages);
    });
    report.compareValues("views: a page to PDF, ms", 1, [pages] {
        return std::make_pair(5.0, timeOf([] { pdfOf(band()); }) / pages);
    });
    return report.run(argc, argv);
}
