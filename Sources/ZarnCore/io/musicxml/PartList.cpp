// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/PartList.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/PercussionKeys.h>

#include <algorithm>

namespace zarn::io {

namespace {

constexpr int percussionChannel = 10;

} // namespace

PartList::PartList(pugi::xml_node list, ImportContext &context)
{
    for (const auto child : list.children()) {
        if (tagOf(child.name()) == Tag::ScorePart)
            readPart(child, context);
        else if (std::string(child.attribute("type").value()) != "stop")
            context.addUnheld(child);
    }
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
        case Tag::MidiUnpitched:
            // Counted from 1, as MIDI programs are (MusicXML 4.0, midi-unpitched).
            _percussion[node.attribute("id").value()] = {
                std::clamp(context.integer(child, 1), 1, 128) - 1, {}};
            part.hasPercussion = true;
            break;
        default:
            context.addUnheld(child, tag);
        }
    }
}

} // namespace zarn::io
