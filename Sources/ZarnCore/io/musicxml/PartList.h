// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>
#include <ZarnCore/model/layout/ZarnTrackGroup.h>

#include <pugixml.hpp>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zarn::io {

class ImportContext;

/// The library that a <virtual-instrument> belongs to which names the instrument set of a track.
constexpr const char *ownLibrary = "ZarnCore";

/// The volume in percent of a linear gain, and the degrees of a pan from -1 to 1, as <volume> and
/// <pan> have them.
double percentOfGain(float gain);
double degreesOfPan(float pan);

/// One <score-instrument>.
struct ListedInstrument {
    std::string id;
    std::string name;
    std::string sound; ///< a standard sound of MusicXML; may be empty
};

/// How an instrument is struck.
struct PercussionUse {
    int key;           ///< General MIDI
    std::string guess; ///< the name that the key was taken from; empty where it is written
};

/// What <part-list> says about one part.
struct ListedPart {
    static constexpr int NoProgram = -1;

    std::string id;
    std::string name;
    std::string abbreviation;
    std::vector<ListedInstrument> instruments;
    std::optional<InstrumentSet::Type> ownType; ///< the instrument set, where the document names it
    int program = NoProgram;                    ///< General MIDI, from 0
    int bank = 0;                ///< of the program, both bytes in one number, from 0
    std::optional<float> volume; ///< as a linear gain
    std::optional<float> pan;    ///< -1 left to 1 right
    bool hasPercussion = false;  ///< plays on channel 10, or names percussion keys
    pugi::xml_node node;
};

/// What <part-group> says about parts of the list, by their indexes in it.
struct ListedGroup {
    TrackGroup group;
    std::string number; ///< tells groups that lie in one another apart
};

/// More parts than any score has; a document with more is refused.
constexpr std::size_t mostParts = 1000;

/// The <part-list> of a document.
class PartList {
public:
    PartList(pugi::xml_node list, ImportContext &context);

    const std::vector<ListedPart> &parts() const noexcept { return _parts; }

    /// The groups of tracks, where a track plays each part: `tracks` holds the ids of the parts
    /// that they play, in the order of the tracks. Outer groups stand in front of those inside.
    std::vector<TrackGroup> groups(const std::vector<std::string> &tracks) const;

    /// Null when the list does not name the part.
    const ListedPart *find(const std::string &id) const;

    /// Null for an unknown instrument.
    const PercussionUse *percussion(std::string_view instrument) const;

private:
    void readPart(pugi::xml_node node, ImportContext &context);
    void readGroup(pugi::xml_node node, ImportContext &context);
    void endGroup(std::size_t open, pugi::xml_node node, ImportContext &context);
    void readMidi(pugi::xml_node node, ListedPart &part, ImportContext &context);

    std::vector<ListedPart> _parts;
    std::vector<ListedGroup> _openGroups;
    std::vector<TrackGroup> _groups; ///< of parts
    void setUsualKeys(const ListedPart &part);

    std::map<std::string, PercussionUse, std::less<>> _percussion;
};

} // namespace zarn::io
