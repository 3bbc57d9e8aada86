// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/writer/PartPlan.h>
#include <ZarnCore/music/ZarnKeySignature.h>
#include <ZarnCore/music/ZarnTimeSignature.h>

#include <pugixml.hpp>

#include <optional>
#include <vector>

namespace zarn {
class MasterTrack;
}

namespace zarn::io {

class ExportContext;
class MeasureCursor;

/// The clef that is written: MusicXML advises against none, and readers take it for the one of
/// percussion.
inline ClefType shownClef(ClefType clef)
{
    return clef == ClefType::None ? ClefType::Neutral : clef;
}

/// Writes the <attributes> of a part where they change: divisions, key, meter, clefs, strings,
/// transposition, bars that repeat others.
class AttributesWriter {
public:
    AttributesWriter(const PartPlan &plan, const MasterTrack &master, ExportContext &context);

    /// At the start of a bar; clefs inside of it wait at their times. Returns the fifths of the
    /// key as the part writes it.
    int write(unsigned bar, MeasureCursor &cursor);

    /// Whether something of the bar stands behind its notes, so that it has to be told how long it
    /// is.
    bool reachesBehindNotes() const noexcept { return _reachesBehindNotes; }

private:
    struct Clef {
        ClefType clef = ClefType::None;
        Ottavia ottavia = Ottavia::None;
        bool operator==(const Clef &other) const
        {
            return clef == other.clef && ottavia == other.ottavia;
        }
    };

    pugi::xml_node attributes(MeasureCursor &cursor);
    void writeKey(unsigned bar, MeasureCursor &cursor);
    void writeTime(unsigned bar, MeasureCursor &cursor);
    void writeClefs(unsigned bar, MeasureCursor &cursor);
    void writeClef(const Clef &clef, std::size_t staff, pugi::xml_node attributes);
    void writeStaffDetails(std::size_t staff, pugi::xml_node attributes);
    void writeTranspose(unsigned bar, MeasureCursor &cursor);
    void writeSimile(unsigned bar, std::size_t staff, MeasureCursor &cursor);

    const PartPlan &_plan;
    const MasterTrack &_master;
    ExportContext &_context;
    pugi::xml_node _attributes; ///< of the bar, when there is one
    std::int64_t _divisions = 0;
    KeySignature _key;
    std::optional<int> _diatonic; ///< steps of the transposition
    TimeSignature _time;
    std::string _beats; ///< as they were written
    MeterSign _meterSign = MeterSign::Numbers;
    bool _isFree = false;
    bool _reachesBehindNotes = false;
    std::vector<Clef> _clefs;  ///< by staff of the part
    std::vector<int> _similes; ///< bars that a sign stands for, by staff; 0 for none
};

} // namespace zarn::io
