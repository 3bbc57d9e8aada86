// SPDX-License-Identifier: MIT
#include "common/Documents.h"

#include "common/Failure.h"
#include "common/Progress.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/io/ZarnImportException.h>
#include <ZarnCore/io/ZarnLilyPondExporter.h>
#include <ZarnCore/io/ZarnMidiExporter.h>
#include <ZarnCore/io/ZarnMidiImporter.h>
#include <ZarnCore/io/ZarnMusicXmlExporter.h>
#include <ZarnCore/io/ZarnMusicXmlImporter.h>
#include <ZarnCore/io/ZarnMxlExporter.h>
#include <ZarnCore/io/ZarnNativeExporter.h>
#include <ZarnCore/io/ZarnNativeImporter.h>
#include <ZarnCore/io/ZarnTextExporter.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/clip/ZarnClip.h>

#include <QString>

#include <filesystem/DiskFileSystem.h>
#include <filesystem/RAMFileSystem.h>

#include <algorithm>
#include <iostream>
#include <iterator>
#include <vector>

namespace zarn::tool {

namespace {

const char *const StandardStream = "-";

using Importers = std::vector<std::unique_ptr<io::Importer>>;
using Exporters = std::vector<std::unique_ptr<io::Exporter>>;

const Importers &importers()
{
    static const Importers all = [] {
        Importers list;
        list.push_back(std::make_unique<io::NativeImporter>());
        list.push_back(std::make_unique<io::MusicXmlImporter>());
        list.push_back(std::make_unique<io::MidiImporter>());
        return list;
    }();
    return all;
}

const Exporters &exporters()
{
    static const Exporters all = [] {
        Exporters list;
        list.push_back(std::make_unique<io::NativeExporter>());
        list.push_back(std::make_unique<io::MusicXmlExporter>());
        list.push_back(std::make_unique<io::MxlExporter>());
        list.push_back(std::make_unique<io::TextExporter>());
        list.push_back(std::make_unique<io::LilyPondExporter>());
        list.push_back(std::make_unique<io::MidiExporter>());
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
    if (path == StandardStream)
        return exporters().front().get();
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

/// Where documents lie: on the disk, or for "-" in memory, as a file that standard input filled or
/// that goes to standard output.
class Place {
public:
    explicit Place(const std::string &path) : _path(path) { }

    bool isStandardStream() const { return _path == StandardStream; }

    filesystem::FileSystem &files()
    {
        if (isStandardStream())
            return _memory;
        return _disk;
    }

    void readInput()
    {
        const std::string input((std::istreambuf_iterator<char>(std::cin)),
                                std::istreambuf_iterator<char>());
        const auto handle = _memory.open(_path, filesystem::OpenMode::Write);
        if (std::cin.bad() || !handle
            || !handle->writeBlock(input.data(), static_cast<std::int64_t>(input.size()))
            || !handle->close())
            throw Failure("standard input: cannot be read to its end");
    }

    void writeOutput()
    {
        const auto handle = _memory.open(_path, filesystem::OpenMode::Read);
        std::string content(static_cast<std::size_t>(handle->size()), '\0');
        handle->readBlock(content.data(), handle->size());
        std::cout << content;
    }

private:
    std::string _path;
    filesystem::DiskFileSystem _disk;
    filesystem::RAMFileSystem _memory;
};

std::string withoutPath(const std::string &path, const std::string &reason)
{
    const std::string start = path + ": ";
    return reason.compare(0, start.size(), start) == 0 ? reason.substr(start.size()) : reason;
}

std::string withPath(const std::string &path, const std::string &reason)
{
    return path + ": " + withoutPath(path, reason);
}

} // namespace

OpenedDocument openDocument(const std::string &path, const Terminal &terminal,
                            const io::MidiImportOptions &midiOptions)
{
    Place place(path);
    if (place.isStandardStream())
        place.readInput();
    const std::string name = nameOfPath(path, Direction::In);
    if (place.files().isFolder(path))
        throw Failure(path + ": is a folder");
    std::string error;
    const auto handle = place.files().open(path, filesystem::OpenMode::Read, &error);
    if (!handle)
        throw Failure(withPath(path, error.empty() ? "cannot be opened" : error));
    const io::Importer *const importer = importerFor(*handle, path);
    if (importer == nullptr)
        throw Failure(name + ": is neither a native document nor MusicXML nor MIDI");
    OpenedDocument document;
    document.path = path;
    document.format = importer->description().toStdString();
    const Progress progress(terminal, "reading " + name);
    try {
        const io::MidiImporter midiImporter(midiOptions);
        const bool isMidi = importer->description() == midiImporter.description();
        document.model = (isMidi ? &midiImporter : importer)->read(*handle, document.report);
    } catch (const CoreException &problem) {
        throw Failure(name + ": " + withoutPath(path, problem.message()));
    }
    return document;
}

OpenedDocument newDocument()
{
    OpenedDocument document;
    document.format = "a new score";
    document.model = std::make_shared<ScoreModel>();
    document.model->masterTrack()->addEmptyMasterBars(1);
    return document;
}

bool isStandardStream(const std::string &path)
{
    return path == StandardStream;
}

std::string nameOfPath(const std::string &path, Direction direction)
{
    if (!isStandardStream(path))
        return path;
    return direction == Direction::In ? "standard input" : "standard output";
}

bool isSuffixOf(const io::Exporter &exporter, const std::string &path)
{
    const auto extensions = exporter.extensions();
    return std::find(extensions.begin(), extensions.end(), suffixOf(path)) != extensions.end();
}

bool isReadableFormat(const std::string &path)
{
    const QString suffix = QString::fromStdString(suffixOf(path));
    return isStandardStream(path)
        || std::any_of(importers().begin(), importers().end(), [&](const auto &importer) {
               return importer->extensions().contains(suffix);
           });
}

bool isWritableFormat(const std::string &path)
{
    return exporterFor(path) != nullptr;
}

bool isNativeFormat(const std::string &path)
{
    return exporterFor(path) == exporters().front().get();
}

void requireWritableFormat(const std::string &path)
{
    if (!isWritableFormat(path))
        throw Failure(path + ": the suffix names no format that can be written; use "
                      + writableSuffixes());
}

namespace {

/// Writes a file by `write(handle)`.
template <class Write>
void saveTo(const std::string &path, const Terminal &terminal, Write write)
{
    Place place(path);
    std::string error;
    const auto handle = place.files().open(path, filesystem::OpenMode::Write, &error);
    if (!handle)
        throw Failure(withPath(path, error.empty() ? "cannot be written" : error));
    const Progress progress(terminal, "writing " + nameOfPath(path, Direction::Out));
    try {
        write(*handle);
    } catch (const CoreException &problem) {
        throw Failure(withPath(path, problem.message()));
    }
    if (place.isStandardStream())
        place.writeOutput();
}

} // namespace

io::ExportReport saveDocument(const ScoreModel &model, const std::string &path,
                              const Terminal &terminal)
{
    requireWritableFormat(path);
    return saveDocument(model, path, terminal, *exporterFor(path));
}

io::ExportReport saveDocument(const ScoreModel &model, const std::string &path,
                              const Terminal &terminal, const io::Exporter &exporter)
{
    io::ExportReport report;
    saveTo(path, terminal,
           [&](filesystem::FileHandle &handle) { exporter.write(model, handle, report); });
    return report;
}

void saveClip(const Clip &clip, const std::string &path, const Terminal &terminal)
{
    const io::NativeExporter exporter;
    if (exporterFor(path) == nullptr || exporterFor(path)->description() != exporter.description())
        throw Failure(path + ": copied music is written as ." + exporter.extensions().front());
    saveTo(path, terminal, [&](filesystem::FileHandle &handle) { exporter.write(clip, handle); });
}

Clip openClip(const std::string &path, const Terminal &terminal)
{
    Place place(path);
    std::string error;
    const auto handle = place.files().open(path, filesystem::OpenMode::Read, &error);
    const io::NativeImporter importer;
    if (!handle || !importer.acceptsHandle(*handle)) {
        Clip clip;
        clip.model = openDocument(path, terminal).model;
        clip.hasColumns = true;
        return clip;
    }
    try {
        io::ImportReport report;
        return importer.readClip(*handle, report);
    } catch (const CoreException &problem) {
        throw Failure(path + ": " + withoutPath(path, problem.message()));
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
