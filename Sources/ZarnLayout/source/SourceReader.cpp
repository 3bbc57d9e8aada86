// SPDX-License-Identifier: MIT
#include <ZarnLayout/source/SourceReader.h>

#include <ZarnLayout/source/AccidentalMemory.h>
#include <ZarnLayout/source/Beaming.h>

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/form/ZarnFormWords.h>
#include <ZarnCore/model/notes/ZarnWrittenPitch.h>
#include <ZarnCore/music/ZarnMusic.h>

#include <algorithm>
#include <map>

namespace zarn::engraving {

using utils::rational;

namespace {

/// Copies beats and notes of one bar.
class BarReader {
public:
    BarReader(const Track &track, const Bar &bar, const rational &length, BarSource &source)
        : _bar(bar), _length(length), _source(source),
          _set(InstrumentSet::isUnpitched(track.type()) ? track.instrumentSet() : nullptr),
          _isUnpitched(InstrumentSet::isUnpitched(track.type()))
    {
    }

    void readVoice(const Voice &voice)
    {
        VoiceSource copy;
        copy.number = voice.index();
        copy.beats.reserve(voice.beatCount());
        rational onset;
        for (const auto &beat : voice.beats()) {
            copy.beats.push_back(readBeat(*beat, onset));
            copy.beats.back().index = static_cast<std::uint16_t>(copy.beats.size() - 1);
            onset += copy.beats.back().length;
        }
        unsigned rank = 0;
        for (auto beat = copy.beats.rbegin(); beat != copy.beats.rend(); ++beat) {
            rank = beat->marks.isGrace() ? rank + 1 : 0;
            beat->graceRank = static_cast<std::uint16_t>(rank);
        }
        // A written rest that fills its bar looks like one that was meant to.
        if (copy.beats.size() == 1 && fillsBar(copy.beats.front()))
            copy.beats.front().isWholeBarRest = true;
        _source.voices.push_back(std::move(copy));
    }

private:
    /// A whole rest with no sign of its own, as long as the bar.
    bool fillsBar(const BeatSource &beat) const
    {
        BeatMarks unmarked;
        unmarked.setWholeBarRest(beat.isWholeBarRest);
        return beat.isRest && !beat.isPlaceHolder && !beat.details && beat.marks == unmarked
            && beat.rhythm.getNoteValue() == RhythmValue::NoteValue::Whole
            && beat.length == _length;
    }

    BeatSource readBeat(const Beat &beat, const rational &onset)
    {
        BeatSource copy;
        copy.onset = onset;
        copy.length = beat.length();
        copy.marks = beat.marks();
        copy.rhythm = beat.rhythmValue();
        copy.isRest = beat.isRest();
        copy.isWholeBarRest = beat.isWholeBarRest();
        const bool isHidden = beat.hasNotes()
            && std::all_of(beat.notes().begin(), beat.notes().end(),
                           [](const auto &note) { return note->isHidden(); });
        copy.isPlaceHolder = beat.isPlaceHolder() || isHidden;
        copy.firstNote = static_cast<std::uint16_t>(_source.notes.size());
        copy.noteCount = static_cast<std::uint16_t>(isHidden ? 0 : beat.noteCount());
        if (beat.hasDetails())
            copy.details = std::make_shared<const BeatDetails>(beat.details());
        const int octaves =
            Music::ottaviaOctaves(_bar.ottavia()) + Music::ottaviaOctaves(copy.marks.ottavia());
        const ClefType clef = _bar.clefChanges().empty() ? _bar.clef() : _bar.clefAt(onset);
        if (isHidden)
            return copy;
        for (const auto &note : beat.notes())
            _source.notes.push_back(readNote(*note, clef, octaves));
        return copy;
    }

    NoteSource readNote(const Note &note, ClefType clef, int octaves) const
    {
        NoteSource copy;
        copy.marks = note.marks();
        copy.midi = static_cast<std::int8_t>(writtenMidi(note));
        copy.string = static_cast<std::int8_t>(note.string());
        copy.fret = static_cast<std::int8_t>(note.fret());
        copy.head = note.noteHead();
        copy.headFill = note.headFill();
        if (note.hasDetails())
            copy.details = std::make_shared<const NoteDetails>(note.details());
        if (_isUnpitched)
            readArticulation(note, copy);
        else if (copy.midi >= 0)
            readPitch(note, clef, octaves, copy);
        if (note.staffLine() != Note::NoStaffLine)
            copy.line = static_cast<std::int8_t>(note.staffLine());
        return copy;
    }

    void readArticulation(const Note &note, NoteSource &copy) const
    {
        if (!_set)
            return;
        // A drum that only has a key is written as what the key enters.
        const bool isByKey =
            note.percussionArticulation() == Note::Unset && note.staffLine() == Note::NoStaffLine;
        const int index = isByKey ? _set->indexOfArticulationWithMidi(note.midi())
                                  : note.percussionArticulation();
        const auto number = static_cast<std::size_t>(index);
        if (index < 0 || number >= _set->articulations().size())
            return;
        const InstrumentArticulation &articulation = _set->articulations()[number];
        copy.line = static_cast<std::int8_t>(std::clamp(articulation.staffLine(), -100, 100));
        for (unsigned i = 0; i < InstrumentArticulation::headCount; ++i)
            copy.setHeads[i] = articulation.notehead(i).codePoint();
        copy.technique = articulation.techniqueSymbol().codePoint();
    }

    void readPitch(const Note &note, ClefType clef, int octaves, NoteSource &copy) const
    {
        const core::Pitch pitch = writtenPitch(note, copy.midi, _source.key);
        const NoteName name = PitchClass::fromPitch(pitch).note();
        copy.step = static_cast<std::int8_t>(name.value());
        copy.alteration = static_cast<std::int8_t>(pitch.alteration());
        copy.octave = static_cast<std::int8_t>(pitch.octave());
        copy.line = static_cast<std::int8_t>(Music::staffLineOfNote(name, clef, pitch.octave())
                                             - 7 * octaves);
    }

    const Bar &_bar;
    const rational _length; ///< of the bar
    BarSource &_source;
    std::shared_ptr<const InstrumentSet> _set;
    bool _isUnpitched;
};

int keyOf(const Track &track, const MasterBar &master)
{
    if (InstrumentSet::isUnpitched(track.type()))
        return 0;
    return Music::transposedKeySignature(master.concertKeySignature(),
                                         -(track.transpositionOffset() % 12))
        .accidentalCount();
}

/// Marks the notes that are tied from a note of the same pitch with another name: F sharp from
/// G flat. They are written as what they are.
std::vector<bool> respelledTies(const BarSource &source, const Staff &staff, unsigned index)
{
    std::vector<bool> respelled(source.notes.size(), false);
    for (const VoiceSource &voice : source.voices) {
        // Steps of the notes before, by what they sound.
        std::map<int, int> before;
        const std::shared_ptr<Voice> last =
            index > 0 ? staff.bars()[index - 1]->voice(voice.number) : nullptr;
        if (last && last->beatCount() > 0)
            for (const auto &note : last->beats().back()->notes())
                if (const int midi = writtenMidi(*note); midi >= 0)
                    before[midi] = static_cast<int>(
                        PitchClass::fromPitch(writtenPitch(*note, midi, source.keyBefore))
                            .note()
                            .value());
        for (const BeatSource &beat : voice.beats) {
            std::map<int, int> here;
            for (unsigned i = beat.firstNote; i < beat.firstNote + beat.noteCount; ++i) {
                const NoteSource &note = source.notes[i];
                const auto origin = before.find(note.midi);
                respelled[i] = note.marks.isTied() && note.step >= 0 && origin != before.end()
                    && origin->second != note.step;
                if (note.step >= 0)
                    here[note.midi] = note.step;
            }
            before = std::move(here);
        }
    }
    return respelled;
}

ClefType clefAtEnd(const Bar &bar)
{
    return bar.clefChanges().empty() ? bar.clef() : bar.clefChanges().back().clef;
}

} // namespace

BarSource readBar(const ScoreModel &model, const Track &track, const Staff &staff, unsigned index)
{
    BarSource source;
    const Bar &bar = *staff.bars()[index];
    const auto &masterBars = model.masterTrack()->masterBars();
    const MasterBar &master = *masterBars[index];
    source.clef = bar.clef();
    source.clefChanges = bar.clefChanges();
    source.ottavia = bar.ottavia();
    source.simile = bar.simileMark();
    source.layoutRatio = bar.layoutRatio();
    source.key = keyOf(track, master);
    source.keyBefore = index > 0 ? keyOf(track, *masterBars[index - 1]) : 0;
    if (index > 0) {
        source.clefBefore = clefAtEnd(*staff.bars()[index - 1]);
        source.ottaviaBefore = staff.bars()[index - 1]->ottavia();
    }
    BarReader reader(track, bar, master.length(), source);
    for (const auto &voice : bar.voices())
        if (voice && !voice->isEmpty())
            reader.readVoice(*voice);
    for (VoiceSource &voice : source.voices)
        setBeams(voice.beats, master.timeSignature(), master.beamGroups());
    setAccidentals(source, respelledTies(source, staff, index));
    return source;
}

std::vector<ColumnSource> readColumns(const ScoreModel &model, unsigned first, unsigned end)
{
    const MasterTrack &master = *model.masterTrack();
    std::vector<ColumnSource> columns(end - first);
    for (unsigned i = first; i < end; ++i) {
        const MasterBar &bar = *master.masterBars()[i];
        const MasterBar *before = i > 0 ? master.masterBars()[i - 1].get() : nullptr;
        ColumnSource &column = columns[i - first];
        column.length = bar.length();
        column.meter = bar.timeSignature();
        column.meterSign = bar.meterSign();
        column.showsMeter = bar.meterSign() != MeterSign::Hidden
            && (!before || before->timeSignature() != bar.timeSignature()
                || before->meterSign() != bar.meterSign());
        column.repeatStart = bar.isRepeatStart();
        column.repeatCount = bar.repeatCount();
        column.doubleBar = bar.hasDoubleBar();
        column.freeTime = bar.isFreeTime();
        column.startsFreeTime = bar.isFreeTime() && !(before && before->isFreeTime());
        column.barLine = bar.barLine();
        if (!bar.isEndingHidden())
            column.endings = bar.alternateEndings();
        if (column.endings != 0)
            column.endingText =
                bar.endingText().empty() ? endingNumbers(column.endings) : bar.endingText();
        column.movementStart = bar.isMovementStart();
        column.section = bar.section();
        column.fermatas = bar.fermatas();
        column.layoutRatio = bar.layoutRatio();
        column.isLast = i + 1 == master.masterBarCount();
        const TripletFeel old = before ? before->tripletFeel() : TripletFeel::NoTripletFeel;
        if (bar.tripletFeel() != old)
            column.newFeel = bar.tripletFeel();
    }
    for (unsigned i = first; i < end; ++i) {
        const auto marks = master.directionsAtBarIndex(static_cast<int>(i));
        ColumnSource &column = columns[i - first];
        for (const DirectionMark mark : marks)
            if (!isAtBarEnd(mark))
                column.directions.push_back(mark);
        for (EndDirection &jump : endDirections(marks, master.masterBars()[i]->jumpText()))
            column.jumps.push_back(std::move(jump.words));
    }
    for (TempoMark &tempo : temposOf(master))
        if (tempo.bar >= first && tempo.bar < end && tempo.isVisible)
            columns[tempo.bar - first].tempos.push_back(std::move(tempo));
    return columns;
}

} // namespace zarn::engraving
