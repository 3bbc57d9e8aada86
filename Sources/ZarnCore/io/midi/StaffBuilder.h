// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/MeterLine.h>
#include <ZarnCore/io/midi/RhythmWriter.h>
#include <ZarnCore/model/ZarnStaff.h>

#include <array>
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
        unsigned bar;
        std::shared_ptr<Beat> beat;
        const PlayedNote *note; ///< one of those that begin
    };

    /// The line and the function outlive the builder.
    StaffBuilder(const MeterLine &bars, const MakeNote &makeNote);

    /// The bars, one for each of the line. Notes come in the order of their times; those of one
    /// voice that begin together end together.
    Staff::Bars build(const PlayedNotes &notes);

    /// The beats of the first voice where notes begin, in the order of their times.
    const std::vector<Onset> &onsets() const noexcept { return _onsets; }

private:
    /// Notes of a voice that begin together.
    struct Chord {
        MidiTime start;
        MidiTime end;
        std::vector<const PlayedNote *> notes;
        std::vector<const PlayedNote *> graces; ///< in front of it
    };

    std::shared_ptr<Voice> writeVoice(const MeterBar &bar, unsigned number, unsigned voice);
    std::shared_ptr<Beat> makeGrace(const PlayedNote &note) const;
    void addNotes(const Chord &chord, Beat &beat, bool isHeldHere, bool isHeldOn) const;

    const MeterLine &_line;
    const MakeNote &_makeNote;
    RhythmWriter _rhythm;
    std::array<std::vector<Chord>, Bar::MaxVoices> _chords; ///< of the bar, those held on first
    std::vector<RhythmWriter::Stretch> _stretches;
    std::vector<Onset> _onsets;
};

} // namespace zarn::io
