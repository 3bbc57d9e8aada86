// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/instruments/effects/ZarnVolumePan.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentArticulation.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSetElement.h>

#include <rapidjson/fwd.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zarn {

class ArticulationIndex;

/// What a track plays: an instrument category, and for percussion the elements (snare, hi-hat)
/// with the articulations that can be written, entered and played.
///
/// A note names its articulation by the number that it has here, so articulations only ever join
/// at the end. Sets of the catalogue are shared and not changed; different sets may be used by
/// different threads, and one set may be read by several.
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

    InstrumentSet() = default;
    explicit InstrumentSet(Type type) : _type(type) { }
    InstrumentSet(const InstrumentSet &other) = default;
    InstrumentSet(InstrumentSet &&other) noexcept = default;
    InstrumentSet &operator=(const InstrumentSet &other);
    InstrumentSet &operator=(InstrumentSet &&other) noexcept = default;
    ~InstrumentSet() = default;

    /// For people, UTF-8.
    const std::string &name() const noexcept { return _name; }
    void setName(const std::string &name) { _name = name; }

    Type type() const noexcept { return _type; }
    void setType(Type type) noexcept { _type = type; }
    std::string typeName() const { return typeName(_type); }

    /// Lines of the staff.
    unsigned lineCount() const noexcept { return _lineCount; }
    void setLineCount(unsigned count) noexcept { _lineCount = count; }

    const std::vector<InstrumentSetElement> &elements() const noexcept { return _elements; }
    void setElements(std::vector<InstrumentSetElement> elements);

    /// Empty for a set that plays pitches.
    const std::vector<InstrumentArticulation> &articulations() const noexcept
    {
        return _articulations;
    }
    void setArticulations(std::vector<InstrumentArticulation> articulations);

    /// Reads a set of a document (Documents/catalogues.md) in place of what this one held. Raises
    /// a `CoreException` that names the place, and changes nothing, when a member is missing or of
    /// another type. An unknown type reads as `unknown`.
    void parse(const rapidjson::Value &value);

    // Numbers of articulations, counted from 0 in the order of the set; -1 when there is none.
    // Where several fit, the first counts.

    int indexOfArticulation(const InstrumentArticulation &articulation) const;
    /// The articulation that a MIDI key enters.
    int indexOfArticulationWithMidi(std::int32_t midi) const noexcept;
    int indexOfArticulationWithName(const std::string &name) const;
    int indexOfArticulationWithNameAndStaffLine(const std::string &name,
                                                std::int32_t staffLine) const;
    /// By the place on the staff and the MIDI key that plays it, as a note has them; when none is
    /// played so, by the key that enters it.
    int indexOfArticulationWithStaffLineAndKey(std::int32_t staffLine,
                                               std::int32_t key) const noexcept;
    int indexOfFirstArticulationWithStaffLine(std::int32_t staffLine) const noexcept;

    /// The next or previous articulation of the same element, in a circle: from closed hi-hat to
    /// open, half-open, pedal and so on to closed again. An element's only articulation leads to
    /// itself; -1 for a number that is none.
    int nextIndexOfArticulationWithSharedElement(int index) const noexcept;
    int previousIndexOfArticulationWithSharedElement(int index) const noexcept;

    /// Those of one element, in order.
    std::vector<InstrumentArticulation>
    articulationsWithElement(const InstrumentSetElement &element) const;

    /// Places on the staff that hold an articulation, each once, from the lowest up.
    std::vector<std::int32_t> staffLines() const;

    /// The nearest place above or below that holds an articulation; the place itself where there
    /// is none, so that a cursor stops at the highest and the lowest. In a drum kit the snare (5)
    /// leads up to 6 and down to 4.
    std::int32_t nextLine(std::int32_t staffLine) const noexcept;
    std::int32_t previousLine(std::int32_t staffLine) const noexcept;

    /// Adds to a beat the note that a MIDI key enters, and returns it: for percussion that of the
    /// first articulation with this key among its inputs, with the key that plays it, its place on
    /// the staff and the kind of its head; for other sets a note of this pitch as written. A note
    /// that the beat holds already is returned as it is. Empty, and nothing is added, when no
    /// articulation has the key or when a note cannot hold its numbers.
    template <class Beat>
    auto addNoteFromMidi(Beat &beat, std::int32_t midi) const
    {
        return addNoteOfSet(*this, beat, midi);
    }

    /// Takes an element over from another set, for music that is brought here. An element of the
    /// same name and type is kept and gets the other's sound bank if it has none; a new one joins
    /// at the end. Returns its place.
    unsigned mergeInstrumentElement(const InstrumentSetElement &element);

    /// Takes an articulation over with its element. One of the same element, name and place on
    /// the staff is kept and entered by the other's MIDI keys too, as far as they enter nothing
    /// else here; a new one joins at the end. Returns its number, by which notes may name it.
    int mergeInstrumentArticulation(const InstrumentArticulation &articulation);

    /// Where an element of a kit stands in a usual mix, as the audience sees it: kick and snare in
    /// the middle, hi-hat right, ride left, the toms from right (first) to left (last). Full level
    /// in the middle for elements that are not of this set, and for sets that are no kits.
    ZarnVolumePan volumePanFromElement(const InstrumentSetElement &element) const;

    // Categories.

    /// "nylonGuitar"; "unknown" for a code without a text.
    static std::string typeToString(Type type);

    /// The code of an exactly matching text; `unknown` when there is none.
    static Type typeFromString(const std::string &text);

    /// English name for people: "Nylon Guitar", "Hi-Hat"; "Unknown" for a code without a text.
    static std::string typeName(Type type);

    static bool isPitched(Type type) noexcept { return isIn(type, 0xFF000000, pitched); }
    static bool isUnpitched(Type type) noexcept { return isIn(type, 0xFF000000, unpitched); }

    // Families.
    static bool isElectrophone(Type type) noexcept { return isInFamily(type, electrophone); }
    static bool isPercussionKit(Type type) noexcept { return isInFamily(type, percussionKit); }
    static bool isPitchedIdiophone(Type type) noexcept
    {
        return isInFamily(type, pitchedIdiophone);
    }
    static bool isIdiophone(Type type) noexcept { return isInFamily(type, idiophone); }
    static bool isMembraphone(Type type) noexcept { return isInFamily(type, membraphone); }

    // Sub-families.
    static bool isBowed(Type type) noexcept { return isInSubFamily(type, bowed); }
    static bool isStringed(Type type) noexcept { return isInSubFamily(type, stringed); }
    static bool isBrass(Type type) noexcept { return isInSubFamily(type, brass); }
    static bool isReed(Type type) noexcept { return isInSubFamily(type, reed); }
    static bool isVocal(Type type) noexcept { return isInSubFamily(type, vocal); }
    static bool isWoodwind(Type type) noexcept { return isInSubFamily(type, woodwind); }
    static bool isStringedOrBowed(Type type) noexcept { return isStringed(type) || isBowed(type); }
    /// Chordophones without a sub-family: the pianos, harp and harpsichord.
    static bool isOrchestralChordophone(Type type) noexcept
    {
        return isInSubFamily(type, chordophone);
    }

    // Groups of members.
    static bool isGuitar(Type type) noexcept
    {
        return type == electricGuitar || isAcousticGuitar(type);
    }
    static bool isAcousticGuitar(Type type) noexcept
    {
        return type == steelGuitar || type == nylonGuitar || type == resonatorGuitar;
    }
    static bool isBass(Type type) noexcept
    {
        return isElectricBass(type) || type == acousticBass || type == uprightBass
            || type == synthBass;
    }
    /// Electric bass, with or without frets.
    static bool isElectricBass(Type type) noexcept
    {
        return type == electricBass || type == fretlessBass;
    }

    // Single members.
    static bool isSteelGuitar(Type type) noexcept { return type == steelGuitar; }
    static bool isNylonGuitar(Type type) noexcept { return type == nylonGuitar; }
    static bool isElectricGuitar(Type type) noexcept { return type == electricGuitar; }
    static bool isAcousticBass(Type type) noexcept { return type == acousticBass; }
    static bool isUprightBass(Type type) noexcept { return type == uprightBass; }
    static bool isSynthBass(Type type) noexcept { return type == synthBass; }
    static bool isBanjo(Type type) noexcept { return type == banjo; }
    static bool isMandolin(Type type) noexcept { return type == mandolin; }
    static bool isUkulele(Type type) noexcept { return type == ukulele; }

    // The same of this set's category.
    bool isPitched() const noexcept { return isPitched(_type); }
    bool isUnpitched() const noexcept { return isUnpitched(_type); }
    bool isElectrophone() const noexcept { return isElectrophone(_type); }
    bool isPercussionKit() const noexcept { return isPercussionKit(_type); }
    bool isPitchedIdiophone() const noexcept { return isPitchedIdiophone(_type); }
    bool isIdiophone() const noexcept { return isIdiophone(_type); }
    bool isMembraphone() const noexcept { return isMembraphone(_type); }
    bool isBowed() const noexcept { return isBowed(_type); }
    bool isStringed() const noexcept { return isStringed(_type); }
    bool isBrass() const noexcept { return isBrass(_type); }
    bool isReed() const noexcept { return isReed(_type); }
    bool isVocal() const noexcept { return isVocal(_type); }
    bool isWoodwind() const noexcept { return isWoodwind(_type); }
    bool isStringedOrBowed() const noexcept { return isStringedOrBowed(_type); }
    bool isOrchestralChordophone() const noexcept { return isOrchestralChordophone(_type); }
    bool isGuitar() const noexcept { return isGuitar(_type); }
    bool isAcousticGuitar() const noexcept { return isAcousticGuitar(_type); }
    bool isBass() const noexcept { return isBass(_type); }
    bool isElectricBass() const noexcept { return isElectricBass(_type); }
    bool isSteelGuitar() const noexcept { return isSteelGuitar(_type); }
    bool isNylonGuitar() const noexcept { return isNylonGuitar(_type); }
    bool isElectricGuitar() const noexcept { return isElectricGuitar(_type); }
    bool isAcousticBass() const noexcept { return isAcousticBass(_type); }
    bool isUprightBass() const noexcept { return isUprightBass(_type); }
    bool isSynthBass() const noexcept { return isSynthBass(_type); }
    bool isBanjo() const noexcept { return isBanjo(_type); }
    bool isMandolin() const noexcept { return isMandolin(_type); }
    bool isUkulele() const noexcept { return isUkulele(_type); }

    /// How well a sound or a patch for one category stands in for another: 0 not at all, 1 pitched
    /// or unpitched as it is, 2 of the same family, 3 of the same sub-family, 4 the same.
    /// Flute and piccolo: 3; flute and oboe: 2; flute and snare: 0.
    static unsigned compatibilityLevel(Type a, Type b) noexcept;
    unsigned compatibilityLevel(const InstrumentSet &other) const noexcept
    {
        return compatibilityLevel(_type, other._type);
    }

    /// Where the sound browser files a category when a sound does not say so itself:
    /// "Stringed/Acoustic Guitars/Steel Guitar", for a group "Stringed"; empty for `unknown`.
    static std::string soundCategoryFallback(Type type);
    std::string soundCategoryFallback() const { return soundCategoryFallback(_type); }

    /// Track icon of a sound with such a category path, which may be longer
    /// ("Stringed/Acoustic Guitars/Steel Guitar/Bright") or shorter: the icon of the nearest
    /// category. The icon of a track without instrument for a path that is none.
    static ZarnIconID soundCategoryToIconID(const std::string &path);

    /// Name, type, lines, elements and articulations.
    friend ZARNCORE_EXPORT bool operator==(const InstrumentSet &a, const InstrumentSet &b) noexcept;
    friend bool operator!=(const InstrumentSet &a, const InstrumentSet &b) noexcept
    {
        return !(a == b);
    }

private:
    static constexpr bool isIn(Type type, std::uint32_t mask, Type group) noexcept
    {
        return (type & mask) == group;
    }
    static constexpr bool isInFamily(Type type, Type family) noexcept
    {
        return isIn(type, 0xFFFF0000, family);
    }
    static constexpr bool isInSubFamily(Type type, Type subFamily) noexcept
    {
        return isIn(type, 0xFFFFFF00, subFamily);
    }

    void indexArticulations();
    const ArticulationIndex &articulationIndex() const noexcept;
    int stepInElement(int index, int step) const noexcept;

    std::string _name;
    Type _type = unknown;
    unsigned _lineCount = 5;
    std::vector<InstrumentSetElement> _elements;
    std::vector<InstrumentArticulation> _articulations;

    /// Copies share it, as it does not change; null while there are no articulations.
    std::shared_ptr<const ArticulationIndex> _index;
};

} // namespace zarn
