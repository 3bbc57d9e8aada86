// SPDX-License-Identifier: MIT
#include "common/Documents.h"

#include "common/Failure.h"
#include "common/Progress.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/io/ZarnImportException.h>
#include <ZarnCore/io/ZarnMusicXmlImporter.h>
#include <ZarnCore/io/ZarnNativeExporter.h>
#include <ZarnCore/io/ZarnNativeImporter.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <QString>

#include <filesystem/DiskFileSystem.h>

#include <vector>

namespace zarn::tool {

namespace {

using Importers = std::vector<std::unique_ptr<io::Importer>>;
using Exporters = std::vector<std::unique_ptr<io::Exporter>>;

const Importers &importers()
{
    static const Importers all = [] {
        Importers list;
        list.push_back(std::make_unique<io::NativeImporter>());
        list.push_back(std::make_unique<io::MusicXmlImporter>());
        return list;
    }();
    return all;
}

const Exporters &exporters()
{
    static const Exporters all = [] {
        Exporters list;
        list.push_back(std::make_unique<io::NativeExporter>());
        return list;
    }();
    return all;
}

/// What stands behind the last dot of the file's name, in lower case.
std::string suffixOf(const std::string &path)
{
    const std::string name = path.substr(path.find_last_of('/') + 1);
    const auto dot = name.find_last_of('.');
    return dot == std::string::npos
        ? std::string()
        : QString::fromStdString(name.substr(dot + 1)).toLower().toStdString();
}

const io::Exporter *exporterFor(const std::string &path)
{
    const std::string suffix = suffixOf(path);
    for (const auto &exporter : exporters())
        for (const std::string &extension : exporter->extensions())
            if (extension == suffix)
                return exporter.get();
    return nullptr;
}

/// The importer that knows the content, one that knows the suffix too before all others.
const io::Importer *importerFor(filesystem::FileHandle &handle, const std::string &path)
{
    const io::Importer *byContent = nullptr;
    const io::Importer *bySuffix = nullptr;
    const QString suffix = QString::fromStdString(suffixOf(path));
    for (const auto &importer : importers()) {
        const bool fitsContent = importer->acceptsHandle(handle);
        const bool fitsSuffix = importer->extensions().contains(suffix);
        if (fitsContent && fitsSuffix)
            return importer.get();
        if (fitsContent && byContent == nullptr)
            byContent = importer.get();
        if (fitsSuffix && bySuffix == nullptr)
            bySuffix = importer.get();
    }
    return byContent != nullptr ? byContent : bySuffix;
}

std::string withPath(const std::string &path, const std::string &reason)
{
    return reason.compare(0, path.size(), path) == 0 ? reason : path + ": " + reason;
}

} // namespace

OpenedDocument openDocument(const std::string &path, const Terminal &terminal)
{
    filesystem::DiskFileSystem files;
    if (files.isFolder(path))
        throw Failure(path + ": is a folder");
    std::string error;
    const auto handle = files.open(path, filesystem::OpenMode::Read, &error);
    if (!handle)
        throw Failure(withPath(path, error.empty() ? "cannot be opened" : error));
    const io::Importer *const importer = importerFor(*handle, path);
    if (importer == nullptr)
        throw Failure(path + ": is neither a native document nor MusicXML");
    OpenedDocument document;
    document.path = path;
    document.format = importer->description().toStdString();
    const Progress progress(terminal, "reading " + path);
    try {
        document.model = importer->read(*handle, document.report);
    } catch (const CoreException &problem) {
        throw Failure(withPath(path, problem.message()));
    }
    return document;
}

bool isWritableFormat(const std::string &path)
{
    return exporterFor(path) != nullptr;
}

void requireWritableFormat(const std::string &path)
{
    if (!isWritableFormat(path))
        throw Failure(path + ": the suffix names no format that can be written; use "
                      + writableSuffixes());
}

void saveDocument(const ScoreModel &model, const std::string &path, const Terminal &terminal)
{
    requireWritableFormat(path);
    filesystem::DiskFileSystem files;
    std::string error;
    const auto handle = files.open(path, filesystem::OpenMode::Write, &error);
    if (!handle)
        throw Failure(withPath(path, error.empty() ? "cannot be written" : error));
    const Progress progress(terminal, "writing " + path);
    try {
        exporterFor(path)->write(model, *handle);
    } catch (const CoreException &problem) {
        throw Failure(withPath(path, problem.message()));
    }
}

std::string writableSuffixes()
{
    std::string text;
    for (const auto &exporter : exporters())
        for (const std::string &extension : exporter->extensions())
            text += (text.empty() ? "." : ", .") + extension;
    return text;
}

std::string nativeText(const ScoreModel &model)
{
    return io::NativeExporter().toText(model);
}

} // namespace zarn::tool
