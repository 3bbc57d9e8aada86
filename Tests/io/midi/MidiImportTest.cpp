// SPDX-License-Identifier: MIT
// What becomes of the notes of a MIDI file: rhythm, bars, voices, staves, spelling, strings.
#include "../Scores.h"

#include <ZarnCore/instruments/automations/ZarnSoundAutomation.h>
#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/io/ZarnImportException.h>
#include <ZarnCore/io/ZarnMidiImporter.h>
#include <ZarnCore/io/ZarnNoteList.h>
#include <ZarnCore/io/midi/ZarnMidiFile.h>
#include <ZarnCore/io/midi/ZarnMidiFileWriter.h>
#include <ZarnCore/model/ZarnModelCheck.h>

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <random>
#include <set>

using namespace zarn::io;
using utils::rational;
using zarn::MasterBar;
using zarn::ScoreModel;

namespace {

constexpr std::uint64_t quarter = 480;

struct Imported {
    std::shared_ptr<ScoreModel> model;
    ImportReport report;
};

Imported import(const std::string &bytes, const MidiImportOptions &options = {})
{
    filesystem::RAMFileSystem files;
    const auto writing = files.open("song.mid", filesystem::OpenMode::Write);
    writing->writeBlock(bytes.data(), static_cast<std::int64_t>(bytes.size()));
    writing->close();
    const auto handle = files.open("song.mid", filesystem::OpenMode::Read);
    Imported imported;
    imported.model = MidiImporter(options).read(*handle, imported.report);
    EXPECT_EQ(zarn::checkModel(*imported.model), std::vector<std::string>());
    return imported;
}

/// A file of format 1 that grows track by track.
class Song {
public:
    Song() { track(); }

    MidiTrack &track()
    {
        _file.tracks.emplace_back();
        return _file.tracks.back();
    }
    MidiTrack &conductor() { return _file.tracks.front(); }

    Imported import(const MidiImportOptions &options = {})
    {
        for (auto &track : _file.tracks)
            track.sortByTime();
        return ::import(MidiFileWriter().toBytes(_file), options);
    }

private:
    MidiFile _file;
};

void add(MidiTrack &track, double at, double length, int key, int channel = 0)
{
    const auto tick = [](double quarters) {
        return static_cast<std::uint64_t>(quarters * static_cast<double>(quarter) + 0.5);
    };
    track.addNoteOn(tick(at), channel, key, 80);
    track.addNoteOff(tick(at + length) - 1, channel, key);
}

/// "1:0 60 1/2 | ...": bar and onset of each note, its key and its length in quarters; "~" when it
/// is tied to the one before, "v2" in front in the second voice, "s2" on the second staff.
std::string notesOf(const Imported &imported, unsigned track = 0)
{
    std::string text;
    for (const ListedNote &note : listNotes(*imported.model)) {
        if (note.track != track)
            continue;
        text += text.empty() ? "" : " | ";
        text += note.staff > 0 ? "s2 " : "";
        text += note.voice > 0 ? "v" + std::to_string(note.voice + 1) + " " : "";
        text += std::to_string(note.bar + 1) + ":" + note.onset.toString() + " "
            + std::to_string(note.sounding.value_or(0)) + (note.isTied ? "~ " : " ")
            + (note.isGrace ? "grace" : note.length.toString());
    }
    return text;
}

std::string spellingsOf(const Imported &imported)
{
    std::string text;
    for (const ListedNote &note : listNotes(*imported.model))
        text += (text.empty() ? "" : " ") + note.spelling;
    return text;
}

} // namespace

TEST(MidiImport, rhythmsAreWrittenAsTheMeterHasThem)
{
    Song song;
    auto &track = song.track();
    for (int third = 0; third < 3; ++third)
        add(track, third / 3.0, 1 / 3.0, 60 + third);
    add(track, 1, 0.75, 65);
    add(track, 1.75, 0.25, 67);
    add(track, 2.5, 1, 69);   // over the third beat of the bar
    add(track, 3.5, 2.5, 71); // over the bar line
    for (int third = 0; third < 3; ++third)
        add(track, 6 + third * 2 / 3.0, 2 / 3.0, 60 + third); // over two beats
    EXPECT_EQ(notesOf(song.import()),
              "1:0 60 1/3 | 1:1/3 61 1/3 | 1:2/3 62 1/3 | 1:1 65 3/4 | 1:7/4 67 1/4 | 1:5/2 69 1 | "
              "1:7/2 71 1/2 | 2:0 71~ 2 | 2:2 60 2/3 | 2:8/3 61 2/3 | 2:10/3 62 2/3");

    MidiImportOptions plain;
    plain.hasTuplets = false;
    plain.shortestNote = rational(1, 2);
    const auto coarse = song.import(plain);
    for (const ListedNote &note : listNotes(*coarse.model))
        EXPECT_TRUE((note.onset * 2).isInteger()) << notesOf(coarse);
    EXPECT_TRUE(coarse.report.hasProblem("moved by more than a 32nd"));
}

TEST(MidiImport, playedNotesAreFittedToTheBeatsOfTheFile)
{
    Song still;
    Song played;
    std::mt19937 dice(7);
    std::normal_distribution<double> jitter(0, 0.015 * 2); // 15 ms at 120 quarters a minute
    auto &first = still.track();
    auto &second = played.track();
    double at = 0;
    for (int i = 0; i < 200; ++i) {
        const double length = i % 8 < 4 ? 0.5 : i % 8 < 6 ? 1 : 2;
        const int key = 50 + i * 7 % 30;
        add(first, at, length, key);
        const double begin = std::max(0.0, at + jitter(dice));
        add(second, begin, std::max(0.1, at + length + jitter(dice) - begin), key);
        at += length;
    }
    EXPECT_EQ(notesOf(played.import()), notesOf(still.import()));
}

TEST(MidiImport, notesInFrontOfRestsAreWhole)
{
    Song song;
    auto &track = song.track();
    track.addProgram(0, 0, 73);
    const auto note = [&track](double at, double length) {
        add(track, at, length + 1.0 / quarter, 72); // ends where it says
    };
    note(0, 0.475); // an eighth and a dotted quarter that are let go a little early
    note(2, 1.4375);
    for (int i = 4; i < 24; ++i) // slurred ones that are not
        note(i, 1);
    EXPECT_EQ(notesOf(song.import()).substr(0, 26), "1:0 72 1/2 | 1:2 72 3/2 | ");
}

TEST(MidiImport, barsFollowTheMetersOfTheFile)
{
    Song song;
    song.conductor().addTimeSignature(0, 1, 4);
    song.conductor().addTimeSignature(quarter, 3, 4);
    song.conductor().addTimeSignature(7 * quarter, 6, 8);
    song.conductor().addKeySignature(0, -3, true);
    song.conductor().addKeySignature(7 * quarter, 2, false);
    song.conductor().addTempo(0, 500000);
    song.conductor().addTempo(7 * quarter, 600000);
    song.conductor().addMeta(quarter, MidiMeta::Marker, "Verse");
    song.conductor().addMeta(0, MidiMeta::TrackName, "A song");
    auto &track = song.track();
    for (int i = 0; i < 10; ++i)
        add(track, i, 1, 60 + i);
    const auto imported = song.import();
    const auto &master = *imported.model->masterTrack();
    ASSERT_EQ(master.masterBarCount(), 4u);
    EXPECT_TRUE(master.hasAnacrusis());
    EXPECT_EQ(master.masterBar(0)->length(), rational(1));
    EXPECT_EQ(master.masterBar(0)->timeSignature(), zarn::TimeSignature(3, 4));
    EXPECT_EQ(master.masterBar(3)->timeSignature(), zarn::TimeSignature(6, 8));
    EXPECT_EQ(master.masterBar(1)->concertKeySignature(), zarn::KeySignature(-3, false, false));
    EXPECT_EQ(master.masterBar(3)->concertKeySignature(), zarn::KeySignature(2, true, true));
    EXPECT_EQ(master.masterBar(1)->section().text, "Verse");
    EXPECT_EQ(imported.model->property(zarn::ScoreProperty::Title), "A song");
    EXPECT_DOUBLE_EQ(master.tempoValue(), 120);
    const auto *tempo = master.automation(zarn::Automation::Tempo, 3, 0);
    ASSERT_NE(tempo, nullptr);
    EXPECT_FLOAT_EQ(static_cast<const zarn::TempoAutomation *>(tempo)->quarterValue(), 100);
}

TEST(MidiImport, shortBarsInFrontOfOtherMetersAreNoPickups)
{
    Song song;
    song.conductor().addTimeSignature(0, 5, 8);
    song.conductor().addTimeSignature(5 * quarter / 2, 9, 4);
    song.conductor().addTimeSignature(23 * quarter / 2, 1, 1);
    add(song.track(), 0, 15.5, 60);
    const auto imported = song.import();
    const auto &master = *imported.model->masterTrack();
    ASSERT_EQ(master.masterBarCount(), 3u);
    EXPECT_FALSE(master.hasAnacrusis());
    EXPECT_EQ(master.masterBar(0)->timeSignature(), zarn::TimeSignature(5, 8));
    EXPECT_EQ(master.masterBar(1)->timeSignature(), zarn::TimeSignature(9, 4));
    EXPECT_EQ(master.masterBar(2)->timeSignature(), zarn::TimeSignature(4, 4)) << "reduced";
}

TEST(MidiImport, pickupThatNoMeterTellsIsHeard)
{
    // A bass on each first beat, which comes a quarter after the beginning.
    const auto song = [](double offset) {
        Song song;
        song.conductor().addTimeSignature(0, 3, 4);
        auto &track = song.track();
        add(track, 0, 1, 67);
        for (int bar = 0; bar < 16; ++bar) {
            add(track, offset + bar * 3, 2, 72);
            add(track, offset + bar * 3, 1, 43);
            add(track, offset + bar * 3 + 2, 1, 67);
        }
        return song.import();
    };
    const auto withPickup = song(1);
    EXPECT_TRUE(withPickup.model->masterTrack()->hasAnacrusis());
    EXPECT_EQ(withPickup.model->masterTrack()->masterBar(0)->length(), rational(1));
    const auto without = song(3);
    EXPECT_FALSE(without.model->masterTrack()->hasAnacrusis());
    EXPECT_EQ(without.model->masterTrack()->masterBar(0)->length(), rational(3));
}

TEST(MidiImport, linesThatSoundTogetherAreVoices)
{
    Song song;
    auto &track = song.track();
    track.addProgram(0, 0, 73); // a flute has one staff
    add(track, 0, 4, 60);
    for (int i = 0; i < 4; ++i)
        add(track, i, 1, 72 + i);
    add(track, 4, 1, 60);
    add(track, 5, 1, 74);
    EXPECT_EQ(notesOf(song.import()),
              "1:0 72 1 | 1:1 73 1 | 1:2 74 1 | 1:3 75 1 | v2 1:0 60 4 | 2:0 60 1 | 2:1 74 1");

    Song crowded;
    auto &many = crowded.track();
    many.addProgram(0, 0, 73);
    for (int i = 0; i < 6; ++i)
        add(many, i * 0.5, 8 - i, 60 + i * 3);
    const auto imported = crowded.import();
    EXPECT_TRUE(imported.report.hasProblem("a staff has four voices"));
    EXPECT_EQ(
        listNotes(*imported.model).size(), 6u + [&] {
            std::size_t tied = 0;
            for (const auto &note : listNotes(*imported.model))
                tied += note.isTied;
            return tied;
        }());
}

TEST(MidiImport, partsThatMoveOnTheirOwnAreVoicesAlsoInOneRhythm)
{
    const auto voicesOfLowNotes = [](const std::array<int, 4> &lower) {
        constexpr std::array<int, 4> upper = {72, 74, 74, 76};
        Song song;
        auto &track = song.track();
        track.addProgram(0, 0, 73);
        for (std::size_t i = 0; i < 28; ++i) {
            add(track, static_cast<double>(i), 1, upper[i % 4]);
            add(track, static_cast<double>(i), 1, lower[i % 4]);
        }
        std::set<int> voices;
        for (const ListedNote &note : listNotes(*song.import().model))
            if (*note.sounding < 71)
                voices.insert(note.voice);
        return voices;
    };
    EXPECT_EQ(voicesOfLowNotes({60, 60, 59, 57}), (std::set<int>{1}));
    EXPECT_EQ(voicesOfLowNotes({69, 70, 70, 70}), (std::set<int>{0})) << "thirds are chords";
}

TEST(MidiImport, keyboardsHaveTwoHands)
{
    Song single;
    auto &track = single.track();
    track.addProgram(0, 0, 0);
    for (int i = 0; i < 8; ++i) {
        add(track, i, 1, 72 + i % 3);
        add(track, i, 1, 40 + i % 5);
    }
    auto imported = single.import();
    ASSERT_EQ(imported.model->track(0)->staffCount(), 2u);
    for (const ListedNote &note : listNotes(*imported.model))
        EXPECT_EQ(note.staff, *note.sounding < 60 ? 1u : 0u);

    Song twoTracks;
    for (const int base : {72, 48}) {
        auto &hand = twoTracks.track();
        hand.addProgram(0, 0, 0);
        add(hand, 0, 4, base);
    }
    imported = twoTracks.import();
    EXPECT_EQ(imported.model->trackCount(), 1u);
    EXPECT_EQ(notesOf(imported), "1:0 72 4 | s2 1:0 48 4");
}

TEST(MidiImport, channelsWithTheirOwnSoundsAreTracks)
{
    Song song;
    auto &track = song.track();
    track.addMeta(0, MidiMeta::TrackName, "Band");
    track.addProgram(0, 0, 73);
    track.addControl(0, 0, MidiControl::Volume, 127);
    track.addControl(0, 0, MidiControl::Pan, 0);
    track.addProgram(0, 1, 40);
    add(track, 0, 1, 72, 0);
    add(track, 1, 1, 62, 1);
    add(track, 2, 1, 36, 9);
    add(track, 2, 1, 42, 9);
    const auto imported = song.import();
    ASSERT_EQ(imported.model->trackCount(), 3u);
    const auto flute = imported.model->track(0);
    EXPECT_EQ(flute->type(), zarn::InstrumentSet::flute);
    EXPECT_EQ(flute->sounds().front()->midiSound().program(), 73);
    EXPECT_FLOAT_EQ(flute->volumePan().volume(), 1);
    EXPECT_FLOAT_EQ(flute->volumePan().pan(), -1);
    EXPECT_EQ(imported.model->track(1)->type(), zarn::InstrumentSet::violin);
    const auto drums = imported.model->track(2);
    EXPECT_EQ(drums->type(), zarn::InstrumentSet::drumKit);
    const auto beat = drums->bar(0)->voice(0)->beatAt(rational(2));
    ASSERT_EQ(beat->noteCount(), 2u);
    EXPECT_EQ(beat->noteWithMidi(36)->staffLine(), 1);
    EXPECT_EQ(beat->noteWithMidi(42)->noteHead(), zarn::NoteHead::Cross);
}

TEST(MidiImport, laterProgramsAreSoundsOfTheTrack)
{
    Song song;
    auto &track = song.track();
    track.addProgram(0, 0, 0); // another one is chosen before anything sounds
    track.addProgram(quarter / 2, 0, 40);
    track.addProgram(9 * quarter / 2, 0, 45);
    track.addProgram(6 * quarter, 0, 40);
    for (int i = 1; i < 8; ++i)
        add(track, i, 0.9, 70);
    const auto imported = song.import();
    const auto &violin = *imported.model->track(0);
    EXPECT_EQ(violin.type(), zarn::InstrumentSet::violin);
    ASSERT_EQ(violin.sounds().size(), 2u);
    EXPECT_EQ(violin.sounds()[0]->midiSound().program(), 40);
    EXPECT_EQ(violin.sounds()[1]->midiSound().program(), 45);
    std::string changes;
    for (const auto *each : violin.automations().automations(zarn::Automation::Sound))
        changes +=
            std::to_string(each->index()) + ":" + std::to_string(each->position()) + " "
            + std::to_string(
                static_cast<const zarn::SoundAutomation *>(each)->sound()->midiSound().program())
            + " ";
    EXPECT_EQ(changes, "1:1.000000 45 1:2.000000 40 ");
}

TEST(MidiImport, fretsAreFoundAndStringsOfChannelsKept)
{
    Song song;
    auto &track = song.track();
    track.addProgram(0, 0, 25);
    for (const int key : {40, 47, 52, 56, 59, 64})
        add(track, 0, 4, key); // an E chord
    auto imported = song.import();
    std::map<int, int> frets;
    for (const ListedNote &note : listNotes(*imported.model))
        frets[note.string] = note.fret;
    EXPECT_EQ(frets, (std::map<int, int>{{0, 0}, {1, 2}, {2, 2}, {3, 1}, {4, 0}, {5, 0}}));

    Song strings;
    auto &perString = strings.track();
    constexpr int open[] = {64, 59, 55, 50, 45, 40};
    for (int channel = 0; channel < 6; ++channel) {
        perString.addProgram(0, channel, 25);
        add(perString, channel, 1, open[channel] + 7, channel);
    }
    imported = strings.import();
    ASSERT_EQ(imported.model->trackCount(), 1u);
    for (const ListedNote &note : listNotes(*imported.model)) {
        EXPECT_EQ(note.fret, 7);
        EXPECT_EQ(note.string, 5 - static_cast<int>((note.onset + rational(4 * note.bar)).floor()));
    }
}

TEST(MidiImport, spellingFollowsKeyAndLeadingTones)
{
    const auto spelled = [](int fifths, bool isMinor, const std::vector<int> &keys) {
        Song song;
        song.conductor().addKeySignature(0, fifths, isMinor);
        auto &track = song.track();
        for (std::size_t i = 0; i < keys.size(); ++i)
            add(track, static_cast<double>(i), 1, keys[i]);
        return spellingsOf(song.import());
    };
    EXPECT_EQ(spelled(-3, true, {60, 63, 67, 71, 72, 68, 67}), "C4 Eb4 G4 B4 C5 Ab4 G4");
    EXPECT_EQ(spelled(0, true, {69, 68, 69, 71, 72, 64}), "A4 G#4 A4 B4 C5 E4");
    EXPECT_EQ(spelled(6, false, {66, 65, 66, 70, 73}), "F#4 E#4 F#4 A#4 C#5");
    EXPECT_EQ(spelled(0, false, {67, 68, 69, 70, 69, 67}), "G4 G#4 A4 Bb4 A4 G4");
}

TEST(MidiImport, ornamentsArePutWhereTheyAreWritten)
{
    Song song;
    song.conductor().addTempo(0, 500000);
    auto &track = song.track();
    track.addProgram(0, 0, 73);
    for (int i = 0; i < 8; ++i)
        add(track, i, 1, 60);
    add(track, 8, 0.125, 74); // 62 ms
    add(track, 8.125, 0.875, 72);
    for (int i = 0; i < 4; ++i)
        add(track, 9 + i * 0.09, 3 - i * 0.09, 60 + i * 4);
    const auto imported = song.import();
    const auto text = notesOf(imported);
    EXPECT_NE(text.find("3:0 74 grace | 3:0 72 1 | 3:1 72 3 | 3:1 68 3"), std::string::npos)
        << text;
    EXPECT_EQ(imported.model->track(0)->bar(2)->voice(0)->beatAt(rational(1))->arpeggioDirection(),
              zarn::Direction::Up);
}

TEST(MidiImport, velocitiesOfNotationProgramsAreDynamics)
{
    const auto dynamicsOf = [](const std::vector<int> &velocities) {
        Song song;
        auto &track = song.track();
        track.addProgram(0, 0, 73);
        for (std::size_t i = 0; i < velocities.size(); ++i) {
            track.addNoteOn(i * quarter, 0, 72, velocities[i]);
            track.addNoteOff((i + 1) * quarter - 1, 0, 72);
        }
        std::string text;
        const auto imported = song.import();
        for (const auto &bar : imported.model->track(0)->bars())
            for (const auto &beat : bar->voice(0)->beats())
                if (beat->dynamic().value() != zarn::NoteDynamic::Value::None)
                    text +=
                        std::to_string(bar->index() + 1) + ":" + beat->dynamic().toString() + " ";
        return text;
    };
    EXPECT_EQ(dynamicsOf({49, 49, 49, 49, 65, 96, 96, 96, 96, 112, 96, 96, 96, 96}), "1:P 2:F ");
    EXPECT_EQ(dynamicsOf({80, 80, 80, 80, 80, 80, 80, 80}), "");
    EXPECT_EQ(dynamicsOf({49, 49, 49, 49, 60, 70, 90, 100, 96, 96, 96, 96}), "");
}

TEST(MidiImport, wordsStandUnderTheirNotes)
{
    Song song;
    auto &words = song.track();
    const char *karaoke[] = {"\\Ma", "ry ", "had"};
    words.addMeta(0, MidiMeta::Text, "@TMary");
    for (std::size_t i = 0; i < 3; ++i)
        words.addMeta(i * quarter, MidiMeta::Text, karaoke[i]);
    auto &track = song.track();
    for (int i = 0; i < 3; ++i)
        add(track, i, 1, 60 + i);
    const auto imported = song.import();
    std::string text;
    for (const auto &beat : imported.model->track(0)->bar(0)->voice(0)->beats())
        for (const auto &syllable : beat->lyrics())
            text += syllable.toString() + " ";
    EXPECT_EQ(text, "Ma- ry had ");
}

TEST(MidiImport, silenceIsNoReasonForEndlessBars)
{
    Song song;
    auto &track = song.track();
    add(track, 0, 1, 60);
    for (int i = 1; i <= 20; ++i)
        track.addMeta(static_cast<std::uint64_t>(i) << 27, MidiMeta::Text, "");
    track.addNoteOn(21ull << 27, 0, 61, 64);
    track.addNoteOff(22ull << 27, 0, 61);
    const auto imported = song.import();
    EXPECT_LE(imported.model->masterTrack()->masterBarCount(), zarn::MasterTrack::MaxBars);
    EXPECT_EQ(notesOf(imported), "1:0 60 1");
    EXPECT_TRUE(imported.report.hasProblem("more silence than a score has bars for"));
}

TEST(MidiImport, realFilesAreReadWhole)
{
    SKIP_WITHOUT_SCORES();
    // Notes that the file has, less those that are one with another.
    const std::map<QString, std::size_t> notes = {
        {QStringLiteral("jazz-type-0.mid"), 16},
        {QStringLiteral("jazz-type-1.mid"), 16},
        {QStringLiteral("jazz-type-2.mid"), 16},
        {QStringLiteral("jazz-empty.mid"), 0},
        {QStringLiteral("jazz-karaoke.mid"), 29},
        {QStringLiteral("jazz-running-status-meta.mid"), 8},
        {QStringLiteral("jazz-foreign-chunk.mid"), 8},
        {QStringLiteral("jazz-late-end-of-track.mid"), 1},
        {QStringLiteral("jazz-missing-byte.mid"), 8},
        {QStringLiteral("jazz-vlq-4-byte.mid"), 8},
        {QStringLiteral("jazz-gm-percussion.mid"), 183},
        {QStringLiteral("mutopia-bach-menuet-guitar.mid"), 390},
        {QStringLiteral("odd-smpte-25.mid"), 4},
        {QStringLiteral("odd-hanging-notes.mid"), 5},
    };
    for (const auto &[name, count] : notes) {
        SCOPED_TRACE(name.toStdString());
        const auto bytes = scores::bytesOf(scores::folder() + QStringLiteral("/midi/") + name);
        const auto imported = import(bytes.toStdString());
        std::size_t struck = 0;
        for (const ListedNote &note : listNotes(*imported.model))
            struck += !note.isTied;
        EXPECT_EQ(struck, count);
    }
}
