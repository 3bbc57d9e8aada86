// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Track/ZarnTransposedChords.h>
#include <ZarnCore/commands/ZarnMoveNotes.h>
#include <ZarnCore/music/ZarnKeySignature.h>
#include <ZarnCore/music/ZarnKeyTransposition.h>

#include <optional>

namespace zarn {

/// Base of commands that transpose what is written in whole tracks. Notes and chord symbols go by
/// the interval between the tonics, so that each degree stays what it is: in C major a fourth up
/// B flat becomes E flat. Unpitched tracks are left alone.
class ZARNCORE_EXPORT TransposeNotes : public MoveNotes {
protected:
    /// What becomes of places on strings.
    enum class Frets {
        Stay,   ///< the same fingers
        Follow, ///< the fret of the new pitch, on another string where there is none
    };

    TransposeNotes(const QString &name, Frets frets);
    ~TransposeNotes() override;

    /// Semitones from the keys of the master bars to the keys that are written, before and after.
    void setKeys(int before, int after) noexcept;
    int semitones() const noexcept { return _after - _before; }

    static bool isPitched(const Track &track) noexcept;

    /// Behind those of the bars, `ChordsChanged` for staves whose chords have changed.
    void announce() override;
    void announceChords();
    void restoreOthers() override;

    /// The chords that the staves have at hand.
    bool finish() override;

private:
    bool canMove() final;
    void changeOthers() final;

    /// What changes before notes and chords.
    virtual void changeSettings() { }

    void enterStaff(const Staff &staff) final;
    void enterBar(const Bar &bar) final;
    void enterBeat(const BeatSpan &place, Beat &beat) final;
    bool takes(const MarkedPlace &place, const Note &note) const final;
    std::optional<NoteMove> moved(const MarkedPlace &place, const Note &note,
                                  const NotePosition &from) const final;
    std::optional<PitchShift> shift() const final;
    void setKey(const KeySignature &key);
    TransposedChords::Diagrams diagrams() const noexcept;

    Frets _frets;
    int _before = 0;
    int _after = 0;
    bool _isOnPitchedStaff = false;
    std::optional<KeySignature> _key; ///< of the master bar at hand
    KeyTransposition _transposition;
    TransposedChords _chords;
};

} // namespace zarn
