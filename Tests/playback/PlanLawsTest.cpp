// SPDX-License-Identifier: MIT
// What holds for the plan of any score.
#include "PlaybackSamples.h"

#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/ZarnMidiExporter.h>
#include <ZarnCore/io/midi/ZarnMidiFile.h>
#include <ZarnCore/io/midi/ZarnMidiFileWriter.h>
#include <ZarnCore/playback/ZarnPlanEvents.h>

#include "support/RandomScore.h"
#include "support/ScoreFiles.h"

#include <algorithm>
#include <map>
#include <thread>
#include <tuple>

namespace zarn::playback {

namespace {

/// Each note lies where it may, and no channel sounds a key twice at once.
void expectSound(const PlaybackPlan &plan)
{
    std::map<std::tuple<int, int, int>, std::pair<utils::rational, utils::rational>> last;
    const PlannedNote *before = nullptr;
    for (const PlannedNote &note : plan.notes()) {
        EXPECT_LT(note.start, note.end);
        EXPECT_LE(note.startSecond, note.endSecond);
        EXPECT_LE(note.key, 127);
        EXPECT_GE(note.velocity, 1);
        EXPECT_LE(note.velocity, 127);
        EXPECT_GE(note.start, plan.start());
        EXPECT_LE(note.end, plan.end());
        ASSERT_LT(note.lane, plan.lanes().size());
        ASSERT_LT(note.playedBar, plan.bars().bars().size());
        EXPECT_TRUE(before == nullptr || before->start <= note.start);
        const Lane &lane = plan.lanes()[note.lane];
        EXPECT_EQ(lane.track, note.track);
        EXPECT_TRUE(note.motion == PlannedNote::NoMotion || lane.bendRange != 0);
        const auto [place, isNew] =
            last.insert({{lane.port, lane.channel, note.key}, {note.start, note.end}});
        if (!isNew) {
            const auto &[start, end] = place->second;
            EXPECT_TRUE(end <= note.start || (start == note.start && end == note.end));
            place->second = {note.start, note.end};
        }
        before = &note;
    }
}

/// Each note begins in the bar that it is written in: those that are held into another bar may be
/// struck again there, grace notes begin a little earlier, as do strums that end on the beat.
void expectInBars(const ScoreModel &model, const PlaybackPlan &plan)
{
    for (const PlannedNote &note : plan.notes()) {
        const auto &voice =
            model.track(note.track)->bar(note.bar, note.staff)->voices()[note.voice];
        const auto &beats = voice->beats();
        const Beat &beat = *beats[note.beat];
        const auto isHeldOn = [](const auto &each) { return each->isTieOrigin(); };
        const PlayedBar &bar = plan.bars().bars()[note.playedBar];
        if (std::none_of(beat.notes().begin(), beat.notes().end(), isHeldOn)) {
            EXPECT_LT(note.start, bar.start + bar.length);
        }
        const bool endsOnBeat = beat.brush().anchor == StrumAnchor::EndsOnBeat
            || beat.arpeggio().anchor == StrumAnchor::EndsOnBeat;
        const auto graces = std::count_if(beats.begin(), beats.end(),
                                          [](const auto &each) { return each->isGrace(); });
        if (!endsOnBeat) {
            EXPECT_GE(note.start, bar.start - utils::rational(graces, 4));
        }
    }
}

std::string described(const PlannedNote &note, const utils::rational &from, std::size_t firstBar)
{
    return std::to_string(note.key) + " " + std::to_string(note.velocity) + " "
        + (note.start - from).toString() + " " + std::to_string(note.track) + " "
        + std::to_string(note.playedBar - firstBar) + " " + std::to_string(note.beat);
}

std::string bytesOf(const ScoreModel &model)
{
    io::ExportReport losses;
    return io::MidiFileWriter().toBytes(io::MidiExporter().toFile(model, losses));
}

} // namespace

TEST(PlanLaws, randomScoresArePlannedAndWritten)
{
    for (std::uint32_t seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        const auto model = test::RandomScore(seed).make();
        // Some repeat their bars hundreds of times, which shows nothing more.
        if (model->masterTrack()->playlist().size() > 300)
            continue;
        for (const Channels channels : {Channels::OnePerTrack, Channels::OnePerString}) {
            PlanOptions options;
            options.channels = channels;
            options.audibility = Audibility::Everything;
            const PlaybackPlan plan(*model, options);
            expectSound(plan);
            expectInBars(*model, plan);
        }
        EXPECT_FALSE(bytesOf(*model).empty());
    }
}

TEST(PlanLaws, realScoresArePlannedAndCutLikeTheWhole)
{
    for (const std::string &path : scoreFiles()) {
        SCOPED_TRACE(path);
        const auto model = readScore(path);
        const PlaybackPlan whole(*model);
        expectSound(whole);
        expectInBars(*model, whole);
        const unsigned count = model->masterTrack()->masterBarCount();
        PlanOptions options;
        options.bars = {count / 3, count / 2};
        const PlaybackPlan part(*model, options);
        const auto stretch = whole.bars().within(count / 3, count / 2);
        if (stretch.begin == stretch.end)
            continue;
        const utils::rational from = whole.bars().bars()[stretch.begin].start;
        const utils::rational to = from + part.bars().length();
        std::vector<std::string> wanted;
        for (const PlannedNote &note : whole.notes())
            if (note.start >= from && note.start < to)
                wanted.push_back(described(note, from, stretch.begin));
        std::vector<std::string> found;
        for (const PlannedNote &note : part.notes())
            found.push_back(described(note, 0, 0));
        EXPECT_EQ(found, wanted);
        EXPECT_NEAR(part.tempo().secondsAt(part.bars().length()),
                    whole.tempo().secondsAt(to) - whole.tempo().secondsAt(from), 1e-6);
    }
}

TEST(PlanLaws, muteAndSoloLeaveOutWholeTracks)
{
    const auto model = test::RandomScore(7).make(3);
    const auto countOf = [&](const PlanOptions &options) {
        std::map<unsigned, std::size_t> counts;
        const PlaybackPlan plan(*model, options);
        for (const PlannedNote &note : plan.notes())
            ++counts[note.track];
        return counts;
    };
    for (const auto &track : model->tracks())
        track->setPlayback(TrackPlayback::Normal);
    const auto all = countOf({});
    model->track(1)->setPlayback(TrackPlayback::Mute);
    auto rest = all;
    rest.erase(1);
    EXPECT_EQ(countOf({}), rest);
    model->track(2)->setPlayback(TrackPlayback::Solo);
    rest.erase(0);
    EXPECT_EQ(countOf({}), rest);
    PlanOptions everything;
    everything.audibility = Audibility::Everything;
    EXPECT_EQ(countOf(everything), all);
}

TEST(PlanLaws, placesLeadToTimesAndBack)
{
    for (const std::string &path : scoreFiles()) {
        SCOPED_TRACE(path);
        const auto model = readScore(path);
        const PlaybackPlan plan(*model);
        for (const PlayedBar &played : plan.bars().bars()) {
            const utils::rational offset = played.length / 3;
            const auto second = plan.secondOf(played.bar, offset, played.pass);
            ASSERT_TRUE(second.has_value());
            const auto place = plan.placeAt(*second);
            ASSERT_TRUE(place.has_value());
            EXPECT_EQ(place->bar, played.bar);
            EXPECT_EQ(plan.bars().bars()[place->playedBar].pass, played.pass);
            EXPECT_NEAR(place->offset.toDouble(), offset.toDouble(), 1e-4);
        }
    }
    EXPECT_FALSE(PlaybackPlan(ScoreModel()).placeAt(1).has_value());
    EXPECT_FALSE(PlaybackPlan(ScoreModel()).secondOf(0, 0).has_value());
}

TEST(PlanLaws, eventsEndNotesBeforeOthersBegin)
{
    const auto model = test::RandomScore(11).make();
    const PlaybackPlan plan(*model);
    const auto events = eventsOf(plan);
    EXPECT_EQ(events.size(), plan.notes().size() * 2 + plan.controls().size());
    std::vector<int> isOn(plan.notes().size());
    for (std::size_t i = 0; i < events.size(); ++i) {
        EXPECT_TRUE(
            i == 0 || events[i - 1].time < events[i].time
            || (events[i - 1].time == events[i].time && events[i - 1].kind <= events[i].kind));
        if (events[i].kind == PlanEvent::Kind::Control)
            continue;
        const int before = events[i].kind == PlanEvent::Kind::NoteOn ? 0 : 1;
        EXPECT_EQ(isOn[events[i].index]++, before);
    }
}

TEST(PlanLaws, manyThreadsPlanAndReadAtOnce)
{
    const auto model = test::RandomScore(3).make();
    const PlaybackPlan plan(*model);
    std::vector<std::string> results(4);
    std::vector<std::thread> threads;
    for (std::string &result : results)
        threads.emplace_back([&plan, &model, &result] {
            const PlaybackPlan own(*model);
            for (const PlanEvent &event : eventsOf(plan))
                result += std::to_string(event.second) + " ";
            result += plan.placeAt(1) ? "1" : "0";
            result += std::to_string(own.notes().size());
        });
    for (std::thread &thread : threads)
        thread.join();
    for (const std::string &result : results)
        EXPECT_EQ(result, results.front());
}

} // namespace zarn::playback
