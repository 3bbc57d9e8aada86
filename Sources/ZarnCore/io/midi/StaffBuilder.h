// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/MeterLine.h>
#include <ZarnCore/io/midi/RhythmWriter.h>
#include <ZarnCore/model/NodeBlocks.h>
#include <ZarnCore/model/ZarnStaff.h>

#include <array>
#include <cstdint>
#include <functional>
#include <memory>

namespace zarn::io {

/// Makes the bars of a staff from notes that have their times and voices.
class StaffBuilder {
public:
    /// Makes a note of the tree from one of the file.
    using MakeNote = std::function<std::shared_ptr<Note>(const PlayedNote &)>;

    /// A beat where notes begin.
    struct Onset {
        MidiTime time;
        MidiTime playedTime; ///< of one of them, which also gives the velocity
        Beat *beat;          ///< of the bars that were built
        unsigned bar;
        std::uint8_t velocity;
    };

    /// All three outlive the builder.
    StaffBuilder(const MeterLine &bars, NodeBlocks &nodes, const MakeNote &makeNote);

    /// The bars, one for each of the line. Notes come in the order of their times; those of one
    /// voice that begin together end together.
    Staff::Bars build(const PlayedNotes &notes);

    /// The beats of the first voice where notes begin, in the order of their times.
    const std::vector<Onset> &onsets() const noexcept { return _onsets; }

private:
    /// Notes of a voice that begin together: places in the list of its notes.
    struct Chord {
        MidiTime start;
        MidiTime end;
        std::size_t graces; ///< where those in front of it begin
        std::size_t notes;
        std::size_t last; ///< behind its notes
    };

    /// The chords of a voice in a bar, one that is held from the bar before first.
    struct Line {
        std::vector<Chord> chords;
        std::vector<const PlayedNote *> notes;
    };

    std::shared_ptr<Voice> writeVoice(const MeterBar &bar, unsigned number, unsigned voice);
    std::shared_ptr<Beat> makeGrace(const PlayedNote &note);
    static void add(const PlayedNote &note, Line &line);
    static void keepLast(Line &line);
    void addNotes(const Line &line, const Chord &chord, Beat &beat, bool isHeldHere,
                  bool isHeldOn) const;

    const MeterLine &_line;
    NodeBlocks &_nodes;
    const MakeNote &_makeNote;
    RhythmWriter _rhythm;
    std::array<Line, Bar::MaxVoices> _lines;
    std::vector<RhythmWriter::Stretch> _stretches;
    std::vector<Onset> _onsets;
};

} // namespace zarn::io
