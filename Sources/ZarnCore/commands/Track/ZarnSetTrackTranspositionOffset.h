// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Track/ZarnTransposeNotes.h>

namespace zarn::cmd {

/// Sets how far a track sounds from what is written. What sounds stays: the written notes and
/// chords move instead, to the key that the track is then written in, while strings, frets and
/// diagrams stay.
///
/// Sends `TranspositionOffsetChanged`, which tells of all bars of the track, and `ChordsChanged`
/// for staves whose chords have changed.
class ZARNCORE_EXPORT SetTrackTranspositionOffset final : public TransposeNotes {
public:
    static constexpr int MostSemitones = 36;

    SetTrackTranspositionOffset();
    ~SetTrackTranspositionOffset() override;

    /// Semitones from the written pitch to what sounds, -12 for a guitar. False for more of them,
    /// for a track that is not there, and when a note would leave the keys.
    bool init(Score *score, unsigned track, int semitones);

private:
    void begin() override;
    void changeSettings() override;
    void restoreOthers() override;
    void announce() override;

    unsigned _track = 0;
    int _offset = 0;
    int _offsetBefore = 0;
};

} // namespace zarn::cmd
