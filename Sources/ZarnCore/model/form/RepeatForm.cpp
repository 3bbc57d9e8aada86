// SPDX-License-Identifier: MIT
#include <ZarnCore/model/form/RepeatForm.h>

namespace zarn {

namespace {

unsigned highestPass(std::uint32_t passes) noexcept
{
    unsigned pass = 0;
    for (; passes != 0; passes >>= 1)
        ++pass;
    return pass;
}

/// The repeat end that a bracket has in front of the next one, when the bracket closes early: its
/// ending goes on to there. Without one, the bracket's last bar.
std::size_t endOfEnding(const MasterTrack::MasterBars &bars, std::size_t last)
{
    const auto passes = bars[last]->alternateEndings();
    for (auto bar = last + 1; bar + 1 < bars.size(); ++bar) {
        const MasterBar &next = *bars[bar + 1];
        if (bars[bar]->alternateEndings() != 0 || bars[bar]->isRepeatStart()
            || bars[bar]->isMovementStart())
            break;
        if (bars[bar]->isRepeatEnd())
            return next.alternateEndings() != 0 && (next.alternateEndings() & passes) == 0
                    && !next.isMovementStart()
                ? bar
                : last;
    }
    return last;
}

} // namespace

RepeatForm::RepeatForm(const MasterTrack::MasterBars &bars)
{
    findEndings(bars);
    findSections(bars);
}

/// Passes as they are written, and for the bars between an ending that is closed early and its
/// repeat end.
void RepeatForm::findEndings(const MasterTrack::MasterBars &bars)
{
    _endings.reserve(bars.size());
    for (const auto &bar : bars)
        _endings.push_back(bar->alternateEndings());
    for (std::size_t first = 0; first < bars.size(); ++first) {
        if (_endings[first] == 0)
            continue;
        bool isOneEnding = true;
        bool repeats = false;
        auto last = first;
        for (; last < bars.size() && _endings[last] != 0; ++last) {
            isOneEnding = isOneEnding && _endings[last] == _endings[first];
            repeats = repeats || bars[last]->isRepeatEnd();
        }
        --last;
        if (isOneEnding && !repeats)
            std::fill(_endings.begin() + static_cast<std::ptrdiff_t>(last),
                      _endings.begin() + static_cast<std::ptrdiff_t>(endOfEnding(bars, last)) + 1,
                      _endings[first]);
        first = last;
    }
}

void RepeatForm::findSections(const MasterTrack::MasterBars &bars)
{
    _sectionOfBar.reserve(bars.size());
    bool ended = true;
    for (unsigned i = 0; i < bars.size(); ++i) {
        const MasterBar &bar = *bars[i];
        const bool isMovement = i == 0 || bar.isMovementStart();
        if (isMovement)
            _movements.push_back(i);
        if (isMovement || bar.isRepeatStart() || (ended && _endings[i] == 0))
            _sections.push_back({i});
        RepeatSection &section = _sections.back();
        section.lastEnding = std::max(section.lastEnding, highestPass(_endings[i]));
        section.count = std::max(section.count, bar.repeatCount());
        _sectionOfBar.push_back(static_cast<unsigned>(_sections.size() - 1));
        ended = bar.isRepeatEnd()
            || (section.count > 1 && _endings[i] != 0
                && (i + 1 == bars.size() || _endings[i + 1] == 0));
    }
}

unsigned RepeatForm::movementStart(unsigned bar) const noexcept
{
    return *(std::upper_bound(_movements.begin(), _movements.end(), bar) - 1);
}

unsigned RepeatForm::movementEnd(unsigned bar) const noexcept
{
    const auto next = std::upper_bound(_movements.begin(), _movements.end(), bar);
    return next == _movements.end() ? static_cast<unsigned>(_endings.size()) : *next;
}

bool RepeatForm::isPlayed(unsigned bar, unsigned pass) const noexcept
{
    const auto passes = _endings[bar];
    return passes == 0
        || (pass >= 1 && pass <= MasterBar::MaxEndings && (passes >> (pass - 1) & 1u) != 0);
}

} // namespace zarn
