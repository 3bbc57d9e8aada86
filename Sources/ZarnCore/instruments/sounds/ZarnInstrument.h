// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstdint>
#include <string>

namespace zarn {

/// What one sounding element of an instrument set is: a snare, a trumpet.
///
/// Elements use the codes of `InstrumentSet::Type` without the percussion kits. Two old oddities
/// are kept, because stored texts rely on them: idiophone 15 is spelled "tinkelBell", and
/// `clarinet` has the code of `harmonica` (0x01010206 names no element).
class ZARNCORE_EXPORT Instrument {
public:
    // The order is the numbering: the members of a group follow its code.
    // clang-format off
    enum Type : std::uint32_t {
        unknown = 0,

        pitched = 0x01000000,
        aerophone = 0x01010000,
        brass = 0x01010100, frenchHorn, flugelHorn, trombone, trumpet, tuba,
        reed = 0x01010200, accordion, bandoneon, bagpipe, bassoon, bottleBow,
            contrabassoon = 0x01010207, harmonica, clarinet = harmonica,
            englishHorn, oboe, pipeOrgan, saxophone,
        vocal = 0x01010400, voice, choir,
        woodwind = 0x01010800, flute, recorder, piccolo,
        chordophone = 0x01020000, acousticPiano, electricPiano, harp, harpsichord,
        bowed = 0x01020100, cello, contrabass, viola, violin,
        stringed = 0x01020200, acousticBass, banjo, electricBass, electricGuitar, electricSitar,
            fretlessBass, synthBass, mandolin, nylonGuitar, resonatorGuitar, steelGuitar,
            uprightBass, ukulele,
        electrophone = 0x01040000, bassSynthesizer, brassSynthesizer, keySynthesizer,
            leadSynthesizer, padSynthesizer, seqSynthesizer, mellotronBrass, mellotronCello,
            mellotronChoir, mellotronFlute, mellotronStrings, mellotronViolas, electricOrgan,
        pitchedIdiophone = 0x01080000, celesta, vibraphone, xylophone,
        pitchedMembraphone = 0x01100000, timpani,

        unpitched = 0x02000000,
        idiophone = 0x02010000, agogo, bellTree, bongo, cabasa, castanets, claves, cowbell, guiro,
            piatti, handClap, jingleBell, maraca, reverseCymbal, shaker, tinkelBell, triangle,
            vibraslap, whistle, woodblock,
        cymbal = 0x02010100, china, crash, hiHat, ride, splash,
        membraphone = 0x02020000, conga, cuica, grancassa, melodicTom, surdo, synthDrum,
            taikoDrum, tambourine, timbale,
        drum = 0x02020100, kickDrum, snare, tom,
    };
    // clang-format on

    constexpr Instrument() noexcept = default;
    constexpr explicit Instrument(Type type) noexcept : _type(type) { }

    constexpr Type type() const noexcept { return _type; }
    constexpr void setType(Type type) noexcept { _type = type; }

    bool isPitched() const noexcept { return isPitched(_type); }
    bool isUnpitched() const noexcept { return isUnpitched(_type); }
    bool isStringed() const noexcept { return isStringed(_type); }
    bool isBowed() const noexcept { return isBowed(_type); }

    /// "snare"; "unknown" for a code without a text. The code of clarinet prints "harmonica".
    static std::string typeToString(Type type);

    /// The code of an exactly matching text; `unknown` when there is none.
    static Type typeFromString(const std::string &text);

    /// How well the sound of one element stands in for another: 0 not at all, 1 pitched or
    /// unpitched as it is, 2 of the same family, 3 of the same sub-family, 4 the same.
    unsigned compatibilityLevel(Instrument other) const noexcept
    {
        return compatibilityLevel(_type, other._type);
    }
    static unsigned compatibilityLevel(Type a, Type b) noexcept;

    static bool isPitched(Type type) noexcept;
    static bool isUnpitched(Type type) noexcept;
    static bool isStringed(Type type) noexcept;
    static bool isBowed(Type type) noexcept;

    friend constexpr bool operator==(Instrument a, Instrument b) noexcept
    {
        return a._type == b._type;
    }
    friend constexpr bool operator!=(Instrument a, Instrument b) noexcept { return !(a == b); }

private:
    Type _type = unknown;
};

} // namespace zarn
