// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/InstrumentGuess.h>

#include <ZarnCore/io/ZarnSourceTally.h>
#include <ZarnCore/io/instruments/StandardSound.h>
#include <ZarnCore/io/musicxml/PartFacts.h>
#include <ZarnCore/io/musicxml/PartList.h>

#include <algorithm>

namespace zarn::io {

namespace {

using Set = InstrumentSet;
using Range = NamedInstrument::Range;

bool hasTablature(const PartFacts &facts)
{
    return std::any_of(facts.staves.begin(), facts.staves.end(),
                       [](const WrittenStaff &staff) { return staff.tablature; });
}

bool isKeyboard(Set::Type type)
{
    return type == Set::acousticPiano || type == Set::electricPiano || type == Set::harpsichord
        || type == Set::pipeOrgan || Set::isElectrophone(type);
}

/// Whether `exact` is one of the instruments that an open name such as "Guitar" may mean.
bool isOfKind(Set::Type open, Set::Type exact)
{
    if (Set::isGuitar(open))
        return Set::isGuitar(exact);
    switch (open) {
    case Set::acousticPiano:
        return exact == Set::acousticPiano || exact == Set::electricPiano;
    case Set::pipeOrgan:
        return exact == Set::pipeOrgan || exact == Set::electricOrgan;
    case Set::electricBass:
        return Set::isBass(exact) || exact == Set::contrabass;
    case Set::keySynthesizer:
        return isKeyboard(exact);
    default:
        return false;
    }
}

/// The instrument for notes with pitches of what was found; percussion without pitch is none.
Set::Type pitched(Set::Type type)
{
    // In the Romance languages the kettledrums have the name of the Latin drums.
    return type == Set::timbales ? Set::timpani : Set::isUnpitched(type) ? Set::unknown : type;
}

Set::Type typeOfProgram(const ListedPart &part)
{
    return part.program == ListedPart::NoProgram ? Set::unknown : instrumentOfProgram(part.program);
}

/// Readings of the names of a part, the part's own first.
std::vector<NamedInstrument> namesOf(const ListedPart &part)
{
    std::vector<NamedInstrument> names = {readInstrumentName(part.name)};
    if (!part.instruments.empty())
        names.push_back(readInstrumentName(part.instruments.front().name));
    names.push_back(readInstrumentName(part.abbreviation));
    for (auto &named : names)
        named.type = pitched(named.type);
    return names;
}

/// Closes what is left open by the names, then by the program.
Set::Type closed(const NamedInstrument &open, const std::vector<NamedInstrument> &names,
                 Set::Type program)
{
    if (!open.isOpen)
        return open.type;
    for (const auto &named : names)
        if (named.isExact() && isOfKind(open.type, named.type))
            return named.type;
    if (isOfKind(open.type, program))
        return program;
    for (const auto &named : names)
        if (named.isOpen && isOfKind(open.type, named.type))
            return named.type;
    return open.type;
}

} // namespace

void InstrumentGuesser::Ensemble::count(const NamedInstrument &named, int sign)
{
    ranges += named.range != Range::None ? sign : 0;
    voices += Set::isVocal(named.type) ? sign : 0;
    bowed += Set::isBowed(named.type) ? sign : 0;
    rhythm += Set::isGuitar(named.type) || Set::isUnpitched(named.type) ? sign : 0;
    brass += Set::isBrass(named.type) ? sign : 0;
    saxophones += named.type == Set::saxophone ? sign : 0;
    recorders += named.type == Set::recorder ? sign : 0;
}

InstrumentGuesser::InstrumentGuesser(const PartList &list)
{
    for (const auto &part : list.parts())
        _ensemble.count(readInstrumentName(part.name), 1);
}

/// The percussion that a part without pitches is written for: a kit, unless one instrument alone
/// is named.
Set::Type InstrumentGuesser::kitOf(const ListedPart &part)
{
    auto type = Set::unknown;
    const auto take = [&](const NamedInstrument &named) {
        if (type == Set::unknown && named.isWhole && Set::isUnpitched(named.type))
            type = named.type;
    };
    take(readInstrumentName(part.name));
    for (const auto &instrument : part.instruments) {
        take(instrumentOfStandardSound(instrument.sound));
        take(readInstrumentName(instrument.name));
    }
    const bool isOne = part.instruments.size() <= 1;
    return type != Set::unknown && (isOne || Set::isPercussionKit(type)) ? type : Set::drumKit;
}

Set::Type InstrumentGuesser::typeOfRange(const NamedInstrument &named, const ListedPart &part,
                                         bool isOnFrets, const NoteTally &notes) const
{
    if (notes.lyrics > 0)
        return Set::voice;
    // Choirs are played on the piano or the organ for want of better.
    if (const auto program = typeOfProgram(part); program != Set::unknown && !isKeyboard(program))
        return program == Set::choir ? Set::voice : program;
    auto others = _ensemble;
    others.count(readInstrumentName(part.name), -1);
    const bool isBass = named.range == Range::Bass;
    if (isOnFrets)
        return isBass ? Set::electricBass : Set::steelGuitar;
    if (others.saxophones > 0 && others.saxophones >= others.ranges)
        return isBass && others.rhythm > 0 ? Set::electricBass : Set::saxophone;
    if (others.ranges > 1)
        return Set::voice;
    if (others.recorders > 1)
        return Set::recorder;
    if (isBass && others.rhythm > 0)
        return Set::electricBass;
    if (others.bowed > 1 && (isBass || named.range == Range::Alto))
        return isBass ? Set::contrabass : Set::viola;
    if (others.brass > 1 && named.range == Range::Baritone)
        return Set::tuba;
    return isBass && others.ranges + others.voices == 0 ? Set::electricBass : Set::voice;
}

Set::Type InstrumentGuesser::pitchedTypeOf(const ListedPart &part, const PartFacts &facts,
                                           const NoteTally &notes) const
{
    const auto names = namesOf(part);
    const auto program = typeOfProgram(part);
    if (!part.instruments.empty()) {
        auto sound = instrumentOfStandardSound(part.instruments.front().sound);
        sound.type = pitched(sound.type);
        if (sound.type == Set::voice && names.front().type == Set::choir)
            return Set::choir;
        if (sound.type != Set::unknown)
            return closed(sound, names, program);
    }
    const auto typeOf = [&](const NamedInstrument &named) {
        return named.range != Range::None ? typeOfRange(named, part, hasTablature(facts), notes)
                                          : closed(named, names, program);
    };
    for (const auto &named : names)
        if (named.isWhole && named.isKnown())
            return typeOf(named);
    if (program != Set::unknown)
        return program;
    for (const auto &named : names)
        if (named.isKnown())
            return typeOf(named);
    return Set::unknown;
}

Set::Type InstrumentGuesser::guess(const ListedPart &part, const PartFacts &facts,
                                   const NoteTally &notes) const
{
    if (part.ownType)
        return *part.ownType;
    if (notes.pitched == 0 && (notes.unpitched > 0 || part.hasPercussion))
        return kitOf(part);
    const auto type = pitchedTypeOf(part, facts, notes);
    if (!hasTablature(facts))
        return type == Set::unknown ? Set::acousticPiano : type;
    if (type == Set::contrabass)
        return Set::uprightBass;
    return Set::isStringed(type) ? type : Set::steelGuitar;
}

} // namespace zarn::io
