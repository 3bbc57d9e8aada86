// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnMasterTrack.h>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace zarn {

/// A stretch that one repeat sign, or several with endings, send back to its start.
struct RepeatSection {
    unsigned start = 0;

    /// The last pass that an ending names; 0 without endings.
    unsigned lastEnding = 0;

    /// Passes that the repeat signs ask for; 1 when there is none.
    unsigned count = 1;

    unsigned lastPass() const noexcept { return std::max(lastEnding, count); }
};

/// How repeat signs, endings and movements gather the bars of a score.
///
/// A section begins with a movement, at a repeat start, and behind a repeat end that no ending
/// follows. A group of endings closes its section too, once the section has a repeat end: without
/// one the passes that the endings are for are still to come.
class RepeatForm {
public:
    explicit RepeatForm(const MasterTrack::MasterBars &bars);

    unsigned sectionNumber(unsigned bar) const noexcept { return _sectionOfBar[bar]; }
    const RepeatSection &section(unsigned number) const noexcept { return _sections[number]; }

    /// First bar of the movement that a bar belongs to, and the bar behind its last one.
    unsigned movementStart(unsigned bar) const noexcept;
    unsigned movementEnd(unsigned bar) const noexcept;

    bool isPlayed(unsigned bar, unsigned pass) const noexcept;

private:
    void findEndings(const MasterTrack::MasterBars &bars);
    void findSections(const MasterTrack::MasterBars &bars);

    std::vector<std::uint32_t> _endings; ///< passes of each bar, as `MasterBar` has them
    std::vector<RepeatSection> _sections;
    std::vector<unsigned> _sectionOfBar;
    std::vector<unsigned> _movements; ///< their first bars
};

} // namespace zarn
