// SPDX-License-Identifier: MIT
#include "entry/NoteEntry.h"

#include "document/Document.h"
#include "entry/FretDigits.h"

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/ZarnTypedPitch.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>

#include <QCoreApplication>

#include <algorithm>

namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(NoteEntry)
};

/// The beat of the cursor, made when the cursor is where the next one is entered.
bool needBeat(const Document &document, Score &score)
{
    const ScoreModelIndex &place = document.cursor();
    return place.isBeatValid() || score.createBeat(place, document.entry().rhythm);
}

/// Every beat of the range passes a test.
template <class Test>
bool allBeats(const Document &document, Test test)
{
    ScoreModel &model = *document.score().scoreModel();
    const auto spans = beatSpans(model, document.selection().beats(document.score()));
    return !spans.empty() && std::all_of(spans.begin(), spans.end(), [&](const BeatSpan &span) {
        const auto &beats = voiceOf(model, span)->beats();
        return std::all_of(beats.begin() + span.firstBeat, beats.begin() + span.lastBeat + 1,
                           [&](const auto &beat) { return test(*beat); });
    });
}

/// Whether a place is on the beat behind another one, on the same string.
bool isBehind(const ScoreModelIndex &place, const ScoreModelIndex &front)
{
    const auto voice = front.voice();
    if (voice == nullptr || place.trackIndex() != front.trackIndex()
        || place.staffIndex() != front.staffIndex() || place.voiceIndex() != front.voiceIndex()
        || place.noteString() != front.noteString())
        return false;
    const bool isLast = front.beatIndex() + 1 >= static_cast<int>(voice->beatCount());
    return place.barIndex() == front.barIndex()
        ? place.beatIndex() == front.beatIndex() + 1
        : isLast && place.beatIndex() == 0 && place.barIndex() == front.barIndex() + 1;
}

/// Writes a note, to which what waits for it leads.
bool writeFret(Document &document, Score &score, const ScoreModelIndex &place, int fret)
{
    if (!needBeat(document, score)
        || !score.setStringedNote(place, static_cast<int>(place.noteString()), fret))
        return false;
    const auto awaited = document.awaitedLink();
    if (awaited && isBehind(place, awaited->from))
        awaited->link(score);
    else
        document.setAwaitedLink(std::nullopt);
    return true;
}

bool hasBeats(const Document &document)
{
    return allBeats(document, [](const Beat &) { return true; });
}

/// Changes the next rhythm, and by a command the beats that are there.
template <class Change>
void changeRhythm(Document &document, const QString &title, const RhythmValue &next, Change change)
{
    EntryState entry = document.entry();
    entry.rhythm = next;
    if (hasBeats(document))
        document.edit(title, [&](Score &score) {
            return change(score, document.selection().beats(document.score()));
        });
    document.setEntry(entry);
}

} // namespace

void enterFretDigit(Document &document, int digit)
{
    const ScoreModelIndex place = document.cursor();
    const auto staff = place.staff();
    if (staff == nullptr || !staff->isFretted())
        return;
    const auto write = [&](int fret) {
        return document.edit(Text::tr("Fret %1").arg(fret),
                             [&](Score &score) { return writeFret(document, score, place, fret); });
    };
    FretDigits &digits = document.fretDigits();
    const auto both = digits.joined(place, digit, document.stepCount());
    // The digit before was a fret of its own until now.
    if (both && *both <= static_cast<int>(staff->fretCount())) {
        document.undo();
        if (write(*both)) {
            digits.remember(place, *both, document.stepCount());
            return;
        }
        document.redo();
    }
    if (write(digit))
        digits.remember(place, digit, document.stepCount());
    else
        Q_EMIT document.refused(Text::tr("This string has no fret %1.").arg(digit));
}

void enterDeadNote(Document &document)
{
    const ScoreModelIndex place = document.cursor();
    const Staff *const staff = place.findStaff();
    const bool isOnString = staff != nullptr && staff->isFretted()
        && document.entry().staffKind == layout::StaffKind::Tablature;
    const bool isNew = isOnString && document.selection().isEmpty() && place.findNote() == nullptr;
    const Note *const note = place.findNote();
    const bool isDead = note != nullptr && note->isDead();
    const QString title = Text::tr("Dead note");
    if (!document.edit(title, [&](Score &score) {
            return (!isNew || writeFret(document, score, place, 0))
                && score.setStringedNoteDead(document.selection().notes(score), !isDead);
        }))
        Q_EMIT document.refused(Text::tr("A dead note is not possible here."));
}

void enterLetter(Document &document, NoteName letter, Adding adding)
{
    // A note that is added belongs to the one that was typed last.
    ScoreModelIndex place = document.cursor();
    const bool isBehind = adding == Adding::Adds && document.lastTyped().isBeatValid();
    if (isBehind)
        place = document.lastTyped();
    place.invalidateNote();
    const auto pitch = typedPitch(place, letter);
    if (!pitch)
        return;
    int key = pitch->midi;
    const auto present = place.beat();
    if (adding == Adding::Adds && present != nullptr)
        for (const auto &note : present->notes())
            while (key <= note->midi()) // chords are stacked upwards
                key += 12;
    const bool isDone =
        document.edit(Text::tr("Note %1").arg(letter.toString()), [&](Score &score) {
            if (!isBehind && !needBeat(document, score))
                return false;
            const bool isFull = present != nullptr && present->hasNotes();
            if (adding == Adding::Replaces && isFull && !score.setNoteRest(ScoreModelRange(place)))
                return false;
            return score.setMIDINote(place, key, pitch->spelling);
        });
    if (!isDone) {
        Q_EMIT document.refused(Text::tr("This note cannot be written here."));
        return;
    }
    ScoreModelIndex typed = place;
    typed.setNoteMidi(static_cast<std::uint32_t>(key));
    if (!isBehind)
        goOn(document);
    document.setLastTyped(typed);
}

ScoreModelRange notesToMove(const Document &document)
{
    const ScoreModelIndex &typed = document.lastTyped();
    if (!document.selection().isEmpty() || document.cursor().isNoteValid() || !typed.isBeatValid())
        return document.selection().notes(document.score());
    ScoreModelIndex beat = typed;
    beat.invalidateNote();
    return {beat, beat, SelectionMode::MultiSelection};
}

void enterRest(Document &document)
{
    const bool isNew = !hasBeats(document);
    document.edit(Text::tr("Rest"), [&](Score &score) {
        if (isNew)
            return score.createBeat(document.cursor(), document.entry().rhythm);
        return score.setNoteRest(document.selection().beats(score));
    });
}

void enterNoteValue(Document &document, RhythmValue::NoteValue value)
{
    RhythmValue next = document.entry().rhythm;
    next.setNoteValue(value);
    next.setAugmentationDot(0); // who asks for a half means a half
    const bool hasDots = !allBeats(
        document, [](const Beat &beat) { return beat.rhythmValue().getAugmentationDot() == 0; });
    changeRhythm(document, Text::tr("Note value"), next,
                 [value, hasDots](Score &score, const ScoreModelRange &range) {
                     return score.setNoteDuration(range, value)
                         && (!hasDots || score.setNoteAugmentationDot(range, 0));
                 });
}

void enterDots(Document &document, unsigned dots)
{
    const auto has = [dots](const Beat &beat) {
        return beat.rhythmValue().getAugmentationDot() == dots;
    };
    const bool isOff = hasBeats(document) ? allBeats(document, has)
                                          : document.entry().rhythm.getAugmentationDot() == dots;
    const unsigned wanted = isOff ? 0 : dots;
    RhythmValue next = document.entry().rhythm;
    next.setAugmentationDot(wanted);
    changeRhythm(document, Text::tr("Dots"), next,
                 [wanted](Score &score, const ScoreModelRange &range) {
                     return score.setNoteAugmentationDot(range, wanted);
                 });
}

void enterTuplet(Document &document, RhythmValue::TupletRatio ratio)
{
    const auto has = [ratio](const Beat &beat) {
        return beat.rhythmValue().getPrimaryTupletRatio() == ratio;
    };
    const bool isOff = hasBeats(document)
        ? allBeats(document, has)
        : document.entry().rhythm.getPrimaryTupletRatio() == ratio;
    const RhythmValue::TupletRatio wanted = isOff ? RhythmValue::TupletRatio{0, 0} : ratio;
    RhythmValue next = document.entry().rhythm;
    next.setPrimaryTupletRatio(wanted);
    changeRhythm(document, Text::tr("Tuplet"), next,
                 [wanted](Score &score, const ScoreModelRange &range) {
                     return score.setBeatTuplet(range, wanted);
                 });
}

void enterLonger(Document &document, int steps)
{
    const int value = static_cast<int>(document.entry().rhythm.getNoteValue()) - steps;
    constexpr int shortest = static_cast<int>(RhythmValue::NoteValue::TwoHundredFiftySixth);
    RhythmValue next = document.entry().rhythm;
    next.setNoteValue(static_cast<RhythmValue::NoteValue>(std::clamp(value, 0, shortest)));
    changeRhythm(document, steps > 0 ? Text::tr("Longer") : Text::tr("Shorter"), next,
                 [steps](Score &score, const ScoreModelRange &range) {
                     return score.incrementBeatDuration(range, steps);
                 });
}

void enterTie(Document &document)
{
    const bool isTied = allBeats(document, [](const Beat &beat) {
        return beat.hasNotes()
            && std::all_of(beat.notes().begin(), beat.notes().end(),
                           [](const auto &note) { return note->isTied(); });
    });
    if (!document.edit(Text::tr("Tie"), [&](Score &score) {
            return needBeat(document, score)
                && score.setBeatTied(document.selection().beats(score), !isTied);
        }))
        Q_EMIT document.refused(Text::tr("There is nothing in front that it could be tied to."));
}

void removeNotes(Document &document)
{
    document.edit(Text::tr("Delete"), [&](Score &score) {
        const ScoreModelIndex &place = document.cursor();
        const auto beat = place.beat();
        // Of a chord the note of the cursor alone; a tablature may be on a string without any.
        if (document.selection().isEmpty() && beat != nullptr && beat->noteCount() > 1)
            return score.removeNote(place);
        return score.setNoteRest(document.selection().beats(score));
    });
}

void removeBeats(Document &document)
{
    document.edit(Text::tr("Remove beats"), [&](Score &score) {
        return score.removeBeats(document.selection().beats(score));
    });
}

void insertBeat(Document &document)
{
    document.edit(Text::tr("Insert beat"), [&](Score &score) {
        return score.createBeat(document.cursor(), document.entry().rhythm);
    });
}

void goOn(Document &document)
{
    const auto next = [](ScoreCursor &cursor) { return cursor.next(CursorStep::Beat); };
    if (document.moveCursor(next))
        return;
    const auto bar = document.cursor().bar();
    if (bar == nullptr || !bar->hasBeats())
        return;
    const unsigned end = document.model().masterTrack()->masterBarCount();
    if (document.edit(Text::tr("Add bar"), [end](Score &score) { return score.createBar(end); }))
        document.moveCursor(next);
}

} // namespace zarn::editor
