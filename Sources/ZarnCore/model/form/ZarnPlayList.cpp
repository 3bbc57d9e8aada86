// SPDX-License-Identifier: MIT
#include <ZarnCore/model/form/ZarnPlayList.h>

#include <ZarnCore/model/ZarnMasterTrack.h>

#include <algorithm>
#include <bitset>
#include <optional>

namespace zarn {
namespace {

using Mark = DirectionMark;

/// A stretch that one repeat sign, or several with endings, send back to its start.
struct RepeatSection {
    unsigned start = 0;

    /// The last pass that an ending names; 0 without endings.
    unsigned lastEnding = 0;

    /// Passes that the repeat signs ask for; 1 when there is none.
    unsigned count = 1;

    unsigned lastPass() const noexcept { return std::max(lastEnding, count); }
};

unsigned highestPass(std::uint32_t passes) noexcept
{
    unsigned pass = 0;
    for (; passes != 0; passes >>= 1)
        ++pass;
    return pass;
}

/// What a jump arms until it is used or another jump comes.
enum class Destination { End, Fine, Coda, DoubleCoda };

Destination destinationOf(Mark jump) noexcept
{
    switch (jump) {
    case Mark::DaCapoAlCoda:
    case Mark::DaSegnoAlCoda:
    case Mark::DaSegnoSegnoAlCoda:
        return Destination::Coda;
    case Mark::DaCapoAlDoubleCoda:
    case Mark::DaSegnoAlDoubleCoda:
    case Mark::DaSegnoSegnoAlDoubleCoda:
        return Destination::DoubleCoda;
    default:
        return Destination::Fine;
    }
}

class Unfolding {
public:
    explicit Unfolding(const MasterTrack &track) : _track(track), _bars(track.masterBars())
    {
        findSections();
        _hasDirections.resize(_bars.size());
        for (const int bar : track.directionSlots())
            if (bar >= 0 && static_cast<std::size_t>(bar) < _bars.size())
                _hasDirections[static_cast<std::size_t>(bar)] = true;
    }

    std::vector<int> run()
    {
        std::vector<int> played;
        played.reserve(_bars.size());
        std::optional<unsigned> bar = 0;
        while (bar && *bar < _bars.size() && played.size() < MaxPlayListLength) {
            enter(*bar);
            if (!_bars[*bar]->isPlayedInPass(_pass)) {
                bar = *bar + 1;
                continue;
            }
            played.push_back(static_cast<int>(*bar));
            bar = after(*bar);
        }
        return played;
    }

private:
    /// The section of each bar, in one walk: a section ends where a repeat start stands or behind
    /// a repeat end that no further ending follows.
    void findSections()
    {
        _sectionOfBar.reserve(_bars.size());
        bool ended = true;
        for (unsigned i = 0; i < _bars.size(); ++i) {
            const MasterBar &bar = *_bars[i];
            if ((ended && bar.alternateEndings() == 0) || bar.isRepeatStart() || i == 0)
                _sections.push_back({i});
            RepeatSection &section = _sections.back();
            section.lastEnding = std::max(section.lastEnding, highestPass(bar.alternateEndings()));
            section.count = std::max(section.count, bar.repeatCount());
            _sectionOfBar.push_back(_sections.size() - 1);
            ended = bar.isRepeatEnd() || (bar.alternateEndings() != 0 && endsBracket(i));
        }
    }

    /// The last bar under a bracket that no other bracket follows.
    bool endsBracket(unsigned bar) const
    {
        return bar + 1 >= _bars.size() || _bars[bar + 1]->alternateEndings() == 0;
    }

    /// Coming into another section, or to the start of this one from elsewhere, starts its passes.
    void enter(unsigned bar)
    {
        const std::size_t section = _sectionOfBar[bar];
        if (section == _section && !_arrived)
            return;
        _section = section;
        _arrived = false;
        _pass = _jumped ? _sections[section].lastPass() : 1;
    }

    /// Where the music goes on; nothing at its end.
    std::optional<unsigned> after(unsigned bar)
    {
        const RepeatSection &section = _sections[_section];
        const unsigned passes = std::max(section.lastEnding, _bars[bar]->repeatCount());
        if (!_jumped && _bars[bar]->isRepeatEnd() && _pass < passes) {
            ++_pass;
            return section.start;
        }
        return _hasDirections[bar] ? direct(bar) : bar + 1;
    }

    std::optional<unsigned> direct(unsigned bar)
    {
        const int index = static_cast<int>(bar);
        if (_destination == Destination::Coda && _track.hasDaCodaAtBarIndex(index))
            if (const auto coda = target(Mark::DaCoda))
                return leaveForCoda(*coda);
        if (_destination == Destination::DoubleCoda && _track.hasDaDoubleCodaAtBarIndex(index))
            if (const auto coda = target(Mark::DaDoubleCoda))
                return leaveForCoda(*coda);
        if (_destination == Destination::Fine && _track.hasFineAtBarIndex(index))
            return std::nullopt;
        for (int kind = static_cast<int>(Mark::DaCapo); kind < static_cast<int>(Mark::DaCoda);
             ++kind) {
            const auto mark = static_cast<Mark>(kind);
            if (_track.directionIndex(mark) != index || _used[static_cast<std::size_t>(kind)])
                continue;
            if (const auto place = target(mark)) {
                _used.set(static_cast<std::size_t>(kind));
                return leave(*place, destinationOf(mark));
            }
        }
        return bar + 1;
    }

    /// Where a jump leads, if that is a bar of the score.
    std::optional<unsigned> target(Mark jump) const
    {
        const int bar = _track.jumpIndexForDirection(static_cast<int>(jump));
        if (bar < 0 || static_cast<std::size_t>(bar) >= _bars.size())
            return std::nullopt;
        return static_cast<unsigned>(bar);
    }

    unsigned leave(unsigned target, Destination destination)
    {
        _jumped = true;
        _arrived = true;
        _destination = destination;
        return target;
    }

    /// The coda is new music: its repeats are played.
    unsigned leaveForCoda(unsigned target)
    {
        leave(target, Destination::Fine);
        _jumped = false;
        return target;
    }

    const MasterTrack &_track;
    const MasterTrack::MasterBars &_bars;
    std::vector<RepeatSection> _sections;
    std::vector<std::size_t> _sectionOfBar;
    std::vector<bool> _hasDirections;
    std::size_t _section = static_cast<std::size_t>(-1);
    unsigned _pass = 1;
    bool _arrived = true;
    bool _jumped = false;
    Destination _destination = Destination::End;
    std::bitset<DirectionMarkCount> _used;
};

} // namespace

std::vector<int> unfoldPlayList(const MasterTrack &track)
{
    return Unfolding(track).run();
}

} // namespace zarn
