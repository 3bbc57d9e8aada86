// SPDX-License-Identifier: MIT
#include <ZarnCore/model/form/ZarnPlayList.h>

#include <ZarnCore/model/form/RepeatForm.h>

#include <array>
#include <cstdint>
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
        : _bars(track.masterBars()), _form(_bars), _marks(_bars.size()), _used(_bars.size())
    {
        for (std::size_t bar = 0; bar < _bars.size(); ++bar)
            _marks[bar] = _bars[bar]->furtherDirections();
        for (int kind = 0; kind < DirectionMarkCount; ++kind) {
            const auto mark = static_cast<Mark>(kind);
            const int bar = track.directionIndex(mark);
            if (bar >= 0 && static_cast<std::size_t>(bar) < _bars.size())
                _marks[static_cast<std::size_t>(bar)] |= directionBit(mark);
        }
        for (unsigned bar = 0; bar < _bars.size(); ++bar)
            for (std::size_t kind = 0; kind < _targets.size(); ++kind)
                if (has(bar, static_cast<Mark>(kind)))
                    _targets[kind].push_back(bar);
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
        return _marks[bar] != 0 ? direct(bar) : bar + 1;
    }

    bool has(unsigned bar, Mark mark) const noexcept
    {
        return (_marks[bar] & directionBit(mark)) != 0;
    }

    unsigned direct(unsigned bar)
    {
        if (_destination == Destination::Coda && has(bar, Mark::DaCoda))
            if (const auto coda = target(Mark::DaCoda, bar))
                return leaveForCoda(*coda);
        if (_destination == Destination::DoubleCoda && has(bar, Mark::DaDoubleCoda))
            if (const auto coda = target(Mark::DaDoubleCoda, bar))
                return leaveForCoda(*coda);
        if (_destination == Destination::Fine && has(bar, Mark::Fine))
            return _movementEnd;
        for (int kind = static_cast<int>(Mark::DaCapo); kind < static_cast<int>(Mark::DaCoda);
             ++kind) {
            const auto mark = static_cast<Mark>(kind);
            if (!has(bar, mark) || (_used[bar] & directionBit(mark)) != 0)
                continue;
            if (const auto place = target(mark, bar)) {
                _used[bar] |= directionBit(mark);
                _left = bar;
                return leave(*place, destinationOf(mark));
            }
        }
        return bar + 1;
    }

    /// Where a jump leads, if that is a bar of the movement.
    std::optional<unsigned> target(Mark jump, unsigned bar) const
    {
        const Mark mark = targetOfDirection(jump);
        if (mark == Mark::NoDirection)
            return _movementStart;
        const bool isCoda = mark == Mark::Coda || mark == Mark::DoubleCoda;
        std::optional<unsigned> found;
        for (const unsigned place : _targets[static_cast<std::size_t>(mark)]) {
            if (place < _movementStart || place >= _movementEnd)
                continue;
            if (isCoda && place > _left)
                return place;
            if (!found || (!isCoda && place <= bar))
                found = place;
        }
        return found;
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

    const MasterTrack::MasterBars &_bars;
    const RepeatForm _form;
    std::vector<std::uint32_t> _marks; ///< of each bar, in bits
    std::vector<std::uint32_t> _used;  ///< the jumps among them that were taken
    std::array<std::vector<unsigned>, static_cast<std::size_t>(Mark::Fine)> _targets;
    unsigned _left = 0; ///< where the last jump leads from
    unsigned _movementStart = 0;
    unsigned _movementEnd = 0;
    unsigned _section = 0;
    unsigned _pass = 1;
    bool _arrived = true;
    bool _jumped = false;
    Destination _destination = Destination::End;
};

} // namespace

std::vector<int> unfoldPlayList(const MasterTrack &track)
{
    return Unfolding(track).run();
}

} // namespace zarn
