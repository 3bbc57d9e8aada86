// SPDX-License-Identifier: MIT
#include "ToolRun.h"

#include <ZarnCore/io/midi/ZarnMidiFile.h>
#include <ZarnCore/io/midi/ZarnMidiFileWriter.h>

using namespace zarn::test;

namespace {

/// Triplet eighths on a flute.
std::string triplets()
{
    zarn::io::MidiFile file;
    file.tracks.resize(1);
    auto &track = file.tracks.front();
    track.addProgram(0, 0, 73);
    for (unsigned i = 0; i < 12; ++i) {
        track.addNoteOn(i * 160, 0, 72 + static_cast<int>(i % 5), 80);
        track.addNoteOff(i * 160 + 159, 0, 72 + static_cast<int>(i % 5));
    }
    return zarn::io::MidiFileWriter().toBytes(file);
}

} // namespace

TEST(Midi, filesAreShownAndConvertedAsTheOptionsSay)
{
    const std::string song = triplets();
    const ToolRun shown = runTool({QStringLiteral("show"), QStringLiteral("-")}, song);
    EXPECT_EQ(shown.code, 0) << shown.err;
    EXPECT_NE(shown.out.find("Flute"), std::string::npos) << shown.out;
    EXPECT_NE(shown.out.find("bracket 3 triplet"), std::string::npos) << shown.out;

    const ToolRun plain = runTool(
        {QStringLiteral("show"), QStringLiteral("-"), QStringLiteral("--no-tuplets")}, song);
    EXPECT_EQ(plain.out.find("triplet"), std::string::npos) << plain.out;

    const ToolRun converted =
        runTool({QStringLiteral("convert"), QStringLiteral("-"), QStringLiteral("-"),
                 QStringLiteral("--no-tuplets"), QStringLiteral("--grid"), QStringLiteral("1/4")},
                song);
    EXPECT_EQ(converted.code, 0) << converted.err;
    EXPECT_EQ(converted.out.find("\"rhythm\":\"8"), std::string::npos) << converted.out;
    EXPECT_EQ(converted.out.find("\"rhythm\":\"16"), std::string::npos) << converted.out;
}

TEST(Midi, wrongGridsAndFilesAreNamed)
{
    for (const char *const grid : {"1/3", "16", "1/256", "0/4", "x"}) {
        const ToolRun run = runTool({QStringLiteral("show"), QStringLiteral("-"),
                                     QStringLiteral("--grid"), QLatin1String(grid)},
                                    triplets());
        EXPECT_EQ(run.code, 2) << grid;
        EXPECT_NE(run.err.find("--grid takes a note value"), std::string::npos) << run.err;
    }
    const ToolRun run =
        runTool({QStringLiteral("show"), QStringLiteral("-")}, "MThd" + std::string(10, '\0'));
    EXPECT_EQ(run.code, 1);
    EXPECT_NE(run.err.find("standard input: byte 4: the header is too short"), std::string::npos)
        << run.err;
}
