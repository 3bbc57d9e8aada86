// SPDX-License-Identifier: MIT
#include <ZarnCore/io/native/BarFields.h>

#include <ZarnCore/io/native/AttributeFields.h>
#include <ZarnCore/io/native/BeatFields.h>
#include <ZarnCore/io/native/Children.h>
#include <ZarnCore/io/native/MusicCodecs.h>
#include <ZarnCore/io/native/ScoreFields.h>
#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/ZarnBarAttribute.h>
#include <ZarnCore/model/ZarnStaff.h>

namespace zarn::io::native {

namespace {

using Ottavias = EnumCodec<ottaviaToString, ottaviaFromString, 8>;
using Clefs = EnumCodec<clefToString, clefFromString, 8>;
using SimileMarks = EnumCodec<simileMarkToString, simileMarkFromString, 34>;

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

constexpr std::array ownBarFields = {
    field<Bar, &Bar::clef, &Bar::setClef, Clefs>("clef"),
    field<Bar, &Bar::clefChanges, &Bar::setClefChanges,
          ArrayOf<ClefChange, Struct<ClefChange, clefChangeFields>>>("clefChanges"),
    field<Bar, &Bar::ottavia, &Bar::setOttavia, Ottavias>("ottava"),
    field<Bar, &Bar::simileMark, &Bar::setSimileMark, SimileMarks>("simile"),
};

constexpr std::array voicesField = {
    Field<Bar>{"voices", writeVoices, readVoices},
};

const std::vector<Field<Bar>> &barFields()
{
    static const auto fields = withAttributes(ownBarFields, voicesField);
    return fields;
}

} // namespace

void writeBars(DocumentWriter &writer, std::string_view key, const Staff &staff)
{
    writeChildren(writer, key, staff.bars(), barFields(), Layout::Lines);
}

void readBars(DocumentReader &reader, const Json &json, Staff &staff)
{
    if (json.isStreamed()) {
        BarBlock &block = reader.barBlocks()[json.streamNumber()];
        reader.meetString(block.highestString);
        staff.insertBars(staff.barCount(), std::move(block.bars));
        return;
    }
    staff.insertBars(staff.barCount(), readChildren<Bar>(reader, json, barFields()));
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
    readObject(_reader, element, *bar, barFields());
    _block.bars.push_back(std::move(bar));
}

std::size_t BarStream::endArray()
{
    _block.highestString = _reader.takeHighestString();
    _reader.barBlocks().push_back(std::move(_block));
    return _reader.barBlocks().size() - 1;
}

} // namespace zarn::io::native
