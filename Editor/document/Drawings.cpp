// SPDX-License-Identifier: MIT
#include "document/Drawings.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnLayout/export/ZarnSvgWriter.h>
#include <ZarnViews/export/ZarnPdfWriter.h>
#include <ZarnViews/export/ZarnPngWriter.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QSaveFile>

#include <functional>

namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(Drawings)
};

constexpr int dotsPerInch = 300;

QString suffixOf(const QString &path)
{
    return QFileInfo(path).suffix().toLower();
}

QString pagePath(const QString &path, std::size_t page, std::size_t count)
{
    if (count == 1)
        return path;
    const QFileInfo file(path);
    return QStringLiteral("%1/%2-%3.%4")
        .arg(file.path(), file.completeBaseName())
        .arg(page + 1)
        .arg(file.suffix());
}

QString write(const QString &path, const std::function<void(QIODevice &)> &content)
{
    QSaveFile file(path);
    try {
        if (file.open(QIODevice::WriteOnly)) {
            content(file);
            if (file.commit())
                return {};
        }
    } catch (const CoreException &problem) {
        return QString::fromStdString(problem.message());
    }
    return path + QStringLiteral(": ") + file.errorString();
}

} // namespace

bool isDrawing(const QString &path)
{
    const QString suffix = suffixOf(path);
    return suffix == QLatin1String("pdf") || suffix == QLatin1String("svg")
        || suffix == QLatin1String("png");
}

QStringList drawingFilters()
{
    return {Text::tr("Pages as PDF (*.pdf)"), Text::tr("Pages as SVG (*.svg)"),
            Text::tr("Pages as PNG (*.png)")};
}

QString saveDrawing(const layout::Layout &layout, const QString &path)
{
    if (suffixOf(path) == QLatin1String("pdf"))
        return write(path, [&](QIODevice &device) { views::PdfWriter().write(layout, device); });
    const std::size_t count = layout.pages().size();
    for (std::size_t page = 0; page < count; ++page) {
        const QString error = write(pagePath(path, page, count), [&](QIODevice &device) {
            if (suffixOf(path) == QLatin1String("svg"))
                layout::SvgWriter().write(layout, page, device);
            else
                views::PngWriter(dotsPerInch).write(layout, page, device);
        });
        if (!error.isEmpty())
            return error;
    }
    return {};
}

} // namespace zarn::editor
