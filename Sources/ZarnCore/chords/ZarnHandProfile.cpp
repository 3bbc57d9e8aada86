// SPDX-License-Identifier: MIT
#include <ZarnCore/chords/ZarnHandProfile.h>

#include <algorithm>

namespace zarn::chord {

namespace {

// How hard fingerings are is told by the choices of players: these weights explain the fingers that
// people wrote under thousands of guitar and ukulele chords. By `HandReason`, in its order.
constexpr HandWeights chordWeights = {
    1,    1.3F, .5F,                 // fingers
    1.8F, .8F,  .4F, .1F, .2F,       // frets between them
    1.2F,                            // strings between them
    2.4F, 6.3F, 1,   .6F, 1.6F, .6F, // barres
    .6F,                             // first position
};

constexpr HandProfile guitar{650, 104, 4, 1, 0, 6, false, chordWeights};
constexpr HandProfile bass{864, 131, 4, 1, 0, 4, false, chordWeights};
constexpr HandProfile ukulele{380, 100, 5, 1, 0, 4, false, chordWeights};
constexpr HandProfile mandolin{350, 90, 6, 1.5F, .75F, 4, false, chordWeights};
constexpr HandProfile banjo{670, 103, 4, 1, 0, 4, false, chordWeights};
constexpr HandProfile violin{328, 80, 6, 1.5F, .75F, 2, true, chordWeights};
constexpr HandProfile cello{690, 134, 4, 1, 0, 2, true, chordWeights};
constexpr HandProfile contrabass{1050, 125, 3, .67F, 0, 2, true, chordWeights};

} // namespace

const HandProfile &guitarHand() noexcept
{
    return guitar;
}
const HandProfile &bassHand() noexcept
{
    return bass;
}
const HandProfile &ukuleleHand() noexcept
{
    return ukulele;
}
const HandProfile &mandolinHand() noexcept
{
    return mandolin;
}
const HandProfile &banjoHand() noexcept
{
    return banjo;
}
const HandProfile &violinHand() noexcept
{
    return violin;
}
const HandProfile &celloHand() noexcept
{
    return cello;
}
const HandProfile &contrabassHand() noexcept
{
    return contrabass;
}

HandProfile handOfSpan(HandProfile hand, int mostFrets) noexcept
{
    constexpr int widest = 24;
    const int frets = std::clamp(mostFrets, 0, widest);
    if (frets > hand.mostFrets)
        hand.reach *= static_cast<float>(frets) / static_cast<float>(hand.mostFrets);
    hand.mostFrets = static_cast<std::int8_t>(frets);
    return hand;
}

const HandProfile &handFor(const GuitarTuning &tuning) noexcept
{
    switch (tuning.instrument()) {
    case GuitarTuning::Guitar:
        return guitar;
    case GuitarTuning::Bass:
        return bass;
    case GuitarTuning::Shamisen:
    case GuitarTuning::Banjo:
        return banjo;
    case GuitarTuning::Mandolin:
        return mandolin;
    case GuitarTuning::Ukulele:
        return ukulele;
    case GuitarTuning::Violin:
    case GuitarTuning::Viola:
        return violin;
    case GuitarTuning::Cello:
        return cello;
    case GuitarTuning::Contrabass:
        return contrabass;
    case GuitarTuning::Undefined:
        break;
    }
    constexpr int lowestOfGuitars = 33; // A1, the lowest of seven strings
    constexpr int lowestOfSmallInstruments = 52;
    constexpr int fifth = 7;
    const auto &pitches = tuning.midiNumbers();
    const auto isNotFifth = [](int low, int high) { return high - low != fifth; };
    const auto lowest = std::min_element(pitches.begin(), pitches.end());
    if (lowest == pitches.end())
        return guitar;
    if (tuning.hasShortDroneString())
        return banjo;
    if (pitches.size() > 1
        && std::adjacent_find(pitches.begin(), pitches.end(), isNotFifth) == pitches.end())
        return mandolin;
    if (pitches.size() <= 6 && *lowest < lowestOfGuitars)
        return bass;
    return pitches.size() <= 4 && *lowest >= lowestOfSmallInstruments ? ukulele : guitar;
}

} // namespace zarn::chord
