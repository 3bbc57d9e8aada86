// SPDX-License-Identifier: MIT
#include "PlaybackSamples.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/ZarnMidiExporter.h>
#include <ZarnCore/io/midi/ZarnMidiFile.h>

#include "support/RandomScore.h"

#include <algorithm>
#include <cmath>

namespace zarn::io {

using playback::Sample;
using playback::Value;

namespace {

MidiFile fileOf(const Sample &sample, const MidiExportOptions &options = {})
{
    sample.model->masterTrack()->updatePlayList();
    ExportReport losses;
    return MidiExporter(options).toFile(*sample.model, losses);
}

/// "on 60@0" and the like, for the messages of a kind.
std::string messages(const MidiTrack &track)
{
    std::string text;
    for (const MidiEvent &event : track.events()) {
        const char *const word = event.startsNote() ? "on" : event.endsNote() ? "off" : nullptr;
        if (word)
            text += (text.empty() ? "" : " ") + std::string(word) + " "
                + std::to_string(event.data1) + "@" + std::to_string(event.tick);
    }
    return text;
}

unsigned bigEndian(std::string_view bytes)
{
    unsigned value = 0;
    for (const char byte : bytes)
        value = value << 8 | static_cast<unsigned char>(byte);
    return value;
}

/// What a player of the file makes of a tick.
double secondsAt(const MidiFile &file, std::uint64_t tick)
{
    double seconds = 0;
    std::uint64_t at = 0;
    double rate = 500000;
    const double ticks = file.division.ticksPerQuarter();
    for (const MidiEvent &event : file.tracks[0].events()) {
        if (!event.is(MidiMeta::Tempo) || event.tick > tick)
            continue;
        seconds += static_cast<double>(event.tick - at) * rate / ticks / 1e6;
        at = event.tick;
        rate = bigEndian(file.tracks[0].payload(event));
    }
    return seconds + static_cast<double>(tick - at) * rate / ticks / 1e6;
}

} // namespace

TEST(MidiExporter, notesEndBeforeOthersOfTheirKeyBegin)
{
    Sample sample;
    for (int i = 0; i < 2; ++i)
        sample.add(Value::Half, {60}).note(0)->setAccents(AccentFlag::Tenuto);
    const auto file = fileOf(sample);
    ASSERT_EQ(file.tracks.size(), 2U);
    EXPECT_EQ(messages(file.tracks[1]), "on 60@0 off 60@1920 on 60@1920 off 60@3840");
}

TEST(MidiExporter, ticksAreRoundedOneByOne)
{
    Sample sample;
    for (int i = 0; i < 7; ++i)
        sample.add(Value::Quarter, {60 + i}).setRhythmValue([] {
            RhythmValue rhythm(Value::Quarter);
            rhythm.setPrimaryTupletRatio({7, 4});
            return rhythm;
        }());
    MidiExportOptions options;
    options.ticksPerQuarter = 100;
    const auto file = fileOf(sample, options);
    std::vector<std::uint64_t> ticks;
    for (const MidiEvent &event : file.tracks[1].events())
        if (event.startsNote())
            ticks.push_back(event.tick);
    EXPECT_EQ(ticks, (std::vector<std::uint64_t>{0, 57, 114, 171, 229, 286, 343}));
}

TEST(MidiExporter, temposKeepToThePlanOnLongSlides)
{
    Sample sample(400);
    const auto add = [&](unsigned bar, float value, bool isLinear) {
        auto tempo = std::make_unique<TempoAutomation>();
        tempo->setIndex(bar);
        tempo->setValue(value);
        tempo->setLinear(isLinear);
        sample.model->masterTrack()->insertAutomation(std::move(tempo));
    };
    add(0, 137.3F, false);
    add(150, 41, true);
    add(160, 233, false);
    add(300, 97.77F, true);
    add(390, 60, false);
    const auto plan = sample.plan();
    const auto file = fileOf(sample);
    for (unsigned bar = 0; bar < 400; ++bar)
        for (const unsigned quarter : {0U, 1U, 3U})
            EXPECT_NEAR(secondsAt(file, (bar * 4 + quarter) * 960), *plan.secondOf(bar, quarter),
                        0.0005);
}

TEST(MidiExporter, graceNotesInFrontGetABarOfTheirOwn)
{
    Sample sample(2);
    sample.add(Value::Eighth, {61}).setGraceType(GraceType::BeforeBeat);
    sample.add(Value::Whole, {64});
    const auto file = fileOf(sample);
    EXPECT_EQ(messages(file.tracks[1]).substr(0, 19), "on 61@840 off 61@95");
    std::vector<std::pair<std::uint64_t, int>> meters;
    for (const MidiEvent &event : file.tracks[0].events())
        if (event.is(MidiMeta::TimeSignature))
            meters.emplace_back(event.tick, file.tracks[0].payload(event)[0]);
    EXPECT_EQ(meters, (std::vector<std::pair<std::uint64_t, int>>{{0, 1}, {960, 4}}));
}

TEST(MidiExporter, bendsSetTheirRangeAndGoBack)
{
    Sample sample(2, InstrumentSet::steelGuitar);
    sample.addFretted(Value::Half, 3, 7, 62).setBend(Bend::of(BendType::PreBend, 4));
    sample.addFretted(Value::Half, 3, 7, 62);
    const auto file = fileOf(sample);
    std::vector<int> controls;
    std::vector<std::pair<std::uint64_t, int>> wheel;
    std::uint64_t firstNote = 0;
    bool isBentFirst = false;
    for (const MidiEvent &event : file.tracks[1].events()) {
        if (event.isControl(MidiControl::Parameter) || event.isControl(MidiControl::DataEntry))
            controls.push_back(event.data2);
        if (event.is(MidiMessage::PitchBend))
            wheel.emplace_back(event.tick, event.data1 + event.data2 * 128 - 8192);
        if (event.startsNote() && firstNote++ == 0)
            isBentFirst = !wheel.empty();
    }
    EXPECT_EQ(controls, (std::vector<int>{0, 12, 127}));
    // Two semitones of twelve, until the note ends.
    EXPECT_EQ(wheel, (std::vector<std::pair<std::uint64_t, int>>{{0, 1365}, {1860, 0}}));
    EXPECT_TRUE(isBentFirst) << "bent before it is struck";
}

TEST(MidiExporter, wordsStandAtTheirNotesLineByLine)
{
    Sample sample;
    sample.master(0).setRepeatCount(2);
    sample.add(Value::Half, {60})
        .setLyrics({{0, Syllabic::Begin, false, "Ma"}, {1, Syllabic::Single, false, "Lamb"}});
    sample.add(Value::Half, {62, 64}).setLyrics({{0, Syllabic::End, false, "ry"}});
    sample.add(Value::Whole, {48}, 0, 1).setLyrics({{0, Syllabic::Single, false, "Bass"}});
    const auto file = fileOf(sample);
    std::string words;
    for (const MidiEvent &event : file.tracks[1].events())
        if (event.is(MidiMeta::Lyric))
            words +=
                std::string(file.tracks[1].payload(event)) + "@" + std::to_string(event.tick) + "|";
    EXPECT_EQ(words, "Ma@0|ry @1920|Lamb @3840|ry @5760|");
}

TEST(MidiExporter, oneTrackHoldsTheSameMessages)
{
    const auto model = test::RandomScore(21).make();
    ExportReport losses;
    MidiExportOptions options;
    const auto many = MidiExporter(options).toFile(*model, losses);
    options.format = 0;
    const auto one = MidiExporter(options).toFile(*model, losses);
    ASSERT_EQ(one.tracks.size(), 1U);
    const auto sorted = [](const MidiFile &file) {
        std::vector<std::tuple<std::uint64_t, int, int, int>> events;
        for (const MidiTrack &track : file.tracks)
            for (const MidiEvent &event : track.events())
                if (event.isChannelMessage())
                    events.emplace_back(event.tick, event.status, event.data1, event.data2);
        std::sort(events.begin(), events.end());
        return events;
    };
    EXPECT_EQ(sorted(one), sorted(many));
}

TEST(MidiExporter, refusesWhatIsNoResolutionOrFormat)
{
    for (const auto &[ticks, format] : {std::pair(0, 1), {23, 1}, {40000, 1}, {480, 2}}) {
        MidiExportOptions options;
        options.ticksPerQuarter = ticks;
        options.format = format;
        EXPECT_THROW(MidiExporter exporter(options), CoreException);
    }
}

} // namespace zarn::io
