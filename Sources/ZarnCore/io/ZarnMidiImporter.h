// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnImporter.h>
#include <ZarnCore/utils/rational.h>

#include <optional>

namespace zarn::io {

/// How the notes of a MIDI file are fitted to the meter.
struct MidiImportOptions {
    /// Length of the shortest note in quarters; without one it is what the music needs.
    std::optional<utils::rational> shortestNote;

    /// Whether there may be triplets and other tuplets.
    bool hasTuplets = true;
};

/// Reads Standard MIDI Files of any format, suffix "mid", as scores that can be read.
///
/// The file's own tempos, meters and keys are kept. A track of the file is a track of the score;
/// channels of one track that play with different programs become tracks of their own, two tracks
/// for one keyboard two staves. Notes are fitted to the beats, as they were written or as they were
/// played; the report tells where many were moved far. They get voices, a spelling, and where the
/// instrument has frets, strings and frets.
///
/// Reading a long file keeps up to eight threads busy until it returns; the score is the same
/// whatever their number.
class ZARNCORE_EXPORT MidiImporter final : public Importer {
public:
    explicit MidiImporter(const MidiImportOptions &options = {});
    ~MidiImporter() override;

    QString description() const override;
    QStringList extensions() const override;
    QStringList visibleExtensions() const override;
    bool acceptsHandle(filesystem::FileHandle &handle) const override;
    std::shared_ptr<ScoreModel> read(filesystem::FileHandle &handle,
                                     ImportReport &report) const override;

private:
    const MidiImportOptions _options;
};

} // namespace zarn::io
