// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/AttackVelocity.h>

#include <ZarnCore/playback/DynamicsCurve.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace zarn::playback {

namespace {

constexpr int halfStep = velocityStep / 2;

struct AccentRow {
    AccentFlag flag;
    int change;
};
constexpr std::array accents{
    AccentRow{AccentFlag::Accent, velocityStep},
    AccentRow{AccentFlag::HeavyAccent, 2 * velocityStep},
    AccentRow{AccentFlag::SoftAccent, halfStep},
};

// By the numbers of the enumerators.
constexpr std::array ghosts{0, -10, -20, -40};
constexpr std::array approaches{0, -velocityStep, -2 * velocityStep};
constexpr std::array bassAttacks{0, velocityStep, 2 * velocityStep};

/// At least `step` louder than the level, and at least `least`; or a level of its own.
struct AttackRow {
    int step;
    NoteDynamic::Value least;
    bool isFixed = false;
};
using Level = NoteDynamic::Value;
constexpr std::array attacks{
    AttackRow{0, Level::None},              // None
    AttackRow{2 * velocityStep, Level::F},  // Sf
    AttackRow{2 * velocityStep, Level::F},  // Sfz
    AttackRow{3 * velocityStep, Level::FF}, // Sffz
    AttackRow{2 * velocityStep, Level::F},  // Fz
    AttackRow{velocityStep, Level::F},      // Rf
    AttackRow{velocityStep, Level::F},      // Rfz
    AttackRow{0, Level::F, true},           // Fp
    AttackRow{0, Level::FF, true},          // Sfp
    AttackRow{0, Level::FF, true},          // Sfpp
    AttackRow{0, Level::P, true},           // Pf
};
static_assert(attacks.size() == static_cast<std::size_t>(AttackDynamic::Pf) + 1);

template <class Table, class E>
int rowOf(const Table &table, E value)
{
    return table[static_cast<std::size_t>(value)];
}

} // namespace

int velocityChange(const Beat &beat, const Note &note, Approach approach, float palmMuteStrength)
{
    int change = rowOf(approaches, approach) + rowOf(ghosts, note.antiAccent())
        + rowOf(bassAttacks, beat.bassAttack());
    for (const AccentRow &row : accents)
        if (note.accents().has(row.flag))
            change += row.change;
    if (beat.isSlurredToPrevious() && approach == Approach::Struck)
        change -= halfStep;
    if (beat.pickStroke() == Direction::Up)
        change -= halfStep;
    if (note.isLeftHandTapped())
        change -= velocityStep;
    if (note.harmonic().type != HarmonicType::NoHarmonic)
        change -= velocityStep;
    if (note.isPalmMuted())
        change -=
            static_cast<int>(std::lround(velocityStep * static_cast<double>(palmMuteStrength)));
    return change;
}

double attackVelocity(AttackDynamic attack, double velocity)
{
    const AttackRow &row = attacks[static_cast<std::size_t>(attack)];
    if (row.least == Level::None)
        return velocity;
    const double least = velocityOf(row.least);
    return row.isFixed ? least : std::max(velocity + row.step, least);
}

} // namespace zarn::playback
