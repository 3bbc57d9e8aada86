// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/chords/ZarnHandProfile.h>
#include <ZarnCore/fingering/ZarnStaffFrets.h>

#include <cstdint>
#include <vector>

namespace zarn::fingering {

/// One note that is plucked or struck: notes tied on and the same note of another voice are part of
/// it.
struct PassageNote {
    static constexpr int Free = -1;

    /// MIDI key as written.
    int pitch = 0;

    /// Quarters from the start of the passage at which the note ends.
    double end = 0;

    /// Onset of the last note that is tied to it: until then no other note takes its string.
    double tiedUntil = -1;

    /// String that it stays on, and the fret there (`Free`: where the pitch lies).
    int string = Free;
    int fret = Free;

    /// Finger that the player has given, 1 to 4 from the index finger, 0 for an open string. Kept
    /// wherever a hand can.
    int finger = Free;

    /// Quarters from the start of the passage until which it is left to ring, unless what is struck
    /// meanwhile clashes with it.
    double ringsUntil = -1;

    /// The note in front, by its number, that leads to this one on its string: by a hammer-on, a
    /// pull-off or a slide.
    static constexpr std::uint32_t NoNote = UINT32_MAX;
    std::uint32_t leadsFrom = NoNote;
};

/// All notes that begin together.
struct PassageEvent {
    /// Quarters from the start of the passage; never before that of the event in front.
    double onset = 0;

    /// Its notes, in `Passage::notes`, from the highest down.
    std::uint32_t firstNote = 0;
    std::uint32_t noteCount = 0;
};

/// Music that is to be fingered: what sounds when, on which instrument, and what is fixed.
struct ZARNCORE_EXPORT Passage {
    /// With the neck and the hand of a staff.
    explicit Passage(const Staff &staff);

    StaffFrets fretboard;
    chord::HandProfile hand;

    /// Written frets that stopped notes may have.
    int lowestFret = 1;
    int highestFret = 127;

    /// Whether open strings are left to pitches that are nowhere else.
    bool avoidsOpenStrings = false;

    std::vector<PassageEvent> events;
    std::vector<PassageNote> notes;

    /// Opens an event behind the others; its notes are then added one by one.
    void addEvent(double onset);
    void addNote(const PassageNote &note);
};

} // namespace zarn::fingering
