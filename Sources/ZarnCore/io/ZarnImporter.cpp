// SPDX-License-Identifier: MIT
#include <ZarnCore/io/ZarnImporter.h>

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

} // namespace zarn::io
