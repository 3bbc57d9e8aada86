// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>

#include <rapidjson/fwd.h>

#include <memory>
#include <string>
#include <vector>

namespace zarn {

/// A ready way of writing music down, which a user picks for a track: tablature with its rhythm,
/// a grand staff, rhythm slashes. It holds what is drawn; transposition and tuning belong to the
/// track.
class ZARNCORE_EXPORT NotationPatch {
public:
    /// Folder of the built-in patches in the library's resources, one JSON file each.
    static constexpr const char *builtInFolder = ":/notationPatch";

    struct Staff {
        /// `None` for the clef that a new track of its category has.
        ClefType clef = ClefType::None;
        /// Lines of the standard notation, 1 to 16.
        unsigned lineCount = 5;
    };

    /// Reads a patch; never null:
    ///
    ///     {"name": "Grand Staff", "description": "...",
    ///      "instrumentSets": ["chordophone", "electricOrgan"],
    ///      "standardNotation": true, "tablature": false, "slash": false,
    ///      "staves": [{"clef": "G2", "lineCount": 5}, {"clef": "F4", "lineCount": 5}],
    ///      "noteHead": "normal", "stems": "Undefined"}
    ///
    /// Clefs, heads and stems stand by the texts of their enumerations. Needed are the name, which
    /// is not empty, "instrumentSets", and one at least of the three notations. Without "staves"
    /// there is one of five lines. Raises `CoreException` with the place of what is wrong.
    static std::shared_ptr<NotationPatch> parse(const rapidjson::Value &value);

    /// Key in the core's catalogue, and name for people.
    const std::string &name() const noexcept { return _name; }
    const std::string &description() const noexcept { return _description; }

    /// Categories for which it is offered; a group stands for all its members.
    const std::vector<InstrumentSet::Type> &instrumentSetTypes() const noexcept { return _types; }
    bool suits(InstrumentSet::Type type) const noexcept;

    // Which notations of a staff are shown, one above the other.

    bool hasStdNotation() const noexcept { return _hasStdNotation; }
    bool hasTablature() const noexcept { return _hasTablature; }
    bool hasSlash() const noexcept { return _hasSlash; }

    /// From top to bottom; at least one.
    const std::vector<Staff> &staves() const noexcept { return _staves; }

    /// Head of the notes that have none of their own.
    NoteHead noteHead() const noexcept { return _noteHead; }

    /// Direction of the stems of music in one voice; `Undefined` goes by the position on the staff.
    ZarnStemOrientation stemOrientation() const noexcept { return _stemOrientation; }

private:
    std::string _name;
    std::string _description;
    std::vector<InstrumentSet::Type> _types;
    std::vector<Staff> _staves;
    NoteHead _noteHead = NoteHead::Normal;
    ZarnStemOrientation _stemOrientation = ZarnStemOrientation::Undefined;
    bool _hasStdNotation = false;
    bool _hasTablature = false;
    bool _hasSlash = false;
};

} // namespace zarn
