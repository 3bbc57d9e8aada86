// SPDX-License-Identifier: MIT
#pragma once

namespace zarn::fingering {

/// What a hand finds hard, in units of effort. All are at least 0.
///
/// How hard the shape of a hand is, `chord::HandModel` says, from the choices of thousands of chord
/// diagrams. What it takes to get from one shape to the next was set by hand: round figures around
/// which nine fingered editions of guitar music agree well, also when all weights are off by a
/// third. `zarn_fingering_report --fit` shows that fitting them finer does no better on pieces that
/// the fit has not seen.
struct FingeringWeights {
    /// A press of `chord::HandModel`: counts once, when fingers are laid down. For a finger alone
    /// stands its own weight.
    double shape = 0.18;
    double index = 0.2;
    double middle = 0.25;
    double ring = 0.4;
    double little = 0.45;

    /// The little finger on the string farthest across the neck; the others in proportion.
    double fingerAcross = 0.2;

    /// Moving the hand: the first fret, which it does by bending; leaving its position for
    /// another; and each fret of the way, near the nut. Then what comes on top of each where there
    /// is no time; a quarter leaves a fifth of that.
    double creep = 0.8;
    double shiftStart = 0.85;
    double shift = 0.35;
    double hurriedCreep = 0.3;
    double hurriedStart = 1;
    double hurriedShift = 0.3;

    /// A finger that leaves one string for another, and one that does so within its fret; what
    /// comes on top where there is no time.
    double fingerJump = 0.4;
    double fingerRoll = 0.5;
    double hurriedJump = 0.4;
    double hurriedRoll = 0.4;

    /// A finger that takes over from another where that lies.
    double fingerReplaced = 0.5;

    /// Being up the neck: stopped strings and the hand for each fret, the hand for having left
    /// first position, a struck chord of three and more for each fret.
    double height = 0.01;
    double highHand = 0.005;
    double leftHome = 0.02;
    double chordHeight = 0.1;

    /// An open string while the hand is out of first position: one above the lowest third of the
    /// strings; any, the more the farther up; such a one in a chord with stopped notes. Pedals are
    /// free of it.
    double openTreble = 0.4;
    double openAbove = 0.4;
    double openInChord = 2;

    /// A string that stays silent between those of a chord of three and more.
    double skippedString = 0.5;

    /// A note that stops before its time, because its string or its finger is needed.
    double cutNote = 4.5;

    /// The same of a note that is over as it is written, but would ring on in a broken chord; for
    /// at most so many quarters from its onset.
    double cutRinging = 1.2;
    double longestRing = 1.3;

    /// A note that is on another string than the player has given in the same figure, and one on
    /// another string than he has given to its pitch nearby.
    double otherFigure = 2;
    double otherString = 1;

    /// A note that is on another string than the one that leads to it by a slide or the like.
    double leftString = 30;

    /// A pitch struck again on another string.
    double movedPitch = 0.4;
};

} // namespace zarn::fingering
