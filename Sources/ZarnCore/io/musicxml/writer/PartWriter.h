// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/writer/AttributesWriter.h>
#include <ZarnCore/io/musicxml/writer/BarFermatas.h>
#include <ZarnCore/io/musicxml/writer/BarlineWriter.h>
#include <ZarnCore/io/musicxml/writer/CrossedVoices.h>
#include <ZarnCore/io/musicxml/writer/DirectionWriter.h>
#include <ZarnCore/io/musicxml/writer/ElementStock.h>
#include <ZarnCore/io/musicxml/writer/LineSigns.h>
#include <ZarnCore/io/musicxml/writer/MeasureCursor.h>
#include <ZarnCore/io/musicxml/writer/NoteWriter.h>
#include <ZarnCore/io/musicxml/writer/PartPlan.h>

#include <vector>

namespace zarn::io {

class XmlSink;

/// What all parts of a score share of its bars.
struct ScorePlan {
    const ScoreModel *model = nullptr;
    std::vector<utils::rational> reach; ///< how far the notes of each bar reach in any part

    /// How long the bars are written: those that notes reach past are as long as these.
    std::vector<utils::rational> lengths;

    /// Bars whose notes end before the bar does: the part that says how long they are.
    std::vector<int> padding; ///< track; -1 for none

    std::vector<bool> systemStarts; ///< bars that a system of the full score begins with
    std::vector<int> numbers;       ///< of the bars, as they are counted
    std::vector<EndingMark> endings;
    std::vector<BarFermatas> fermatas; ///< by bar
};

/// Writes one part, a measure at a time: no more than a few are in memory.
class PartWriter {
public:
    PartWriter(const PartPlan &plan, int track, const ScorePlan &score, ExportContext &context,
               XmlSink &sink);

    void write();

private:
    void writeMeasure(unsigned bar);
    void writeStaff(std::size_t staff, unsigned bar);
    void writeVoice(std::size_t staff, unsigned slot, unsigned bar);
    void writeCrossedVoice(const StaffVoice &host, const StaffVoice &guest, unsigned bar);
    void writeFreeBeat(const CrossedBeat &beat, const VoicePlace &place, const BeatPlace &at);
    void writeBeat(const RhythmicBeat &beat, const VoicePlace &place, const BeatPlace &at);
    void writeFreeTime(const std::vector<RhythmicBeat> &beats, std::size_t &index);
    void claimVoices(std::size_t staff);
    void leaveTime(const utils::rational &begin, const utils::rational &end,
                   const VoicePlace &place);
    void findOttavias(std::size_t staff, unsigned bar);
    void writeOttavias(std::size_t staff, const Beat &beat);
    VoicePlace placeOf(std::size_t staff, unsigned slot) const;
    LineSigns &signsOf(std::size_t staff, unsigned slot);
    const MasterTrack &master() const { return *_score.model->masterTrack(); }

    /// An ottava sign that changes with a beat.
    struct OttaviaChange {
        utils::rational onset;
        unsigned slot;
        const Beat *beat;
        Ottavia ottavia;
        Ottavia before = Ottavia::None;
    };

    const PartPlan &_plan;
    int _track;
    const ScorePlan &_score;
    ExportContext &_context;
    XmlSink &_sink;
    pugi::xml_document _document;
    ElementStock _stock; ///< in the document
    MeasureCursor _cursor;
    AttributesWriter _attributes;
    DirectionWriter _directions;
    CrossedVoices _crossed;
    std::vector<NoteWriter> _notes; ///< by staff
    VoiceRhythm _rhythm;
    PartNumbers _numbers;
    std::vector<LineSigns> _signs;       ///< by staff and slot
    std::vector<Ottavia> _ottavias;      ///< that are open, by staff
    std::vector<OttaviaChange> _changes; ///< in the bar of the staff that is written
    std::vector<RhythmValue> _rhythms;
    std::int64_t _barDivisions = 1;
    utils::rational _end; ///< of the bar that is written, as its notes and <forward> tell it
    int _fifths = 0;
};

} // namespace zarn::io
