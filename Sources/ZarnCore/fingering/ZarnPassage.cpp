// SPDX-License-Identifier: MIT
#include <ZarnCore/fingering/ZarnPassage.h>

#include <ZarnCore/model/ZarnStaff.h>

namespace zarn::fingering {

Passage::Passage(const Staff &staff) : fretboard(staff), hand(chord::handFor(staff.tuning())) { }

void Passage::addEvent(double onset)
{
    events.push_back({onset, static_cast<std::uint32_t>(notes.size()), 0});
}

void Passage::addNote(const PassageNote &note)
{
    notes.push_back(note);
    ++events.back().noteCount;
}

} // namespace zarn::fingering
