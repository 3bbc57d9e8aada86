// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnException.h>
#include <ZarnCore/io/midi/ZarnMidiFile.h>
#include <ZarnCore/io/midi/ZarnMidiFileWriter.h>
#include <filesystem/RAMFileSystem.h>

#include <gtest/gtest.h>

#include <functional>

using zarn::io::MidiDivision;
using zarn::io::MidiEvent;
using zarn::io::MidiFile;
using zarn::io::MidiFileWriter;
using zarn::io::MidiMeta;
using zarn::io::MidiTrack;

namespace {

/// "4d 54 68": bytes as people read them.
std::string hex(const std::string &bytes)
{
    std::string text;
    for (const char byte : bytes) {
        constexpr const char *digits = "0123456789abcdef";
        const auto value = static_cast<unsigned char>(byte);
        text += (text.empty() ? "" : " ");
        text += {digits[value >> 4], digits[value & 15]};
    }
    return text;
}

MidiFile fileOf(const std::function<void(MidiTrack &)> &fill)
{
    MidiFile file;
    file.tracks.emplace_back();
    fill(file.tracks.back());
    return file;
}

std::string refusal(const MidiFile &file)
{
    try {
        MidiFileWriter().toBytes(file);
    } catch (const zarn::CoreException &error) {
        return error.message();
    }
    return "none";
}

std::string refusalOf(const std::function<void(MidiTrack &)> &fill)
{
    return refusal(fileOf(fill));
}

} // namespace

TEST(MidiFileWriter, bytesAreThoseOfTheStandard)
{
    const auto file = fileOf([](MidiTrack &track) {
        track.addTempo(0, 500000);
        track.addTimeSignature(0, 6, 8, 36);
        track.addKeySignature(0, -3, true);
        track.addMeta(0, MidiMeta::TrackName, "Oud");
        track.addProgram(0, 2, 5);
        track.addNoteOn(96, 2, 48, 96);
        track.addNoteOn(96, 2, 60, 96);
        track.addPitchBend(192, 2, -1);
        track.addNoteOff(16575, 2, 48);
        track.addSystemEvent(16575, 0xF0, "\x7E\xF7");
        track.addNoteOff(16575, 2, 60);
        track.setEndTick(16575 + 0x1FFFFF);
    });
    EXPECT_EQ(hex(MidiFileWriter().toBytes(file)),
              "4d 54 68 64 00 00 00 06 00 01 00 01 01 e0 "
              "4d 54 72 6b 00 00 00 3e "
              "00 ff 51 03 07 a1 20 "
              "00 ff 58 04 06 03 24 08 "
              "00 ff 59 02 fd 01 "
              "00 ff 03 03 4f 75 64 "
              "00 c2 05 "
              "60 92 30 60 "
              "00 3c 60 " // the status goes on
              "60 e2 7f 3f "
              "ff 7f 82 30 40 "
              "00 f0 02 7e f7 "
              "00 82 3c 40 " // and is said again behind what is no channel message
              "ff ff 7f ff 2f 00");
}

TEST(MidiFileWriter, whatNoFileCanSayIsRefusedWithItsPlace)
{
    EXPECT_EQ(refusalOf([](MidiTrack &track) {
                  track.addNoteOn(10, 0, 60, 64);
                  track.addNoteOff(9, 0, 60);
              }),
              "MIDI track 1, event 2: it is earlier than the one before");
    EXPECT_EQ(refusalOf([](MidiTrack &track) { track.addNoteOn(0x10000000, 0, 60, 64); }),
              "MIDI track 1, event 1: it is too long after the one before");
    EXPECT_EQ(refusalOf([](MidiTrack &track) { track.addNoteOn(0x0FFFFFFF, 15, 127, 127); }),
              "none");
    for (const auto &[channel, key, velocity] :
         {std::tuple(0, 128, 1), std::tuple(0, -1, 1), std::tuple(0, 0, 128)})
        EXPECT_EQ(refusalOf([&, c = channel, k = key, v = velocity](MidiTrack &track) {
                      track.addNoteOn(0, c, k, v);
                  }),
                  "MIDI track 1, event 1: a value is out of range");
    EXPECT_EQ(refusalOf([](MidiTrack &track) { track.addProgram(0, 16, 0); }),
              "MIDI track 1, event 1: its kind or channel does not exist");
    for (const auto &fill : std::vector<std::function<void(MidiTrack &)>>{
             [](MidiTrack &track) { track.addTempo(0, 0); },
             [](MidiTrack &track) { track.addTempo(0, 0x1000000); },
             [](MidiTrack &track) { track.addTimeSignature(0, 3, 6); },
             [](MidiTrack &track) { track.addTimeSignature(0, 256, 4); },
             [](MidiTrack &track) { track.addKeySignature(0, 8, false); },
         })
        EXPECT_EQ(refusalOf(fill), "MIDI track 1, event 1: its value is out of range");
    EXPECT_EQ(refusalOf([](MidiTrack &track) { track.addPitchBend(0, 0, 8192); }),
              "MIDI track 1, event 1: a value is out of range");
    EXPECT_EQ(refusalOf([](MidiTrack &track) { track.addMeta(0, MidiMeta::EndOfTrack, ""); }),
              "MIDI track 1, event 1: the end of a track is written by itself");
    EXPECT_EQ(refusalOf([](MidiTrack &track) { track.addSystemEvent(0, 0xF8, ""); }),
              "MIDI track 1, event 1: its kind cannot stand in a file");

    MidiFile file;
    EXPECT_EQ(refusal(file), "A MIDI file has from 1 to 65535 tracks.");
    file.tracks.resize(2);
    EXPECT_EQ(refusal(file), "none");
    file.format = 0;
    EXPECT_EQ(refusal(file), "A MIDI file of format 0 has one track.");
    file.format = 3;
    EXPECT_EQ(refusal(file), "There is no MIDI file of format 3.");
    file.format = 2;
    for (const auto division : {MidiDivision::ofQuarter(0), MidiDivision::ofQuarter(0x8000),
                                MidiDivision::ofFrame(26, 4), MidiDivision::ofFrame(25, 0)}) {
        file.division = division;
        EXPECT_EQ(refusal(file), "The division of the MIDI file means nothing.");
    }
}

TEST(MidiFileWriter, refusedFilesLeaveTheOldOneWhole)
{
    filesystem::RAMFileSystem files;
    const auto good = fileOf([](MidiTrack &track) { track.addNoteOn(0, 0, 60, 1); });
    MidiFileWriter().write(good, *files.open("a.mid", filesystem::OpenMode::Write));
    const auto size = files.open("a.mid", filesystem::OpenMode::Read)->size();
    auto bad = good;
    bad.tracks[0].addNoteOn(0, 0, 128, 1);
    EXPECT_THROW(MidiFileWriter().write(bad, *files.open("a.mid", filesystem::OpenMode::Write)),
                 zarn::CoreException);
    EXPECT_EQ(files.open("a.mid", filesystem::OpenMode::Read)->size(), size);
}

TEST(MidiTrack, sortingKeepsTheOrderWithinATick)
{
    MidiTrack track;
    track.addNoteOn(5, 0, 1, 1);
    track.addNoteOn(2, 0, 2, 1);
    track.addMeta(5, MidiMeta::Text, "x");
    track.addNoteOn(2, 0, 3, 1);
    track.sortByTime();
    ASSERT_EQ(track.events().size(), 4u);
    EXPECT_EQ(track.events()[0].data1, 2);
    EXPECT_EQ(track.events()[1].data1, 3);
    EXPECT_EQ(track.events()[2].data1, 1);
    EXPECT_EQ(track.payload(track.events()[3]), "x");
    EXPECT_EQ(track.endTick(), 5u);
}

TEST(MidiDivision, ticksAreExact)
{
    using utils::rational;
    EXPECT_EQ(MidiDivision::ofQuarter(96).quartersPerTick(), rational(1, 96));
    EXPECT_EQ(MidiDivision::ofQuarter(480).secondsPerTick(600000), rational(1, 800));
    const auto film = MidiDivision::ofFrame(25, 40);
    EXPECT_EQ(film.toWord(), 0xE728);
    EXPECT_EQ(film.secondsPerTick(600000), rational(1, 1000));
    EXPECT_EQ(film.quartersPerTick(), rational(1, 500));
    EXPECT_EQ(MidiDivision::ofFrame(29, 10).secondsPerTick(), rational(1001, 300000));
}
