// SPDX-License-Identifier: MIT
#include <ZarnCore/io/ZarnImporter.h>

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>
#include <filesystem/FileHandle.h>

namespace zarn::io {

Importer::~Importer() = default;

QStringList Importer::visibleExtensions() const
{
    return extensions();
}

bool Importer::acceptsHandleAndExtension(filesystem::FileHandle &handle,
                                         const QString &extension) const
{
    return extensions().contains(extension, Qt::CaseInsensitive) && acceptsHandle(handle);
}

void Importer::importScore(filesystem::FileHandle &handle, Score &score, ImportReport &report) const
{
    score.setScoreModel(read(handle, report));
}

} // namespace zarn::io
