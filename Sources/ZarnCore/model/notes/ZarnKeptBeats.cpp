// SPDX-License-Identifier: MIT
#include <ZarnCore/model/notes/ZarnKeptBeats.h>

#include <algorithm>

namespace zarn {

void KeptBeats::keep(const Place &place, const Beat &beat)
{
    if (!_pending.empty() && _pending.back() == &beat)
        return;
    _pending.push_back(&beat);
    _places.push_back(place);
    _beatMarks.keep(beat);
    for (const auto &note : beat.notes())
        _noteMarks.keep(*note);
    _noteEnds.push_back((_noteEnds.empty() ? 0 : _noteEnds.back()) + beat.noteCount());
}

void KeptBeats::settle()
{
    std::vector<bool> isChanged(_places.size());
    _beatMarks.settle([&](std::size_t number) { isChanged[number] = true; });
    _noteMarks.settle([&](std::size_t number) {
        const auto end = std::upper_bound(_noteEnds.begin(), _noteEnds.end(), number);
        isChanged[static_cast<std::size_t>(end - _noteEnds.begin())] = true;
    });
    for (std::size_t i = 0; i < _places.size(); ++i)
        if (isChanged[i])
            _changed.push_back(_places[i]);
    _pending.clear();
}

} // namespace zarn
