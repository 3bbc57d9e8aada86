// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/fingering/ZarnPassage.h>
#include <ZarnCore/model/ZarnStaff.h>

#include <vector>

namespace zarn::test {

/// Open strings, the lowest first.
inline const std::vector<unsigned> guitar = {40, 45, 50, 55, 59, 64};

inline fingering::Passage passageOn(const std::vector<unsigned> &tuning, unsigned fretCount = 24)
{
    Staff staff;
    staff.setTuning(GuitarTuning(tuning));
    staff.setFretCount(fretCount);
    return fingering::Passage(staff);
}

/// Quarters; the notes of an event from the highest down.
inline void addEvent(fingering::Passage &passage, const std::vector<int> &pitches)
{
    const auto onset = static_cast<double>(passage.events.size());
    passage.addEvent(onset);
    for (const int pitch : pitches)
        passage.addNote({pitch, onset + 1});
}

} // namespace zarn::test
