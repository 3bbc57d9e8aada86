// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnImporter.h>

namespace zarn::io {

/// Reads MusicXML up to 4.0: partwise and timewise, plain and compressed, in any encoding that the
/// file declares or shows.
///
/// A part becomes a track. Pitches are kept as written, with the transposition beside them. What
/// the tree has no place for is counted by element name in the report.
class ZARNCORE_EXPORT MusicXmlImporter final : public Importer {
public:
    ~MusicXmlImporter() override;

    QString description() const override;
    QStringList extensions() const override;
    bool acceptsHandle(filesystem::FileHandle &handle) const override;
    std::shared_ptr<ScoreModel> read(filesystem::FileHandle &handle,
                                     ImportReport &report) const override;
};

} // namespace zarn::io
