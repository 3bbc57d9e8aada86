// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnExporter.h>

namespace zarn {
struct Clip;
}

namespace zarn::io {

/// Writes native documents, suffix "zarn", that `NativeImporter` reads back as equal models; equal
/// models give equal bytes.
///
/// Raises for models that would not be read again (staves with more or fewer bars than the master
/// track, directions at no bar, numbers that are not finite) before the file is touched.
class ZARNCORE_EXPORT NativeExporter final : public Exporter {
public:
    ~NativeExporter() override;

    std::string description() const override;
    std::list<std::string> extensions() const override;

    using Exporter::write;
    /// Nothing is lost: the report stays as it is.
    void write(const ScoreModel &model, filesystem::FileHandle &handle,
               ExportReport &report) const override;

    /// The document as a text in UTF-8.
    std::string toText(const ScoreModel &model) const;

    /// The same for music that was copied; raises for a clip without a model. What reads scores
    /// alone reads it as a score of the copied bars.
    void write(const Clip &clip, filesystem::FileHandle &handle) const;
    std::string toText(const Clip &clip) const;
};

} // namespace zarn::io
