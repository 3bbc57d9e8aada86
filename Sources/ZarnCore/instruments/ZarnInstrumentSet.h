// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstdint>
#include <string>

namespace zarn {

/// What a track plays: its instrument category.
///
/// A category is a code of four bytes, highest first: 1 pitched or 2 unpitched, the family, the
/// sub-family, and the member counted from 1; a code that ends in 0 names the group itself.
class ZARNCORE_EXPORT InstrumentSet {
public:
    // The order is the numbering: the members of a group follow its code.
    // clang-format off
    enum Type : std::uint32_t {
        unknown = 0,

        pitched = 0x01000000,
        aerophone = 0x01010000,
        brass = 0x01010100, frenchHorn, flugelHorn, trombone, trumpet, tuba,
        reed = 0x01010200, accordion, bandoneon, bagpipe, bassoon, bottleBow, clarinet,
            contrabassoon, harmonica, englishHorn, oboe, pipeOrgan, saxophone,
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
            piatti, handClap, jingleBell, maraca, reverseCymbal, shaker, tinkleBell, triangle,
            vibraslap, whistle, woodblock,
        cymbal = 0x02010100, china, crash, hiHat, ride, splash,
        membraphone = 0x02020000, conga, cuica, grancassa, melodicTom, surdo, synthDrum,
            taikoDrum, tambourine, timbale,
        drum = 0x02020100, kickDrum, snare, tom,
        percussionKit = 0x02040000, africaKit, agogos, bongos, bongosNCongas, congas, drumKit,
            latinoKit, maracas, sambaKit, timbales, whistles, woodblocks,
    };
    // clang-format on

    /// "nylonGuitar"; "unknown" for a code without a text.
    static std::string typeToString(Type type);

    /// The code of an exactly matching text; `unknown` when there is none.
    static Type typeFromString(const std::string &text);

    /// English name for people: "Nylon Guitar", "Hi-Hat"; "Unknown" for a code without a text.
    static std::string typeName(Type type);

    static bool isPitched(Type type) noexcept;
    static bool isUnpitched(Type type) noexcept;

    // Families.
    static bool isElectrophone(Type type) noexcept;
    static bool isPercussionKit(Type type) noexcept;
    static bool isPitchedIdiophone(Type type) noexcept;
    static bool isIdiophone(Type type) noexcept;
    static bool isMembraphone(Type type) noexcept;

    // Sub-families.
    static bool isBowed(Type type) noexcept;
    static bool isStringed(Type type) noexcept;
    static bool isBrass(Type type) noexcept;
    static bool isReed(Type type) noexcept;
    static bool isVocal(Type type) noexcept;
    static bool isWoodwind(Type type) noexcept;
    static bool isStringedOrBowed(Type type) noexcept;
    /// Chordophones without a sub-family: the pianos, harp and harpsichord.
    static bool isOrchestralChordophone(Type type) noexcept;

    // Groups of members.
    static bool isGuitar(Type type) noexcept;
    static bool isAcousticGuitar(Type type) noexcept;
    static bool isBass(Type type) noexcept;
    /// Electric bass, with or without frets.
    static bool isElectricBass(Type type) noexcept;

    // Single members.
    static bool isSteelGuitar(Type type) noexcept;
    static bool isNylonGuitar(Type type) noexcept;
    static bool isElectricGuitar(Type type) noexcept;
    static bool isAcousticBass(Type type) noexcept;
    static bool isUprightBass(Type type) noexcept;
    static bool isSynthBass(Type type) noexcept;
    static bool isBanjo(Type type) noexcept;
    static bool isMandolin(Type type) noexcept;
    static bool isUkulele(Type type) noexcept;
};

} // namespace zarn
