// SPDX-License-Identifier: MIT
#include "draw/DrawCommand.h"

#include "common/BuiltIns.h"
#include "common/Documents.h"
#include "common/Failure.h"
#include "common/Problems.h"
#include "common/Terminal.h"
#include "draw/DrawOptions.h"
#include "draw/GuiExport.h"
#include "draw/MusicFontFile.h"
#include "draw/PageFiles.h"

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnLayout/export/ZarnLayoutDump.h>
#include <ZarnLayout/export/ZarnSvgWriter.h>
#include <ZarnLayout/font/ZarnTextMeasure.h>

#include <QFileInfo>

#include <iostream>

namespace zarn::tool {
namespace {

enum class DrawFormat { Svg, Pdf, Png, Json };

constexpr int defaultResolution = 150;
constexpr std::size_t mostProblems = 10;

DrawFormat readFormat(const Arguments &arguments, const QString &path)
{
    const bool isGiven = arguments.has(QStringLiteral("format"));
    const QString word =
        isGiven ? arguments.value(QStringLiteral("format")) : QFileInfo(path).suffix().toLower();
    if (word == QStringLiteral("svg"))
        return DrawFormat::Svg;
    if (word == QStringLiteral("pdf"))
        return DrawFormat::Pdf;
    if (word == QStringLiteral("png"))
        return DrawFormat::Png;
    if (word == QStringLiteral("json"))
        return DrawFormat::Json;
    if (isGiven)
        throw UsageError{
            QStringLiteral("--format takes svg, pdf, png or json, not \"%1\"").arg(word)};
    throw UsageError{
        path == QStringLiteral("-")
            ? QStringLiteral("--format says what to write to standard output")
            : QStringLiteral("%1: the suffix must be .svg, .pdf, .png or .json").arg(path)};
}

layout::SvgText readSvgText(const Arguments &arguments)
{
    const QString word = arguments.value(QStringLiteral("text"));
    if (word == QStringLiteral("characters"))
        return layout::SvgText::Characters;
    if (word.isEmpty() || word == QStringLiteral("outlines"))
        return layout::SvgText::Outlines;
    throw UsageError{QStringLiteral("--text takes outlines or characters, not \"%1\"").arg(word)};
}

/// A file for each page when there are several.
void writePages(PageFiles &files, const QString &path, std::size_t pageCount,
                const std::function<void(std::size_t, QIODevice &)> &write)
{
    if (pageCount > 1 && isStandardStream(path.toStdString()))
        throw Failure("standard output holds one page, and there are " + std::to_string(pageCount)
                      + "; choose bars, or give a file");
    for (std::size_t page = 0; page < pageCount; ++page)
        files.write(pageCount > 1 ? pagePath(path, page) : path,
                    [&](QIODevice &device) { write(page, device); });
}

/// "track 1, bar 3, beat 2: ", as far as the numbers apply.
QString placeText(const layout::DrawPlace &place)
{
    QStringList parts;
    if (place.track >= 0)
        parts.append(QStringLiteral("track %1").arg(place.track + 1));
    if (place.bar >= 0)
        parts.append(QStringLiteral("bar %1").arg(place.bar + 1));
    if (place.beat >= 0)
        parts.append(QStringLiteral("beat %1").arg(place.beat + 1));
    return parts.isEmpty() ? QString() : parts.join(QStringLiteral(", ")) + QStringLiteral(": ");
}

void printProblems(const std::vector<layout::LayoutProblem> &problems)
{
    std::size_t count = 0;
    for (const layout::LayoutProblem &problem : problems) {
        if (count++ == mostProblems) {
            std::cerr << "zarn: and " << problems.size() - mostProblems
                      << " more; a drawing as .json names them all\n";
            break;
        }
        std::cerr << "zarn: " << placeText(problem.place).toStdString();
        std::cerr << printable(problem.message) << '\n';
    }
}

void printFiles(const QStringList &paths)
{
    if (paths.isEmpty())
        return;
    std::cout << paths.first().toStdString();
    if (paths.size() > 1)
        std::cout << " to " << paths.last().toStdString();
    std::cout << '\n';
}

int runDraw(const Arguments &arguments, const Terminal &terminal)
{
    const QString path = arguments.value(QStringLiteral("output"));
    if (path.isEmpty())
        throw UsageError{QStringLiteral("\"zarn draw\" needs --output FILE")};
    const DrawFormat format = readFormat(arguments, path);
    const layout::SvgText svgText = readSvgText(arguments);
    const int resolution =
        arguments.number(QStringLiteral("resolution"), 10, 2400, defaultResolution);
    const OpenedDocument document = openDocument(arguments.operand(0), terminal);
    loadDrumKitsFor(*document.model);
    const auto layout =
        layout::layOut(*document.model, readLayoutOptions(arguments, *document.model),
                       readMusicFont(arguments), layout::builtInTextMeasure());
    std::vector<layout::LayoutProblem> problems = layout->problems();

    PageFiles files;
    const std::size_t pageCount = layout->pages().size();
    switch (format) {
    case DrawFormat::Svg:
        writePages(files, path, pageCount, [&](std::size_t page, QIODevice &device) {
            layout::SvgWriter(svgText).write(*layout, page, device);
        });
        break;
    case DrawFormat::Png:
        writePages(files, path, pageCount, [&](std::size_t page, QIODevice &device) {
            guiExport().writePng(*layout, page, resolution, device);
        });
        break;
    case DrawFormat::Pdf:
        files.write(path, [&](QIODevice &device) { guiExport().writePdf(*layout, device); });
        break;
    case DrawFormat::Json:
        files.write(path, [&](QIODevice &device) {
            const std::string dump = layout::layoutDump(*layout);
            device.write(dump.data(), static_cast<qint64>(dump.size()));
        });
        break;
    }
    if (format == DrawFormat::Png || format == DrawFormat::Pdf)
        for (layout::LayoutProblem &problem : guiExport().undrawableTexts(*layout))
            problems.push_back(std::move(problem));
    files.commit();
    printFiles(files.paths());
    printProblems(problems);
    warnOfProblems(document);
    return Done;
}

} // namespace

Subcommand drawCommand()
{
    return {
        QStringLiteral("draw"),
        QStringLiteral("FILE"),
        1,
        1,
        QStringLiteral("Engraves a score: PDF, SVG and PNG."),
        QStringLiteral(
            "Lays a score out on pages and writes them by the suffix of OUT. PDF holds all\n"
            "pages; SVG and PNG of several pages become OUT-1, OUT-2 and so on. Every mark of\n"
            "an SVG says what it draws (data-kind, data-place: track, bar, staff, voice, beat\n"
            "and note, counted from 0). JSON is the layout itself, for programs that check it.\n"
            "What cannot be drawn as it should be is named on standard error. Tracks and bars\n"
            "are counted from 1. No display is needed. - as FILE is standard input."),
        {{QStringLiteral("output"), QStringLiteral("o"), QStringLiteral("OUT"),
          QStringLiteral("The file to write; - is standard output.")},
         {QStringLiteral("format"), QStringLiteral("f"), QStringLiteral("FORMAT"),
          QStringLiteral("svg, pdf, png or json, whatever the suffix is.")},
         {QStringLiteral("tracks"), QStringLiteral("t"), QStringLiteral("LIST"),
          QStringLiteral("Draw some tracks: 2 or 1-3,5.")},
         {QStringLiteral("bars"), QStringLiteral("b"), QStringLiteral("A-B"),
          QStringLiteral("Draw bars A to B, or one bar, as far as the score goes.")},
         {QStringLiteral("notation"), QStringLiteral("n"), QStringLiteral("LIST"),
          QStringLiteral("staff, tab, slash or several of them, such as staff,tab.")},
         {QStringLiteral("view"), QStringLiteral("v"), QStringLiteral("VIEW"),
          QStringLiteral("pages, scroll (one endless page) or line (one endless system).")},
         {QStringLiteral("page"), QStringLiteral("p"), QStringLiteral("SIZE"),
          QStringLiteral("A4, letter and so on, or WIDTHxHEIGHT in millimetres.")},
         {QStringLiteral("staff-size"), QStringLiteral("s"), QStringLiteral("MM"),
          QStringLiteral("Height of a staff of five lines in millimetres.")},
         {QStringLiteral("systems"), QString(), QStringLiteral("HOW"),
          QStringLiteral("Break lines as the document says, or best: where the music does.")},
         {QStringLiteral("multi-rests"), QStringLiteral("m"), QString(),
          QStringLiteral("Draw runs of empty bars as one.")},
         {QStringLiteral("text"), QString(), QStringLiteral("HOW"),
          QStringLiteral("Texts in SVG: outlines, or characters, which need the font Edwin.")},
         {QStringLiteral("font"), QString(), QStringLiteral("FILE"),
          QStringLiteral(
              "A SMuFL font for the signs, with its metadata in FILE.json or beside it.")},
         {QStringLiteral("resolution"), QStringLiteral("r"), QStringLiteral("DPI"),
          QStringLiteral("Pixels per inch of PNG, 150 if not given.")}},
        runDraw,
    };
}

} // namespace zarn::tool
