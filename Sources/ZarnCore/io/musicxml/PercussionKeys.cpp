// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/PercussionKeys.h>

#include <ZarnCore/io/instruments/StandardSound.h>
#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/PartList.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <map>

namespace zarn::io {

namespace {

using Set = InstrumentSet;

struct KeyRow {
    Set::Type type;
    int key;
};

/// General MIDI level 1 percussion keys; of instruments with several, the usual stroke.
// clang-format off
constexpr KeyRow keys[] = {
    {Set::kickDrum, 36}, {Set::grancassa, 35}, {Set::snare, 38}, {Set::handClap, 39}, {Set::hiHat, 42},
    {Set::tom, 47}, {Set::crash, 49}, {Set::piatti, 49}, {Set::ride, 51}, {Set::china, 52},
    {Set::tambourine, 54}, {Set::splash, 55}, {Set::cowbell, 56}, {Set::vibraslap, 58},
    {Set::bongos, 60}, {Set::congas, 63}, {Set::timbales, 65}, {Set::agogos, 67}, {Set::cabasa, 69},
    {Set::maracas, 70}, {Set::whistles, 71}, {Set::guiro, 73}, {Set::claves, 75},
    {Set::woodblocks, 76}, {Set::cuica, 79}, {Set::triangle, 81}, {Set::shaker, 82},
    {Set::jingleBell, 83}, {Set::bellTree, 84}, {Set::castanets, 85}, {Set::surdo, 87},
};
// clang-format on

std::optional<int> keyOf(Set::Type type)
{
    const auto *found = std::find_if(std::begin(keys), std::end(keys),
                                     [&](const KeyRow &row) { return row.type == type; });
    return found == std::end(keys) ? std::nullopt : std::optional<int>(found->key);
}

/// Number of the articulation for a place and a head; -1 when the set has none at all.
int articulationFor(const InstrumentSet &set, int line, NoteHead head)
{
    const auto &all = set.articulations();
    int best = -1;
    const auto rank = [&](int index) {
        const auto &articulation = all[static_cast<std::size_t>(index)];
        const bool otherHead = articulation.notehead(0).noteHead() != head;
        // What no key enters is a special stroke.
        return std::make_tuple(std::abs(articulation.staffLine() - line), otherHead,
                               articulation.inputMidiNumbers().empty());
    };
    for (int index = 0; index < static_cast<int>(all.size()); ++index)
        if (best < 0 || rank(index) < rank(best))
            best = index;
    return best;
}

} // namespace

std::optional<int> usualPercussionKey(const ListedInstrument &instrument)
{
    if (const auto key = keyOf(instrumentOfStandardSound(instrument.sound).type))
        return key;
    return keyOf(readInstrumentName(instrument.name).type);
}

void setUsualKeys(const InstrumentSet &set, const Staff::Bars &bars, ImportContext &context)
{
    struct Use {
        int articulation = -1;
        int notes = 0;
        int bar = 0;
    };
    std::map<std::pair<int, NoteHead>, Use> uses;
    const auto give = [&](Note &note, int bar) {
        const auto [place, isNew] = uses.insert({{note.staffLine(), note.noteHead()}, {}});
        auto &use = place->second;
        if (isNew) {
            use.articulation = articulationFor(set, note.staffLine(), note.noteHead());
            use.bar = bar;
        }
        if (use.articulation < 0)
            return;
        const auto &found = set.articulations()[static_cast<std::size_t>(use.articulation)];
        if (found.outputMidiNumber() < 0 || found.outputMidiNumber() > 127)
            return;
        note.setMidi(found.outputMidiNumber());
        ++use.notes;
    };
    for (std::size_t bar = 0; bar < bars.size(); ++bar)
        for (const auto &voice : bars[bar]->voices())
            if (voice)
                for (const auto &beat : voice->beats())
                    for (const auto &note : beat->notes())
                        if (note->midi() == Note::Unset && note->staffLine() != Note::NoStaffLine)
                            give(*note, static_cast<int>(bar));
    for (const auto &[place, use] : uses)
        if (use.notes > 0)
            context.addProblemInBar(
                use.bar, {},
                std::to_string(use.notes) + (use.notes == 1 ? " note" : " notes")
                    + " from here on without an instrument got that of the place on the staff, \""
                    + set.articulations()[static_cast<std::size_t>(use.articulation)].name()
                    + "\"");
}

} // namespace zarn::io
