// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/chords/ZarnChordDiagram.h>
#include <ZarnCore/commands/ZarnMoveNotes.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>
#include <ZarnCore/model/notes/ZarnRetuning.h>

#include <optional>
#include <vector>

namespace zarn::cmd {

/// Tunes a staff anew, with its capo. When the number of strings changes, a partial capo goes.
///
/// With `Retuning::KeepPitches` the notes whose strings sound as before stay on them; the others
/// are fingered anew around these. A note that cannot stay where it was (its string or its fret is
/// gone) and is not fingered moves to the free string of its beat that plays its pitch at the
/// lowest fret, or loses string and fret when there is none. Hammer-ons, pull-offs and slides go
/// that lead to no other fret any more. Chord diagrams for another number of strings leave the sets
/// of the staff. Sends `GuitarFullTuningChanged`, `ModifyBarRange` for the bars whose notes
/// changed, and when diagrams left `ChordsChanged`.
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
    /// The chord diagrams that a staff has at hand.
    struct DiagramSets {
        std::vector<ChordDiagram> collection;
        std::vector<ChordDiagram> workingSet;
    };

    bool isPossible() const override;
    void begin() override;
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
    void dropDiagrams(Staff &staff);

    unsigned _track = 0;
    unsigned _staff = 0;
    Setting _setting;
    Retuning _retuning = Retuning::KeepFrets;
    bool _isFingeredAnew = false; ///< by the solver, what sounds otherwise on its string
    Setting _before;
    std::optional<fingering::StaffFrets> _fretboardBefore;
    std::optional<DiagramSets> _diagramsBefore; ///< when they changed
};

} // namespace zarn::cmd
