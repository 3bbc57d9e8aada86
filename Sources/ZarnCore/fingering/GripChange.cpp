// SPDX-License-Identifier: MIT
#include <ZarnCore/fingering/GripChange.h>

namespace zarn::fingering {

GripChange::GripChange(const Passage &passage, const Ringing &ringing,
                       const FingeringWeights &weights)
    : _passage(passage), _ringing(ringing), _weights(weights), _figures(_passage)
{
    for (std::size_t fret = 0; fret < _fretWidths.size(); ++fret)
        _fretWidths[fret] = std::exp2(-(std::max(static_cast<float>(fret), 1.F) - 1) / 12);
    _hasLeading =
        std::any_of(passage.notes.begin(), passage.notes.end(),
                    [](const PassageNote &note) { return note.leadsFrom != PassageNote::NoNote; });
}

GripChange::Departure GripChange::leave(const Grip &from, double onset, double nextOnset) const
{
    Departure departure;
    departure.grip = &from;
    double stoppedUntil = onset;
    for (unsigned bits = from.sounding; bits != 0; bits &= bits - 1) {
        const auto at = static_cast<std::size_t>(__builtin_ctz(bits));
        const double end = _passage.notes[from.note[at]].end;
        if (_ringing.lasts(from.note[at], nextOnset))
            departure.lasting |= 1U << at;
        else if (_ringing.rings(from.note[at], nextOnset))
            departure.lingering |= 1U << at;
        if ((from.stopped >> at & 1) != 0)
            stoppedUntil = std::max(stoppedUntil, end);
    }
    // While nothing is stopped the hand is free to move: that time counts twice.
    const double time = nextOnset - onset + std::max(0., nextOnset - stoppedUntil);
    constexpr double relief = 4;
    departure.hurry = static_cast<float>(1 / (1 + relief * time));
    return departure;
}

void GripChange::follow(const Grip *before, std::size_t event, Grip &grip) const
{
    const std::uint32_t highest = _passage.events[event].firstNote;
    auto pluck = Grip::NoPluck;
    for (unsigned bits = grip.fresh(); bits != 0; bits &= bits - 1) {
        const auto at = static_cast<unsigned>(__builtin_ctz(bits));
        if (grip.note[at] == highest)
            pluck = at;
    }
    const std::uint32_t past = before != nullptr ? before->plucks : UINT32_MAX;
    grip.plucks = past << Grip::PluckBits | pluck;
}

double GripChange::cost(const Departure &from, const Grip &to) const
{
    double cost = 0;
    addEffort(from, to, [&](double FingeringWeights::*weight, float amount) {
        cost += _weights.*weight * static_cast<double>(amount);
    });
    return cost;
}

/// Whether the hand takes a chord along the neck as it is: no finger leaves another.
bool GripChange::isMovedWhole(const Grip &from, const Grip &to)
{
    if (!to.isStruckChord() || from.stopped != to.stopped || from.finger != to.finger)
        return false;
    const auto first = static_cast<std::size_t>(__builtin_ctz(to.stopped));
    const int way = to.fret[first] - from.fret[first];
    for (unsigned bits = to.stopped; bits != 0; bits &= bits - 1) {
        const auto at = static_cast<std::size_t>(__builtin_ctz(bits));
        if (to.fret[at] - from.fret[at] != way)
            return false;
    }
    return true;
}

/// Whether a string is stopped by a barre that lies already: one goes from its lowest string to the
/// highest of the neck.
bool GripChange::isUnderBarre(const Grip &from, const Grip &to, std::size_t at)
{
    const auto finger = static_cast<std::size_t>(to.finger[at]) - 1;
    return to.finger[at] > 0 && (from.barred >> finger & 1) != 0
        && from.fretOfFinger[finger] == to.fret[at]
        && from.stringOfFinger[finger] <= static_cast<int>(at);
}

/// Whether a finger stays on its string, and so leads the hand.
bool GripChange::hasGuide(const Grip &from, const Grip &to)
{
    for (unsigned bits = from.fingers & to.fingers; bits != 0; bits &= bits - 1) {
        const auto finger = static_cast<std::size_t>(__builtin_ctz(bits));
        if (from.stringOfFinger[finger] == to.stringOfFinger[finger])
            return true;
    }
    return false;
}

/// Whether a note that begins is on another string than the one that leads to it.
bool GripChange::leavesString(const Grip &from, const Grip &to, std::size_t at) const
{
    const std::uint32_t leading = _passage.notes[to.note[at]].leadsFrom;
    if (leading == PassageNote::NoNote)
        return false;
    for (std::size_t string = 0; string < Grip::Strings; ++string)
        if ((from.sounding >> string & 1) != 0 && from.note[string] == leading)
            return string != at;
    return false;
}

/// Whether the next note of a broken chord at the same place of its figure comes where the last one
/// rings on, which is over as it is written: that is no longer wanted.
bool GripChange::movesOn(const Departure &from, const Grip &to, std::size_t at) const
{
    return (from.lasting >> at & 1) == 0 && to.sounds(static_cast<int>(at))
        && _figures.noteBefore(to.note[at]) == from.grip->note[at];
}

/// Whether a note of a broken chord is on another string than the one that its finger plucked
/// there a figure before. On the lower half of the strings it is the thumb that does.
bool GripChange::leavesPluckedString(const Grip &from, const Grip &to, std::size_t at) const
{
    static_assert(PluckedFigures::LongestFigure * Grip::PluckBits <= 32);
    static_assert(Grip::Strings <= static_cast<int>(Grip::NoPluck));
    const std::size_t events = _figures.eventsSince(to.note[at]);
    if (events == 0)
        return false;
    const std::size_t pluck = from.plucks >> (events - 1) * Grip::PluckBits & Grip::NoPluck;
    const auto last = static_cast<std::size_t>(_passage.fretboard.stringCount()) - 1;
    return pluck != Grip::NoPluck && pluck != at && std::max(pluck, at) * 2 > last;
}

} // namespace zarn::fingering
