// SPDX-License-Identifier: MIT
#include <ZarnCore/fingering/GripChange.h>

#include <algorithm>
#include <cmath>

namespace zarn::fingering {

namespace {

/// Calls `visit` with the number of every bit that is set.
template <class Visit>
void forEachBit(unsigned bits, Visit visit)
{
    for (; bits != 0; bits &= bits - 1)
        visit(static_cast<std::size_t>(__builtin_ctz(bits)));
}

} // namespace

GripChange::GripChange(const Passage &passage, const Ringing &ringing,
                       const FingeringWeights &weights)
    : _passage(passage), _ringing(ringing), _weights(weights)
{
    for (std::size_t fret = 0; fret < _fretWidths.size(); ++fret)
        _fretWidths[fret] = std::exp2(-(std::max(static_cast<double>(fret), 1.) - 1) / 12);
}

void GripChange::leave(const Grip &from, double onset, double nextOnset)
{
    _from = &from;
    _lasting = 0;
    _lingering = 0;
    double stoppedUntil = onset;
    forEachBit(from.sounding, [&](std::size_t at) {
        const double end = _passage.notes[from.note[at]].end;
        if (_ringing.lasts(from.note[at], nextOnset))
            _lasting |= 1U << at;
        else if (_ringing.rings(from.note[at], nextOnset))
            _lingering |= 1U << at;
        if ((from.stopped >> at & 1) != 0)
            stoppedUntil = std::max(stoppedUntil, end);
    });
    // While nothing is stopped the hand is free to move: that time counts twice.
    const double time = nextOnset - onset + std::max(0., nextOnset - stoppedUntil);
    _relief = _weights.leisure + (1 - _weights.leisure) / (1 + _weights.timeRelief * time);
}

std::optional<double> GripChange::cost(const Grip &to) const
{
    if (!holdsOn(to))
        return std::nullopt;
    return costOfMove(to) + costOfFingers(to) + costOfNotes(to);
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

double GripChange::costOfMove(const Grip &to) const
{
    if (_from->position == Grip::Anywhere || to.position == Grip::Anywhere)
        return 0;
    const float distance = std::abs(to.position - _from->position) - _passage.hand.ease;
    if (distance <= 0)
        return 0;
    const auto lower = static_cast<std::size_t>(std::min(to.position, _from->position));
    const double way =
        static_cast<double>(distance) * _fretWidths[std::min(lower, _fretWidths.size() - 1)];
    return (_weights.shiftStart * std::min(way, 1.) + _weights.shift * way) * _relief;
}

/// Fingers that leave their string, or that take over from another.
double GripChange::costOfFingers(const Grip &to) const
{
    int jumps = 0;
    int rolls = 0;
    for (std::size_t finger = 0; finger < Grip::Fingers; ++finger) {
        if (_from->fretOfFinger[finger] < 0 || to.fretOfFinger[finger] < 0
            || _from->stringOfFinger[finger] == to.stringOfFinger[finger])
            continue;
        if (_from->fretOfFinger[finger] != to.fretOfFinger[finger])
            ++jumps;
        else if (((_from->barred | to.barred) >> finger & 1) == 0)
            ++rolls;
    }
    forEachBit(_from->stopped & to.stopped, [&](std::size_t at) {
        jumps += _from->fret[at] == to.fret[at] && _from->finger[at] != to.finger[at] ? 1 : 0;
    });
    return (jumps * _weights.fingerJump + rolls * _weights.fingerRoll) * _relief;
}

/// Notes that are cut off, and pitches that change their string.
double GripChange::costOfNotes(const Grip &to) const
{
    const auto pitchOf = [this](const Grip &grip, std::size_t at) {
        return _passage.notes[grip.note[at]].pitch;
    };
    double cost = 0;
    forEachBit((_lasting | _lingering) & ~static_cast<unsigned>(to.held), [&](std::size_t at) {
        const bool isStruckAgain =
            (to.sounding >> at & 1) != 0 && pitchOf(to, at) == pitchOf(*_from, at);
        if (!isStruckAgain)
            cost += (_lasting >> at & 1) != 0 ? _weights.cutNote : _weights.cutRinging;
    });
    forEachBit(to.fresh(), [&](std::size_t at) {
        forEachBit(_from->sounding & ~(1U << at), [&](std::size_t other) {
            if (pitchOf(*_from, other) == pitchOf(to, at))
                cost += _weights.movedPitch;
        });
    });
    return cost;
}

} // namespace zarn::fingering
