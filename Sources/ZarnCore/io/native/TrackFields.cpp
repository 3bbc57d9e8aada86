// SPDX-License-Identifier: MIT
#include <ZarnCore/io/native/TrackFields.h>

#include <ZarnCore/io/native/BarFields.h>
#include <ZarnCore/io/native/Children.h>
#include <ZarnCore/io/native/DiagramFields.h>
#include <ZarnCore/io/native/EnumCodec.h>
#include <ZarnCore/io/native/Slots.h>
#include <ZarnCore/io/native/SoundFields.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/ZarnTrack.h>

namespace zarn::io::native {

namespace {

/// Instrument categories by their texts, codes without one by their number.
struct InstrumentTypes {
    using Code = Within<std::uint32_t, 0, std::numeric_limits<std::uint32_t>::max()>;

    static void write(DocumentWriter &writer, InstrumentSet::Type type)
    {
        const std::string text = InstrumentSet::typeToString(type);
        if (InstrumentSet::typeFromString(text) == type)
            writer.text(text);
        else
            Code::write(writer, type);
    }

    static InstrumentSet::Type read(DocumentReader &reader, const Json &json)
    {
        if (json.isText()) {
            const auto type = InstrumentSet::typeFromString(std::string(json.text()));
            if (InstrumentSet::typeToString(type) == json.text())
                return type;
        }
        if (json.isWhole())
            return static_cast<InstrumentSet::Type>(Code::read(reader, json));
        reader.refuseKind("an instrument such as \"steelGuitar\"", json);
    }
};

/// The chosen notations by their names, at least one.
struct Notations {
    static constexpr std::array<std::pair<const char *, bool TrackNotations::*>, 3> names{{
        {"standard", &TrackNotations::standard},
        {"tablature", &TrackNotations::tablature},
        {"slash", &TrackNotations::slash},
    }};

    static void write(DocumentWriter &writer, const std::optional<TrackNotations> &notations)
    {
        writer.StartArray();
        for (const auto &[name, isShown] : names)
            if ((*notations).*isShown)
                writer.text(name);
        writer.EndArray();
    }

    static std::optional<TrackNotations> read(DocumentReader &reader, const Json &json)
    {
        TrackNotations notations{false, false, false};
        for (const auto &text : Codec<std::vector<std::string>>::read(reader, json)) {
            const auto found = std::find_if(names.begin(), names.end(),
                                            [&](const auto &row) { return row.first == text; });
            if (found == names.end())
                reader.refuse("\"" + text
                              + "\" is no notation; there are standard, tablature, slash");
            notations.*(found->second) = true;
        }
        return notations;
    }
};

using Icons = EnumCodec<iconIDToString, iconIDFromString, 26>;
using TuningInstruments =
    EnumCodec<&GuitarTuning::instrumentToString, &GuitarTuning::instrumentFromString, 10>;

std::string roleToText(GuitarTuning::Role role)
{
    switch (role) {
    case GuitarTuning::NoRole:
        return "NoRole";
    case GuitarTuning::CoreRole:
        return "CoreRole";
    case GuitarTuning::UserRole:
        return "UserRole";
    }
    return {};
}

GuitarTuning::Role roleFromText(const std::string &text)
{
    for (const auto role : {GuitarTuning::CoreRole, GuitarTuning::UserRole})
        if (roleToText(role) == text)
            return role;
    return GuitarTuning::NoRole;
}

using TuningRoles = EnumCodec<roleToText, roleFromText, 4>;

using Pitch = Within<int, 0, 127>;
using Semitones = Within<int, -127, 127>;

constexpr std::array tuningFields = {
    field<GuitarTuning, &GuitarTuning::name, &GuitarTuning::setName>("name"),
    field<GuitarTuning, &GuitarTuning::instrument, &GuitarTuning::setInstrument, TuningInstruments>(
        "instrument"),
    field<GuitarTuning, &GuitarTuning::midiNumbers, &GuitarTuning::setMidiNumbers,
          PerString<int, Pitch>>("strings"),
    field<GuitarTuning, &GuitarTuning::hasShortDroneString, &GuitarTuning::setShortDroneString>(
        "shortDrone"),
    field<GuitarTuning, &GuitarTuning::isFlat, &GuitarTuning::setFlat>("flat"),
    field<GuitarTuning, &GuitarTuning::storedMidiOffset, &GuitarTuning::setMidiOffset, Semitones>(
        "offset"),
    field<GuitarTuning, &GuitarTuning::role, &GuitarTuning::setRole, TuningRoles>("role"),
    field<GuitarTuning, &GuitarTuning::label, &GuitarTuning::setLabel>("label"),
    field<GuitarTuning, &GuitarTuning::labelVisible, &GuitarTuning::setLabelVisible>(
        "labelVisible"),
};

using Diagrams = ArrayOf<ChordDiagram, DiagramCodec>;

constexpr std::array staffFields = {
    field<Staff, &Staff::tuning, &Staff::setTuning, Struct<GuitarTuning, tuningFields>>("tuning"),
    field<Staff, &Staff::capoFret, &Staff::setCapoFret, Within<unsigned, 0, 255>>("capo"),
    field<Staff, &Staff::partialCapoFret, &Staff::setPartialCapoFret, Within<unsigned, 0, 255>>(
        "partialCapo"),
    field<Staff, &Staff::partialCapoStringFlags, &Staff::setPartialCapoStringFlags,
          PerString<bool, Codec<bool>>>("partialCapoStrings"),
    field<Staff, &Staff::fretCount, &Staff::setFretCount, Within<unsigned, 0, 255>>("frets"),
    field<Staff, &Staff::chordCollection, &Staff::setChordCollection>("chords"),
    field<Staff, &Staff::chordWorkingSet, &Staff::setChordWorkingSet>("workingChords"),
    field<Staff, &Staff::diagramCollection, &Staff::setDiagramCollection, Diagrams>("diagrams"),
    field<Staff, &Staff::diagramWorkingSet, &Staff::setDiagramWorkingSet, Diagrams>(
        "workingDiagrams"),
    Field<Staff>{"bars", writeBars, readBars},
};

void writeStaves(DocumentWriter &writer, std::string_view key, const Track &track)
{
    writeChildren(writer, key, track.staves(), staffFields);
}

void readStaves(DocumentReader &reader, const Json &json, Track &track)
{
    Track::Staves staves;
    readEach<Staff>(reader, json, staffFields, [&](std::shared_ptr<Staff> staff) {
        const int string = reader.takeHighestString();
        if (staff->isFretted() && string >= static_cast<int>(staff->tuning().stringCount()))
            reader.reportOddity("a note stands on string index " + std::to_string(string)
                                + ", and the tuning has "
                                + std::to_string(staff->tuning().stringCount()) + " strings");
        staves.push_back(std::move(staff));
    });
    if (staves.empty())
        reader.refuse("a track has at least one staff");
    track.takeStavesFrom(0);
    track.addStaves(std::move(staves));
}

void writeSounds(DocumentWriter &writer, std::string_view key, const Track &track)
{
    if (track.sounds().empty())
        return;
    writer.key(key);
    writer.StartArray();
    for (const auto &sound : track.sounds())
        Codec<Sound>::write(writer, *sound);
    writer.EndArray();
}

void readSounds(DocumentReader &reader, const Json &json, Track &track)
{
    for (const Sound &sound : Codec<std::vector<Sound>>::read(reader, json))
        track.addSound(std::make_shared<const Sound>(sound));
}

void writeTrackAutomations(DocumentWriter &writer, std::string_view key, const Track &track)
{
    writeAutomations(writer, key, track.automations());
}
void readTrackAutomations(DocumentReader &reader, const Json &json, Track &track)
{
    readAutomations(reader, json, track.mutableAutomations());
}
void writeTrackBypassed(DocumentWriter &writer, std::string_view key, const Track &track)
{
    writeBypassed(writer, key, track.automations());
}
void readTrackBypassed(DocumentReader &reader, const Json &json, Track &track)
{
    readBypassed(reader, json, track.mutableAutomations());
}

/// Red, green and blue, a byte each; the byte above them is free.
using Color = Within<std::uint32_t, 0, std::numeric_limits<std::uint32_t>::max()>;

using PlayingStyles =
    EnumCodec<playingStyleToString, playingStyleFromString, 7, PlayingStyle::DrumKitHotRod>;
using Playbacks = EnumCodec<trackPlaybackToString, trackPlaybackFromString, 2>;

constexpr std::array midiConnectionFields = {
    member<MidiConnection, &MidiConnection::port, Within<std::uint8_t, 0, 15>>("port"),
    member<MidiConnection, &MidiConnection::channel, Within<std::uint8_t, 0, 15>>("channel"),
    member<MidiConnection, &MidiConnection::bendChannel, Within<std::uint8_t, 0, 15>>(
        "bendChannel"),
};

/// Left out where the instrument decides.
struct Connections {
    using Present = Struct<MidiConnection, midiConnectionFields>;
    static void write(DocumentWriter &writer, const std::optional<MidiConnection> &connection)
    {
        Present::write(writer, *connection);
    }
    static std::optional<MidiConnection> read(DocumentReader &reader, const Json &json)
    {
        return Present::read(reader, json);
    }
};

/// Lines of lyrics by their numbers.
struct LeftOverLyrics {
    using Node = Track;
    using Value = std::string;
    using As = Codec<std::string>;
    static constexpr unsigned count = Syllable::LineCount;
    static std::string name(unsigned line) { return std::to_string(line); }
    static std::string get(const Track &track, unsigned line)
    {
        return track.lyricsLeftOver()[line];
    }
    static void set(Track &track, unsigned line, const std::string &text)
    {
        auto texts = track.lyricsLeftOver();
        texts[line] = text;
        track.setLyricsLeftOver(texts);
    }
};

/// Numbers of bars in a system; 0 leaves it to the program.
using SystemBars = Within<int, 1, MasterTrack::MaxBars>;

constexpr std::array trackFields = {
    field<Track, &Track::type, &Track::setType, InstrumentTypes>("type"),
    field<Track, &Track::name, &Track::setName>("name"),
    field<Track, &Track::shortName, &Track::setShortName>("shortName"),
    field<Track, &Track::iconID, &Track::setIconID, Icons>("icon"),
    field<Track, &Track::color, &Track::setColor, Color>("color"),
    field<Track, &Track::transpositionOffset, &Track::setTranspositionOffset, Semitones>(
        "transposition"),
    field<Track, &Track::chosenNotations, &Track::setChosenNotations, Notations>("notations"),
    field<Track, &Track::playingStyle, &Track::setPlayingStyle, PlayingStyles>("playingStyle"),
    field<Track, &Track::palmMuteStrength, &Track::setPalmMuteStrength, Between<float, Levels>>(
        "palmMuteStrength"),
    field<Track, &Track::letsRingThroughout, &Track::setLetRingThroughout>("letRingThroughout"),
    field<Track, &Track::hasAutoAccentuation, &Track::setAutoAccentuation>("autoAccentuation"),
    field<Track, &Track::hasAutoBrush, &Track::setAutoBrush>("autoBrush"),
    field<Track, &Track::hasOneChannelPerString, &Track::setOneChannelPerString>(
        "oneChannelPerString"),
    field<Track, &Track::volumePan, &Track::setVolumePan>("volumePan"),
    field<Track, &Track::playback, &Track::setPlayback, Playbacks>("playback"),
    field<Track, &Track::forcedSoundIndex, &Track::setForcedSoundIndex, Within<int, -1, 9999>>(
        "forcedSound"),
    field<Track, &Track::chosenMidiConnection, &Track::setMidiConnection, Connections>("midi"),
    field<Track, &Track::systemsLayout, &Track::setSystemsLayout, ArrayOf<int, SystemBars>>(
        "systemsLayout"),
    field<Track, &Track::defaultBarCountBySystem, &Track::setDefaultBarCountBySystem,
          Within<unsigned, 0, MasterTrack::MaxBars>>("barsPerSystem"),
    field<Track, &Track::lyricsVisible, &Track::setLyricsVisible,
          Within<std::uint8_t, 0, TrackSettings::AllLyrics>>("lyricsVisible"),
    Field<Track>{"lyricsLeftOver", Slots<LeftOverLyrics>::write, Slots<LeftOverLyrics>::read},
    Field<Track>{"sounds", writeSounds, readSounds},
    Field<Track>{"automations", writeTrackAutomations, readTrackAutomations},
    Field<Track>{"bypassed", writeTrackBypassed, readTrackBypassed},
    Field<Track>{"staves", writeStaves, readStaves},
};

/// Milliseconds, as exact as a JSON number is everywhere.
using Milliseconds = Within<std::int64_t, -AudioTrack::MostOffset, AudioTrack::MostOffset>;

/// Linear, 1 unchanged.
struct Gains {
    static constexpr double lowest = 0;
    static constexpr double highest = AudioTrack::MostVolume;
};

constexpr std::array audioTrackFields = {
    field<AudioTrack, &AudioTrack::name, &AudioTrack::setName>("name"),
    field<AudioTrack, &AudioTrack::filePath, &AudioTrack::setFilePath>("file"),
    field<AudioTrack, &AudioTrack::startOffset, &AudioTrack::setStartOffset, Milliseconds>(
        "startOffset"),
    field<AudioTrack, &AudioTrack::volume, &AudioTrack::setVolume, Between<float, Gains>>("volume"),
    field<AudioTrack, &AudioTrack::pan, &AudioTrack::setPan, Between<float, Pans>>("pan"),
    field<AudioTrack, &AudioTrack::isMuted, &AudioTrack::setMuted>("muted"),
};

} // namespace

void writeTracks(DocumentWriter &writer, std::string_view key, const ScoreModel &model)
{
    writeChildren(writer, key, model.tracks(), trackFields, Layout::Lines);
}

void readTracks(DocumentReader &reader, const Json &json, ScoreModel &model)
{
    for (const auto &track : readChildren<Track>(reader, json, trackFields))
        model.addTrack(track);
}

void writeAudioTracks(DocumentWriter &writer, std::string_view key, const ScoreModel &model)
{
    writeChildren(writer, key, model.audioTracks(), audioTrackFields, Layout::Lines);
}

void readAudioTracks(DocumentReader &reader, const Json &json, ScoreModel &model)
{
    for (const auto &track : readChildren<AudioTrack>(reader, json, audioTrackFields))
        model.addAudioTrack(track);
}

} // namespace zarn::io::native
