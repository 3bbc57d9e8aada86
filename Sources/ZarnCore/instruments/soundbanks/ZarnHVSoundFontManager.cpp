// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFontManager.h>

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/ZarnLog.h>
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFont.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbank.h>
#include <ZarnCore/utils/JsonDocument.h>
#include <filesystem/DiskFileSystem.h>
#include <streams/BankArchive.h>

namespace zarn {

namespace {

void warn(const std::string &problem)
{
    qCWarning(log::soundfonts).noquote()
        << QStringLiteral("Sound bank skipped: %1").arg(QString::fromStdString(problem));
}

} // namespace

std::shared_ptr<Soundbank> HVSoundFontManager::soundbank(const std::string &path) const
{
    filesystem::DiskFileSystem files;
    std::string error;
    const auto archive = streams::BankArchive::open(files, path, &error);
    if (archive == nullptr) {
        warn(error);
        return nullptr;
    }
    try {
        return std::make_shared<Soundbank>(readSoundFont(*archive));
    } catch (const CoreException &problem) {
        warn(archive->path() + ": " + problem.message());
        return nullptr;
    }
}

std::shared_ptr<const HVSoundFont>
HVSoundFontManager::readSoundFont(const streams::BankArchive &archive)
{
    const auto document = utils::jsonDocument(archive.description(), "JSON");
    return std::make_shared<const HVSoundFont>(
        HVSoundFont::parse(document, archive.path(),
                           [&archive](const std::string &sample) { return archive.has(sample); }));
}

} // namespace zarn
