// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/PartFacts.h>
#include <ZarnCore/io/musicxml/WrittenMusic.h>

#include <string>
#include <string_view>
#include <vector>

namespace zarn::io {

class ImportContext;
class MeasureTimeline;

/// Reads what stands between the notes: <direction>, <sound> and <harmony>.
class DirectionReader {
public:
    explicit DirectionReader(ImportContext &context) : _context(context) { }

    void readDirection(pugi::xml_node node, const MeasureTimeline &timeline, PartFacts &facts,
                       WrittenMeasure &measure);
    void readSound(pugi::xml_node node, const MeasureTimeline &timeline, PartFacts &facts);
    void readHarmony(pugi::xml_node node, const MeasureTimeline &timeline, WrittenMeasure &measure);

    /// Dynamics at a position; each that the scale lacks is counted by its name.
    void readDynamics(pugi::xml_node node, const utils::rational &position, int staff,
                      WrittenMeasure &measure);

private:
    void readOtherDynamics(pugi::xml_node other, const utils::rational &position, int staff,
                           WrittenMeasure &measure);

    /// What one direction says, gathered from its children.
    struct Gathered {
        std::vector<pugi::xml_node> texts; ///< words, and the metronome mark
        std::vector<pugi::xml_node> signs; ///< segnos and codas
        pugi::xml_node metronome;
        pugi::xml_node sound;
    };

    void gather(pugi::xml_node type, Gathered &gathered, PartFacts &facts,
                const utils::rational &position, int staff, WrittenMeasure &measure);
    void readRehearsal(pugi::xml_node rehearsal, const utils::rational &position, int staff,
                       PartFacts &facts, WrittenMeasure &measure);
    void readOctaveShift(pugi::xml_node node, const utils::rational &position, int staff,
                         WrittenMeasure &measure);
    void readSwing(pugi::xml_node sound, PartFacts &facts);
    bool readTempo(const Gathered &gathered, const std::string &words,
                   const utils::rational &position, PartFacts &facts);
    bool readJumps(const Gathered &gathered, const std::string &words, PartFacts &facts);

    ImportContext &_context;
};

} // namespace zarn::io
