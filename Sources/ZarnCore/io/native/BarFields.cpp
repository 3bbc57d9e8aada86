// SPDX-License-Identifier: MIT
#include <ZarnCore/io/native/BarFields.h>

#include <ZarnCore/io/native/Children.h>
#include <ZarnCore/io/native/MusicCodecs.h>
#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/ZarnStaff.h>

namespace zarn::io::native {

namespace {

using NoteHeads = EnumCodec<noteHeadToString, noteHeadFromString, 21, NoteHead::Do, NoteHead::Re,
                            NoteHead::Mi, NoteHead::Fa, NoteHead::So, NoteHead::La, NoteHead::Ti>;
using GraceTypes = EnumCodec<graceTypeToString, graceTypeFromString, 8>;
using Ottavias = EnumCodec<ottaviaToString, ottaviaFromString, 8>;
using Clefs = EnumCodec<clefToString, clefFromString, 8>;
using SimileMarks = EnumCodec<simileMarkToString, simileMarkFromString, 34>;

/// MIDI keys, strings and frets; -1 is unset.
using Key = Within<int, -1, 127>;

constexpr std::array noteFields = {
    field<Note, &Note::midi, &Note::setMidi, Key>("midi"),
    field<Note, &Note::spelling, &Note::setSpelling>("spelling"),
    field<Note, &Note::string, &Note::setString, Key>("string"),
    field<Note, &Note::fret, &Note::setFret, Key>("fret"),
    field<Note, &Note::percussionArticulation, &Note::setPercussionArticulation,
          Within<int, -1, 2047>>("articulation"),
    field<Note, &Note::staffLine, &Note::setStaffLine, Within<int, -128, 127>>("staffLine"),
    field<Note, &Note::isTied, &Note::setTied>("tied"),
    field<Note, &Note::isTieOrigin, &Note::setTieOrigin>("tieOrigin"),
    field<Note, &Note::isGhost, &Note::setGhost>("ghost"),
    field<Note, &Note::isDead, &Note::setDead>("dead"),
    field<Note, &Note::noteHead, &Note::setNoteHead, NoteHeads>("head"),
};

void writeNotes(DocumentWriter &writer, std::string_view key, const Beat &beat)
{
    writeChildren(writer, key, beat.notes(), noteFields);
}

void readNotes(DocumentReader &reader, const rapidjson::Value &json, Beat &beat)
{
    // Most beats have one note: no list in between.
    readEach<Note>(reader, json, noteFields,
                   [&beat](const std::shared_ptr<Note> &note) { beat.addNote(note); });
}

constexpr std::array beatFields = {
    field<Beat, &Beat::rhythmValue, &Beat::setRhythmValue>("rhythm"),
    field<Beat, &Beat::graceType, &Beat::setGraceType, GraceTypes>("grace"),
    field<Beat, &Beat::isSlashedGrace, &Beat::setSlashedGrace>("slashed"),
    field<Beat, &Beat::isPlaceHolder, &Beat::setPlaceHolder>("placeHolder"),
    field<Beat, &Beat::isWholeBarRest, &Beat::setWholeBarRest>("wholeBar"),
    field<Beat, &Beat::dynamic, &Beat::setDynamic>("dynamic"),
    field<Beat, &Beat::ottavia, &Beat::setOttavia, Ottavias>("ottava"),
    field<Beat, &Beat::text, &Beat::setText>("text"),
    field<Beat, &Beat::chordSymbol, &Beat::setChordSymbol>("chord"),
    Field<Beat>{"notes", writeNotes, readNotes},
};

void writeBeats(DocumentWriter &writer, std::string_view key, const Voice &voice)
{
    writeChildren(writer, key, voice.beats(), beatFields);
}

void readBeats(DocumentReader &reader, const rapidjson::Value &json, Voice &voice)
{
    voice.insertBeats(voice.beatCount(), readChildren<Beat>(reader, json, beatFields));
}

constexpr std::array voiceFields = {
    Field<Voice>{"beats", writeBeats, readBeats},
};

/// An empty slot and a voice without beats are the same music and read the same.
void writeVoices(DocumentWriter &writer, std::string_view key, const Bar &bar)
{
    const auto isFilled = [](const auto &voice) { return voice && !voice->isEmpty(); };
    const auto &slots = bar.voices();
    const auto end = std::find_if(slots.rbegin(), slots.rend(), isFilled).base();
    if (end == slots.begin())
        return;
    writer.key(key);
    writer.StartArray();
    for (auto slot = slots.begin(); slot != end; ++slot) {
        writer.StartObject();
        if (isFilled(*slot))
            writeFields(writer, **slot, voiceFields);
        writer.EndObject();
    }
    writer.EndArray();
}

void readVoices(DocumentReader &reader, const rapidjson::Value &json, Bar &bar)
{
    reader.expectArray(json);
    if (json.Size() > Bar::MaxVoices)
        reader.refuse("a bar has at most four voices");
    for (std::uint32_t i = 0; i < json.Size(); ++i) {
        const DocumentReader::Step step(reader, i);
        const auto voice = std::make_shared<Voice>();
        readObject(reader, json[i], *voice, voiceFields);
        if (!voice->isEmpty())
            bar.setVoice(i, voice);
    }
}

constexpr std::array clefChangeFields = {
    member<ClefChange, &ClefChange::position>("position"),
    member<ClefChange, &ClefChange::clef, Clefs>("clef"),
};

constexpr std::array barFields = {
    field<Bar, &Bar::clef, &Bar::setClef, Clefs>("clef"),
    field<Bar, &Bar::clefChanges, &Bar::setClefChanges,
          ArrayOf<ClefChange, Struct<ClefChange, clefChangeFields>>>("clefChanges"),
    field<Bar, &Bar::ottavia, &Bar::setOttavia, Ottavias>("ottava"),
    field<Bar, &Bar::simileMark, &Bar::setSimileMark, SimileMarks>("simile"),
    Field<Bar>{"voices", writeVoices, readVoices},
};

} // namespace

void writeBars(DocumentWriter &writer, std::string_view key, const Staff &staff)
{
    writeChildren(writer, key, staff.bars(), barFields, Layout::Lines);
}

void readBars(DocumentReader &reader, const rapidjson::Value &json, Staff &staff)
{
    staff.insertBars(staff.barCount(), readChildren<Bar>(reader, json, barFields));
}

} // namespace zarn::io::native
