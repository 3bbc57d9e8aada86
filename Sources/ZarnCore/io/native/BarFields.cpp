// SPDX-License-Identifier: MIT
#include <ZarnCore/io/native/BarFields.h>

#include <ZarnCore/io/native/Children.h>
#include <ZarnCore/io/native/MusicCodecs.h>
#include <ZarnCore/io/native/ScoreFields.h>
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

void readNotes(DocumentReader &reader, const Json &json, Beat &beat)
{
    auto notes = readChildren<Note>(reader, json, noteFields);
    for (const auto &note : notes)
        reader.meetString(note->string());
    beat.insertNotes(beat.noteCount(), std::move(notes));
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

/// Refuses the beat whose end no fraction can hold. Plain lengths always add up; unlike tuplets may
/// not.
void checkLengths(DocumentReader &reader, const std::vector<std::shared_ptr<Beat>> &beats)
{
    const auto isInTuplet = [](const auto &beat) { return beat->rhythmValue().hasPrimaryTuplet(); };
    if (std::none_of(beats.begin(), beats.end(), isInTuplet))
        return;
    utils::rational end;
    for (std::size_t i = 0; i < beats.size(); ++i) {
        const DocumentReader::Step step(reader, static_cast<std::uint32_t>(i));
        try {
            end += beats[i]->rhythmValue().getLength();
        } catch (const CoreException &error) {
            reader.refuse("the beats do not add up: " + error.message());
        }
    }
}

void readBeats(DocumentReader &reader, const Json &json, Voice &voice)
{
    auto beats = readChildren<Beat>(reader, json, beatFields);
    checkLengths(reader, beats);
    voice.insertBeats(voice.beatCount(), std::move(beats));
}

constexpr std::array voiceFields = {
    Field<Voice>{"beats", writeBeats, readBeats},
};

/// An empty slot and a voice without beats are the same music and read the same.
void writeVoices(DocumentWriter &writer, std::string_view key, const Bar &bar)
{
    const auto isFilled = [](const auto &voice) { return voice && !voice->isEmpty(); };
    const auto &voices = bar.voices();
    const auto end = std::find_if(voices.rbegin(), voices.rend(), isFilled).base();
    if (end == voices.begin())
        return;
    writer.key(key);
    writer.StartArray();
    for (auto slot = voices.begin(); slot != end; ++slot) {
        writer.StartObject();
        if (isFilled(*slot))
            writeFields(writer, **slot, voiceFields);
        writer.EndObject();
    }
    writer.EndArray();
}

void readVoices(DocumentReader &reader, const Json &json, Bar &bar)
{
    reader.expectArray(json);
    if (json.size() > Bar::MaxVoices)
        reader.refuse("a bar has at most four voices");
    std::uint32_t slot = 0;
    readEach<Voice>(reader, json, voiceFields, [&](const std::shared_ptr<Voice> &voice) {
        if (!voice->isEmpty())
            bar.setVoice(slot, voice);
        ++slot;
    });
}

constexpr std::array clefChangeFields = {
    member<ClefChange, &ClefChange::position, PlaceInBar>("position"),
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

void readBars(DocumentReader &reader, const Json &json, Staff &staff)
{
    if (json.isStreamed()) {
        BarBlock &block = reader.barBlocks()[json.streamNumber()];
        reader.meetString(block.highestString);
        staff.insertBars(staff.barCount(), std::move(block.bars));
        return;
    }
    staff.insertBars(staff.barCount(), readChildren<Bar>(reader, json, barFields));
}

bool BarStream::takesArray(std::string_view key, std::size_t depth, const Pointer &pointer,
                           const Json &root)
{
    constexpr std::size_t barsDepth = 5; // document, tracks, track, staves, staff
    if (depth != barsDepth || key != "bars" || root.firstMember().key != formatKey)
        return false;
    const std::string staff = pointer();
    if (staff.rfind("/tracks/", 0) != 0 || staff.find("/staves/") == std::string::npos)
        return false;
    readVersion(_reader, root.firstMember().value);
    _block = {};
    return true;
}

void BarStream::takeElement(const Json &element, const Pointer &pointer)
{
    const DocumentReader::Base base(_reader, pointer);
    auto bar = std::make_shared<Bar>();
    readObject(_reader, element, *bar, barFields);
    _block.bars.push_back(std::move(bar));
}

std::size_t BarStream::endArray()
{
    _block.highestString = _reader.takeHighestString();
    _reader.barBlocks().push_back(std::move(_block));
    return _reader.barBlocks().size() - 1;
}

} // namespace zarn::io::native
