// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/WrittenAccidentals.h>
#include <ZarnCore/io/musicxml/writer/BarFermatas.h>
#include <ZarnCore/io/musicxml/writer/PartPlan.h>
#include <ZarnCore/io/musicxml/writer/SpelledPitch.h>
#include <ZarnCore/io/musicxml/writer/VoiceRhythm.h>

#include <cstdint>

namespace zarn::io {

class ElementStock;
class ExportContext;
class LineSigns;
class MeasureCursor;

/// Where a voice is written: its staff, and the numbers of both in the part.
struct VoicePlace {
    const PartStaff *staff = nullptr;
    unsigned slot = 0;
    int staffNumber = 1;
    int voiceNumber = 1;
    bool hasSeveralStaves = false;
};

/// Whether a beat is time alone that is kept free, with nothing to be written over it.
bool isFreeTime(const Beat &beat);

/// Writes the <note> elements of a beat: a chord, a rest, or time that is kept free.
class NoteWriter {
public:
    NoteWriter(const PartPlan &plan, ElementStock &stock, ExportContext &context)
        : _plan(plan), _stock(stock), _context(context)
    {
    }

    /// Begins a bar under a key of so many fifths, as written: accidentals hold anew.
    void startBar(const Bar &bar, int fifths);

    /// `signs` holds what leads from beat to beat in the voice.
    void write(const RhythmicBeat &beat, const VoicePlace &place, MeasureCursor &cursor,
               LineSigns &signs);

    /// Fermatas of the bar that beats have to show; they must outlive the bar.
    void setFermatas(const BarFermatas &fermatas) { _fermatas = &fermatas; }

private:
    pugi::xml_node startNote(const RhythmicBeat &beat, MeasureCursor &cursor);
    void tellRest(const RhythmicBeat &beat);
    void writePitch(const Note &note, const Beat &beat, const PartStaff &staff,
                    pugi::xml_node node);
    void writeUnpitched(const Note &note, const Beat &beat, const PartStaff &staff,
                        pugi::xml_node node);
    void writeTime(const RhythmicBeat &beat, const Note *note, const VoicePlace &place,
                   pugi::xml_node node);
    void writeAccidental(const Note &note, const PartStaff &staff, pugi::xml_node node);
    void writeHead(const Note &note, const Beat &beat, pugi::xml_node node);
    void writeBeams(const RhythmicBeat &beat, pugi::xml_node node);
    void writeNotations(const RhythmicBeat &beat, const Note *note, bool isFirst,
                        const VoicePlace &place, pugi::xml_node node, LineSigns &signs);
    void writeTuplets(const RhythmicBeat &beat, pugi::xml_node notations);
    void writeStringAndFret(const Note &note, const PartStaff &staff, pugi::xml_node notations);
    void writeArpeggio(const Beat &beat, const Note &note, pugi::xml_node notations);

    const PartPlan &_plan;
    ElementStock &_stock;
    ExportContext &_context;
    const Bar *_bar = nullptr;
    const BarFermatas *_fermatas = nullptr;
    int _fifths = 0;
    HeldAccidentals _accidentals;
    PitchSpelling _spelling;
    SpelledPitch _pitch;                    ///< of the note that is written
    bool _hasNotations = true;              ///< the beat that is written may have some
    bool _isPitched = false;                ///< that it has one
    NoteHead _usualHead = NoteHead::Normal; ///< of its key, where it has none
    std::int64_t _duration = 0;             ///< of the chord that is written
};

} // namespace zarn::io
