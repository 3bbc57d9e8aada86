// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/fingering/Grip.h>
#include <ZarnCore/fingering/Pedals.h>
#include <ZarnCore/fingering/ZarnFingeringWeights.h>
#include <ZarnCore/fingering/ZarnPassage.h>

#include <algorithm>

namespace zarn::fingering {

/// The effort of pressing so many of the stopped strings of a grip: for one finger alone that of
/// the finger, for several their part of that of the shape.
template <class Add>
void addPresses(const Grip &grip, int pressed, Add &&add)
{
    using W = FingeringWeights;
    if (pressed == 0 || grip.isTooWide)
        return;
    if (grip.stopCount == 1) {
        constexpr double W::*const weights[] = {&W::index, &W::middle, &W::ring, &W::little};
        const auto string = static_cast<std::size_t>(__builtin_ctz(grip.stopped));
        add(weights[grip.finger[string] - 1], 1.F);
        return;
    }
    constexpr int fewestOfChord = 3;
    if (pressed >= fewestOfChord)
        add(&W::chordHeight, std::max(grip.position - 1, 0.F));
    add(&W::shape, grip.shape * static_cast<float>(pressed) / static_cast<float>(grip.stopCount));
}

/// Whether the third finger is on the third fret.
inline bool isRingAtNut(const Grip &grip, std::size_t string)
{
    constexpr int third = 3;
    return grip.finger[string] == third && grip.fret[string] == third;
}

/// The effort of holding a grip where it is, beside that of the shape of the hand: calls `add` with
/// a weight and an amount for all that there is.
template <class Add>
void addEffort(const Grip &grip, const Passage &passage, const Pedals &pedals, Add &&add)
{
    using W = FingeringWeights;
    const StaffFrets &fretboard = passage.fretboard;
    constexpr float longString = 500; // millimetres; on shorter ones the frets are near each other
    int open = 0;
    int openTreble = 0;
    int lowest = -1;
    int highest = -1;
    int frets = 0;
    int count = 0;
    // Where its fingers go, the shape of a chord takes into account already.
    const bool isChord = grip.isStruckChord();
    const int last = fretboard.stringCount() - 1;
    for (int string = 0; string <= last; ++string) {
        if (!grip.sounds(string))
            continue;
        const auto at = static_cast<std::size_t>(string);
        lowest = lowest < 0 ? string : lowest;
        highest = string;
        if (!grip.isStopped(string)) {
            // A drone is there to ring open, wherever the hand is.
            if (grip.isHeld(string) || fretboard.isDrone(string) || pedals.contains(grip.note[at]))
                continue;
            ++open;
            openTreble += string * 3 > last ? 1 : 0;
            continue;
        }
        frets += grip.fret[at];
        ++count;
        if (isChord || grip.isHeld(string) || grip.finger[at] == 0)
            continue;
        if (isRingAtNut(grip, at) && string * 2 > last && passage.hand.stringLength > longString)
            add(&W::ringAtNut, 1);
        if (last > 0)
            add(&W::fingerAcross,
                (grip.finger[at] - 1) * (last - string) / static_cast<float>(3 * last));
    }
    if (grip.position != Grip::Anywhere) {
        add(&W::height, count > 0 ? static_cast<float>(frets) / static_cast<float>(count) : 0);
        add(&W::highHand, std::max(grip.position - 1, 0.F));
        constexpr float lastBesideBody = 9;
        add(&W::overBody, std::max(grip.position - lastBesideBody, 0.F));
        const float away = std::clamp(grip.position - 1, 0.F, 1.F);
        add(&W::leftHome, away);
        add(&W::openTreble, away * static_cast<float>(openTreble));
        const float above = std::clamp((grip.position - 1) / 4, 0.F, 1.F);
        add(&W::openAbove, above * static_cast<float>(open));
        if (open > 0 && (grip.fresh() & grip.stopped) != 0)
            add(&W::openInChord, above * static_cast<float>(open));
    }
    if (__builtin_popcount(grip.fresh()) > 2)
        for (int string = lowest + 1; string < highest; ++string)
            if (!grip.sounds(string))
                add(&W::skippedString, 1);
}

} // namespace zarn::fingering
