// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnTrackDefaults.h>

#include <ZarnCore/instruments/sets/InstrumentTypeTable.h>

namespace zarn {
namespace {

using Set = InstrumentSet;
using Icon = ZarnIconID;
using Clef = ClefType;
using Tuning = GuitarTuning;

// Standard tunings and written pitches as orchestration handbooks give them: guitars and basses
// are written an octave above what sounds, the ukulele is tuned re-entrant (g' c' e' a'), the
// banjo's string 0 is its short drone string. Groups stand behind their members.
// clang-format off
constexpr TrackDefaults rows[] = {
    {Set::steelGuitar, Icon::SteelGuitar, 1, Clef::G2, -12, {40, 45, 50, 55, 59, 64}, Tuning::Guitar},
    {Set::nylonGuitar, Icon::AcousticGuitarClassical, 1, Clef::G2, -12, {40, 45, 50, 55, 59, 64}, Tuning::Guitar},
    {Set::resonatorGuitar, Icon::AcousticGuitarFolk, 1, Clef::G2, -12, {40, 45, 50, 55, 59, 64}, Tuning::Guitar},
    {Set::electricGuitar, Icon::ElectricGuitar, 1, Clef::G2, -12, {40, 45, 50, 55, 59, 64}, Tuning::Guitar},
    {Set::electricSitar, Icon::ElectricGuitar, 1, Clef::G2, -12, {40, 45, 50, 55, 59, 64}, Tuning::Guitar},
    {Set::acousticBass, Icon::UprightBass, 1, Clef::F4, -12, {28, 33, 38, 43}, Tuning::Bass},
    {Set::uprightBass, Icon::UprightBass, 1, Clef::F4, -12, {28, 33, 38, 43}, Tuning::Bass},
    {Set::electricBass, Icon::ElectricBass, 1, Clef::F4, -12, {28, 33, 38, 43}, Tuning::Bass},
    {Set::fretlessBass, Icon::ElectricBass, 1, Clef::F4, -12, {28, 33, 38, 43}, Tuning::Bass},
    {Set::synthBass, Icon::ElectricBass, 1, Clef::F4, -12, {28, 33, 38, 43}, Tuning::Bass},
    {Set::banjo, Icon::Banjo, 1, Clef::G2, -12, {67, 50, 55, 59, 62}, Tuning::Banjo, true},
    {Set::mandolin, Icon::Mandolin, 1, Clef::G2, 0, {55, 62, 69, 76}, Tuning::Mandolin},
    {Set::ukulele, Icon::Ukulele, 1, Clef::G2, 0, {67, 60, 64, 69}, Tuning::Ukulele},
    {Set::stringed, Icon::AcousticGuitar, 1, Clef::G2, -12, {40, 45, 50, 55, 59, 64}, Tuning::Guitar},

    {Set::violin, Icon::Bowed, 1, Clef::G2, 0, {55, 62, 69, 76}, Tuning::Violin},
    {Set::viola, Icon::Bowed, 1, Clef::C3, 0, {48, 55, 62, 69}, Tuning::Viola},
    {Set::cello, Icon::Bowed, 1, Clef::F4, 0, {36, 43, 50, 57}, Tuning::Cello},
    {Set::contrabass, Icon::Bowed, 1, Clef::F4, -12, {28, 33, 38, 43}, Tuning::Contrabass},
    {Set::bowed, Icon::Bowed},

    {Set::frenchHorn, Icon::Brass, 1, Clef::G2, -7},
    {Set::flugelHorn, Icon::Brass, 1, Clef::G2, -2},
    {Set::trumpet, Icon::Brass, 1, Clef::G2, -2},
    {Set::trombone, Icon::Brass, 1, Clef::F4},
    {Set::tuba, Icon::Brass, 1, Clef::F4},
    {Set::brass, Icon::Brass},

    {Set::accordion, Icon::Reed, 2},
    {Set::bandoneon, Icon::Reed, 2},
    {Set::pipeOrgan, Icon::Reed, 2},
    {Set::bassoon, Icon::Reed, 1, Clef::F4},
    {Set::contrabassoon, Icon::Reed, 1, Clef::F4, -12},
    {Set::clarinet, Icon::Reed, 1, Clef::G2, -2},
    {Set::englishHorn, Icon::Reed, 1, Clef::G2, -7},
    {Set::saxophone, Icon::Reed, 1, Clef::G2, -9},
    {Set::reed, Icon::Reed},

    {Set::vocal, Icon::Vocal},
    {Set::piccolo, Icon::Woodwind, 1, Clef::G2, 12},
    {Set::woodwind, Icon::Woodwind},
    {Set::aerophone, Icon::Woodwind},

    {Set::chordophone, Icon::Piano, 2},
    {Set::electricOrgan, Icon::Piano, 2},
    {Set::bassSynthesizer, Icon::Synthesizer, 1, Clef::F4},
    {Set::keySynthesizer, Icon::Synthesizer, 2},
    {Set::electrophone, Icon::Synthesizer},
    {Set::celesta, Icon::PitchedIdiophone, 2, Clef::G2, 12},
    {Set::xylophone, Icon::PitchedIdiophone, 1, Clef::G2, 12},
    {Set::pitchedIdiophone, Icon::PitchedIdiophone},
    {Set::timpani, Icon::PitchedIdiophone, 1, Clef::F4},
    {Set::pitchedMembraphone, Icon::PitchedIdiophone, 1, Clef::F4},
    {Set::pitched, Icon::Piano},

    {Set::percussionKit, Icon::PercussionKit, 1, Clef::Neutral},
    {Set::idiophone, Icon::Idiophone, 1, Clef::Neutral},
    {Set::membraphone, Icon::Membraphone, 1, Clef::Neutral},
    {Set::unpitched, Icon::PercussionKit, 1, Clef::Neutral},
    {Set::unknown, Icon::SteelGuitar},
};
// clang-format on

static_assert(detail::membersStandBeforeGroups(rows));

} // namespace

const TrackDefaults &trackDefaults(InstrumentSet::Type type) noexcept
{
    return detail::rowOfType(rows, type);
}

ClefType defaultClef(InstrumentSet::Type type, unsigned staffIndex) noexcept
{
    const ClefType clef = trackDefaults(type).clef;
    const bool isBelow = staffIndex == 1 && !InstrumentSet::isStringed(type);
    return clef == ClefType::G2 && isBelow ? ClefType::F4 : clef;
}

} // namespace zarn
