// SPDX-License-Identifier: MIT
#include "document/DocumentFiles.h"

#include <ZarnCore/ZarnCore.h>
#include <ZarnCore/ZarnException.h>
#include <ZarnCore/io/ZarnExporter.h>
#include <ZarnCore/io/ZarnImporter.h>
#include <ZarnCore/io/ZarnNativeExporter.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <filesystem/DiskFileSystem.h>

#include <exception>

namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(DocumentFiles)
};

QString patterns(const QStringList &suffixes)
{
    QStringList patterns;
    for (const QString &suffix : suffixes)
        patterns << QStringLiteral("*.") + suffix;
    return patterns.join(QLatin1Char(' '));
}

const io::Importer *importerFor(filesystem::FileHandle &handle, const QString &path)
{
    QString suffix = QFileInfo(path).suffix().toLower();
    const auto &core = Core::instance();
    if (const io::Importer *both = core.importerByHandleAndExtension(handle, suffix))
        return both;
    if (const io::Importer *byContent = core.importerByHandle(handle))
        return byContent;
    // Its reader says best what is wrong with it.
    return core.importerByExtension(suffix);
}

void read(LoadedFile &loaded)
{
    filesystem::DiskFileSystem files;
    const std::string path = loaded.path.toStdString();
    if (files.isFolder(path)) {
        loaded.error = Text::tr("This is a folder.");
        return;
    }
    std::string error;
    const auto handle = files.open(path, filesystem::OpenMode::Read, &error);
    if (handle == nullptr) {
        loaded.error = QString::fromStdString(error);
        return;
    }
    const io::Importer *const importer = importerFor(*handle, loaded.path);
    if (importer == nullptr) {
        loaded.error = Text::tr("This is no score in a format that can be read.");
        return;
    }
    loaded.model = importer->read(*handle, loaded.report);
    loaded.isNative = importer->extensions().contains(nativeSuffix());
    loaded.layout =
        std::make_shared<layout::FirstLayout>(*loaded.model, usualOptions(*loaded.model));
}

void write(const ScoreModel &model, const QString &path, SavedFile &saved)
{
    const std::string suffix = QFileInfo(path).suffix().toLower().toStdString();
    const io::Exporter *const exporter = Core::instance().exporterByExtension(suffix);
    if (exporter == nullptr) {
        saved.error = Text::tr("No format that can be written has this suffix.");
        return;
    }
    filesystem::DiskFileSystem files;
    std::string error;
    const auto handle = files.open(path.toStdString(), filesystem::OpenMode::Write, &error);
    if (handle == nullptr)
        saved.error = QString::fromStdString(error);
    else
        exporter->write(model, *handle, saved.report);
}

} // namespace

QString reasonOf(const std::function<void()> &work)
{
    try {
        work();
    } catch (const CoreException &problem) {
        return QString::fromStdString(problem.message());
    } catch (const std::exception &problem) {
        return QString::fromLocal8Bit(problem.what());
    }
    return {};
}

layout::LayoutOptions usualOptions(const ScoreModel &model)
{
    const zarn::ScoreView &fullScore = model.views().front();
    layout::LayoutOptions options;
    options.view = fullScore.layout;
    options.multiRest = fullScore.multiRest;
    return options;
}

LoadedFile loadFile(const QString &path)
{
    LoadedFile loaded;
    loaded.path = path;
    const QString reason = reasonOf([&] { read(loaded); });
    if (!reason.isEmpty())
        loaded.error = reason;
    if (!loaded.error.isEmpty())
        loaded.model = nullptr;
    return loaded;
}

LoadedFile loadedModel(std::shared_ptr<ScoreModel> model)
{
    LoadedFile loaded;
    loaded.layout = std::make_shared<layout::FirstLayout>(*model, usualOptions(*model));
    loaded.model = std::move(model);
    loaded.isNative = true;
    return loaded;
}

SavedFile saveFile(const ScoreModel &model, const QString &path)
{
    SavedFile saved;
    const QString reason = reasonOf([&] { write(model, path, saved); });
    if (!reason.isEmpty())
        saved.error = reason;
    return saved;
}

QString nativeSuffix()
{
    return QString::fromStdString(io::NativeExporter().extensions().front());
}

QString openFilters()
{
    const auto &core = Core::instance();
    QStringList all;
    QStringList filters;
    for (unsigned i = 0; i < core.importersCount(); ++i) {
        const QStringList suffixes = core.importerVisibleExtensions(i);
        all << suffixes;
        filters << QStringLiteral("%1 (%2)").arg(core.importerDescription(i), patterns(suffixes));
    }
    filters.prepend(QStringLiteral("%1 (%2)").arg(Text::tr("All scores"), patterns(all)));
    filters.append(QStringLiteral("%1 (*)").arg(Text::tr("All files")));
    return filters.join(QStringLiteral(";;"));
}

QStringList exportFilters()
{
    const auto &core = Core::instance();
    QStringList filters;
    for (unsigned i = 0; i < core.exportersCount(); ++i) {
        QStringList suffixes;
        for (const std::string &suffix : core.exporterExtensions(i))
            suffixes << QString::fromStdString(suffix);
        filters << QStringLiteral("%1 (%2)").arg(
            QString::fromStdString(core.exporterDescription(i)), patterns(suffixes));
    }
    return filters;
}

QStringList linesOf(const io::FormatReport &report, const std::string &partWord)
{
    QStringList lines;
    for (const io::FormatProblem &problem : report.problems())
        lines << QString::fromStdString(problem.toString(partWord));
    for (const auto &[kind, count] : report.unheld()) {
        QString line = Text::tr("left out: %1 (%2)").arg(QString::fromStdString(kind)).arg(count);
        const std::string place = report.firstUnheld(kind).toString(partWord);
        if (!place.empty())
            line += Text::tr(", the first in %1").arg(QString::fromStdString(place));
        lines << line;
    }
    return lines;
}

} // namespace zarn::editor
