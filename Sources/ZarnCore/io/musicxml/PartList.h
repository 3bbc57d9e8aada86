// SPDX-License-Identifier: MIT
#pragma once

#include <pugixml.hpp>

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace zarn::io {

class ImportContext;

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
    int program = NoProgram;    ///< General MIDI, from 0
    bool hasPercussion = false; ///< plays on channel 10, or names percussion keys
    pugi::xml_node node;
};

/// More parts than any score has; a document with more is refused.
constexpr std::size_t mostParts = 1000;

/// The <part-list> of a document.
class PartList {
public:
    PartList(pugi::xml_node list, ImportContext &context);

    const std::vector<ListedPart> &parts() const noexcept { return _parts; }

    /// Null when the list does not name the part.
    const ListedPart *find(const std::string &id) const;

    /// Null for an unknown instrument.
    const PercussionUse *percussion(std::string_view instrument) const;

private:
    void readPart(pugi::xml_node node, ImportContext &context);
    void readMidi(pugi::xml_node node, ListedPart &part, ImportContext &context);

    std::vector<ListedPart> _parts;
    void setUsualKeys(const ListedPart &part);

    std::map<std::string, PercussionUse, std::less<>> _percussion;
};

} // namespace zarn::io
