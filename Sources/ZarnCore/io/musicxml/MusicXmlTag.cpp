// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/MusicXmlTag.h>

#include <QtEndian>

#include <array>
#include <string_view>

namespace zarn::io {

namespace {

/// In the order of the enumeration, which is alphabetical.
constexpr std::string_view names[] = {"",
                                      "accent",
                                      "accidental",
                                      "accidental-mark",
                                      "actual-notes",
                                      "alter",
                                      "arpeggiate",
                                      "articulations",
                                      "artificial",
                                      "attributes",
                                      "backup",
                                      "bar-style",
                                      "barline",
                                      "base-pitch",
                                      "bass",
                                      "bass-alter",
                                      "bass-step",
                                      "beam",
                                      "beat-type",
                                      "beat-unit",
                                      "beat-unit-dot",
                                      "beats",
                                      "bend",
                                      "bend-alter",
                                      "bracket",
                                      "breath-mark",
                                      "caesura",
                                      "capo",
                                      "chord",
                                      "chromatic",
                                      "clef",
                                      "clef-octave-change",
                                      "coda",
                                      "creator",
                                      "credit",
                                      "cue",
                                      "dashes",
                                      "defaults",
                                      "degree",
                                      "degree-alter",
                                      "degree-type",
                                      "degree-value",
                                      "delayed-inverted-turn",
                                      "delayed-turn",
                                      "detached-legato",
                                      "diatonic",
                                      "direction",
                                      "direction-type",
                                      "display-octave",
                                      "display-step",
                                      "divisions",
                                      "doit",
                                      "dot",
                                      "double",
                                      "down-bow",
                                      "duration",
                                      "dynamics",
                                      "elision",
                                      "encoding",
                                      "ending",
                                      "extend",
                                      "falloff",
                                      "fermata",
                                      "fifths",
                                      "fingering",
                                      "for-part",
                                      "forward",
                                      "frame",
                                      "fret",
                                      "function",
                                      "glissando",
                                      "golpe",
                                      "grace",
                                      "group-barline",
                                      "group-name",
                                      "group-symbol",
                                      "hammer-on",
                                      "harmonic",
                                      "harmony",
                                      "identification",
                                      "instrument",
                                      "instrument-name",
                                      "inversion",
                                      "inverted-mordent",
                                      "inverted-turn",
                                      "key",
                                      "kind",
                                      "line",
                                      "lyric",
                                      "measure",
                                      "measure-repeat",
                                      "measure-style",
                                      "metronome",
                                      "midi-bank",
                                      "midi-channel",
                                      "midi-device",
                                      "midi-instrument",
                                      "midi-program",
                                      "midi-unpitched",
                                      "miscellaneous",
                                      "mode",
                                      "mordent",
                                      "movement-number",
                                      "movement-title",
                                      "natural",
                                      "non-arpeggiate",
                                      "normal-dot",
                                      "normal-notes",
                                      "normal-type",
                                      "notations",
                                      "note",
                                      "notehead",
                                      "numeral",
                                      "octave",
                                      "octave-change",
                                      "octave-shift",
                                      "offset",
                                      "open-string",
                                      "ornaments",
                                      "other-articulation",
                                      "other-direction",
                                      "other-dynamics",
                                      "other-technical",
                                      "pan",
                                      "part",
                                      "part-abbreviation",
                                      "part-group",
                                      "part-list",
                                      "part-name",
                                      "part-symbol",
                                      "pedal",
                                      "per-minute",
                                      "pitch",
                                      "play",
                                      "plop",
                                      "pluck",
                                      "pre-bend",
                                      "print",
                                      "pull-off",
                                      "rehearsal",
                                      "release",
                                      "repeat",
                                      "rest",
                                      "rights",
                                      "root",
                                      "root-alter",
                                      "root-step",
                                      "scoop",
                                      "score-instrument",
                                      "score-part",
                                      "score-partwise",
                                      "score-timewise",
                                      "segno",
                                      "senza-misura",
                                      "sign",
                                      "slide",
                                      "slur",
                                      "soft-accent",
                                      "sound",
                                      "sounding-pitch",
                                      "spiccato",
                                      "staccatissimo",
                                      "staccato",
                                      "staff",
                                      "staff-details",
                                      "staff-lines",
                                      "staff-tuning",
                                      "staves",
                                      "stem",
                                      "step",
                                      "stress",
                                      "string",
                                      "strong-accent",
                                      "swing",
                                      "syllabic",
                                      "tap",
                                      "technical",
                                      "tenuto",
                                      "text",
                                      "tie",
                                      "tied",
                                      "time",
                                      "time-modification",
                                      "touching-pitch",
                                      "transpose",
                                      "tremolo",
                                      "trill-mark",
                                      "tuning-alter",
                                      "tuning-octave",
                                      "tuning-step",
                                      "tuplet",
                                      "tuplet-actual",
                                      "tuplet-normal",
                                      "tuplet-number",
                                      "turn",
                                      "type",
                                      "unpitched",
                                      "unstress",
                                      "up-bow",
                                      "voice",
                                      "volume",
                                      "wavy-line",
                                      "wedge",
                                      "with-bar",
                                      "words",
                                      "work",
                                      "work-number",
                                      "work-title"};
static_assert(std::size(names) == tagCount);

/// A name in words of eight letters, filled up with zeros: compared without a loop.
struct Packed {
    std::uint64_t words[longestTagName / 8] = {};

    friend constexpr bool operator==(const Packed &left, const Packed &right) noexcept
    {
        return left.words[0] == right.words[0] && left.words[1] == right.words[1]
            && left.words[2] == right.words[2];
    }
};

constexpr Packed pack(std::string_view name)
{
    Packed packed;
    for (std::size_t i = 0; i < name.size(); ++i)
        packed.words[i / 8] |= std::uint64_t(static_cast<unsigned char>(name[i])) << (i % 8 * 8);
    return packed;
}

constexpr auto makePackedNames()
{
    std::array<Packed, tagCount> packed = {};
    for (std::size_t tag = 0; tag < tagCount; ++tag)
        packed[tag] = pack(names[tag]); // no constant expression for a name that is too long
    return packed;
}

constexpr auto packedNames = makePackedNames();

constexpr unsigned slotBits = 11; // spacious, so that most names have a slot of their own
constexpr std::size_t slotCount = std::size_t(1) << slotBits;

constexpr std::size_t slotOf(const Packed &name) noexcept
{
    return ((name.words[0] ^ name.words[1] << 1 ^ name.words[2] << 2) * 0x9E3779B97F4A7C15u)
        >> (64 - slotBits);
}

constexpr auto makeTable()
{
    std::array<Tag, slotCount> table = {};
    for (std::size_t tag = 1; tag < tagCount; ++tag) {
        auto slot = slotOf(packedNames[tag]);
        while (table[slot] != Tag::Unknown)
            slot = (slot + 1) % slotCount;
        table[slot] = static_cast<Tag>(tag);
    }
    return table;
}

constexpr auto table = makeTable();

/// Reads eight letters up to the end of the name; false when it does not end among them.
bool readWord(const char *letters, std::uint64_t &word) noexcept
{
    constexpr std::uint64_t lows = 0x0101010101010101u;
    word = qFromLittleEndian<quint64>(letters);
    // The lowest bit that stays marks the first zero: those above it do not matter.
    const std::uint64_t zeros = (word - lows) & ~word & (lows << 7);
    word &= zeros ^ (zeros - 1);
    return zeros != 0;
}

} // namespace

Tag tagOf(const char *name) noexcept
{
    Packed packed;
    if (name[0] == '\0'
        || !(readWord(name, packed.words[0]) || readWord(name + 8, packed.words[1])
             || readWord(name + 16, packed.words[2])))
        return Tag::Unknown;
    for (auto slot = slotOf(packed); table[slot] != Tag::Unknown; slot = (slot + 1) % slotCount)
        if (packedNames[static_cast<std::size_t>(table[slot])] == packed)
            return table[slot];
    return Tag::Unknown;
}

const char *tagName(Tag tag) noexcept
{
    return names[static_cast<std::size_t>(tag)].data();
}

} // namespace zarn::io
