// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Track/ZarnChangedChords.h>
#include <ZarnCore/commands/ZarnMoveNotes.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>
#include <ZarnCore/model/notes/ZarnRetuning.h>

#include <memory>
#include <optional>
#include <vector>

namespace zarn {

class ChordRetuning;

namespace cmd {

/// Tunes a staff anew, with its capo. When the number of strings changes, a partial capo goes.
///
/// With `Retuning::KeepPitches` the notes whose strings sound as before stay on them; the others
/// are fingered anew around these. A note that cannot stay where it was (its string or its fret is
/// gone) and is not fingered moves to the free string of its beat that plays its pitch at the
/// lowest fret, or loses string and fret when there is none. Hammer-ons, pull-offs and slides go
/// that lead to no other fret any more.
///
/// Chords over the beats and in the sets of the staff go along. With `Retuning::KeepPitches`, and
/// when the number of strings changes, a diagram that sounds otherwise becomes the best way to play
/// its chord; it goes where that is no chord symbol or cannot be played. With `Retuning::KeepFrets`
/// diagrams stay: where all strings sound higher or lower by the same, the chords are transposed in
/// the key of their bar, else those with a diagram are named by what it sounds; a name goes where
/// that has none. Sends `GuitarFullTuningChanged`, `ModifyBarRange` for the bars whose notes or
/// chords changed, and when chords changed `ChordsChanged`.
class ZARNCORE_EXPORT SetGuitarFullTuning final : public MoveNotes {
public:
    static constexpr unsigned MostStrings = 12;

    SetGuitarFullTuning();
    ~SetGuitarFullTuning() override;

    /// A tuning without strings makes a staff of notes only. False for a staff that is not there,
    /// for more than `MostStrings` strings, and for a capo past the frets.
    bool init(Score *score, unsigned track, unsigned staff, const GuitarTuning &tuning,
              unsigned capoFret, Retuning retuning);

private:
    /// A tuning with its capos.
    struct Setting {
        GuitarTuning tuning;
        unsigned capoFret = 0;
        unsigned partialCapoFret = 0;
        std::vector<bool> partialCapoStrings;
    };

    bool isPossible() const override;
    void begin() override;
    void enterBar(const Bar &bar) override;
    void enterBeat(const BeatSpan &place, Beat &beat) override;
    bool takes(const MarkedPlace &place, const Note &note) const override;
    std::optional<NoteMove> moved(const MarkedPlace &place, const Note &note,
                                  const NotePosition &from) const override;
    void changeOthers() override;
    void restoreOthers() override;
    bool finish() override;
    void announce() override;

    Staff *findStaff() const;
    static Setting settingOf(const Staff &staff);
    static void write(Staff &staff, const Setting &setting);
    void setChordKey(unsigned bar);

    unsigned _track = 0;
    unsigned _staff = 0;
    Setting _setting;
    Retuning _retuning = Retuning::KeepFrets;
    bool _isFingeredAnew = false; ///< by the solver, what sounds otherwise on its string
    Setting _before;
    std::optional<fingering::StaffFrets> _fretboardBefore;
    std::unique_ptr<ChordRetuning> _chordRetuning; ///< while the notes move
    ChangedChords _chords;
};

} // namespace cmd
} // namespace zarn
