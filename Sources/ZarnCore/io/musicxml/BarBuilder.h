// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/GapFiller.h>
#include <ZarnCore/io/musicxml/MarkPlacer.h>
#include <ZarnCore/io/musicxml/StaffSlots.h>
#include <ZarnCore/io/musicxml/WrittenMusic.h>

#include <memory>
#include <vector>

namespace zarn::io {

class ImportContext;
class NoteMaker;
class PartSigns;

/// A rest that filled its measure; whether it fills the bar is known when all parts are read.
struct WholeMeasureRest {
    unsigned bar;
    utils::rational length;
    std::shared_ptr<Beat> beat;

    /// Makes it a whole-bar rest where it is as long as the bar, or else rests that are as long as
    /// it is. How many it added.
    std::size_t fit(const utils::rational &barLength) const;
};

/// Sorts the notes of a measure into the voice slots of its staves and makes the bars.
///
/// A voice keeps its slot through the part. Gaps become place holders, so that what is no written
/// rest is none in the tree. No note is lost: what fits in no slot joins a beat that is there, and
/// the report says so.
class BarBuilder {
public:
    BarBuilder(ImportContext &context, NoteMaker &notes, PartSigns &signs);

    void startPart();

    /// Makes a bar for each of `staffCount` staves, each in its own list.
    void build(const WrittenMeasure &measure,
               std::vector<std::vector<std::shared_ptr<Bar>>> &staves);

    const std::vector<WholeMeasureRest> &wholeMeasureRests() const noexcept { return _rests; }

private:
    void place(const WrittenNote &note);
    bool joinChord(const WrittenNote &note);
    VoiceSlot *slotFor(const WrittenNote &note);
    VoiceSlot *ownSlot(StaffSlots &staff, int voice);
    static int preferredSlot(StaffSlots &staff, int voice);
    VoiceSlot *freeSlot(StaffSlots &staff, int voice);
    VoiceSlot *roomySlot(StaffSlots &staff, const WrittenNote &note);
    void append(VoiceSlot &slot, const WrittenNote &note);
    bool endsEarly(const VoiceSlot &slot, std::size_t staff) const;
    void appendMeasureRest(VoiceSlot &slot, const WrittenNote &note, std::shared_ptr<Beat> rest);
    void squeezeIn(const WrittenNote &note);
    static void setMarks(const WrittenNote &note, Beat &beat);
    void noteAdded(const WrittenNote &note, const VoiceSlot &slot, const PlacedBeat &placed);
    void findBeamsAcross();
    void finishBeats(const WrittenMeasure &measure);
    PlacedBeat *beatNear(StaffSlots &staff, const utils::rational &onset);

    ImportContext &_context;
    NoteMaker &_notes;
    PartSigns &_signs;
    GapFiller _gaps;
    MarkPlacer _marks;
    std::vector<StaffSlots> _staves;
    std::vector<WholeMeasureRest> _rests;
    std::vector<RhythmValue> _restRhythms;
    std::vector<NotePlace> _noteBeats; ///< where the notes of the measure went

    /// The beat that a chord grows on, by staff: a chord may stand on several.
    struct ChordBeat {
        VoiceSlot *slot = nullptr; ///< null for none
        std::size_t index = 0;
        bool isOwn = false; ///< no other voice has it
    };
    std::vector<ChordBeat> _chordBeats;

    const WrittenMeasure *_measure = nullptr;
    std::size_t _nextSign = 0;      ///< of the measure
    bool _hasBeams = false;         ///< the part says what beams join
    std::vector<Beat *> _slashed;   ///< beats with slashes for heads
    std::vector<Beat *> _excluding; ///< beats that marks on them may not stand on together
};

} // namespace zarn::io
