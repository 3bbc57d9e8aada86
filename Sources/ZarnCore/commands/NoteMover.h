// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/NotePlaces.h>
#include <ZarnCore/commands/ZarnMoveNotes.h>
#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/ZarnBeat.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>

#include <array>
#include <optional>
#include <vector>

namespace zarn {

/// One walk over the notes that a command moves, beat by beat: with the pieces of a tie that it has
/// moved in the beat before, the next ones go. Either moves them, or finds out whether it could.
class NoteMover {
public:
    enum class Mode { Check, Change };

    NoteMover(MoveNotes &command, Mode mode, const ScoreModelRange &range);

    /// False when a note cannot be moved; those in front of it have been.
    bool run();

    /// Whether the range has a note that the command takes.
    bool isAnyTaken() const noexcept { return _isAnyTaken; }

private:
    /// A piece of a chain of ties that goes on.
    struct Held {
        NotePosition from;
        NotePosition to;
    };

    /// A note of the beat at hand.
    struct Mover {
        Note *note;
        NotePosition from;
        NotePosition to;
        std::optional<int> soughtPitch;
        bool isMoved;
    };

    /// A voice of the staff at hand, as far as it has been walked.
    struct Line {
        const Voice *voice = nullptr; ///< null while nothing of it has been walked
        unsigned bar = 0;
        unsigned endBeat = 0;
        std::vector<Held> held;

        bool isFollowedBy(const BeatSpan &span) const;
    };

    enum class Direction { Forwards, Backwards };

    bool moveSpan(const Voice &voice, const BeatSpan &span);
    bool finishStaff();
    void enterStretch(unsigned bar, bool areStringsChanged);
    void read(const Beat &beat);
    bool moveBeat(const Beat &beat, const std::vector<Held> &held);
    bool shiftBeat(const Beat &beat);
    bool areApart() const;
    bool findHomes(const Beat &beat);
    bool findHome(const Beat &beat, Mover &mover) const;
    bool isFreeAlongTies(const Beat &beat, const Mover &mover, int string) const;
    static bool isFreeAlongTies(const Beat &beat, const Mover &mover, int string,
                                Direction direction);
    void write();
    std::vector<Held> heldOn(Direction direction) const;
    bool moveTied(const Voice &voice, unsigned joint, std::vector<Held> held, Direction direction);
    bool moveTied(const Beat &beat, const std::vector<Held> &held, Direction direction);
    void takeFrom(const std::vector<Held> &held, Direction direction);

    MoveNotes &_command;
    Mode _mode;
    ScoreModelRange _range;
    NotePlaces _named;

    const Staff *_staff = nullptr;
    std::optional<MarkedPlace> _place;
    std::optional<PitchShift> _shift; ///< of the bar at hand
    unsigned _trackIndex = 0;
    unsigned _staffIndex = 0;
    unsigned _bar = 0;
    std::array<Line, Bar::MaxVoices> _lines;
    std::vector<Mover> _movers; ///< of the beat at hand
    bool _areAnyTied = false;   ///< of its notes
    bool _isBeginning = false;  ///< whether no beat in front of it in its voice has been walked
    bool _isAnyTaken = false;
};

} // namespace zarn
