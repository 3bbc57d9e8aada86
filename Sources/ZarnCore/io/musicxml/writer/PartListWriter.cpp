// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/writer/PartListWriter.h>

#include <ZarnCore/io/instruments/StandardSound.h>
#include <ZarnCore/io/musicxml/PartList.h>
#include <ZarnCore/io/musicxml/writer/ExportContext.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <cmath>

namespace zarn::io {

namespace {

constexpr int mostChannels = 16;
constexpr int bankSize = 128;

/// Names of parts without one, which the schema wants and a reader leaves empty.
void writeInstrument(const PartPlan &part, const std::string &id, const std::string &name,
                     pugi::xml_node node)
{
    auto instrument = addElement(node, "score-instrument");
    addAttribute(instrument, "id", id);
    addElement(instrument, "instrument-name", name);
    const auto type = part.track().type();
    if (const auto sound = standardSoundOf(type); !sound.empty())
        addElement(instrument, "instrument-sound", std::string(sound));
    auto own = addElement(instrument, "virtual-instrument");
    addElement(own, "virtual-library", ownLibrary);
    addElement(own, "virtual-name", InstrumentSet::typeToString(type));
}

void writeMixer(const Track &track, pugi::xml_node midi)
{
    const auto &volumePan = track.volumePan();
    addElement(midi, "volume", decimalText(percentOfGain(volumePan.volume())));
    addElement(midi, "pan", decimalText(degreesOfPan(volumePan.pan())));
}

void writeMidi(const PartPlan &part, const std::string &id, int key, pugi::xml_node node)
{
    const auto &track = part.track();
    const auto connection = track.midiConnection();
    auto midi = addElement(node, "midi-instrument");
    addAttribute(midi, "id", id);
    const bool hasChannel = key >= 0 || track.chosenMidiConnection();
    if (hasChannel)
        addElement(midi, "midi-channel", std::min(connection.channel + 1, mostChannels));
    if (!track.sounds().empty()) {
        const auto &sound = track.sounds().front()->midiSound();
        const int bank = sound.msbBank() * bankSize + sound.lsbBank();
        if (bank > 0 && bank < bankSize * bankSize)
            addElement(midi, "midi-bank", bank + 1);
        addElement(midi, "midi-program", std::clamp(sound.program(), 0, 127) + 1);
    }
    if (key >= 0)
        addElement(midi, "midi-unpitched", key + 1);
    writeMixer(track, midi);
}

void writePart(const PartPlan &part, pugi::xml_node list, ExportContext &context)
{
    const auto &track = part.track();
    auto node = addElement(list, "score-part");
    addAttribute(node, "id", part.id());
    addElement(node, "part-name", context.text(track.name()));
    if (!track.shortName().empty())
        addElement(node, "part-abbreviation", context.text(track.shortName()));
    const auto ownId = part.id() + "-I0";
    const auto ownName =
        context.text(track.sounds().empty() ? track.name() : track.sounds().front()->name());
    writeInstrument(part, ownId, ownName, node);
    for (const auto &[key, name] : part.percussion())
        writeInstrument(part, part.percussionId(key), context.text(name), node);
    writeMidi(part, ownId, -1, node);
    for (const auto &[key, name] : part.percussion())
        writeMidi(part, part.percussionId(key), key, node);
}

const char *symbolOf(GroupSymbol symbol)
{
    return symbol == GroupSymbol::Brace  ? "brace"
        : symbol == GroupSymbol::Bracket ? "bracket"
        : symbol == GroupSymbol::Line    ? "line"
                                         : "none";
}

void writeGroupStart(const TrackGroup &group, std::size_t number, pugi::xml_node list,
                     ExportContext &context)
{
    auto node = addElement(list, "part-group");
    addAttribute(node, "type", "start");
    addAttribute(node, "number", static_cast<int>(number) + 1);
    if (!group.name.empty())
        addElement(node, "group-name", context.text(group.name));
    addElement(node, "group-symbol", symbolOf(group.symbol));
    addElement(node, "group-barline", group.barsThrough ? "yes" : "no");
}

/// The groups whose last track is `index`, the inner ones before those around them.
std::vector<std::size_t> groupsThatEnd(const TrackGroups &groups, std::size_t index)
{
    std::vector<std::size_t> ending;
    for (std::size_t group = 0; group < groups.size(); ++group)
        if (groups[group].last == index)
            ending.push_back(group);
    std::stable_sort(ending.begin(), ending.end(), [&groups](std::size_t left, std::size_t right) {
        return groups[left].first > groups[right].first;
    });
    return ending;
}

} // namespace

void writePartList(const ScoreModel &model, const std::deque<PartPlan> &parts, pugi::xml_node root,
                   ExportContext &context)
{
    auto list = addElement(root, "part-list");
    const auto &groups = model.trackGroups();
    for (std::size_t index = 0; index < parts.size(); ++index) {
        for (std::size_t group = 0; group < groups.size(); ++group)
            if (groups[group].first == index && groups[group].last < parts.size())
                writeGroupStart(groups[group], group, list, context);
        context.setPlace(static_cast<int>(index), -1);
        writePart(parts[index], list, context);
        for (const auto group : groupsThatEnd(groups, index)) {
            auto stop = addElement(list, "part-group");
            addAttribute(stop, "type", "stop");
            addAttribute(stop, "number", static_cast<int>(group) + 1);
        }
    }
    context.setPlace(-1, -1);
}

} // namespace zarn::io
