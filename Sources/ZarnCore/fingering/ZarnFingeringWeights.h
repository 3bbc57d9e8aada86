// SPDX-License-Identifier: MIT
#pragma once

namespace zarn::fingering {

/// What a hand finds hard, in units of effort. All are at least 0.
///
/// How hard the shape of a hand is, `chord::HandModel` says, from the choices of thousands of chord
/// diagrams. What it takes to get from one shape to the next is told by nine fingered editions of
/// guitar music: under these weights, what the editors wrote is likely among all ways to play it.
/// On a piece that they are not fitted to, the easiest way under such weights agrees with the
/// editor in some 69 to 73 of 100 strings and 56 fingers, and heeding the other easy ways helps
/// further; two editors of one piece, who share it out differently, agree in 43 fingers. What such
/// fits reach `zarn_fingering_report --fit` measures.
struct FingeringWeights {
    /// A press of `chord::HandModel`: counts once, when fingers are laid down. For a finger alone
    /// stands its own weight.
    double shape = 0.39;
    double index = 0.04;
    double middle = 0.31;
    double ring = 0.7;
    double little = 0.6;

    /// The little finger on the string farthest across the neck; the others in proportion.
    double fingerAcross = 0.28;

    /// Moving the hand: the first fret, which it does by bending; leaving its position for
    /// another; and each fret of the way, near the nut. Then what comes on top of each where there
    /// is no time; a quarter leaves a fifth of that.
    double creep = 0.45;
    double shiftStart = 0.19;
    double shift = 0.07;
    double hurriedCreep = 0.15;
    double hurriedStart = 0.38;
    double hurriedShift = 0.11;

    /// The first fret of a move on which no finger stays on its string to lead the hand.
    double blindShift = 0.19;

    /// A finger that leaves one string for another, and one that does so within its fret; what
    /// comes on top where there is no time.
    double fingerJump = 1.41;
    double fingerRoll = 0.91;
    double hurriedJump = 0.81;
    double hurriedRoll = 0.39;

    /// A finger that takes over from another where that lies.
    double fingerReplaced = 1.68;

    /// Being up the neck: stopped strings and the hand for each fret, the hand for having left
    /// first position, a struck chord of three and more for each fret.
    double height = 0.013;
    double highHand = 0.01;
    double leftHome = 0.01;
    double chordHeight = 0.25;

    /// An open string while the hand is out of first position: one above the lowest third of the
    /// strings; any, the more the farther up; such a one in a chord with stopped notes. Pedals are
    /// free of it.
    double openTreble = 0.35;
    double openAbove = 0.4;
    double openInChord = 1.44;

    /// A string that stays silent between those of a chord of three and more.
    double skippedString = 0.9;

    /// A note that stops before its time, because its string or its finger is needed.
    double cutNote = 1.6;

    /// The same of a note that is over as it is written, but would ring on in a broken chord; for
    /// at most so many quarters from its onset.
    double cutRinging = 0.56;
    double longestRing = 1.3;

    /// What comes on top where the note and the next two are those of a broken chord.
    double cutBroken = 0.24;

    /// A note that is on another string than the player has given in the same figure, and one on
    /// another string than he has given to its pitch nearby.
    double otherFigure = 2;
    double otherString = 1;

    /// An open string near a note that the player has put up the neck, without need.
    double openUpTheNeck = 1;

    /// A note that is on another string than the one that leads to it by a slide or the like.
    double leftString = 30;

    /// A pitch struck again on another string.
    double movedPitch = 0.14;
};

} // namespace zarn::fingering
