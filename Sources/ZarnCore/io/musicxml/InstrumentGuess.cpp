// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/InstrumentGuess.h>

#include <ZarnCore/io/ZarnSourceTally.h>
#include <ZarnCore/io/musicxml/PartFacts.h>
#include <ZarnCore/io/musicxml/PartList.h>

#include <algorithm>
#include <iterator>
#include <string_view>

namespace zarn::io {

namespace {

using Set = InstrumentSet;

struct ProgramRow {
    int last; ///< last program, counted from 0, of a run that starts behind the row before
    Set::Type type;
};

/// General MIDI level 1 programs and the category that comes nearest to each.
// clang-format off
constexpr ProgramRow programs[] = {
    {1, Set::acousticPiano}, {2, Set::electricPiano}, {3, Set::acousticPiano},
    {5, Set::electricPiano}, {6, Set::harpsichord}, {7, Set::electricPiano}, {8, Set::celesta},
    {9, Set::xylophone}, {10, Set::celesta}, {11, Set::vibraphone}, {14, Set::xylophone},
    {15, Set::harp}, {18, Set::electricOrgan}, {19, Set::pipeOrgan}, {21, Set::accordion},
    {22, Set::harmonica}, {23, Set::bandoneon}, {24, Set::nylonGuitar}, {25, Set::steelGuitar},
    {31, Set::electricGuitar}, {32, Set::acousticBass}, {34, Set::electricBass},
    {35, Set::fretlessBass}, {37, Set::electricBass}, {39, Set::synthBass}, {40, Set::violin},
    {41, Set::viola}, {42, Set::cello}, {43, Set::contrabass}, {45, Set::violin}, {46, Set::harp},
    {47, Set::timpani}, {49, Set::violin}, {51, Set::padSynthesizer}, {52, Set::choir},
    {53, Set::voice}, {54, Set::padSynthesizer}, {55, Set::keySynthesizer}, {56, Set::trumpet},
    {57, Set::trombone}, {58, Set::tuba}, {59, Set::trumpet}, {60, Set::frenchHorn},
    {61, Set::trumpet}, {63, Set::brassSynthesizer}, {67, Set::saxophone}, {68, Set::oboe},
    {69, Set::englishHorn}, {70, Set::bassoon}, {71, Set::clarinet}, {72, Set::piccolo},
    {73, Set::flute}, {74, Set::recorder}, {75, Set::flute}, {76, Set::bottleBow}, {79, Set::flute},
    {87, Set::leadSynthesizer}, {95, Set::padSynthesizer}, {96, Set::seqSynthesizer},
    {103, Set::padSynthesizer}, {104, Set::electricSitar}, {107, Set::banjo}, {108, Set::xylophone},
    {109, Set::bagpipe}, {110, Set::violin}, {111, Set::oboe}, {112, Set::tinkleBell},
    {113, Set::agogos}, {114, Set::vibraphone}, {115, Set::woodblocks}, {116, Set::taikoDrum},
    {117, Set::melodicTom}, {118, Set::synthDrum}, {119, Set::reverseCymbal},
    {120, Set::electricGuitar}, {127, Set::padSynthesizer},
};

struct NameRow {
    std::string_view word; ///< in lower case
    Set::Type type;
};

/// Words in names of parts and instruments; the first that is found counts.
constexpr NameRow names[] = {
    {"drum", Set::drumKit}, {"percussion", Set::percussionKit}, {"timpani", Set::timpani},
    {"ukulele", Set::ukulele}, {"banjo", Set::banjo}, {"mandolin", Set::mandolin},
    {"lute", Set::nylonGuitar}, {"double bass", Set::contrabass}, {"contrabass", Set::contrabass},
    {"bass guitar", Set::electricBass}, {"electric bass", Set::electricBass},
    {"electric guitar", Set::electricGuitar}, {"classical guitar", Set::nylonGuitar},
    {"nylon", Set::nylonGuitar}, {"guitar", Set::steelGuitar}, {"guitare", Set::nylonGuitar},
    {"gitarre", Set::nylonGuitar}, {"violoncello", Set::cello}, {"cello", Set::cello},
    {"viola", Set::viola}, {"violin", Set::violin}, {"trumpet", Set::trumpet},
    {"trombone", Set::trombone}, {"tuba", Set::tuba}, {"horn", Set::frenchHorn},
    {"bassoon", Set::bassoon}, {"oboe", Set::oboe}, {"clarinet", Set::clarinet},
    {"saxophone", Set::saxophone}, {"piccolo", Set::piccolo}, {"recorder", Set::recorder},
    {"flute", Set::flute}, {"harpsichord", Set::harpsichord}, {"harp", Set::harp},
    {"accordion", Set::accordion}, {"organ", Set::pipeOrgan}, {"celesta", Set::celesta},
    {"vibraphone", Set::vibraphone}, {"xylophone", Set::xylophone}, {"piano", Set::acousticPiano},
    {"soprano", Set::voice}, {"alto", Set::voice}, {"tenor", Set::voice}, {"baritone", Set::voice},
    {"voice", Set::voice}, {"singer", Set::voice}, {"choir", Set::choir}, {"vocal", Set::voice},
};
// clang-format on

Set::Type typeOfName(const std::string &name)
{
    std::string lower = name;
    for (auto &letter : lower)
        letter = letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    const auto *found = std::find_if(std::begin(names), std::end(names), [&](const NameRow &row) {
        return lower.find(row.word) != lower.npos;
    });
    return found == std::end(names) ? Set::unknown : found->type;
}

Set::Type typeOfProgram(int program)
{
    const auto *found = std::find_if(std::begin(programs), std::end(programs),
                                     [&](const ProgramRow &row) { return program <= row.last; });
    return found == std::end(programs) ? Set::unknown : found->type;
}

bool hasTablature(const PartFacts &facts)
{
    return std::any_of(facts.staves.begin(), facts.staves.end(),
                       [](const WrittenStaff &staff) { return staff.tablature; });
}

} // namespace

Set::Type guessInstrument(const ListedPart &part, const PartFacts &facts, const NoteTally &notes)
{
    const bool unpitched = notes.unpitched > 0 && notes.pitched == 0;
    if (unpitched || (part.hasPercussion && notes.pitched == 0))
        return Set::drumKit;
    auto type = typeOfName(part.name);
    for (const auto &instrument : part.instruments)
        if (type == Set::unknown)
            type = typeOfName(instrument);
    // A name of percussion with pitched notes says nothing: the program or the notes do.
    if (Set::isUnpitched(type))
        type = Set::unknown;
    if (type == Set::unknown && part.program != ListedPart::NoProgram)
        type = typeOfProgram(part.program);
    if (type == Set::unknown || (hasTablature(facts) && !Set::isStringed(type)))
        type = hasTablature(facts) ? Set::steelGuitar : Set::acousticPiano;
    return type;
}

} // namespace zarn::io
