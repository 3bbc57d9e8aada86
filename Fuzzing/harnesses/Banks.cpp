// SPDX-License-Identifier: MIT
#include "ArchiveRecipe.h"
#include "Fuzzing.h"

#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFontManager.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPacking.h>
#include <filesystem/RAMFileSystem.h>
#include <streams/BankArchive.h>

#include <algorithm>

namespace {

using streams::BankArchive;

/// The bytes of a sample, in pieces that grow; empty with an error.
std::string readInPieces(streams::Stream &stream)
{
    std::string bytes;
    for (std::int64_t piece = 1;; piece = piece * 5 % 4099) {
        std::string block(static_cast<std::size_t>(piece), '\0');
        const auto count = stream.readSome(&block[0], piece);
        fuzz::expect(count >= 0 && count <= piece, "a read gives no more than was asked for");
        bytes.append(block, 0, static_cast<std::size_t>(count));
        if (count < piece)
            return stream.hasError() ? std::string() : bytes;
    }
}

void checkSample(const BankArchive &bank, const std::string &name, std::size_t archiveSize)
{
    std::string error;
    const auto stream = bank.openSample(name, &error);
    fuzz::expect((stream == nullptr) == !error.empty(), "a refusal says why");
    if (stream == nullptr)
        return;
    fuzz::expect(stream->size() <= std::max<std::int64_t>(static_cast<std::int64_t>(archiveSize),
                                                          streams::ZipArchive::unpackedLimit),
                 "a sample has no more bytes than its archive can explain");
    const std::string whole = readInPieces(*stream);
    if (stream->hasError()) {
        fuzz::expect(stream->errorText().find(name) != std::string::npos,
                     "an error names its file");
        return;
    }
    fuzz::expect(static_cast<std::int64_t>(whole.size()) == stream->size(),
                 "a stream has as many bytes as it says");
    const auto middle = stream->size() / 2;
    std::string rest;
    if (stream->seek(middle) && stream->readRest(rest, stream->size()))
        fuzz::expectEqual(whole.substr(static_cast<std::size_t>(middle)), rest,
                          "a stream has the same bytes after a seek");
}

std::string contentOf(filesystem::FileSystem &files, const std::string &path)
{
    const auto handle = files.open(path, filesystem::OpenMode::Read);
    fuzz::expect(handle != nullptr, "a file that was written is there");
    std::string bytes(static_cast<std::size_t>(handle->size()), '\0');
    handle->readBlock(&bytes[0], handle->size());
    return bytes;
}

/// What was unpacked can be packed, and comes apart as the same.
void checkPacking(filesystem::FileSystem &files)
{
    if (!fuzz::isAccepted([&] { zarn::unpackSoundbank(files, "x.zarn7bank", "out"); }))
        return;
    if (!fuzz::isAccepted([&] { zarn::packSoundbank(files, "out", "y.zarn7bank"); }))
        return;
    zarn::unpackSoundbank(files, "y.zarn7bank", "again");
    const auto packed = BankArchive::open(files, "y.zarn7bank", nullptr);
    fuzz::expect(packed != nullptr, "what was packed is an archive");
    for (const auto &name : packed->packedFiles())
        fuzz::expectEqual(contentOf(files, "out/" + name), contentOf(files, "again/" + name),
                          "packing keeps every sample");
    zarn::packSoundbank(files, "again", "z.zarn7bank");
    fuzz::expectEqual(contentOf(files, "y.zarn7bank"), contentOf(files, "z.zarn7bank"),
                      "packing is stable");
}

} // namespace

/// The input is an archive, or the recipe of one (see `archiveOf`).
void fuzz::check(std::string_view input)
{
    const bool isArchive = input.substr(0, 2) == "PK";
    const std::string bytes = isArchive ? std::string(input) : archiveOf(input);
    filesystem::RAMFileSystem files;
    {
        const auto handle = files.open("x.zarn7bank", filesystem::OpenMode::Write);
        handle->writeBlock(bytes.data(), static_cast<std::int64_t>(bytes.size()));
        handle->close();
    }
    std::string error;
    const auto bank = BankArchive::open(files, "x.zarn7bank", &error);
    expect((bank == nullptr) == !error.empty(), "a refusal says why");
    if (bank == nullptr)
        return;
    isAccepted([&] { zarn::HVSoundFontManager::readSoundFont(*bank); });
    for (const auto &name : bank->packedFiles())
        checkSample(*bank, name, bytes.size());
    if (bank->isPacked())
        checkPacking(files);
}
