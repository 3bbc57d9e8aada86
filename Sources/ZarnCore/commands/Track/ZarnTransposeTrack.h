// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Track/ZarnTransposeNotes.h>
#include <ZarnCore/model/notes/ZarnRefingering.h>

namespace zarn::cmd {

/// Makes a track sound higher or lower. The key signature is everyone's and stays. On strings the
/// notes go to other frets, and those that no string can take lose string and fret; chord diagrams
/// go along the neck, and those that need open strings go.
///
/// Sends `ModifyBarRange` for each staff, and `ChordsChanged` for those whose chords have changed.
class ZARNCORE_EXPORT TransposeTrack final : public TransposeNotes {
public:
    static constexpr int MostSemitones = 24;

    TransposeTrack();
    ~TransposeTrack() override;

    /// Up or, negative, down. False for 0 and more semitones, for a track that is not there or
    /// plays no pitches, and when a note would leave the keys.
    bool init(Score *score, unsigned track, int semitones, Refingering refingering);

private:
    bool isPossible() const override;
    bool finish() override;

    unsigned _track = 0;
    Refingering _refingering = Refingering::KeepStrings;
};

} // namespace zarn::cmd
