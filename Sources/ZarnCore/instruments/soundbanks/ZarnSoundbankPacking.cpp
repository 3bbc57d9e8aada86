// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPacking.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/ZarnException.h>
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFont.h>
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFontManager.h>
#include <filesystem/FileSystem.h>
#include <streams/BankArchive.h>
#include <streams/MemoryStream.h>
#include <streams/ZipArchiveWriter.h>

#include <algorithm>
#include <array>

namespace zarn {

namespace {

using streams::BankArchive;
using Packing = streams::ZipArchiveWriter::Packing;

constexpr const char *packFunction = "zarn::packSoundbank";
constexpr const char *unpackFunction = "zarn::unpackSoundbank";

std::string below(const std::string &folder, const std::string &name)
{
    return folder + (folder.empty() || folder.back() == '/' ? "" : "/") + name;
}

bool endsWith(const std::string &text, const std::string &end)
{
    return text.size() >= end.size()
        && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

/// The file of a folder that describes a bank.
std::string descriptionOf(const filesystem::FileSystem &files, const std::string &folder)
{
    if (!files.isFolder(folder))
        ZARN_RAISE_IN(packFunction, folder + ": is no folder");
    const std::string usual = below(folder, BankArchive::descriptionName);
    if (files.exists(usual))
        return usual;
    std::vector<std::string> found;
    for (const auto &name : files.list(folder))
        if (endsWith(name, ".zarn7bank"))
            found.push_back(name);
    if (found.size() != 1)
        ZARN_RAISE_IN(packFunction,
                      folder + ": holds no " + BankArchive::descriptionName + " and "
                          + (found.empty() ? "no" : "more than one") + " .zarn7bank");
    return below(folder, found.front());
}

std::unique_ptr<BankArchive> openBank(filesystem::FileSystem &files, const std::string &path,
                                      const char *function)
{
    std::string error;
    auto bank = BankArchive::open(files, path, &error);
    if (bank == nullptr)
        ZARN_RAISE_IN(function, error);
    return bank;
}

std::unique_ptr<streams::Stream> openSample(const BankArchive &bank, const std::string &sample,
                                            const char *function)
{
    std::string error;
    auto stream = bank.openSample(sample, &error);
    if (stream == nullptr)
        ZARN_RAISE_IN(function, error);
    return stream;
}

std::unique_ptr<filesystem::FileHandle>
openForWriting(filesystem::FileSystem &files, const std::string &path, const char *function)
{
    std::string error;
    auto handle = files.open(path, filesystem::OpenMode::Write, &error);
    if (handle == nullptr)
        ZARN_RAISE_IN(function, error);
    return handle;
}

void writeFile(filesystem::FileSystem &files, const std::string &path, streams::Stream &content)
{
    const auto folder = path.substr(0, path.find_last_of('/'));
    std::string error;
    if (!files.makeFolder(folder, &error))
        ZARN_RAISE_IN(unpackFunction, error);
    const auto handle = openForWriting(files, path, unpackFunction);
    std::array<char, 1 << 16> block;
    while (const auto count = content.readSome(block.data(), block.size()))
        handle->writeBlock(block.data(), count);
    if (content.hasError())
        ZARN_RAISE_IN(unpackFunction, content.errorText());
    if (!handle->close())
        ZARN_RAISE_IN(unpackFunction, handle->errorText());
}

} // namespace

void packSoundbank(filesystem::FileSystem &files, const std::string &folder,
                   const std::string &file)
{
    const auto bank = openBank(files, descriptionOf(files, folder), packFunction);
    if (bank->isPacked())
        ZARN_RAISE_IN(packFunction, bank->path() + ": is packed already");
    const auto font = [&] {
        try {
            return HVSoundFontManager::readSoundFont(*bank);
        } catch (const CoreException &problem) {
            ZARN_RAISE_IN(packFunction, bank->path() + ": " + problem.message());
        }
    }();
    const auto handle = openForWriting(files, file, packFunction);
    streams::ZipArchiveWriter archive(*handle);
    archive.add(BankArchive::descriptionName, bank->description(), Packing::Deflated);
    for (const auto &sample : font->samples())
        archive.add(
            sample, [&bank, sample](std::string *error) { return bank->openSample(sample, error); },
            Packing::Stored);
    if (!archive.finish())
        ZARN_RAISE_IN(packFunction, archive.errorText());
    if (!handle->close())
        ZARN_RAISE_IN(packFunction, handle->errorText());
}

void unpackSoundbank(filesystem::FileSystem &files, const std::string &file,
                     const std::string &folder)
{
    const auto bank = openBank(files, file, unpackFunction);
    if (!bank->isPacked())
        ZARN_RAISE_IN(unpackFunction, file + ": is no archive");
    if (files.exists(folder) && (!files.isFolder(folder) || !files.list(folder).empty()))
        ZARN_RAISE_IN(unpackFunction, folder + ": is there already and not empty");
    const auto samples = bank->packedFiles();
    for (const auto &sample : samples) {
        std::string error;
        if (!bank->verify(sample, &error))
            ZARN_RAISE_IN(unpackFunction, error);
    }
    streams::MemoryStream description(BankArchive::descriptionName, bank->description());
    writeFile(files, below(folder, BankArchive::descriptionName), description);
    for (const auto &sample : samples)
        writeFile(files, below(folder, sample), *openSample(*bank, sample, unpackFunction));
}

} // namespace zarn
