// SPDX-License-Identifier: MIT
#pragma once

namespace zarn::fingering {

/// What a hand finds hard, in units of effort. All are at least 0.
struct FingeringWeights {
    /// Moving the hand at all, and each fret of the way, near the nut and without time to do so.
    double shiftStart = 1.7;
    double shift = 0.6;

    /// What a move costs with all the time of the world, as a part of what it costs without any,
    /// and how fast time eases it: the rest is divided by 1 + this for each quarter.
    double leisure = 0.5;
    double timeRelief = 4;

    /// A finger that leaves one string for another, and one that does so within its fret.
    double fingerJump = 0.5;
    double fingerRoll = 0.1;

    /// Stopping strings a fret higher up.
    double height = 0.02;

    /// Holding the hand a fret higher up.
    double highHand = 0.005;

    /// An open string while the hand is far up the neck, and one in a chord with stopped notes.
    double openAbove = 0.35;
    double openInChord = 2;

    /// A fret more, or less, between two fingers than lie there naturally.
    double stretch = 2.5;
    double squeeze = 0.15;

    /// Fingers of one fret that lie the wrong way round: the lower one on the higher string.
    double crossing = 1;

    /// A finger on a string: for any finger, then more for each but the index finger, and for the
    /// ring and the little finger together.
    double stop = 0.12;
    double middleFinger = 0.1;
    double ringFinger = 0.3;
    double littleFinger = 0.35;
    double weakPair = 0.35;

    /// A finger laid over several strings, and over strings that sound lower down.
    double barre = 0.4;

    /// A string that stays silent between those of a chord of three and more.
    double skippedString = 0.5;

    /// A note that stops before its time, because its string or its finger is needed.
    double cutNote = 4.5;

    /// The same of a note that is over as it is written, but would ring on in a broken chord; for
    /// at most so many quarters from its onset.
    double cutRinging = 0.6;
    double longestRing = 0.9;

    /// A pitch struck again on another string.
    double movedPitch = 0.4;
};

} // namespace zarn::fingering
