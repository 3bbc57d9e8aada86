// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/MusicXmlTag.h>

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

constexpr std::size_t slotCount = 1024; // of ten bits

/// The names are found by a number that is made of their length and four of their letters, which
/// takes no loop; the table is spacious, so that most names have a slot of their own.
constexpr std::uint32_t hashOf(std::string_view name) noexcept
{
    const std::size_t length = name.size();
    if (length == 0)
        return 0;
    auto hash = static_cast<std::uint32_t>(length);
    for (const std::size_t at : {std::size_t(0), length / 3, length / 2, length - 1})
        hash = hash << 6 ^ static_cast<unsigned char>(name[at]);
    return hash * 0x9E3779B1u;
}

constexpr std::size_t slotOf(std::uint32_t hash) noexcept
{
    return hash >> 22;
}

struct Slot {
    std::uint32_t hash = 0;
    Tag tag = Tag::Unknown;
};

constexpr std::array<Slot, slotCount> makeTable() noexcept
{
    std::array<Slot, slotCount> table = {};
    for (std::size_t tag = 1; tag < tagCount; ++tag) {
        const auto hash = hashOf(names[tag]);
        auto slot = slotOf(hash);
        while (table[slot].tag != Tag::Unknown)
            slot = (slot + 1) % slotCount;
        table[slot] = {hash, static_cast<Tag>(tag)};
    }
    return table;
}

constexpr auto table = makeTable();

} // namespace

Tag tagOf(const char *name) noexcept
{
    const std::string_view text(name);
    const auto hash = hashOf(text);
    for (auto slot = slotOf(hash); table[slot].tag != Tag::Unknown; slot = (slot + 1) % slotCount) {
        const auto &[known, tag] = table[slot];
        if (known == hash && names[static_cast<std::size_t>(tag)] == text)
            return tag;
    }
    return Tag::Unknown;
}

const char *tagName(Tag tag) noexcept
{
    return names[static_cast<std::size_t>(tag)].data();
}

} // namespace zarn::io
