// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/PartList.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/PercussionKeys.h>

#include <algorithm>
#include <cmath>

namespace zarn::io {

namespace {

constexpr int percussionChannel = 10;

/// The linear gain of a volume in percent, which goes by the square, as that of MIDI does.
float gainOf(const utils::rational &percent)
{
    const double part = std::clamp(percent.toDouble() / 100, 0.0, 1.0);
    return static_cast<float>(part * part);
}

/// From degrees: 0 is in front, -90 left, 90 right, and what is further lies behind.
float panOf(const utils::rational &degrees)
{
    constexpr double side = 90;
    const double angle = std::clamp(degrees.toDouble(), -2 * side, 2 * side);
    const double inFront = std::abs(angle) <= side ? angle : std::copysign(2 * side, angle) - angle;
    return static_cast<float>(inFront / side);
}

/// The first instrument of a part speaks for all.
void hold(std::optional<float> &held, float value, pugi::xml_node node, ImportContext &context)
{
    if (held && *held != value)
        context.addUnheld(node);
    else
        held = value;
}

GroupSymbol groupSymbolOf(const std::string &text)
{
    return text == "brace"                      ? GroupSymbol::Brace
        : text == "bracket" || text == "square" ? GroupSymbol::Bracket
        : text == "line"                        ? GroupSymbol::Line
                                                : GroupSymbol::None;
}

/// The instrument set that a <score-instrument> names.
void readOwnType(pugi::xml_node instrument, ListedPart &part)
{
    const auto own = instrument.child("virtual-instrument");
    if (std::string_view(own.child_value("virtual-library")) != ownLibrary)
        return;
    const std::string name = own.child_value("virtual-name");
    const auto type = InstrumentSet::typeFromString(name);
    if (InstrumentSet::typeToString(type) == name)
        part.ownType = type;
}

} // namespace

double percentOfGain(float gain)
{
    return 100 * std::sqrt(static_cast<double>(gain));
}

double degreesOfPan(float pan)
{
    return 90 * static_cast<double>(pan);
}

PartList::PartList(pugi::xml_node list, ImportContext &context)
{
    for (const auto child : list.children()) {
        switch (const auto tag = tagOf(child.name()); tag) {
        case Tag::ScorePart:
            readPart(child, context);
            break;
        case Tag::PartGroup:
            readGroup(child, context);
            break;
        default:
            context.addUnheld(child, tag);
        }
    }
    if (!_openGroups.empty())
        context.addProblem(list, "a group of parts does not end; it ends with the list");
    while (!_openGroups.empty())
        endGroup(_openGroups.size() - 1, list, context);
    std::stable_sort(_groups.begin(), _groups.end(), [](const auto &left, const auto &right) {
        return left.first != right.first ? left.first < right.first : left.last > right.last;
    });
}

void PartList::readGroup(pugi::xml_node node, ImportContext &context)
{
    const std::string number = node.attribute("number").as_string("1");
    if (std::string_view(node.attribute("type").value()) == "stop") {
        for (std::size_t open = _openGroups.size(); open-- > 0;)
            if (_openGroups[open].number == number)
                return endGroup(open, node, context);
        return context.addProblem(node, "a group of parts ends that did not begin");
    }
    TrackGroup group;
    group.first = static_cast<unsigned>(_parts.size());
    for (const auto child : node.children()) {
        switch (const auto tag = tagOf(child.name()); tag) {
        case Tag::GroupName:
            group.name = child.child_value();
            break;
        case Tag::GroupSymbol:
            group.symbol = groupSymbolOf(child.child_value());
            break;
        case Tag::GroupBarline:
            group.barsThrough = std::string_view(child.child_value()) == "yes";
            break;
        default:
            context.addUnheld(child, tag);
        }
    }
    _openGroups.push_back({std::move(group), number});
}

void PartList::endGroup(std::size_t open, pugi::xml_node node, ImportContext &context)
{
    TrackGroup group = std::move(_openGroups[open].group);
    _openGroups.erase(_openGroups.begin() + static_cast<std::ptrdiff_t>(open));
    if (group.first == _parts.size())
        return context.addProblem(node, "a group of parts is empty");
    group.last = static_cast<unsigned>(_parts.size()) - 1;
    _groups.push_back(std::move(group));
}

std::vector<TrackGroup> PartList::groups(const std::vector<std::string> &tracks) const
{
    std::vector<TrackGroup> groups;
    for (TrackGroup group : _groups) {
        const auto isIn = [&](const std::string &id) {
            const auto *const part = find(id);
            const auto index = static_cast<std::size_t>(part - _parts.data());
            return part != nullptr && group.first <= index && index <= group.last;
        };
        const auto begin = std::find_if(tracks.begin(), tracks.end(), isIn);
        const auto end = std::find_if_not(begin, tracks.end(), isIn);
        if (begin == end || std::any_of(end, tracks.end(), isIn))
            continue; // parts without music, or in another order than the list's
        groups.push_back(group);
        groups.back().first = static_cast<unsigned>(begin - tracks.begin());
        groups.back().last = static_cast<unsigned>(end - tracks.begin()) - 1;
    }
    return groups;
}

const ListedPart *PartList::find(const std::string &id) const
{
    const auto found = std::find_if(_parts.begin(), _parts.end(),
                                    [&](const ListedPart &part) { return part.id == id; });
    return found == _parts.end() ? nullptr : &*found;
}

const PercussionUse *PartList::percussion(std::string_view instrument) const
{
    const auto found = _percussion.find(instrument);
    return found == _percussion.end() ? nullptr : &found->second;
}

void PartList::readPart(pugi::xml_node node, ImportContext &context)
{
    ListedPart part;
    part.node = node;
    part.id = node.attribute("id").value();
    for (const auto child : node.children()) {
        switch (const auto tag = tagOf(child.name()); tag) {
        case Tag::PartName:
            part.name = child.child_value();
            break;
        case Tag::PartAbbreviation:
            part.abbreviation = child.child_value();
            break;
        case Tag::ScoreInstrument:
            part.instruments.push_back({child.attribute("id").value(),
                                        child.child_value("instrument-name"),
                                        child.child_value("instrument-sound")});
            readOwnType(child, part);
            break;
        case Tag::MidiInstrument:
            readMidi(child, part, context);
            break;
        default:
            context.addUnheld(child, tag);
        }
    }
    setUsualKeys(part);
    if (find(part.id))
        context.addProblem(
            node, "the part list names \"" + part.id + "\" more than once; the first entry holds");
    _parts.push_back(std::move(part));
    if (_parts.size() > mostParts)
        context.refuse(node, "a score has no more than " + std::to_string(mostParts) + " parts");
}

/// Instruments of percussion that say no key have that of their sound or their name.
void PartList::setUsualKeys(const ListedPart &part)
{
    for (const auto &instrument : part.instruments)
        if (const auto key = usualPercussionKey(instrument))
            _percussion.insert({instrument.id, {*key, instrument.name}});
}

void PartList::readMidi(pugi::xml_node node, ListedPart &part, ImportContext &context)
{
    for (const auto child : node.children()) {
        switch (const auto tag = tagOf(child.name()); tag) {
        case Tag::MidiChannel:
            part.hasPercussion =
                part.hasPercussion || context.integer(child, 1) == percussionChannel;
            break;
        case Tag::MidiProgram:
            if (part.program == ListedPart::NoProgram)
                part.program = std::clamp(context.integer(child, 1), 1, 128) - 1;
            break;
        case Tag::MidiBank:
            part.bank = std::clamp(context.integer(child, 1), 1, 16384) - 1;
            break;
        case Tag::MidiUnpitched:
            // Counted from 1, as MIDI programs are (MusicXML 4.0, midi-unpitched).
            _percussion[node.attribute("id").value()] = {
                std::clamp(context.integer(child, 1), 1, 128) - 1, {}};
            part.hasPercussion = true;
            break;
        case Tag::Volume:
            hold(part.volume, gainOf(context.decimal(child, 100)), child, context);
            break;
        case Tag::Pan:
            hold(part.pan, panOf(context.decimal(child, 0)), child, context);
            break;
        default:
            context.addUnheld(child, tag);
        }
    }
}

} // namespace zarn::io
