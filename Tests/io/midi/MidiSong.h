// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnMidiImporter.h>
#include <ZarnCore/io/ZarnNoteList.h>
#include <ZarnCore/io/midi/ZarnMidiFile.h>
#include <ZarnCore/io/midi/ZarnMidiFileWriter.h>
#include <ZarnCore/model/ZarnModelCheck.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <filesystem/RAMFileSystem.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/// MIDI files that are made event by event, and what the importer makes of them.
namespace test {

constexpr std::uint64_t quarter = 480;

using zarn::ScoreModel;
using zarn::io::ImportReport;
using zarn::io::ListedNote;
using zarn::io::listNotes;
using zarn::io::MidiFile;
using zarn::io::MidiFileWriter;
using zarn::io::MidiImporter;
using zarn::io::MidiImportOptions;
using zarn::io::MidiTrack;

struct Imported {
    std::shared_ptr<ScoreModel> model;
    ImportReport report;
};

inline Imported import(const std::string &bytes, const MidiImportOptions &options = {})
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
    Song()
    {
        _file.tracks.reserve(mostTracks);
        track();
    }

    /// A new one; those before stay where they are.
    MidiTrack &track()
    {
        EXPECT_LT(_file.tracks.size(), mostTracks);
        _file.tracks.emplace_back();
        return _file.tracks.back();
    }
    MidiTrack &conductor() { return _file.tracks.front(); }

    inline Imported import(const MidiImportOptions &options = {})
    {
        for (auto &track : _file.tracks)
            track.sortByTime();
        return test::import(MidiFileWriter().toBytes(_file), options);
    }

private:
    static constexpr std::size_t mostTracks = 200;

    MidiFile _file;
};

inline void add(MidiTrack &track, double at, double length, int key, int channel = 0)
{
    const auto tick = [](double quarters) {
        return static_cast<std::uint64_t>(quarters * static_cast<double>(quarter) + 0.5);
    };
    track.addNoteOn(tick(at), channel, key, 80);
    track.addNoteOff(tick(at + length) - 1, channel, key);
}

/// "1:0 60 1/2 | ...": bar and onset of each note, its key and its length in quarters; "~" when it
/// is tied to the one before, "v2" in front in the second voice, "s2" on the second staff.
inline std::string notesOf(const Imported &imported, unsigned track = 0)
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

inline std::string spellingsOf(const Imported &imported)
{
    std::string text;
    for (const ListedNote &note : listNotes(*imported.model))
        text += (text.empty() ? "" : " ") + note.spelling;
    return text;
}

} // namespace test
