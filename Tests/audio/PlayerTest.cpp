// SPDX-License-Identifier: MIT
// The player's transport, and what it follows.
#include "Playing.h"

#include <ZarnAudio/ZarnScoreRenderer.h>
#include <ZarnCore/playback/ZarnPlaybackPlan.h>

namespace {

using namespace playing;
using zarn::playback::PlaybackPlan;

TEST_F(Playing, isTheSoundOfTheRenderer)
{
    const auto model = modelOf("saints-band.musicxml");
    _player->setScore(*model);
    _player->play();
    EXPECT_EQ(_player->state(), State::Playing);
    constexpr std::int64_t count = 10 * rate;
    const auto played = _output->take(count, 777);
    ScoreRenderer::Settings settings;
    settings.hasReverb = false;
    ScoreRenderer renderer(PlaybackPlan(*model), settings);
    ASSERT_TRUE(renderer.loadFont(findSoundFont({}, nullptr), nullptr));
    filesystem::RAMFileSystem files;
    AudioWriter writer(files.open("x", filesystem::OpenMode::Write),
                       format(AudioFormat::File::Wav, AudioFormat::Encoding::Float32));
    ASSERT_TRUE(renderer.write(writer) && writer.finish());
    const auto rendered = decoded(*decoder(contentOf(files, "x")));
    // The player's limiter looks five milliseconds ahead.
    const std::int64_t late = onset(played) - onset(rendered);
    EXPECT_NEAR(double(late), 0.005 * rate, 2);
    std::size_t differing = 0;
    for (std::int64_t i = 0; i < 2 * (count - late); ++i)
        differing += played[std::size_t(i + 2 * late)] != rendered[std::size_t(i)] ? 1 : 0;
    EXPECT_EQ(differing, 0u);
}

TEST_F(Playing, startsPausesAndSeeks)
{
    const auto model = modelOf("romance-guitar-study.musicxml");
    _player->setScore(*model);
    EXPECT_EQ(_player->state(), State::Stopped);
    EXPECT_EQ(highest(_output->take(rate)), 0.0F);
    _player->play();
    EXPECT_GT(highest(_output->take(2 * rate)), 0.01F);
    EXPECT_EQ(_player->state(), State::Playing);
    EXPECT_NEAR(_player->second(), 2, 0.1);
    _player->pause();
    EXPECT_EQ(_player->state(), State::Stopped);
    _output->take(4096);
    const double paused = _player->second();
    EXPECT_EQ(highest(_output->take(rate)), 0.0F);
    EXPECT_EQ(_player->second(), paused);
    _player->play();
    EXPECT_GT(highest(_output->take(rate)), 0.01F);
    EXPECT_NEAR(_player->second(), paused + 1, 0.1);

    ASSERT_TRUE(_player->seek(8, {1}));
    const auto place = _player->place();
    ASSERT_TRUE(place);
    EXPECT_EQ(place->bar, 8u);
    EXPECT_NEAR(place->offset.toDouble(), 1, 0.001);
    const double there = *_player->plan()->secondOf(8, {1});
    EXPECT_NEAR(_player->second(), there, 1e-9);
    _output->take(rate);
    EXPECT_NEAR(_player->second(), there + 1, 0.1);
    EXPECT_FALSE(_player->seek(5000));

    bool isFinished = false;
    _player->setFinishedCallback([&isFinished] { isFinished = true; });
    const auto &plan = *_player->plan();
    _player->seekSecond(plan.tempo().secondsAt(plan.end()) - 0.5);
    _output->take(12 * rate);
    EXPECT_FALSE(isFinished);
    _player->poll();
    EXPECT_TRUE(isFinished);
    EXPECT_EQ(_player->state(), State::Stopped);
    _player->play();
    _output->take(rate);
    EXPECT_NEAR(_player->second(), 1, 0.1) << "from the beginning";
    EXPECT_EQ(_output->calls, 0u);
}

TEST_F(Playing, slowsDownAtTheSamePitchAndLoopsExactly)
{
    const auto model = modelOf("romance-guitar-study.musicxml");
    _player->setScore(*model);
    _player->setSpeed(0.5);
    _player->play();
    _output->take(4 * rate);
    EXPECT_NEAR(_player->second(), 2, 0.1);
    _player->setSpeed(2);
    _output->take(rate);
    EXPECT_NEAR(_player->second(), 4, 0.1);
    _player->pause();
    _output->take(4096);

    _player->setSpeed(1);
    EXPECT_FALSE(_player->setLoop(900, 901));
    ASSERT_TRUE(_player->setLoop(2, 3));
    const auto &plan = *_player->plan();
    const double begin = *plan.secondOf(2, {});
    const double end = *plan.secondOf(4, {});
    const auto length = std::llround((end - begin) * rate);
    _player->play();
    const auto played = _output->take(4 * length);
    EXPECT_GE(_player->second(), begin - 1.0 / rate);
    EXPECT_LT(_player->second(), end);
    // The attacks of the second round are those of the third.
    const auto energy = [&](std::int64_t from) {
        std::vector<double> all;
        for (std::int64_t i = from; i < from + length; i += 441) {
            double sum = 0;
            for (std::int64_t k = i; k < i + 441; ++k)
                sum += std::abs(played[std::size_t(2 * k)]);
            all.push_back(sum);
        }
        return all;
    };
    const auto second = energy(length);
    const auto third = energy(2 * length);
    double difference = 0;
    double sum = 0;
    for (std::size_t i = 0; i < second.size(); ++i) {
        difference += std::abs(second[i] - third[i]);
        sum += second[i];
    }
    EXPECT_LT(difference, 0.1 * sum);
    EXPECT_EQ(_output->calls, 0u);
}

TEST_F(Playing, countsInAndClicks)
{
    const auto model = modelOf("saints-band.musicxml");
    _player->setScore(*model);
    for (unsigned track = 0; track < model->trackCount(); ++track)
        _player->setMuted(track, true);
    _player->setMetronome(true);
    _player->setCountIn(1);
    ASSERT_TRUE(_player->seek(4));
    _player->play();
    EXPECT_EQ(_player->state(), State::CountingIn);
    const auto &plan = *_player->plan();
    const double beat = *_player->plan()->secondOf(4, {1}) - *plan.secondOf(4, {});
    const auto frames = _output->take(std::llround(8 * beat * rate));
    std::vector<std::int64_t> clicks;
    const auto between = std::llround(0.5 * beat * rate);
    for (std::int64_t i = 0; 2 * i < std::int64_t(frames.size()); ++i)
        if (std::abs(frames[std::size_t(2 * i)]) > 0.02F
            && (clicks.empty() || i > clicks.back() + between))
            clicks.push_back(i);
    ASSERT_EQ(clicks.size(), 8u) << "four in front and four in the bar";
    for (std::size_t i = 1; i < clicks.size(); ++i)
        EXPECT_NEAR(double(clicks[i] - clicks[i - 1]), beat * rate, 3) << i;
    EXPECT_EQ(_player->state(), State::Playing);
    EXPECT_EQ(_output->calls, 0u);
}

TEST_F(Playing, mutesAndSolosAtOnce)
{
    const auto model = modelOf("saints-band.musicxml");
    _player->setScore(*model);
    ASSERT_TRUE(_player->seek(2));
    _player->play();
    const float all = highest(_output->take(rate));
    EXPECT_GT(all, 0.01F);
    for (unsigned track = 0; track < model->trackCount(); ++track)
        _player->setMuted(track, true);
    _output->take(1024);
    EXPECT_LT(highest(_output->take(rate)), 0.0001F);
    _player->setMuted(1, false);
    EXPECT_GT(highest(_output->take(rate)), 0.001F);
    for (unsigned track = 0; track < model->trackCount(); ++track)
        _player->setMuted(track, false);
    _player->setSolo(0, true);
    EXPECT_TRUE(_player->isSolo(0));
    const float one = highest(_output->take(rate));
    EXPECT_LT(one, all);
    _player->setGain(-144);
    _output->take(1024);
    EXPECT_LT(highest(_output->take(rate)), 0.0001F);
    EXPECT_EQ(_output->calls, 0u);
}

TEST_F(Playing, followsEditsAtThePlaceWhereItIs)
{
    zarn::Score score;
    readInto(score, "romance-guitar-study.musicxml");
    _player->follow(score);
    ASSERT_TRUE(_player->setLoop(6, 7));
    _player->clearLoop();
    ASSERT_TRUE(_player->seek(6));
    _player->play();
    _output->take(rate / 2);
    const auto before = *_player->place();
    EXPECT_EQ(before.bar, 6u);
    const auto plan = _player->plan();
    score.createBars(0, 3);
    _player->poll();
    EXPECT_NE(_player->plan(), plan);
    EXPECT_EQ(_player->place()->bar, 9u);
    const auto frames = _output->take(rate / 8);
    EXPECT_GT(highest(frames), 0.001F) << "what rang goes on";
    EXPECT_EQ(_player->place()->bar, 9u);
    score.commandStack().undo();
    _player->poll();
    _output->take(512);
    EXPECT_EQ(_player->place()->bar, 6u);
    for (int i = 0; i < 20; ++i) {
        score.createBars(0, 1);
        _player->poll();
        _output->take(300);
        score.commandStack().undo();
    }
    _player->poll();
    EXPECT_EQ(_output->calls, 0u);
}

} // namespace
