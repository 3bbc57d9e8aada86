// SPDX-License-Identifier: MIT
#include <ZarnCore/core/TrackTemplate.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnNativeImporter.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/ZarnTrack.h>
#include <filesystem/DiskFileSystem.h>

namespace zarn {

std::shared_ptr<Track> readTrackTemplate(const QString &path)
{
    constexpr auto here = "zarn::readTrackTemplate";
    std::string error;
    // The resources are files of the disk to Qt, on which this file system stands.
    const auto file =
        filesystem::DiskFileSystem().open(path.toStdString(), filesystem::OpenMode::Read, &error);
    if (file == nullptr)
        ZARN_RAISE_IN(here, error);
    io::ImportReport report;
    const auto model = io::NativeImporter().read(*file, report);
    if (model->trackCount() != 1)
        ZARN_RAISE_IN(here,
                      path.toStdString() + ": holds " + std::to_string(model->trackCount())
                          + " tracks instead of one");
    return model->removeTrack(0);
}

} // namespace zarn
