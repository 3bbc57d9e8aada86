// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnExporter.h>

namespace zarn::io {

/// Writes MusicXML 4.0, partwise, suffix "musicxml", measure by measure: no more than one is in
/// memory. The same model gives the same bytes.
///
/// A track is a part; a fretted one that is shown in notes and tablature has two staves, which
/// `MusicXmlImporter` reads as one again. What MusicXML has no word for stands in the report.
class ZARNCORE_EXPORT MusicXmlExporter final : public Exporter {
public:
    ~MusicXmlExporter() override;

    std::string description() const override;
    std::list<std::string> extensions() const override;

    using Exporter::write;
    void write(const ScoreModel &model, filesystem::FileHandle &handle,
               ExportReport &report) const override;

    /// The document as a text in UTF-8.
    std::string toText(const ScoreModel &model, ExportReport &report) const;
};

} // namespace zarn::io
