// SPDX-License-Identifier: MIT
#include <ZarnCore/fingering/ZarnPassage.h>

namespace zarn::fingering {

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
