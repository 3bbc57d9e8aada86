// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/fingering/Grip.h>
#include <ZarnCore/fingering/GripEffort.h>
#include <ZarnCore/fingering/Ringing.h>
#include <ZarnCore/fingering/ZarnFingeringWeights.h>
#include <ZarnCore/fingering/ZarnPassage.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace zarn::fingering {

/// What it takes to go from one grip to the next.
class GripChange {
public:
    /// Passage and weights outlive this.
    GripChange(const Passage &passage, const Ringing &ringing, const FingeringWeights &weights);

    /// Takes the grip that is left, and when it began and ends. It stays where it is meanwhile.
    void leave(const Grip &from, double onset, double nextOnset);

    /// The effort of going on to a grip; nothing when what that holds is not what was there.
    std::optional<double> cost(const Grip &to) const;

    /// Whether what a grip holds was there before.
    bool holdsOn(const Grip &to) const;

    /// Calls `add` with a weight and an amount for all that is hard about going on to a grip.
    template <class Add>
    void addEffort(const Grip &to, Add &&add) const;

private:
    template <class Add>
    void addMove(const Grip &to, Add &add) const;
    template <class Add>
    void addFingers(const Grip &to, Add &add) const;
    template <class Add>
    void addNotes(const Grip &to, Add &add) const;

    bool leavesString(const Grip &to, std::size_t at) const;

    int pitchOf(const Grip &grip, std::size_t string) const
    {
        return _passage.notes[grip.note[string]].pitch;
    }

    const Passage &_passage;
    const Ringing &_ringing;
    const FingeringWeights &_weights;
    std::array<float, 128> _fretWidths; ///< by position, that of the first being 1
    bool _hasLeading = false;           ///< notes that lead to others on their string
    const Grip *_from = nullptr;
    unsigned _lasting = 0;   ///< strings that sound on, as bits
    unsigned _lingering = 0; ///< strings that may go on ringing
    float _hurry = 1;        ///< 1 without any time to move, towards 0 with all of it
};

template <class Add>
void GripChange::addEffort(const Grip &to, Add &&add) const
{
    addMove(to, add);
    addFingers(to, add);
    addNotes(to, add);
}

template <class Add>
void GripChange::addMove(const Grip &to, Add &add) const
{
    using W = FingeringWeights;
    if (_from->position == Grip::Anywhere || to.position == Grip::Anywhere)
        return;
    const float distance = std::abs(to.position - _from->position) - _passage.hand.ease;
    if (distance <= 0)
        return;
    const auto lower = static_cast<std::size_t>(std::min(to.position, _from->position));
    const float way = distance * _fretWidths[std::min(lower, _fretWidths.size() - 1)];
    const float creep = std::min(distance, 1.F);
    const float start = std::clamp(distance - 1, 0.F, 1.F);
    add(&W::creep, creep);
    add(&W::hurriedCreep, creep * _hurry);
    add(&W::shiftStart, start);
    add(&W::hurriedStart, start * _hurry);
    add(&W::shift, way);
    add(&W::hurriedShift, way * _hurry);
}

/// Fingers that leave their string, that take over from another, and that are laid down.
template <class Add>
void GripChange::addFingers(const Grip &to, Add &add) const
{
    using W = FingeringWeights;
    int jumps = 0;
    int rolls = 0;
    for (unsigned bits = _from->fingers & to.fingers; bits != 0; bits &= bits - 1) {
        const auto finger = static_cast<std::size_t>(__builtin_ctz(bits));
        if (_from->stringOfFinger[finger] == to.stringOfFinger[finger])
            continue;
        if (_from->fretOfFinger[finger] != to.fretOfFinger[finger])
            ++jumps;
        else if (((_from->barred | to.barred) >> finger & 1) == 0)
            ++rolls;
    }
    int replaced = 0;
    int pressed = to.stopCount;
    for (unsigned bits = _from->stopped & to.stopped; bits != 0; bits &= bits - 1) {
        const auto at = static_cast<std::size_t>(__builtin_ctz(bits));
        if (_from->fret[at] != to.fret[at])
            continue;
        if (_from->finger[at] == to.finger[at])
            --pressed;
        else
            ++replaced;
    }
    if (jumps != 0) {
        add(&W::fingerJump, jumps);
        add(&W::hurriedJump, static_cast<float>(jumps) * _hurry);
    }
    if (rolls != 0) {
        add(&W::fingerRoll, rolls);
        add(&W::hurriedRoll, static_cast<float>(rolls) * _hurry);
    }
    if (replaced != 0)
        add(&W::fingerReplaced, replaced);
    addPresses(to, pressed, add);
}

/// Notes that are cut off, and pitches that change their string.
template <class Add>
void GripChange::addNotes(const Grip &to, Add &add) const
{
    using W = FingeringWeights;
    const unsigned ends = (_lasting | _lingering) & ~static_cast<unsigned>(to.held);
    for (unsigned bits = ends; bits != 0; bits &= bits - 1) {
        const auto at = static_cast<std::size_t>(__builtin_ctz(bits));
        const bool isStruckAgain =
            (to.sounding >> at & 1) != 0 && pitchOf(to, at) == pitchOf(*_from, at);
        if (!isStruckAgain)
            add((_lasting >> at & 1) != 0 ? &W::cutNote : &W::cutRinging, 1);
    }
    for (unsigned bits = to.fresh(); bits != 0; bits &= bits - 1) {
        const auto at = static_cast<std::size_t>(__builtin_ctz(bits));
        if (_hasLeading && leavesString(to, at))
            add(&W::leftString, 1);
        for (unsigned others = _from->sounding & ~(1U << at); others != 0; others &= others - 1)
            if (pitchOf(*_from, static_cast<std::size_t>(__builtin_ctz(others))) == pitchOf(to, at))
                add(&W::movedPitch, 1);
    }
}

} // namespace zarn::fingering
