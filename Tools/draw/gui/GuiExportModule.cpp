// SPDX-License-Identifier: MIT
#include "common/Failure.h"
#include "draw/GuiExport.h"

#include <ZarnViews/export/ZarnPdfWriter.h>
#include <ZarnViews/export/ZarnPngWriter.h>
#include <ZarnViews/paint/ZarnTextFonts.h>

#include <QFileInfo>
#include <QGuiApplication>
#include <QLibraryInfo>

namespace {

using namespace zarn;
using namespace zarn::tool;

QtMessageHandler wholeHandler = nullptr;

/// Without a display nobody has set up a session either: Qt need not say so.
void withoutSessionTalk(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (!text.startsWith(QStringLiteral("QStandardPaths:")) && wholeHandler != nullptr)
        wholeHandler(type, context, text);
}

class Module final : public GuiExport {
public:
    Module()
    {
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        // Qt ends the process when it finds no platform.
        const QString plugin = QLibraryInfo::location(QLibraryInfo::PluginsPath)
            + QStringLiteral("/platforms/libqoffscreen.so");
        if (qgetenv("QT_QPA_PLATFORM") == "offscreen" && !QFileInfo::exists(plugin)
            && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM_PLUGIN_PATH"))
            throw Failure("PDF and PNG need Qt's platform \"offscreen\", and there is no "
                          + plugin.toStdString() + "; SVG and JSON do not");
        wholeHandler = qInstallMessageHandler(withoutSessionTalk);
        _application = std::make_unique<QGuiApplication>(_argumentCount, _arguments);
        qInstallMessageHandler(wholeHandler);
    }

    void writePdf(const layout::Layout &layout, QIODevice &device) override
    {
        views::PdfWriter().write(layout, device);
    }

    void writePng(const layout::Layout &layout, std::size_t page, int dotsPerInch,
                  QIODevice &device) override
    {
        views::PngWriter(dotsPerInch).write(layout, page, device);
    }

    std::vector<layout::LayoutProblem> undrawableTexts(const layout::Layout &layout) override
    {
        return views::undrawableTexts(layout);
    }

private:
    int _argumentCount = 1;
    char _name[5] = "zarn";
    char *_arguments[2] = {_name, nullptr};
    std::unique_ptr<QGuiApplication> _application;
};

} // namespace

extern "C" __attribute__((visibility("default"))) zarn::tool::GuiExport *zarnGuiExport()
{
    static Module module;
    return &module;
}
