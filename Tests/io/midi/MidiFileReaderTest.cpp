// SPDX-License-Identifier: MIT
#include "../Scores.h"

#include <ZarnCore/io/ZarnImportException.h>
#include <ZarnCore/io/midi/ZarnMidiFileReader.h>
#include <ZarnCore/io/midi/ZarnMidiFileWriter.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <algorithm>

using zarn::io::ImportReport;
using zarn::io::MidiFile;
using zarn::io::MidiFileReader;
using zarn::io::MidiFileWriter;
using zarn::io::MidiMeta;
using zarn::io::MidiTrack;

namespace {

/// The bytes that a text like "4d 54" writes.
std::string bytesOf(const std::string &text)
{
    return QByteArray::fromHex(QByteArray::fromStdString(text)).toStdString();
}

/// A file of format 1 with a quarter of 96 ticks and these chunks.
std::string file(const std::vector<std::string> &chunks, const char *tracks = "0001")
{
    std::string bytes = bytesOf(std::string("4d546864 00000006 0001 ") + tracks + " 0060");
    for (const auto &chunk : chunks)
        bytes += chunk;
    return bytes;
}

std::string track(const std::string &hex, int lengthError = 0)
{
    const std::string content = bytesOf(hex);
    const auto length = static_cast<char>(static_cast<int>(content.size()) + lengthError);
    return std::string("MTrk") + std::string(3, '\0') + length + content;
}

std::size_t noteCount(const MidiTrack &track)
{
    return static_cast<std::size_t>(
        std::count_if(track.events().begin(), track.events().end(),
                      [](const auto &event) { return event.startsNote(); }));
}

/// Notes of each track, and what was told: "2 1: part 1: byte 40: a byte that ...".
std::string readingOf(const std::string &bytes)
{
    ImportReport report;
    std::string text;
    try {
        for (const auto &track : MidiFileReader().read("a.mid", bytes, report).tracks)
            text += (text.empty() ? "" : " ") + std::to_string(noteCount(track));
    } catch (const zarn::io::ImportException &error) {
        return error.message();
    }
    for (const auto &problem : report.problems())
        text += "; " + problem.toString();
    return text;
}

constexpr const char *twoNotes = "00 90 3c 40 60 3e 40 60 80 3c 00 00 80 3e 00 00 ff 2f 00";

} // namespace

TEST(MidiFileReader, whatTheWriterWroteComesBack)
{
    MidiFile written;
    written.format = 1;
    written.tracks.resize(2);
    written.tracks[0].addTempo(0, 400000);
    written.tracks[0].addMeta(7, MidiMeta::Marker, std::string(300, 'x'));
    written.tracks[0].setEndTick(1u << 27);
    for (unsigned tick = 0; tick < 4000; tick += 7) {
        written.tracks[1].addNoteOn(tick * tick, tick % 16, tick % 128, 1 + tick % 127);
        written.tracks[1].addPitchBend(tick * tick, 3, static_cast<int>(tick) - 2000);
    }
    written.tracks[1].addSystemEvent(1u << 28, 0xF7, "\x01\x02");
    const std::string bytes = MidiFileWriter().toBytes(written);
    ImportReport report;
    const auto read = MidiFileReader().read("a.mid", bytes, report);
    EXPECT_TRUE(report.problems().empty());
    EXPECT_EQ(MidiFileWriter().toBytes(read), bytes);
}

TEST(MidiFileReader, whatIsNoMidiFileIsRefusedWithByteAndReason)
{
    EXPECT_EQ(readingOf(""), "a.mid: byte 0: no MIDI file: it does not begin with \"MThd\"");
    EXPECT_EQ(readingOf("MThd"), "a.mid: byte 4: the header is too short");
    EXPECT_EQ(readingOf(bytesOf("4d546864 00000004 0001 0001 0060")),
              "a.mid: byte 4: the header is too short");
    EXPECT_EQ(readingOf(file({})), "a.mid: byte 14: there is no track");
    EXPECT_EQ(readingOf("RIFF    WAVEfmt "),
              "a.mid: byte 8: a RIFF file without a MIDI file in it");
}

TEST(MidiFileReader, wrongLengthsLoseNoNote)
{
    const auto good = track(twoNotes);
    EXPECT_EQ(readingOf(file({good, good}, "0002")), "2 2");
    EXPECT_EQ(readingOf(file({track(twoNotes, 12), good}, "0002")),
              "2 2; part 1: byte 41: the track is shorter than its stated length");
    EXPECT_EQ(readingOf(file({track(twoNotes, -7), good}, "0002")),
              "2 2; part 1: byte 34: the track goes on behind its stated length");
    const auto foreign = "JUNK" + std::string(3, '\0') + std::string("\2ab");
    EXPECT_EQ(readingOf(file({track("00 90 3c 40"), foreign, good}, "0002")),
              "1 2; part 1: byte 26: the track has no end-of-track event; "
              "byte 26: a chunk that is no track was passed over");
}

TEST(MidiFileReader, oddEventsAreToldAndTheNotesRead)
{
    EXPECT_EQ(readingOf(file({track("00 90 3c 40 00 ff 01 00 60 3e 40 00 ff 2f 00")})),
              "2; part 1: byte 30: running status goes on behind a meta or system event");
    EXPECT_EQ(readingOf(file({track("00 3c 00 90 3c 40 00 f8 00 f2 01 02 60 3e 40 00 ff 2f 00")})),
              "2; part 1: byte 23: a byte that belongs to no event was left out; "
              "part 1: byte 28: a system message that has no place in a file was left out "
              "(2 times in all)");
    EXPECT_EQ(readingOf(file({track("00 90 3c 40 60 3e 40 00 ff 2f 00 00 00"), "ab"}, "0009")),
              "2; part 1: byte 33: bytes behind the end of the track were left out; "
              "byte 35: bytes behind the last chunk were left out; "
              "the header speaks of 9 tracks, and the file has 1");
    EXPECT_EQ(readingOf(file({track("00 90 3c 40 ff ff ff ff 00 00 ff 2f 00"), track(twoNotes)})),
              "1 2; part 1: byte 26: a time of more than four bytes: the rest of the track was "
              "left out; the header speaks of 1 tracks, and the file has 2");
    const auto container = "RIFF" + std::string(4, '\1') + "RMIDdata" + std::string(4, '\1');
    EXPECT_EQ(readingOf(container + file({track(twoNotes)})), "2");
}

TEST(MidiFileReader, everyCutLeavesWhatWasThere)
{
    const std::string whole = file({track(twoNotes), track(twoNotes)}, "0002");
    std::size_t before = 0;
    for (std::size_t size = 22; size < whole.size(); ++size) {
        ImportReport report;
        const auto read = MidiFileReader().read("a.mid", whole.substr(0, size), report);
        std::size_t notes = 0;
        for (const auto &track : read.tracks)
            notes += noteCount(track);
        EXPECT_GE(notes, before) << size;
        before = notes;
        EXPECT_FALSE(report.problems().empty()) << size;
    }
    EXPECT_EQ(before, 4u);
}

TEST(MidiFileReader, realFilesHaveAllNotesOfTheirTruth)
{
    SKIP_WITHOUT_SCORES();
    const auto truth =
        QJsonDocument::fromJson(scores::bytesOf(scores::folder() + QStringLiteral("/truth.json")))
            .object()[QStringLiteral("midi")]
            .toObject();
    ASSERT_EQ(truth.size(), 15);
    for (const auto &name : truth.keys()) {
        SCOPED_TRACE(name.toStdString());
        const auto expected = truth[name].toObject();
        const auto bytes =
            scores::bytesOf(scores::folder() + QStringLiteral("/midi/") + name).toStdString();
        ImportReport report;
        const auto file = MidiFileReader().read(name.toStdString(), bytes, report);
        const auto tracks = expected[QStringLiteral("tracks")].toArray();
        ASSERT_EQ(static_cast<int>(file.tracks.size()), tracks.size());
        EXPECT_EQ(file.format, expected[QStringLiteral("format")].toInt());
        for (int i = 0; i < tracks.size(); ++i) {
            const auto &read = file.tracks[static_cast<std::size_t>(i)];
            const auto track = tracks[i].toObject();
            EXPECT_EQ(static_cast<int>(noteCount(read)), track[QStringLiteral("note_on")].toInt());
            EXPECT_EQ(static_cast<double>(read.endTick()),
                      track[QStringLiteral("end_tick")].toDouble());
            if (track[QStringLiteral("running_after_meta")].toBool()) {
                EXPECT_TRUE(report.hasProblem("running status"));
            }
        }
        if (!expected[QStringLiteral("problems")].toArray().isEmpty()) {
            EXPECT_FALSE(report.problems().empty());
        }
        if (expected[QStringLiteral("foreign_chunks")].toInt() > 0) {
            EXPECT_TRUE(report.hasProblem("no track was passed over"));
        }
    }
}
