// SPDX-License-Identifier: MIT
#include <ZarnCore/io/native/BeatFields.h>

#include <ZarnCore/io/native/AttributeFields.h>
#include <ZarnCore/io/native/DiagramFields.h>
#include <ZarnCore/io/native/MusicCodecs.h>
#include <ZarnCore/model/ZarnBeatAttribute.h>
#include <ZarnCore/model/ZarnVoice.h>

namespace zarn::io::native {

namespace {

using NoteHeads = EnumCodec<noteHeadToString, noteHeadFromString, 21, NoteHead::Do, NoteHead::Re,
                            NoteHead::Mi, NoteHead::Fa, NoteHead::So, NoteHead::La, NoteHead::Ti>;
using GraceTypes = EnumCodec<graceTypeToString, graceTypeFromString, 8>;
using Ottavias = EnumCodec<ottaviaToString, ottaviaFromString, 8>;
using AntiAccents = EnumCodec<antiAccentToString, antiAccentFromString, 3>;
using SlurLines = EnumCodec<slurLineToString, slurLineFromString, 2>;
using SlurSides = EnumCodec<markSideToString, markSideFromString, 2>;
using Syllabics = EnumCodec<syllabicToString, syllabicFromString, 3>;

/// MIDI keys, strings and frets; -1 is unset.
using Key = Within<int, -1, 127>;

/// A ghost note of the usual strength is nothing but that; readers that know of no others see one
/// in all of them.
void setGhost(Note &note, bool isGhost)
{
    if (isGhost && !note.isGhost())
        note.setGhost(true);
}

AntiAccent unusualGhost(const Note &note)
{
    return note.antiAccent() == AntiAccent::Normal ? AntiAccent::None : note.antiAccent();
}
void setAntiAccent(Note &note, AntiAccent accent)
{
    note.setAntiAccent(accent);
}

constexpr std::array commonNoteFields = {
    field<Note, &Note::midi, &Note::setMidi, Key>("midi"),
    field<Note, &Note::spelling, &Note::setSpelling>("spelling"),
    field<Note, &Note::string, &Note::setString, Key>("string"),
    field<Note, &Note::fret, &Note::setFret, Key>("fret"),
    field<Note, &Note::percussionArticulation, &Note::setPercussionArticulation,
          Within<int, -1, 2047>>("articulation"),
    field<Note, &Note::staffLine, &Note::setStaffLine, Within<int, -128, 127>>("staffLine"),
    field<Note, &Note::isTied, &Note::setTied>("tied"),
    field<Note, &Note::isTieOrigin, &Note::setTieOrigin>("tieOrigin"),
    field<Note, &Note::isGhost, setGhost>("ghost"),
    field<Note, &Note::isDead, &Note::setDead>("dead"),
    field<Note, &Note::noteHead, &Note::setNoteHead, NoteHeads>("head"),
    field<Note, unusualGhost, setAntiAccent, AntiAccents>("antiAccent"),
};

const std::vector<Field<Note>> &noteFields()
{
    static const auto fields = withAttributes(commonNoteFields, std::array<Field<Note>, 0>());
    return fields;
}

} // namespace

template <>
struct FieldsToWrite<Note> {
    static std::size_t count(const Note &note, std::size_t all)
    {
        return note.isCommon() ? commonNoteFields.size() : all;
    }
};

namespace {

void writeNotes(DocumentWriter &writer, std::string_view key, const Beat &beat)
{
    writeChildren(writer, key, beat.notes(), noteFields());
}

void readNotes(DocumentReader &reader, const Json &json, Beat &beat)
{
    auto notes = readChildren<Note>(reader, json, noteFields());
    for (const auto &note : notes)
        reader.meetString(note->string());
    beat.insertNotes(beat.noteCount(), std::move(notes));
}

constexpr std::array commonBeatFields = {
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

void writeDiagram(DocumentWriter &writer, std::string_view key, const Beat &beat)
{
    if (!beat.chord().diagram)
        return;
    writer.key(key);
    DiagramCodec::write(writer, *beat.chord().diagram);
}

void readDiagram(DocumentReader &reader, const Json &json, Beat &beat)
{
    auto diagram = std::make_shared<const ChordDiagram>(DiagramCodec::read(reader, json));
    beat.setChord({beat.chordSymbol(), std::move(diagram)});
}

constexpr std::array syllableFields = {
    member<Syllable, &Syllable::line, Within<std::uint8_t, 0, Syllable::LineCount - 1>>("line"),
    member<Syllable, &Syllable::text>("text"),
    member<Syllable, &Syllable::syllabic, Syllabics>("syllabic"),
    member<Syllable, &Syllable::hasMelisma>("melisma"),
};

bool isSlurEnd(const SlurEnd &end)
{
    return !end.isBegin;
}
void setSlurEnd(SlurEnd &end, bool isEnd)
{
    end.isBegin = !isEnd;
}

constexpr std::array slurEndFields = {
    member<SlurEnd, &SlurEnd::number, Within<std::uint8_t, 1, SlurEnd::HighestNumber>>("number"),
    field<SlurEnd, isSlurEnd, setSlurEnd>("end"),
    member<SlurEnd, &SlurEnd::line, SlurLines>("line"),
    member<SlurEnd, &SlurEnd::side, SlurSides>("side"),
};

constexpr std::array rareBeatFields = {
    Field<Beat>{"diagram", writeDiagram, readDiagram},
    field<Beat, &Beat::lyrics, &Beat::setLyrics,
          ArrayOf<Syllable, Struct<Syllable, syllableFields>>>("lyrics"),
    field<Beat, &Beat::slurEnds, &Beat::setSlurEnds,
          ArrayOf<SlurEnd, Struct<SlurEnd, slurEndFields>>>("slurs"),
};

const std::vector<Field<Beat>> &beatFields()
{
    static const auto fields = withAttributes(commonBeatFields, rareBeatFields);
    return fields;
}

} // namespace

template <>
struct FieldsToWrite<Beat> {
    static std::size_t count(const Beat &beat, std::size_t all)
    {
        return beat.isCommon() ? commonBeatFields.size() : all;
    }
};

namespace {

/// Documents that others made may have marks on one beat that exclude each other.
void mendMarks(DocumentReader &reader, const std::vector<std::shared_ptr<Beat>> &beats)
{
    const auto isPlain = [](const Beat &beat) {
        return beat.isCommon()
            && std::all_of(beat.notes().begin(), beat.notes().end(),
                           [](const auto &note) { return note->isCommon(); });
    };
    for (std::size_t i = 0; i < beats.size(); ++i) {
        if (isPlain(*beats[i]))
            continue;
        const DocumentReader::Step step(reader, static_cast<std::uint32_t>(i));
        for (const std::string_view name : mendExclusions(*beats[i]))
            reader.reportOddity(std::string(name)
                                + " cannot stand beside another mark there, and was left out");
    }
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

} // namespace

void writeBeats(DocumentWriter &writer, std::string_view key, const Voice &voice)
{
    writeChildren(writer, key, voice.beats(), beatFields());
}

void readBeats(DocumentReader &reader, const Json &json, Voice &voice)
{
    auto beats = readChildren<Beat>(reader, json, beatFields());
    checkLengths(reader, beats);
    mendMarks(reader, beats);
    voice.insertBeats(voice.beatCount(), std::move(beats));
}

} // namespace zarn::io::native
