// SPDX-License-Identifier: MIT
// Scores that go into a MIDI file and come back: what the file says of how they are written, and
// what becomes of that when others change the notes.
#include "../Scores.h"
#include "MidiSong.h"

#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/ZarnMidiExporter.h>

#include <algorithm>
#include <random>

using namespace test;
using namespace zarn::io;

namespace {

/// A note of a document: "C5 4 v1 s1", with what stands inside of it behind.
std::string note(const std::string &pitch, int duration, int voice, int staff,
                 const std::string &more = "", bool isChord = false)
{
    const std::string alter = pitch.size() > 2 ? (pitch[1] == '#' ? "1" : "-1") : "0";
    return "<note>" + std::string(isChord ? "<chord/>" : "") + "<pitch><step>" + pitch[0]
        + "</step><alter>" + alter + "</alter><octave>" + pitch.back()
        + "</octave></pitch><duration>" + std::to_string(duration) + "</duration>" + more
        + "<voice>" + std::to_string(voice) + "</voice><staff>" + std::to_string(staff)
        + "</staff></note>";
}

std::string back(int duration)
{
    return "<backup><duration>" + std::to_string(duration) + "</duration></backup>";
}

/// A piano piece that nobody could tell from its keys: a pickup, hands that cross, one key in two
/// voices, a chord of which one note is held, odd spellings, a bar in two halves.
std::shared_ptr<ScoreModel> piece()
{
    const std::string dot = "<notations><articulations><staccato/></articulations></notations>";
    const std::string start = "<tie type=\"start\"/>";
    const std::string stop = "<tie type=\"stop\"/>";
    const std::string text =
        "<score-partwise version=\"4.0\"><part-list><score-part id=\"P1\"><part-name>Piano"
        "</part-name></score-part></part-list><part id=\"P1\"><measure number=\"0\" "
        "implicit=\"yes\"><attributes><divisions>4</divisions><time><beats>4</beats><beat-type>4"
        "</beat-type></time><staves>2</staves></attributes>"
        + note("G4", 4, 1, 1) + back(4) + note("A5", 4, 5, 2) + "</measure><measure number=\"1\">"
        + note("C5", 8, 1, 1) + note("E5", 8, 1, 1, start, true) + note("D#5", 8, 1, 1)
        + note("E5", 8, 1, 1, stop, true) + back(16) + note("C5", 16, 2, 1) + back(16)
        + note("B2", 4, 5, 2) + note("Cb3", 4, 5, 2) + note("C6", 8, 5, 2)
        + "</measure><measure number=\"2\">" + note("F4", 2, 1, 1) + note("F4", 2, 1, 1)
        + note("G4", 4, 1, 1) + back(8) + note("C3", 8, 5, 2)
        + "</measure><measure number=\"X1\" implicit=\"yes\">" + note("E#4", 8, 1, 1) + back(8)
        + note("C3", 8, 5, 2) + "</measure><measure number=\"3\">" + note("G4", 16, 1, 1) + back(16)
        + note("C3", 16, 5, 2) + "</measure></part></score-partwise>";
    ImportReport report;
    return scores::import(QByteArray::fromStdString(text), report);
}

MidiFile fileOf(const ScoreModel &model, int ticks = 960)
{
    MidiExportOptions options;
    options.ticksPerQuarter = ticks;
    ExportReport losses;
    return MidiExporter(options).toFile(model, losses);
}

Imported readBack(const MidiFile &file)
{
    return test::import(MidiFileWriter().toBytes(file));
}

/// The notes with all that is said of them, in one order.
std::vector<std::string> written(const ScoreModel &model, int bar = -1)
{
    std::vector<std::string> lines;
    for (const ListedNote &note : listNotes(model))
        if (bar < 0 || note.bar == static_cast<unsigned>(bar))
            lines.push_back(note.toString());
    std::sort(lines.begin(), lines.end());
    return lines;
}

/// Takes the events of a track out that a function does not want.
template <typename Keeps>
void keepOnly(MidiTrack &track, const Keeps &keeps)
{
    MidiTrack kept;
    for (const MidiEvent &event : track.events())
        if (keeps(event))
            kept.add(event, track.payload(event));
    kept.setEndTick(track.endTick());
    track = kept;
}

} // namespace

TEST(NotatedBar, scoresComeBackAsTheyWere)
{
    const auto model = piece();
    for (const int ticks : {960, 480, 96}) {
        SCOPED_TRACE(ticks);
        const auto imported = readBack(fileOf(*model, ticks));
        EXPECT_EQ(written(*imported.model), written(*model));
        EXPECT_EQ(imported.report.problems().size(), 0U);
        const auto &bars = model->masterTrack()->masterBars();
        const auto &back = imported.model->masterTrack()->masterBars();
        ASSERT_EQ(back.size(), bars.size());
        for (std::size_t i = 0; i < bars.size(); ++i) {
            EXPECT_EQ(back[i]->timeSignature(), bars[i]->timeSignature());
            EXPECT_EQ(back[i]->length(), bars[i]->length());
        }
    }
}

TEST(NotatedBar, realScoresComeBackAsTheyWere)
{
    SKIP_WITHOUT_SCORES();
    for (const char *const name : {"ly-42a-two-voices.xml", "ly-43d-staff-change.xml",
                                   "openscore-parratt-eight-parts.mxl"}) {
        SCOPED_TRACE(name);
        ImportReport report;
        const auto model = scores::import(
            scores::bytesOf(scores::folder() + QStringLiteral("/musicxml/") + QLatin1String(name)),
            report, name);
        const auto attacks = [](const ScoreModel &of) {
            std::vector<std::string> lines;
            for (ListedNote note : listNotes(of)) {
                note.string = note.fret = -1; // these the solver finds anew
                note.leftFinger = note.rightFinger = zarn::Fingering::None;
                lines.push_back(note.toString());
            }
            std::sort(lines.begin(), lines.end());
            return lines;
        };
        EXPECT_EQ(attacks(*readBack(fileOf(*model)).model), attacks(*model));
    }
}

TEST(NotatedBar, knocksAndOtherPortsTakeNothingAway)
{
    using namespace zarn;
    const auto model = std::make_shared<ScoreModel>();
    model->insertEmptyBarColumns(0, 2);
    const auto track = model->createAndInsertTrack(0, InstrumentSet::steelGuitar);
    for (const auto &bar : track->bars(0)) {
        bar->ensureVoice(0)->clear();
        for (int i = 0; i < 4; ++i) {
            const auto beat = std::make_shared<Beat>();
            for (const int key : {52, 64}) {
                const auto note = std::make_shared<Note>(key);
                if (key == 64 && i == 1)
                    note->setBend(Bend::of(BendType::Bend, 4));
                beat->addNote(note);
            }
            beat->setGolpe(i == 2 ? ZarnGolpeType::Finger : ZarnGolpeType::None);
            bar->voice(0)->addBeat(beat);
        }
    }
    track->setMidiConnection(MidiConnection{3, 5, 5}); // the bends need another channel
    const auto file = fileOf(*model);
    EXPECT_EQ(file.tracks.size(), 2U);
    const auto imported = readBack(file);
    EXPECT_FALSE(imported.report.hasProblem("no longer as the file says"));
    EXPECT_EQ(imported.model->trackCount(), 2U); // the knocks are a part of their own
}

TEST(NotatedBar, barsThatWereChangedAreReadAnew)
{
    const auto model = piece();
    auto file = fileOf(*model);
    // The first F of the third bar, behind a quarter and four.
    constexpr std::uint64_t bar = 5 * 960;
    keepOnly(file.tracks[1], [](const MidiEvent &event) {
        const bool isFirst = event.tick >= bar && event.tick < bar + 480;
        return !(event.isChannelMessage() && (event.startsNote() || event.endsNote()) && isFirst
                 && event.data1 == 65);
    });
    const auto imported = readBack(file);
    EXPECT_TRUE(imported.report.hasProblem("no longer as the file says"));
    for (const int same : {0, 1, 3, 4})
        EXPECT_EQ(written(*imported.model, same), written(*model, same)) << same;
    EXPECT_EQ(written(*imported.model, 2).size(), written(*model, 2).size() - 1);
}

TEST(NotatedBar, filesThatSayNothingHoldTheSameNotes)
{
    const auto model = piece();
    MidiExportOptions plain;
    plain.saysNotation = false;
    ExportReport losses;
    const auto file = MidiExporter(plain).toFile(*model, losses);
    auto said = fileOf(*model);
    for (MidiTrack &track : said.tracks)
        keepOnly(track, [](const MidiEvent &e) { return !e.is(MidiMeta::SequencerSpecific); });
    EXPECT_EQ(MidiFileWriter().toBytes(file), MidiFileWriter().toBytes(said));
}

TEST(NotatedBar, whatIsBrokenIsPassedOver)
{
    const auto model = piece();
    const auto whole = fileOf(*model);
    std::mt19937 dice(11);
    for (int round = 0; round < 300; ++round) {
        MidiFile file = whole;
        for (MidiTrack &track : file.tracks) {
            MidiTrack changed;
            for (const MidiEvent &event : track.events()) {
                std::string payload(track.payload(event));
                if (event.is(MidiMeta::SequencerSpecific) && dice() % 3 == 0) {
                    if (dice() % 2 == 0)
                        payload.resize(dice() % (payload.size() + 1));
                    else
                        payload[6 + dice() % (payload.size() - 6)] = static_cast<char>(dice());
                }
                changed.add(event, payload);
            }
            track = changed;
        }
        const auto imported = readBack(file); // checks the model
        std::size_t struck = 0;
        for (const ListedNote &note : listNotes(*imported.model))
            struck += !note.isTied;
        EXPECT_GE(struck, 10U);
    }
}
