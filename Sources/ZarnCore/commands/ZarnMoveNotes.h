// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/commands/ZarnKeptPositions.h>
#include <ZarnCore/commands/ZarnMarkedPlace.h>
#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/commands/ZarnTouchedBars.h>
#include <ZarnCore/fingering/ZarnPassageReader.h>
#include <ZarnCore/fingering/ZarnStaffFrets.h>
#include <ZarnCore/model/notes/ZarnKeptBeats.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace zarn {

class Bar;
class Beat;
class KeyTransposition;
class NoteMover;
class Track;
struct BeatSpan;

/// Where a note goes.
struct NoteMove {
    NotePosition to;

    /// The pitch, as the strings of the staff sound it, for which a free string is to be found, the
    /// one that needs the lowest fret; nothing when `to` says the string.
    std::optional<int> soughtPitch;
};

/// How all notes of a bar go alike.
struct PitchShift {
    int semitones = 0;
    const KeyTransposition *spellings = nullptr; ///< of the command, until the next bar
};

/// Base of commands that give notes other pitches or places: transposing, refretting, respelling.
///
/// A note is moved with all that it is tied to, as one: what is chosen for its first piece holds
/// for the others, also outside of the range. Which notes a range means is said at `ChangeMarks`.
/// A string is given to one note of a beat. Hammer-ons, pull-offs and slides that lead to nothing
/// any more go. Keeps four bytes a note for undo.
///
/// A concrete command implements `takes` and `moved`; its `init` ends with `prepare` or
/// `prepareAll`.
class ZARNCORE_EXPORT MoveNotes : public ScoreCommand {
protected:
    /// What becomes of a note that cannot have a place of its own.
    enum class Homeless {
        Refused,      ///< the command is refused, and nothing moves
        WithoutPlace, ///< it loses string and fret, and keeps its pitch
    };

    /// Which bars are announced: those of the range, or those whose notes change.
    enum class Announced { Range, Changes };

    struct Options {
        Homeless homeless = Homeless::Refused;
        Announced announced = Announced::Range;
        KeptPositions::Parts kept = KeptPositions::Parts::Pitches;
    };

    MoveNotes(const QString &name, const Options &options);
    ~MoveNotes() override;

    /// Remembers to move notes of a range; false when it has none that the command takes, or when
    /// one of them cannot be moved.
    bool prepare(Score *score, const ScoreModelRange &range);

    /// Remembers to move all notes of the score, of one track, or of one staff of a track; false
    /// when there is no such place, or when a note cannot be moved. There need be no notes.
    bool prepareAll(Score *score, std::optional<unsigned> track = {},
                    std::optional<unsigned> staff = {});

    /// Whether the command can work on the score as it is, notes aside.
    virtual bool isPossible() const { return true; }

    /// Whether all notes can be moved; tries it out. A command that knows it sooner says so.
    virtual bool canMove();

    /// Says how many notes there are, for a command that has counted them.
    void expectNotes(std::size_t count) { _kept.reserve(count); }

    /// Called before the notes are looked at, in front of each change and of each check.
    virtual void begin() { }

    /// Called when the walk through the notes comes to another staff or bar.
    virtual void enterStaff(const Staff &) { }
    virtual void enterBar(const Bar &) { }

    /// Called, when the notes are changed, with each beat of the range in front of its notes: for
    /// what the beat itself has.
    virtual void enterBeat(const BeatSpan &, Beat &) { }

    /// Whether a note takes the change; those that do not stay where they are.
    virtual bool takes(const MarkedPlace &place, const Note &note) const = 0;

    /// Where a note goes that is at a position; nothing when it cannot.
    virtual std::optional<NoteMove> moved(const MarkedPlace &place, const Note &note,
                                          const NotePosition &from) const = 0;

    /// By what all notes of the bar at hand go that are at no string and tied to none, as `moved`
    /// would say of each; for a command that takes all of them. They are moved much faster so.
    virtual std::optional<PitchShift> shift() const { return std::nullopt; }

    /// What changes beside the notes: in front of them, and backwards behind them. `changeOthers`
    /// throws only before it changes anything.
    virtual void changeOthers() { }
    virtual void restoreOthers() { }

    /// Called when all notes have moved. Answers whether it put notes on other strings.
    virtual bool finish() { return false; }

    /// Announces the bar of a span too, where something beside the notes changed.
    void touch(const BeatSpan &place);

    /// Sends the events of a change, forwards and backwards: the bars.
    virtual void announce();

    static constexpr int highestKey = 127;

    /// Frets and pitches of the staff that the walk is on, as it is tuned now.
    const fingering::StaffFrets &fretboard() const noexcept { return *_fretboard; }

    /// Where a note of a pitch goes when it sounds some semitones higher: on a string to another
    /// fret or, where there is none, to another string. Nothing outside of the keys.
    std::optional<NoteMove> repitched(const NotePosition &from, int semitones,
                                      std::uint8_t spelling) const;

    /// Where a note goes that is played on a string and a fret of the staff: its pitch goes along
    /// by as much as that of the place. Nothing where there is no such place, and outside of the
    /// keys.
    std::optional<NoteMove> refretted(const NotePosition &from, int string, int fret) const;

    /// Finds strings and frets for the notes of a staff that the command moves, as a player would
    /// finger them; for `finish`. A staff that no hand plays stays as it is.
    void refinger(const Staff &staff, const fingering::FingeringOptions &options);

    /// Whether the notes of a track are to be moved.
    bool isOf(const Track &track) const noexcept;

    /// The places of the notes as the score is now; none when it has no such bars.
    std::optional<ScoreModelRange> places() const;

private:
    friend class NoteMover;

    /// A note outside of the range that is tied to one in it.
    struct Tied {
        unsigned track;
        unsigned staff;
        unsigned bar;
        unsigned voice;
        unsigned beat;
        unsigned note;
    };

    /// A staff whose notes moved, and how far.
    struct Stretch {
        unsigned track;
        unsigned staff;
        unsigned firstBar;
        unsigned lastBar;
        bool areStringsChanged;
    };

    bool exists() const;
    void mendStringLinks();
    void apply() override;
    void revert() override;
    void announceApplied() override { announce(); }
    void announceReverted() override { announce(); }
    void putBack();
    Note &noteAt(const Tied &place) const;

    Options _options;
    std::optional<ScoreModelRange> _range; ///< else the track and staff count
    std::optional<unsigned> _track;        ///< else all
    std::optional<unsigned> _staff;        ///< else all of the track
    std::optional<fingering::StaffFrets> _fretboard;

    KeptPositions _kept; ///< of all notes of the beats of the range, in order
    std::vector<Tied> _tied;
    KeptPositions _keptTied;
    std::vector<Stretch> _stretches;
    KeptBeats _links; ///< beats with links that went
    TouchedBars _touched;
};

} // namespace zarn
