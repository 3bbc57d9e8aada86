// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnExporter.h>

namespace zarn::io {

/// Writes documents for LilyPond 2.24, suffix "ly": notation, tablature and drums, with all signs
/// that LilyPond has words for. It draws and plays them; nothing reads them back.
class ZARNCORE_EXPORT LilyPondExporter final : public Exporter {
public:
    ~LilyPondExporter() override;

    using Exporter::write;
    std::string description() const override;
    std::list<std::string> extensions() const override;
    void write(const ScoreModel &model, filesystem::FileHandle &handle,
               ExportReport &report) const override;

    /// The document as a text in UTF-8.
    std::string toText(const ScoreModel &model, ExportReport &report) const;
};

} // namespace zarn::io
