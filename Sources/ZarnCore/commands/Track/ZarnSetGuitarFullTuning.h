// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/commands/ZarnTouchedBars.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>
#include <ZarnCore/model/ZarnNote.h>
#include <ZarnCore/model/notes/ZarnKeptBeats.h>
#include <ZarnCore/model/notes/ZarnRetuning.h>

#include <optional>
#include <vector>

namespace zarn {

class Staff;

} // namespace zarn

namespace zarn::cmd {

/// Tunes a staff anew, with its capo. When the number of strings changes, a partial capo goes.
///
/// A note that cannot stay where it was (its string or its fret is gone) moves to the free string
/// of its beat that plays its pitch at the lowest fret, or loses string and fret when there is
/// none. Hammer-ons, pull-offs and slides go that lead to no other fret any more. Sends
/// `GuitarFullTuningChanged`, then `ModifyBarRange` for the bars whose notes changed.
class ZARNCORE_EXPORT SetGuitarFullTuning final : public ScoreCommand {
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
    /// What a change of tuning changes in a note; the number counts the notes of the staff.
    struct NoteBefore {
        std::size_t number = 0;
        int midi = Note::Unset;
        int string = Note::Unset;
        int fret = Note::Unset;
        std::optional<PitchClass> spelling;
    };

    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;

    Staff *findStaff() const;
    bool isPossible() const;
    static Setting settingOf(const Staff &staff);
    static void write(Staff &staff, const Setting &setting);
    void refinger(const Staff &staff, const std::vector<int> &pitchesBefore);
    bool moveNote(const Staff &staff, const Beat &beat, Note &note, int pitchBefore) const;

    unsigned _track = 0;
    unsigned _staff = 0;
    Setting _setting;
    Retuning _retuning = Retuning::KeepFrets;
    Setting _before;
    std::vector<NoteBefore> _notesBefore;
    KeptBeats _links;
    TouchedBars _touched;
};

} // namespace zarn::cmd
