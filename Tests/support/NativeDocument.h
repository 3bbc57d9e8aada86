// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnNativeExporter.h>
#include <ZarnCore/io/ZarnNativeImporter.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <filesystem/RAMFileSystem.h>

#include <memory>
#include <string>

namespace test {

/// Reads a native document from a text; its name in messages is "score.zarn".
inline std::shared_ptr<zarn::ScoreModel> readNative(const std::string &document,
                                                    zarn::io::ImportReport &report)
{
    filesystem::RAMFileSystem files;
    const auto writer = files.open("score.zarn", filesystem::OpenMode::Write);
    writer->writeBlock(document.data(), static_cast<std::int64_t>(document.size()));
    writer->close();
    const auto handle = files.open("score.zarn", filesystem::OpenMode::Read);
    return zarn::io::NativeImporter().read(*handle, report);
}

inline std::shared_ptr<zarn::ScoreModel> readNative(const std::string &document)
{
    zarn::io::ImportReport report;
    return readNative(document, report);
}

inline std::string writeNative(const zarn::ScoreModel &model)
{
    return zarn::io::NativeExporter().toText(model);
}

} // namespace test
