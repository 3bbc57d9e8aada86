// SPDX-License-Identifier: MIT
#include <ZarnCore/core/FormatRegistry.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/io/ZarnExporter.h>
#include <ZarnCore/io/ZarnImporter.h>

#include <algorithm>

namespace zarn {

namespace {

template <class Format, class Predicate>
Format *firstOf(const std::vector<Format *> &formats, Predicate fits)
{
    const auto found = std::find_if(formats.begin(), formats.end(),
                                    [&fits](const Format *format) { return fits(*format); });
    return found != formats.end() ? *found : nullptr;
}

} // namespace

void FormatRegistry::add(io::Importer *importer)
{
    ZARN_ASSERT_IN("zarn::Core::addImporter", importer != NULL);
    _importers.push_back(importer);
}

void FormatRegistry::add(io::Exporter *exporter)
{
    ZARN_ASSERT_IN("zarn::Core::addExporter", exporter != NULL);
    _exporters.push_back(exporter);
}

const io::Importer &FormatRegistry::importer(unsigned index) const
{
    ZARN_ASSERT_IN("zarn::FormatRegistry::importer", index < importersCount());
    return *_importers[index];
}

const io::Exporter &FormatRegistry::exporter(unsigned index) const
{
    ZARN_ASSERT_IN("zarn::FormatRegistry::exporter", index < exportersCount());
    return *_exporters[index];
}

io::Importer *FormatRegistry::importerByExtension(const QString &extension) const
{
    return firstOf(_importers, [&extension](const io::Importer &importer) {
        return importer.extensions().contains(extension, Qt::CaseSensitive);
    });
}

io::Exporter *FormatRegistry::exporterByExtension(const std::string &extension) const
{
    return firstOf(_exporters, [&extension](const io::Exporter &exporter) {
        const auto extensions = exporter.extensions();
        return std::find(extensions.begin(), extensions.end(), extension) != extensions.end();
    });
}

io::Importer *FormatRegistry::importerByHandle(filesystem::FileHandle &handle) const
{
    return firstOf(_importers, [&handle](const io::Importer &importer) {
        return importer.acceptsHandle(handle);
    });
}

io::Importer *FormatRegistry::importerByHandleAndExtension(filesystem::FileHandle &handle,
                                                           const QString &extension) const
{
    return firstOf(_importers, [&handle, &extension](const io::Importer &importer) {
        return importer.acceptsHandleAndExtension(handle, extension);
    });
}

} // namespace zarn
