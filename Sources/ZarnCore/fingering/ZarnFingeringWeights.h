// SPDX-License-Identifier: MIT
#pragma once

namespace zarn::fingering {

/// What a hand finds hard, in units of effort. All are at least 0.
///
/// How hard the shape of a hand is, `chord::HandModel` says, from the choices of thousands of chord
/// diagrams. What it takes to get from one shape to the next is told by fingered editions of guitar
/// music: under these weights, the single marks that editors wrote are likely over all ways to play
/// around them. Editors mark what surprises, so what says how far up the neck to go is not left to
/// them. On works that it is not fitted to, such a model agrees with the editor in 67 to 74 of 100
/// strings, where the lowest fret does in 59 and the nearest in 67, and in 61 to 64 fingers, by how
/// far the fit may go; when half of the strings are given, in 86 to 89 of the others.
/// `zarn_fingering_report --folds 7` measures that. Two editors of one piece, who share it out
/// differently, agree in 43 fingers.
struct FingeringWeights {
    /// A press of `chord::HandModel`: counts once, when fingers are laid down. For a finger alone
    /// stands its own weight.
    double shape = 0.42;
    double index = 0.02;
    double middle = 0.44;
    double ring = 1.05;
    double little = 0.95;

    /// The third finger at the third fret on the upper strings, where frets are wide and the fourth
    /// has it easier.
    double ringAtNut = 1.35;

    /// The little finger on the string farthest across the neck; the others in proportion.
    double fingerAcross = 0.6;

    /// Moving the hand: the first fret, which it does by bending; leaving its position for
    /// another; and each fret of the way, near the nut. Then what comes on top of each where there
    /// is no time; a quarter leaves a fifth of that.
    double creep = 0.77;
    double shiftStart = 0.09;
    double shift = 0.08;
    double hurriedCreep = 0.6;
    double hurriedStart = 0.23;
    double hurriedShift = 0.12;

    /// The first fret of a move on which no finger stays on its string to lead the hand.
    double blindShift = 0.27;

    /// The first fret of a move for each string on which another finger takes over.
    double exchange = 0.86;

    /// A finger that leaves one string for another, and one that does so within its fret; what
    /// comes on top where there is no time.
    double fingerJump = 0.64;
    double fingerRoll = 0.62;
    double hurriedJump = 0.28;
    double hurriedRoll = 0.31;

    /// A finger that takes over from another where that lies.
    double fingerReplaced = 1.33;

    /// Being up the neck: stopped strings and the hand for each fret, the hand for having left
    /// first position, a struck chord of three and more for each fret.
    double height = 0.006;
    double highHand = 0.02;
    double leftHome = 0.02;
    double chordHeight = 0.2;

    /// A hand so high that fingers leave the twelfth fret behind, for each fret.
    double overBody = 0.39;

    /// An open string while the hand is out of first position: one above the lowest third of the
    /// strings; any, the more the farther up; such a one in a chord with stopped notes. Pedals are
    /// free of it.
    double openTreble = 1;
    double openAbove = 0.97;
    double openInChord = 1.13;

    /// A string that stays silent between those of a chord of three and more.
    double skippedString = 0.88;

    /// A note that stops before its time, because its string or its finger is needed.
    double cutNote = 1.9;

    /// The same of a note that is over as it is written, but would ring on in a broken chord; for
    /// at most so many quarters from its onset.
    double cutRinging = 0.9;
    double longestRing = 1.3;

    /// What comes on top where the note and the next two are those of a broken chord.
    double cutBroken = 0.94;

    /// A note that is on another string than the player has given in the same figure, and one on
    /// another string than he has given to its pitch nearby.
    double otherFigure = 2;
    double otherString = 1;

    /// A note farther down than a position that the player asks for nearby.
    double belowPosition = 1;

    /// A note that is on another string than the one that leads to it by a slide or the like.
    double leftString = 30;

    /// A step to another string, where there is no time.
    double crossedStep = 0.35;

    /// A pitch struck again on another string.
    double movedPitch = 0.1;
};

} // namespace zarn::fingering
