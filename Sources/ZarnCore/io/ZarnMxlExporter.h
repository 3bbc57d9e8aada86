// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnExporter.h>

namespace zarn::io {

/// Writes what `MusicXmlExporter` does into a zip archive, suffix "mxl" (MusicXML 4.0,
/// container.xsd).
class ZARNCORE_EXPORT MxlExporter final : public Exporter {
public:
    ~MxlExporter() override;

    std::string description() const override;
    std::list<std::string> extensions() const override;

    using Exporter::write;
    void write(const ScoreModel &model, filesystem::FileHandle &handle,
               ExportReport &report) const override;
};

} // namespace zarn::io
