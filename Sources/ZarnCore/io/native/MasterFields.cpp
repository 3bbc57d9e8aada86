// SPDX-License-Identifier: MIT
#include <ZarnCore/io/native/MasterFields.h>

#include <ZarnCore/io/native/AttributeFields.h>
#include <ZarnCore/io/native/Children.h>
#include <ZarnCore/io/native/MusicCodecs.h>
#include <ZarnCore/io/native/Slots.h>
#include <ZarnCore/io/native/SoundFields.h>
#include <ZarnCore/model/ZarnMasterBarAttribute.h>
#include <ZarnCore/model/ZarnMasterTrack.h>

namespace zarn::io::native {

namespace {

std::string feelText(TripletFeel feel)
{
    return tripletFeelToQString(feel).toStdString();
}

TripletFeel feelFromText(const std::string &text)
{
    return tripletFeelFromQString(QString::fromStdString(text));
}

using TripletFeels = EnumCodec<feelText, feelFromText, 6>;

/// Passes as a list of their numbers from 1, instead of one bit for each.
struct Passes {
    static void write(DocumentWriter &writer, std::uint32_t passes)
    {
        writer.StartArray();
        for (unsigned pass = 0; pass < MasterBar::MaxEndings; ++pass)
            if ((passes >> pass & 1) != 0)
                writer.Uint64(pass + 1);
        writer.EndArray();
    }

    static std::uint32_t read(DocumentReader &reader, const Json &json)
    {
        using Pass = Within<unsigned, 1, MasterBar::MaxEndings>;
        std::uint32_t passes = 0;
        for (const unsigned pass : ArrayOf<unsigned, Pass>::read(reader, json))
            passes |= std::uint32_t(1) << (pass - 1);
        return passes;
    }
};

int accidentalsOf(const KeySignature &key)
{
    return key.accidentalCount();
}
bool isMinor(const KeySignature &key)
{
    return !key.isMajor();
}
bool transposesAsFlats(const KeySignature &key)
{
    return !key.transposeAsSharps();
}
void setAccidentals(KeySignature &key, int count)
{
    key = KeySignature(count, key.isMajor(), key.transposeAsSharps());
}
void setMinor(KeySignature &key, bool minor)
{
    key = KeySignature(key.accidentalCount(), !minor, key.transposeAsSharps());
}
void setTransposeAsFlats(KeySignature &key, bool asFlats)
{
    key = KeySignature(key.accidentalCount(), key.isMajor(), !asFlats);
}

constexpr std::array keyFields = {
    field<KeySignature, accidentalsOf, setAccidentals, Within<int, -7, 7>>("accidentals"),
    field<KeySignature, isMinor, setMinor>("minor"),
    field<KeySignature, transposesAsFlats, setTransposeAsFlats>("transposeAsFlats"),
};

using Keys = Struct<KeySignature, keyFields>;

const std::string &letterOf(const MasterBar &bar)
{
    return bar.section().letter;
}
const std::string &sectionTextOf(const MasterBar &bar)
{
    return bar.section().text;
}
void setLetter(MasterBar &bar, const std::string &letter)
{
    bar.setSection({letter, bar.section().text, bar.section().isCircled});
}
bool isLetterCircled(const MasterBar &bar)
{
    return bar.section().isCircled;
}
void setLetterCircled(MasterBar &bar, bool isCircled)
{
    bar.setSection({bar.section().letter, bar.section().text, isCircled});
}
void setSectionText(MasterBar &bar, const std::string &text)
{
    bar.setSection({bar.section().letter, text, bar.section().isCircled});
}

using RepeatCounts = Within<unsigned, 0, 255>;

constexpr std::array ownMasterBarFields = {
    field<MasterBar, &MasterBar::timeSignature, &MasterBar::setTimeSignature>("time"),
    field<MasterBar, &MasterBar::concertKeySignature, &MasterBar::setConcertKeySignature, Keys>(
        "key"),
    field<MasterBar, &MasterBar::ownLength, &MasterBar::setOwnLength>("length"),
    field<MasterBar, &MasterBar::tripletFeel, &MasterBar::setTripletFeel, TripletFeels>(
        "tripletFeel"),
    field<MasterBar, &MasterBar::isFreeTime, &MasterBar::setFreeTime>("freeTime"),
    field<MasterBar, &MasterBar::hasDoubleBar, &MasterBar::setDoubleBar>("doubleBar"),
    field<MasterBar, &MasterBar::isRepeatStart, &MasterBar::setRepeatStart>("repeatStart"),
    field<MasterBar, &MasterBar::repeatCount, &MasterBar::setRepeatCount, RepeatCounts>(
        "repeatCount"),
    field<MasterBar, &MasterBar::alternateEndings, &MasterBar::setAlternateEndings, Passes>(
        "endings"),
    field<MasterBar, letterOf, setLetter>("sectionLetter"),
    field<MasterBar, isLetterCircled, setLetterCircled>("sectionCircled"),
    field<MasterBar, sectionTextOf, setSectionText>("section"),
    field<MasterBar, &MasterBar::isMovementStart, &MasterBar::setMovementStart>("movementStart"),
};

const std::vector<Field<MasterBar>> &masterBarFields()
{
    static const auto fields =
        withAttributes(ownMasterBarFields, std::array<Field<MasterBar>, 0>());
    return fields;
}

void writeMasterBars(DocumentWriter &writer, std::string_view key, const MasterTrack &track)
{
    writeChildren(writer, key, track.masterBars(), masterBarFields(), Layout::Lines);
}

void readMasterBars(DocumentReader &reader, const Json &json, MasterTrack &track)
{
    track.insertMasterBarBlock(track.masterBarCount(),
                               readChildren<MasterBar>(reader, json, masterBarFields()));
}

struct Directions {
    using Node = MasterTrack;
    using Value = int;
    using As = Within<int, -1, MasterTrack::MaxBars - 1>;
    static constexpr unsigned count = DirectionMarkCount;
    static std::string name(unsigned place)
    {
        return directionMarkToQString(static_cast<DirectionMark>(place)).toStdString();
    }
    static int get(const MasterTrack &track, unsigned place)
    {
        return track.directionIndex(static_cast<DirectionMark>(place));
    }
    static void set(MasterTrack &track, unsigned place, int bar)
    {
        track.setDirection(static_cast<int>(place), bar);
    }
};

// The master track is the container of its automations.
void writeOwnAutomations(DocumentWriter &writer, std::string_view key, const MasterTrack &track)
{
    writeAutomations(writer, key, track);
}
void readOwnAutomations(DocumentReader &reader, const Json &json, MasterTrack &track)
{
    readAutomations(reader, json, track);
}
void writeOwnBypassed(DocumentWriter &writer, std::string_view key, const MasterTrack &track)
{
    writeBypassed(writer, key, track);
}
void readOwnBypassed(DocumentReader &reader, const Json &json, MasterTrack &track)
{
    readBypassed(reader, json, track);
}

using TempoUnits = EnumCodec<tempoUnitToString, tempoUnitFromString, 5>;

/// Beats per minute.
struct Tempos {
    static constexpr double lowest = 0;
    static constexpr double highest = 1e6;
};

constexpr std::array masterTrackFields = {
    field<MasterTrack, &MasterTrack::tempoValue, &MasterTrack::setTempoValue,
          Between<double, Tempos>>("tempo"),
    field<MasterTrack, &MasterTrack::tempoUnit, &MasterTrack::setTempoUnit, TempoUnits>(
        "tempoUnit"),
    field<MasterTrack, &MasterTrack::tempoLabel, &MasterTrack::setTempoLabel>("tempoLabel"),
    field<MasterTrack, &MasterTrack::tempoVisible, &MasterTrack::setTempoVisible>("tempoVisible"),
    field<MasterTrack, &MasterTrack::hasAnacrusis, &MasterTrack::setAnacrusis>("anacrusis"),
    field<MasterTrack, &MasterTrack::mastering, &MasterTrack::setMastering>("mastering"),
    Field<MasterTrack>{"automations", writeOwnAutomations, readOwnAutomations},
    Field<MasterTrack>{"bypassed", writeOwnBypassed, readOwnBypassed},
    Field<MasterTrack>{"directions", Slots<Directions>::write, Slots<Directions>::read},
    Field<MasterTrack>{"bars", writeMasterBars, readMasterBars},
};

} // namespace

void writeMasterTrack(DocumentWriter &writer, const MasterTrack &track)
{
    writeObject(writer, track, masterTrackFields);
}

void readMasterTrack(DocumentReader &reader, const Json &json, MasterTrack &track)
{
    readObject(reader, json, track, masterTrackFields);
}

} // namespace zarn::io::native
