// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Track/ZarnTransposeNotes.h>

#include <vector>

namespace zarn::cmd {

/// Puts the piece into another key: notes and chords of all tracks but percussion, as
/// `TransposeTrack` does, and on request the key signatures, each in the writing with the fewest
/// accidentals.
///
/// Sends `ModifyBarRangeAllTracks`, `MasterBarKeySignature` when the keys moved, and
/// `ChordsChanged` for staves whose chords have changed.
class ZARNCORE_EXPORT TransposeAllTracks final : public TransposeNotes {
public:
    static constexpr int MostSemitones = 24;

    TransposeAllTracks();
    ~TransposeAllTracks() override;

    /// Up or, negative, down. False for 0 and more semitones, when no track plays pitches, and when
    /// a note would leave the keys.
    bool init(Score *score, int semitones, bool areKeysMoved);

private:
    bool isPossible() const override;
    bool finish() override;
    void restoreOthers() override;
    void announce() override;

    bool _areKeysMoved = false;
    std::vector<KeySignature> _keysBefore; ///< of all master bars, while they are others
};

} // namespace zarn::cmd
