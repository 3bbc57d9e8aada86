// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypesDocument.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>

#include <QString>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zarn::resources {

/// A program or percussion key and what its track has beside the defaults of its category.
struct TemplateRow {
    unsigned number = 0; ///< counted from 0
    std::string name;
    std::string shortName;
    InstrumentSet::Type type = InstrumentSet::unknown;
    std::optional<unsigned> staves;
    std::optional<int> transposition; ///< semitones from written to sounding
    std::optional<ZarnIconID> icon;
    std::string tuning; ///< empty: that of the category
    std::string patch;  ///< id or "none"; empty: that of the category
};

/// The programs that share a folder, or all the percussion keys.
struct TemplateFamily {
    QString folder;
    std::uint32_t color = 0; ///< 0xRRGGBB
    bool isPercussion = false;
    std::vector<TemplateRow> rows;
};

/// Reads the table of the General MIDI programs. Raises `CoreException` that names file and place
/// when something is missing, unknown or there twice.
std::vector<TemplateFamily> readGeneralMidiTable(const QString &path);

} // namespace zarn::resources
