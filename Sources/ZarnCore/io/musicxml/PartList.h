// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/NoteMaker.h>

#include <pugixml.hpp>

#include <string>
#include <vector>

namespace zarn::io {

class ImportContext;

/// One <score-instrument>.
struct ListedInstrument {
    std::string id;
    std::string name;
    std::string sound; ///< a standard sound of MusicXML; may be empty
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

    const NoteMaker::PercussionKeys &percussionKeys() const noexcept { return _keys; }

private:
    void readPart(pugi::xml_node node, ImportContext &context);
    void readMidi(pugi::xml_node node, ListedPart &part, ImportContext &context);

    std::vector<ListedPart> _parts;
    NoteMaker::PercussionKeys _keys;
};

} // namespace zarn::io
