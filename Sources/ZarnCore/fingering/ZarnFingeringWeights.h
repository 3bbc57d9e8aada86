// SPDX-License-Identifier: MIT
#pragma once

namespace zarn::fingering {

/// What a hand finds hard, in units of effort. All are at least 0.
///
/// How hard the shape of a hand is, `chord::HandModel` says, from the choices of thousands of chord
/// diagrams. What it takes to get from one shape to the next is told by fingered editions of guitar
/// music: under these weights, the single marks that editors wrote are likely over all ways to play
/// around them. Editors mark what surprises, so what says how far up the neck to go is not left to
/// them. Works that a fit does not know are served best when it stays near what a player would
/// guess: then it agrees with their editors in 76 of 100 strings, where the lowest fret does in 59
/// and the nearest in 67, and in 61 fingers; when half of the strings are given, in 87 of the
/// others. `zarn_fingering_report --folds 7` measures that. Two editors of one piece, who share it
/// out differently, agree in 43 fingers. What is built in lies halfway between such a fit to all
/// works and a looser one, which keeps a scale in its position.
struct FingeringWeights {
    /// A press of `chord::HandModel`: counts once, when fingers are laid down. For a finger alone
    /// stands its own weight.
    double shape = 0.51;
    double index = 0.01;
    double middle = 0.43;
    double ring = 0.97;
    double little = 0.89;

    /// The third finger at the third fret on the upper strings, where frets are wide and the fourth
    /// has it easier.
    double ringAtNut = 1.09;

    /// The little finger on the string farthest across the neck; the others in proportion.
    double fingerAcross = 0.61;

    /// Moving the hand: the first fret, which it does by bending; leaving its position for
    /// another; and each fret of the way, near the nut. Then what comes on top of each where there
    /// is no time; a quarter leaves a fifth of that.
    double creep = 0.63;
    double shiftStart = 0.16;
    double shift = 0.04;
    double hurriedCreep = 0.52;
    double hurriedStart = 0.28;
    double hurriedShift = 0.08;

    /// The first fret of a move on which no finger stays on its string to lead the hand.
    double blindShift = 0.3;

    /// The first fret of a move for each string on which another finger takes over.
    double exchange = 0.7;

    /// A finger that leaves one string for another, and one that does so within its fret; what
    /// comes on top where there is no time.
    double fingerJump = 0.78;
    double fingerRoll = 0.62;
    double hurriedJump = 0.29;
    double hurriedRoll = 0.3;

    /// A finger that takes over from another where that lies.
    double fingerReplaced = 1.29;

    /// Being up the neck: stopped strings and the hand for each fret, the hand for having left
    /// first position, a struck chord of three and more for each fret.
    double height = 0.006;
    double highHand = 0.02;
    double leftHome = 0.02;
    double chordHeight = 0.2;

    /// A hand so high that fingers leave the twelfth fret behind, for each fret.
    double overBody = 0.34;

    /// An open string while the hand is out of first position: one above the lowest third of the
    /// strings; any, the more the farther up; such a one in a chord with stopped notes. Pedals are
    /// free of it.
    double openTreble = 0.86;
    double openAbove = 0.85;
    double openInChord = 0.96;

    /// A string that stays silent between those of a chord of three and more.
    double skippedString = 0.8;

    /// A note that is cut off, because its string or its finger is needed, while it rings: over as
    /// it is written, it would ring on for at most so many quarters from its onset.
    double cutRinging = 0.88;
    double longestRing = 1.3;

    /// What comes on top where the note and the next two are those of a broken chord, and where it
    /// is not over yet.
    double cutBroken = 0.86;
    double cutNote = 0.96;

    /// A note that is on another string than the player has given in the same figure, and one on
    /// another string than he has given to its pitch nearby.
    double otherFigure = 2;
    double otherString = 1;

    /// A note farther down than a position that the player asks for nearby.
    double belowPosition = 1;

    /// A note that is on another string than the one that leads to it by a slide or the like.
    double leftString = 30;

    /// A step to another string, where there is no time.
    double crossedStep = 0.36;

    /// A pitch struck again on another string.
    double movedPitch = 0.12;

    /// A note of a broken chord on another string than the one at its place when the figure was
    /// plucked last: a finger of the other hand has to leave its string. The thumb is free to.
    double movedPluck = 0.5;
};

} // namespace zarn::fingering
