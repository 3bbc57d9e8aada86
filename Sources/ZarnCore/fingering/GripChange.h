// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/fingering/Grip.h>
#include <ZarnCore/fingering/GripEffort.h>
#include <ZarnCore/fingering/PluckedFigures.h>
#include <ZarnCore/fingering/Ringing.h>
#include <ZarnCore/fingering/ZarnFingeringWeights.h>
#include <ZarnCore/fingering/ZarnPassage.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace zarn::fingering {

/// What it takes to go from one grip to the next.
class GripChange {
public:
    /// Passage and weights outlive this.
    GripChange(const Passage &passage, const Ringing &ringing, const FingeringWeights &weights);

    /// A grip that is left, and what sounds on then.
    struct Departure {
        const Grip *grip = nullptr;
        unsigned lasting = 0;   ///< strings that sound on, as bits
        unsigned lingering = 0; ///< strings that may go on ringing
        float hurry = 1;        ///< 1 without any time to move, towards 0 with all of it
    };

    /// Leaves a grip that began at an onset and ends at the next. It stays where it is meanwhile.
    Departure leave(const Grip &from, double onset, double nextOnset) const;

    /// Adds to a grip which strings have been plucked up to it, on the easiest way there; `before`
    /// is the grip in front on that, none for the first event.
    void follow(const Grip *before, std::size_t event, Grip &grip) const;

    /// The effort of going on to a grip, which holds nothing that is not there.
    double cost(const Departure &from, const Grip &to) const;

    /// Calls `add` with a weight and an amount for all that is hard about going on to a grip.
    template <class Add>
    void addEffort(const Departure &from, const Grip &to, Add &&add) const;

private:
    template <class Add>
    void addMove(const Departure &from, const Grip &to, Add &add) const;
    template <class Add>
    void addFingers(const Departure &from, const Grip &to, Add &add) const;
    template <class Add>
    void addNotes(const Departure &from, const Grip &to, Add &add) const;

    template <class Add>
    void addIntervals(const Departure &from, const Grip &to, std::size_t at, Add &add) const;

    bool movesOn(const Departure &from, const Grip &to, std::size_t at) const;
    bool leavesPluckedString(const Grip &from, const Grip &to, std::size_t at) const;

    static bool hasGuide(const Grip &from, const Grip &to);
    static bool isMovedWhole(const Grip &from, const Grip &to);
    static bool isUnderBarre(const Grip &from, const Grip &to, std::size_t at);
    bool leavesString(const Grip &from, const Grip &to, std::size_t at) const;

    int pitchOf(const Grip &grip, std::size_t string) const
    {
        return _passage.notes[grip.note[string]].pitch;
    }

    const Passage &_passage;
    const Ringing &_ringing;
    const FingeringWeights &_weights;
    PluckedFigures _figures;
    std::array<float, 128> _fretWidths; ///< by position, that of the first being 1
    bool _hasLeading = false;           ///< notes that lead to others on their string
};

template <class Add>
void GripChange::addEffort(const Departure &from, const Grip &to, Add &&add) const
{
    addMove(from, to, add);
    addFingers(from, to, add);
    addNotes(from, to, add);
}

template <class Add>
void GripChange::addMove(const Departure &from, const Grip &to, Add &add) const
{
    using W = FingeringWeights;
    if (from.grip->position == Grip::Anywhere || to.position == Grip::Anywhere)
        return;
    const float distance = std::abs(to.position - from.grip->position) - _passage.hand.ease;
    if (distance <= 0)
        return;
    const auto lower = static_cast<std::size_t>(std::min(to.position, from.grip->position));
    const float way = distance * _fretWidths[std::min(lower, _fretWidths.size() - 1)];
    const float creep = std::min(distance, 1.F);
    const float start = std::clamp(distance - 1, 0.F, 1.F);
    if (!hasGuide(*from.grip, to))
        add(&W::blindShift, creep);
    for (unsigned bits = from.grip->stopped & to.stopped & to.fresh(); bits != 0;
         bits &= bits - 1) {
        const auto at = static_cast<std::size_t>(__builtin_ctz(bits));
        if (from.grip->finger[at] != to.finger[at])
            add(&W::exchange, creep);
    }
    add(&W::creep, creep);
    add(&W::hurriedCreep, creep * from.hurry);
    add(&W::shiftStart, start);
    add(&W::hurriedStart, start * from.hurry);
    add(&W::shift, way);
    add(&W::hurriedShift, way * from.hurry);
}

/// Fingers that leave their string, that take over from another, and that are laid down.
template <class Add>
void GripChange::addFingers(const Departure &from, const Grip &to, Add &add) const
{
    using W = FingeringWeights;
    int jumps = 0;
    int rolls = 0;
    for (unsigned bits = from.grip->fingers & to.fingers; bits != 0; bits &= bits - 1) {
        const auto finger = static_cast<std::size_t>(__builtin_ctz(bits));
        if (from.grip->stringOfFinger[finger] == to.stringOfFinger[finger])
            continue;
        if (from.grip->fretOfFinger[finger] != to.fretOfFinger[finger])
            ++jumps;
        else if (((from.grip->barred | to.barred) >> finger & 1) == 0)
            ++rolls;
    }
    int replaced = 0;
    int pressed = to.stopCount;
    const bool mayHaveBarre = (from.grip->barred & to.fingers) != 0;
    const unsigned stopped = from.grip->stopped & to.stopped;
    bool isHeldOtherwise = false;
    for (unsigned bits = mayHaveBarre ? to.stopped : stopped; bits != 0; bits &= bits - 1) {
        const auto at = static_cast<std::size_t>(__builtin_ctz(bits));
        const bool isWhereItWas = (stopped >> at & 1) != 0 && from.grip->fret[at] == to.fret[at];
        const bool isOfSameFinger = from.grip->finger[at] == to.finger[at];
        isHeldOtherwise = isHeldOtherwise || (isWhereItWas && !isOfSameFinger);
        if (mayHaveBarre && isUnderBarre(*from.grip, to, at))
            --pressed;
        else if (isWhereItWas && isOfSameFinger)
            --pressed;
        else if (isWhereItWas)
            ++replaced;
    }
    // Nobody changes a finger of a chord but by taking it anew.
    if (isHeldOtherwise && to.isStruckChord())
        pressed = to.stopCount;
    else if (isMovedWhole(*from.grip, to))
        pressed = 0;
    if (jumps != 0) {
        add(&W::fingerJump, jumps);
        add(&W::hurriedJump, static_cast<float>(jumps) * from.hurry);
    }
    if (rolls != 0) {
        add(&W::fingerRoll, rolls);
        add(&W::hurriedRoll, static_cast<float>(rolls) * from.hurry);
    }
    if (replaced != 0)
        add(&W::fingerReplaced, replaced);
    addPresses(to, pressed, add);
}

/// Notes that are cut off, and pitches that change their string.
template <class Add>
void GripChange::addNotes(const Departure &from, const Grip &to, Add &add) const
{
    using W = FingeringWeights;
    const unsigned ends = (from.lasting | from.lingering) & ~static_cast<unsigned>(to.held);
    for (unsigned bits = ends; bits != 0; bits &= bits - 1) {
        const auto at = static_cast<std::size_t>(__builtin_ctz(bits));
        const bool isStruckAgain =
            (to.sounding >> at & 1) != 0 && pitchOf(to, at) == pitchOf(*from.grip, at);
        if (isStruckAgain || movesOn(from, to, at))
            continue;
        add(&W::cutRinging, 1);
        if (_ringing.isOfBrokenChord(from.grip->note[at]))
            add(&W::cutBroken, 1);
        if ((from.lasting >> at & 1) != 0)
            add(&W::cutNote, 1);
    }
    for (unsigned bits = to.fresh(); bits != 0; bits &= bits - 1) {
        const auto at = static_cast<std::size_t>(__builtin_ctz(bits));
        if (_hasLeading && leavesString(*from.grip, to, at))
            add(&W::leftString, 1);
        if (leavesPluckedString(*from.grip, to, at))
            add(&W::movedPluck, 1);
        addIntervals(from, to, at, add);
    }
}

/// A pitch that is struck again on another string, and steps to one.
template <class Add>
void GripChange::addIntervals(const Departure &from, const Grip &to, std::size_t at, Add &add) const
{
    using W = FingeringWeights;
    constexpr int step = 2;
    const int pitch = pitchOf(to, at);
    for (unsigned bits = from.grip->sounding & ~(1U << at); bits != 0; bits &= bits - 1) {
        const auto other = static_cast<std::size_t>(__builtin_ctz(bits));
        const int interval = std::abs(pitchOf(*from.grip, other) - pitch);
        if (interval == 0)
            add(&W::movedPitch, 1);
        else if (interval <= step && (from.grip->held >> other & 1) == 0)
            add(&W::crossedStep, from.hurry * from.hurry);
    }
}

} // namespace zarn::fingering
