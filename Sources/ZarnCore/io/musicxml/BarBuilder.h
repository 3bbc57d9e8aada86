// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/PartFacts.h>
#include <ZarnCore/io/musicxml/WrittenMusic.h>
#include <ZarnCore/model/ZarnBar.h>

#include <array>
#include <memory>
#include <utility>
#include <vector>

namespace zarn::io {

class ImportContext;
class NoteMaker;

/// A rest that filled its measure; whether it fills the bar is known when all parts are read.
struct WholeMeasureRest {
    unsigned bar;
    utils::rational length;
    std::shared_ptr<Beat> beat;
};

/// Sorts the notes of a measure into the voice slots of its staves and makes the bars.
///
/// A voice keeps its slot through the part. Gaps become place holders, so that what is no written
/// rest is none in the tree. No note is lost: what fits in no slot joins a beat that is there, and
/// the report says so.
class BarBuilder {
public:
    BarBuilder(ImportContext &context, NoteMaker &notes);

    void startPart();

    /// Makes a bar for each of `staffCount` staves, each in its own list.
    void build(const WrittenMeasure &measure,
               std::vector<std::vector<std::shared_ptr<Bar>>> &staves);

    const std::vector<WholeMeasureRest> &wholeMeasureRests() const noexcept { return _rests; }

private:
    static constexpr int Nobody = -1;

    struct PlacedBeat {
        utils::rational onset;
        std::shared_ptr<Beat> beat;
    };

    struct Slot {
        int voice = Nobody;
        utils::rational end;
        std::vector<PlacedBeat> beats;
    };

    struct StaffSlots {
        std::array<Slot, Bar::MaxVoices> voiceSlots;
        std::vector<int> preferred; ///< slot of each voice of the part; `Nobody` for none yet
        std::array<bool, Bar::MaxVoices> claimed = {};
        Ottavia ottavia = Ottavia::None; ///< that is open at the start of the bar
    };

    void place(const WrittenNote &note);
    bool joinChord(const WrittenNote &note);
    Slot *slotFor(const WrittenNote &note);
    Slot *ownSlot(StaffSlots &staff, int voice);
    Slot *freeSlot(StaffSlots &staff, int voice);
    Slot *roomySlot(StaffSlots &staff, const WrittenNote &note);
    void append(Slot &slot, const WrittenNote &note);
    void fill(Slot &slot, const utils::rational &end, pugi::xml_node node);
    void squeezeIn(const WrittenNote &note);
    PlacedBeat *beatNear(StaffSlots &staff, const utils::rational &onset);
    void attachMarks(const WrittenMeasure &measure);
    void attach(const WrittenMark &mark, Beat &beat);
    void attachOttavas(const WrittenMeasure &measure);
    Beat *beatForMark(const WrittenMark &mark, const utils::rational &length);

    ImportContext &_context;
    NoteMaker &_notes;
    std::vector<StaffSlots> _staves;
    std::vector<WholeMeasureRest> _rests;
    std::vector<RhythmValue> _fillers;
    std::vector<std::pair<utils::rational, Ottavia>> _ottavas;

    /// The beat that a chord grows on, by staff: a chord may stand on several.
    std::vector<Beat *> _chordBeats;
};

} // namespace zarn::io
