// SPDX-License-Identifier: MIT
#include "Documents.h"

#include "Fuzzing.h"

#include <ZarnCore/io/ZarnImportException.h>
#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnImporter.h>
#include <ZarnCore/io/ZarnNativeExporter.h>
#include <ZarnCore/io/ZarnNativeImporter.h>
#include <ZarnCore/io/ZarnNoteList.h>
#include <ZarnCore/io/ZarnScoreStatistics.h>
#include <ZarnCore/model/ZarnModelCheck.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <filesystem/RAMFileSystem.h>

namespace fuzz {

using namespace zarn;

namespace {

/// Whether a refusal has no place because it speaks of the whole.
bool isAboutAll(const std::string &reason)
{
    for (const char *const whole : {"the file ", "the text ", "the archive "}) {
        if (reason.rfind(whole, 0) == 0)
            return true;
    }
    return false;
}

} // namespace

std::shared_ptr<ScoreModel> readDocument(const io::Importer &importer, const std::string &name,
                                         std::string_view bytes, io::ImportReport &report)
{
    filesystem::RAMFileSystem files;
    const auto writer = files.open(name, filesystem::OpenMode::Write);
    writer->writeBlock(bytes.data(), static_cast<std::int64_t>(bytes.size()));
    writer->close();
    const auto handle = files.open(name, filesystem::OpenMode::Read);
    importer.acceptsHandle(*handle);
    expect(handle->position() == 0, "a look at the content leaves the handle at the start");
    try {
        const auto model = importer.read(*handle, report);
        expect(model != nullptr, "what is not refused is read");
        return model;
    } catch (const io::ImportException &error) {
        if (error.reason().empty() || error.document().compare(0, name.size(), name) != 0
            || (error.place().empty() && !isAboutAll(error.reason())))
            breakLaw("a refusal names document, place and reason", error.what());
        return nullptr;
    }
}

void expectToComeBack(const ScoreModel &model)
{
    const std::string document = io::NativeExporter().toText(model);
    io::ImportReport report;
    const auto copy = readDocument(io::NativeImporter(), "written.zarn", document, report);
    expect(copy != nullptr, "what was written is read");
    expectEqual(document, io::NativeExporter().toText(*copy), "writing is stable");
    expect(*copy == model, "what was written is read back as an equal model");
}

void expectToBeUsable(const ScoreModel &model)
{
    for (const io::ListedNote &note : io::listNotes(model))
        expect(!note.toString().empty(), "every note can be listed");
    expect(!io::ScoreStatistics(model).toJson().isEmpty(), "every score can be counted");
    const int barCount = static_cast<int>(model.masterTrack()->masterBarCount());
    for (const int bar : model.masterTrack()->playlist())
        expect(bar >= 0 && bar < barCount, "only bars that are there are played");
    const auto copy = model.clone();
    expect(*copy == model, "a clone is equal");
}

void expectToBeSound(const ScoreModel &model)
{
    const auto problems = checkModel(model);
    if (!problems.empty())
        breakLaw("no rule of the tree is broken", problems.front());
}

} // namespace fuzz
