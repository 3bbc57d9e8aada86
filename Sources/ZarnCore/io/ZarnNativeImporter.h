// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnImporter.h>

namespace zarn {
struct Clip;
}

namespace zarn::io {

/// Reads native documents, suffix "zarn"; `Documents/native-format.md` describes them.
///
/// A refused document is named with the place of what is wrong: line, column and byte offset where
/// it is no JSON, else a JSON pointer such as "/tracks/0/staves/1/bars/17". What is read takes
/// memory in proportion to the document. Rules of the tree that a document breaks without being
/// unreadable, such as notes on strings that the tuning does not have, are reported.
class ZARNCORE_EXPORT NativeImporter final : public Importer {
public:
    ~NativeImporter() override;

    QString description() const override;
    QStringList extensions() const override;
    bool acceptsHandle(filesystem::FileHandle &handle) const override;
    std::shared_ptr<ScoreModel> read(filesystem::FileHandle &handle,
                                     ImportReport &report) const override;

    /// The same for music that was copied; any other native document is a clip of all its bars.
    Clip readClip(filesystem::FileHandle &handle, ImportReport &report) const;
};

} // namespace zarn::io
