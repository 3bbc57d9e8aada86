// SPDX-License-Identifier: MIT
#include <ZarnCore/fingering/GripChange.h>

namespace zarn::fingering {

GripChange::GripChange(const Passage &passage, const Ringing &ringing,
                       const FingeringWeights &weights)
    : _passage(passage), _ringing(ringing), _weights(weights)
{
    for (std::size_t fret = 0; fret < _fretWidths.size(); ++fret)
        _fretWidths[fret] = std::exp2(-(std::max(static_cast<float>(fret), 1.F) - 1) / 12);
    _hasLeading =
        std::any_of(passage.notes.begin(), passage.notes.end(),
                    [](const PassageNote &note) { return note.leadsFrom != PassageNote::NoNote; });
}

void GripChange::leave(const Grip &from, double onset, double nextOnset)
{
    _from = &from;
    _lasting = 0;
    _lingering = 0;
    double stoppedUntil = onset;
    for (unsigned bits = from.sounding; bits != 0; bits &= bits - 1) {
        const auto at = static_cast<std::size_t>(__builtin_ctz(bits));
        const double end = _passage.notes[from.note[at]].end;
        if (_ringing.lasts(from.note[at], nextOnset))
            _lasting |= 1U << at;
        else if (_ringing.rings(from.note[at], nextOnset))
            _lingering |= 1U << at;
        if ((from.stopped >> at & 1) != 0)
            stoppedUntil = std::max(stoppedUntil, end);
    }
    // While nothing is stopped the hand is free to move: that time counts twice.
    const double time = nextOnset - onset + std::max(0., nextOnset - stoppedUntil);
    constexpr double relief = 4;
    _hurry = static_cast<float>(1 / (1 + relief * time));
}

std::optional<double> GripChange::cost(const Grip &to) const
{
    if (!holdsOn(to))
        return std::nullopt;
    double cost = 0;
    addEffort(to, [&](double FingeringWeights::*weight, float amount) {
        cost += _weights.*weight * static_cast<double>(amount);
    });
    return cost;
}

/// Whether a note that begins is on another string than the one that leads to it.
bool GripChange::leavesString(const Grip &to, std::size_t at) const
{
    const std::uint32_t leading = _passage.notes[to.note[at]].leadsFrom;
    if (leading == PassageNote::NoNote)
        return false;
    for (std::size_t string = 0; string < Grip::Strings; ++string)
        if ((_from->sounding >> string & 1) != 0 && _from->note[string] == leading)
            return string != at;
    return false;
}

bool GripChange::holdsOn(const Grip &to) const
{
    if ((to.held & ~(_lasting | _lingering)) != 0)
        return false;
    for (unsigned bits = to.held; bits != 0; bits &= bits - 1) {
        const auto at = static_cast<std::size_t>(__builtin_ctz(bits));
        // A grip that is too wide has no fingers: those that are left take over.
        const bool isOtherFinger = _from->finger[at] != 0 && to.finger[at] != _from->finger[at];
        if (to.note[at] != _from->note[at] || to.fret[at] != _from->fret[at] || isOtherFinger)
            return false;
    }
    return true;
}

} // namespace zarn::fingering
