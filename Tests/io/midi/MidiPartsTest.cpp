// SPDX-License-Identifier: MIT
// What becomes of the tracks and channels of a MIDI file: staves, instruments, strings, spelling,
// signs and words.
#include "../Scores.h"
#include "MidiSong.h"

#include <ZarnCore/instruments/automations/ZarnSoundAutomation.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/io/ZarnImportException.h>

#include <gtest/gtest.h>

#include <map>

using namespace test;
using namespace zarn::io;
using utils::rational;
using zarn::ScoreModel;

TEST(MidiParts, keyboardsHaveTwoHands)
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

TEST(MidiParts, aHandThatHoldsAKeyDoesNotReachFar)
{
    Song song;
    auto &track = song.track();
    track.addProgram(0, 0, 0);
    for (int bar = 0; bar < 4; ++bar) {
        add(track, 4 * bar, 4, 40);
        add(track, 4 * bar, 1, 67);
        for (int i = 1; i < 4; ++i) {
            add(track, 4 * bar + i, 1, 57);
            add(track, 4 * bar + i, 1, 66 + i);
        }
    }
    const auto imported = song.import();
    ASSERT_EQ(imported.model->track(0)->staffCount(), 2u);
    for (const ListedNote &note : listNotes(*imported.model))
        EXPECT_EQ(note.staff, *note.sounding == 40 ? 1u : 0u);
}

TEST(MidiParts, channelsWithTheirOwnSoundsAreTracks)
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

TEST(MidiParts, drumsAreFoundOnWhateverChannelTheyAre)
{
    const auto isDrums = [](int bank, const char *system, const char *name = "") {
        Song song;
        if (*system != 0)
            song.conductor().addSystemEvent(0, 0xF0, {system, 10});
        auto &track = song.track();
        track.addMeta(0, MidiMeta::TrackName, name);
        track.addControl(0, 10, MidiControl::Bank, bank);
        track.addProgram(0, 10, 0);
        for (int i = 0; i < 8; ++i)
            add(track, i, 0.5, 36 + i % 2 * 6, 10);
        return song.import().model->track(0)->type() == zarn::InstrumentSet::drumKit;
    };
    EXPECT_FALSE(isDrums(0, ""));
    EXPECT_TRUE(isDrums(127, ""));
    EXPECT_TRUE(isDrums(120, ""));
    EXPECT_FALSE(isDrums(127, "", "Violin"));
    EXPECT_TRUE(isDrums(0, "\x41\x10\x42\x12\x40\x1A\x15\x02\x0F\xF7"));
    EXPECT_FALSE(isDrums(0, "\x41\x10\x42\x12\x40\x1B\x15\x02\x0E\xF7"));
}

TEST(MidiParts, chordsThatNoHandHoldsAreTwo)
{
    Song song;
    for (const bool isLeft : {false, true}) {
        auto &track = song.track();
        track.addProgram(0, 0, 0);
        for (int i = 0; i < 4; ++i)
            for (const int key :
                 {isLeft ? 36 : 57, isLeft ? 43 : 60, isLeft ? 48 : 65, isLeft ? 52 : 77})
                add(track, i, 1, key);
    }
    const auto imported = song.import();
    for (const ListedNote &note : listNotes(*imported.model)) {
        const bool isBelow = note.sounding == 57 || note.sounding == 60; // 65 and 77 are the melody
        EXPECT_EQ(note.voice, isBelow ? 1U : 0U) << note.toString();
    }
}

TEST(MidiParts, laterProgramsAreSoundsOfTheTrack)
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

TEST(MidiParts, fretsAreFoundAndStringsOfChannelsKept)
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

TEST(MidiParts, spellingFollowsKeyAndLeadingTones)
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

TEST(MidiParts, ornamentsArePutWhereTheyAreWritten)
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

TEST(MidiParts, chordsAreRolledFromHandToHand)
{
    Song song;
    auto &track = song.track();
    track.addProgram(0, 0, 0);
    for (int i = 0; i < 8; ++i) {
        add(track, i, 1, 72 + i % 3);
        add(track, i, 1, 43);
    }
    const int chord[] = {43, 50, 59, 67, 74, 79};
    for (int i = 0; i < 6; ++i)
        add(track, 8 + i * 0.045, 4 - i * 0.045, chord[i]);
    const auto imported = song.import();
    const auto text = notesOf(imported);
    for (const char *const key : {"3:0 43 4", "3:0 50 4", "3:0 67 4", "3:0 79 4"})
        EXPECT_NE(text.find(key), std::string::npos) << text;
    for (unsigned staff = 0; staff < 2; ++staff)
        EXPECT_EQ(imported.model->track(0)->bar(2, staff)->voice(0)->beatAt(0)->arpeggioDirection(),
                  zarn::Direction::Up);
}

TEST(MidiParts, velocitiesOfNotationProgramsAreDynamics)
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

TEST(MidiParts, wordsStandUnderTheirNotes)
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

TEST(MidiParts, karaokeFilesNameTheSong)
{
    Song song;
    auto &words = song.track();
    for (const char *const text : {"@KMIDI KARAOKE FILE", "@T The Song", "@T A Singer"})
        words.addMeta(0, MidiMeta::Text, text);
    auto &melody = song.track();
    for (int i = 0; i < 4; ++i) {
        words.addMeta(static_cast<std::uint64_t>(i) * quarter, MidiMeta::Text,
                      i % 2 == 0 ? "\\la " : "li ");
        add(melody, i, 1, 60 + i);
    }
    const auto imported = song.import();
    EXPECT_EQ(imported.model->property(zarn::ScoreProperty::Title), "The Song");
    EXPECT_EQ(imported.model->property(zarn::ScoreProperty::Artist), "A Singer");
}

TEST(MidiParts, silenceIsNoReasonForEndlessBars)
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

TEST(MidiParts, realFilesAreReadWhole)
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
