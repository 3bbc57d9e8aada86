// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/StaffSlots.h>
#include <ZarnCore/io/musicxml/WrittenMusic.h>
#include <ZarnCore/io/musicxml/signs/NotePlace.h>

#include <optional>
#include <vector>

namespace zarn::io {

class GapFiller;
class ImportContext;

/// Places what stands over the beats of a bar: dynamics, texts, chord symbols, ottavas.
class MarkPlacer {
public:
    MarkPlacer(ImportContext &context, GapFiller &gaps) : _context(context), _gaps(gaps) { }

    void startPart() { _ottavias.clear(); }

    /// Places the marks of a measure at the beats in the slots of its staves, of which there is at
    /// least one. `notes` are the places of its notes.
    void place(const WrittenMeasure &measure, const std::vector<NotePlace> &notes,
               std::vector<StaffSlots> &staves);

private:
    struct OttaviaChange {
        utils::rational position;
        Ottavia ottavia;
        std::size_t note; ///< index of the note in the measure that follows it in the document
        std::optional<VoiceJoint> joint;
    };

    void attach(const WrittenMark &mark, Beat &beat);
    void placeOttavas(const WrittenMeasure &measure, const std::vector<NotePlace> &notes,
                      std::vector<StaffSlots> &staves);
    Beat *beatFor(const WrittenMark &mark, const utils::rational &length,
                  std::vector<StaffSlots> &staves);

    ImportContext &_context;
    GapFiller &_gaps;

    /// What is open at the start of the bar, by staff.
    std::vector<Ottavia> _ottavias;
    std::vector<OttaviaChange> _changes; ///< of a staff
};

} // namespace zarn::io
