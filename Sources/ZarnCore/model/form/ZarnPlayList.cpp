// SPDX-License-Identifier: MIT
#include <ZarnCore/model/form/ZarnPlayList.h>

#include <ZarnCore/model/form/RepeatForm.h>

#include <bitset>
#include <optional>

namespace zarn {
namespace {

using Mark = DirectionMark;

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
    explicit Unfolding(const MasterTrack &track)
        : _track(track), _bars(track.masterBars()), _form(_bars)
    {
        _hasDirections.resize(_bars.size());
        for (const int bar : track.directionSlots())
            if (bar >= 0 && static_cast<std::size_t>(bar) < _bars.size())
                _hasDirections[static_cast<std::size_t>(bar)] = true;
    }

    std::vector<int> run()
    {
        std::vector<int> played;
        played.reserve(_bars.size());
        unsigned bar = 0;
        while (bar < _bars.size() && played.size() < MaxPlayListLength) {
            enter(bar);
            if (!_form.isPlayed(bar, _pass)) {
                ++bar;
                continue;
            }
            played.push_back(static_cast<int>(bar));
            bar = after(bar);
        }
        return played;
    }

private:
    /// Coming into another section, or to the start of this one from elsewhere, starts its passes.
    void enter(unsigned bar)
    {
        if (bar >= _movementEnd)
            startMovement(bar);
        const unsigned section = _form.sectionNumber(bar);
        if (section == _section && !_arrived)
            return;
        _section = section;
        _arrived = false;
        _pass = _jumped ? _form.section(section).lastPass() : 1;
    }

    /// Jumps lead to no other movement: the next one knows nothing of those before it.
    void startMovement(unsigned bar)
    {
        _movementStart = bar;
        _movementEnd = _form.movementEnd(bar);
        _arrived = true;
        _jumped = false;
        _destination = Destination::End;
    }

    /// Where the music goes on.
    unsigned after(unsigned bar)
    {
        const RepeatSection &section = _form.section(_section);
        const unsigned passes = std::max(section.lastEnding, _bars[bar]->repeatCount());
        if (!_jumped && _bars[bar]->isRepeatEnd() && _pass < passes) {
            ++_pass;
            return section.start;
        }
        return _hasDirections[bar] ? direct(bar) : bar + 1;
    }

    unsigned direct(unsigned bar)
    {
        const int index = static_cast<int>(bar);
        if (_destination == Destination::Coda && _track.hasDaCodaAtBarIndex(index))
            if (const auto coda = target(Mark::DaCoda))
                return leaveForCoda(*coda);
        if (_destination == Destination::DoubleCoda && _track.hasDaDoubleCodaAtBarIndex(index))
            if (const auto coda = target(Mark::DaDoubleCoda))
                return leaveForCoda(*coda);
        if (_destination == Destination::Fine && _track.hasFineAtBarIndex(index))
            return _movementEnd;
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

    /// Where a jump leads, if that is a bar of the movement.
    std::optional<unsigned> target(Mark jump) const
    {
        const int bar = _track.jumpIndexForDirection(static_cast<int>(jump));
        if (bar < 0 || static_cast<unsigned>(bar) < _movementStart
            || static_cast<unsigned>(bar) >= _movementEnd)
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
    const RepeatForm _form;
    std::vector<bool> _hasDirections;
    unsigned _movementStart = 0;
    unsigned _movementEnd = 0;
    unsigned _section = 0;
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
