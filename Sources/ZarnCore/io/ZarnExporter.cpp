// SPDX-License-Identifier: MIT
#include <ZarnCore/io/ZarnExporter.h>

#include <ZarnCore/io/ZarnExportReport.h>

namespace zarn::io {

Exporter::~Exporter() = default;

void Exporter::write(const ScoreModel &model, filesystem::FileHandle &handle) const
{
    ExportReport report;
    write(model, handle, report);
}

} // namespace zarn::io
