// SPDX-License-Identifier: MIT
// What becomes of the notes of a MIDI file: rhythm, bars, voices.
#include "MidiSong.h"

#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/ZarnMidiExporter.h>
#include <ZarnCore/io/midi/ZarnMidiFileWriter.h>
#include <ZarnCore/model/form/ZarnInForce.h>

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <set>
#include <thread>

using namespace test;
using namespace zarn::io;
using utils::rational;
using zarn::MasterBar;
using zarn::ScoreModel;

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

TEST(MidiImport, aTempoIsGivenWhereTheFileSaysIt)
{
    const auto firstTempo = [](const ScoreModel &model) {
        return zarn::temposOf(*model.masterTrack()).front();
    };
    const auto exported = [](const ScoreModel &model) {
        ExportReport losses;
        return test::import(MidiFileWriter().toBytes(MidiExporter().toFile(model, losses)));
    };
    Song silent;
    add(silent.track(), 0, 1, 60);
    const auto unsaid = silent.import();
    EXPECT_FALSE(firstTempo(*unsaid.model).isGiven);
    EXPECT_FALSE(firstTempo(*exported(*unsaid.model).model).isGiven);

    Song usual;
    usual.conductor().addTempo(0, 500000);
    add(usual.track(), 0, 1, 60);
    const auto said = usual.import();
    for (const auto &model : {said.model, exported(*said.model).model}) {
        EXPECT_TRUE(firstTempo(*model).isGiven);
        EXPECT_EQ(firstTempo(*model).value, 120);
        EXPECT_EQ(zarn::temposOf(*model->masterTrack()).size(), 1u);
    }
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

TEST(MidiImport, nodesOutliveTheScoreThatTheyWereReadWith)
{
    std::vector<std::shared_ptr<zarn::Note>> kept;
    {
        Song song;
        auto &track = song.track();
        for (int i = 0; i < 4000; ++i)
            add(track, i * 0.25, 0.25, 40 + i % 48);
        const auto imported = song.import();
        for (const auto &bar : imported.model->tracks().front()->bars(0))
            for (const auto &beat : bar->voices()[0]->beats())
                if (bar->index() % 50 == 7)
                    kept.push_back(beat->note(0));
    }
    ASSERT_EQ(kept.size(), 80U);
    for (const auto &note : kept) {
        EXPECT_GE(note->midi(), 40);
        EXPECT_EQ(note->parentBeat(), nullptr);
    }
    std::thread([&kept] { kept.clear(); }).join();
}

TEST(MidiImport, partsThatAreMadeAtOnceStayInTheirOrder)
{
    // So many notes that several threads share the parts; each is read alone, too.
    constexpr int parts = 12;
    constexpr int notes = 4000;
    const auto addPart = [](Song &song, int number) {
        auto &track = song.track();
        track.addMeta(0, MidiMeta::TrackName, "Part " + std::to_string(number));
        track.addProgram(0, number, 64 + number);
        for (int i = 0; i < notes; ++i)
            add(track, i / 2.0, i % 5 == number % 5 ? 0.25 : 0.5, 40 + (i * (number + 3)) % 30,
                number);
        track.addNoteOff(notes * quarter, number, 20); // of nothing
    };
    Song song;
    for (int number = 0; number < parts; ++number)
        addPart(song, number < 9 ? number : number + 1);
    const auto all = song.import();
    ASSERT_EQ(all.model->trackCount(), unsigned(parts));
    for (const int number : {0, 5, 8}) {
        Song alone;
        addPart(alone, number);
        const auto one = alone.import();
        const auto &track = *all.model->track(static_cast<unsigned>(number));
        EXPECT_EQ(track.name(), "Part " + std::to_string(number));
        EXPECT_TRUE(*one.model->track(0)->staff(0) == *track.staff(0)) << number;
    }
    EXPECT_TRUE(all.report.hasProblem("12 times in all"));
}

TEST(MidiImport, moreRhythmsThanAreRememberedAreWrittenAllTheSame)
{
    // Bars of 16ths and rests, no two alike; the first hundred come again at the end.
    constexpr int bars = 6000;
    constexpr int places = 13;
    Song song;
    auto &track = song.track();
    const auto addBar = [&](int bar, int pattern) {
        for (int place = 0; place < places; ++place)
            if ((pattern >> place & 1) != 0)
                add(track, 4 * bar + place * 0.25, 0.25, 60);
        add(track, 4 * bar + 3.5, 0.5, 72);
    };
    for (int bar = 0; bar < bars; ++bar)
        addBar(bar, bar < bars - 100 ? bar : bar - (bars - 100));
    const auto imported = song.import();
    const auto rhythmsOf = [&](int bar) {
        std::string text;
        for (const auto &beat : imported.model->tracks()
                                    .front()
                                    ->bars(0)[static_cast<std::size_t>(bar)]
                                    ->voices()[0]
                                    ->beats())
            text += (beat->hasNotes() ? "n" : "r") + beat->rhythmValue().toQString().toStdString();
        return text;
    };
    for (int bar = 1; bar < 100; ++bar)
        EXPECT_EQ(rhythmsOf(bar), rhythmsOf(bars - 100 + bar)) << bar;
    for (int bar = 1; bar < bars - 101; bar += 97)
        EXPECT_NE(rhythmsOf(bar), rhythmsOf(bar + 1)) << bar;
}
