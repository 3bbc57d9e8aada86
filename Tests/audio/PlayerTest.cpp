// SPDX-License-Identifier: MIT
// The player on an output that takes blocks when the test says so, and on SDL's own drivers.
#include "HeapCalls.h"
#include "Sounds.h"

#include <ZarnAudio/ZarnPlayer.h>
#include <ZarnAudio/ZarnScoreRenderer.h>
#include <ZarnAudio/ZarnSoundFonts.h>
#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnMusicXmlImporter.h>
#include <ZarnCore/model/ZarnAudioTrack.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/playback/ZarnPlaybackPlan.h>
#include <ZarnCore/score/ZarnScore.h>
#include <filesystem/DiskFileSystem.h>

#include <QTemporaryDir>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <mutex>
#include <sstream>
#include <thread>

namespace {

using namespace sounds;
using zarn::playback::PlaybackPlan;
using State = Player::State;

constexpr int rate = 44100;

/// Takes sound when the test asks for it.
class ManualOutput final : public AudioOutput {
public:
    bool open(Source &source, int, std::string *error) override
    {
        if (!isThere && error != nullptr)
            *error = "no device";
        _source = isThere ? &source : nullptr;
        return isThere;
    }
    void close() noexcept override { _source = nullptr; }
    bool isLost() const noexcept override { return !isThere; }
    double latency() const noexcept override { return 0; }

    /// The next frames; counts what they had to do with the heap, locks and files.
    std::vector<float> take(std::int64_t count, std::int64_t block = 512)
    {
        std::vector<float> frames(static_cast<std::size_t>(2 * count));
        for (std::int64_t done = 0; done < count; done += block) {
            const auto before = heapCalls() + blockingCalls();
            _source->render(frames.data() + 2 * done, std::min(block, count - done));
            calls += heapCalls() + blockingCalls() - before;
        }
        return frames;
    }

    bool isThere = true;
    std::size_t calls = 0;

private:
    Source *_source = nullptr;
};

std::shared_ptr<zarn::ScoreModel> modelOf(const char *sample)
{
    filesystem::DiskFileSystem files;
    const auto handle =
        files.open(std::string(ZARN_SOURCE_DIR "/Samples/") + sample, filesystem::OpenMode::Read);
    zarn::io::ImportReport report;
    return zarn::io::MusicXmlImporter().read(*handle, report);
}

void readInto(zarn::Score &score, const char *sample)
{
    filesystem::DiskFileSystem files;
    const auto handle =
        files.open(std::string(ZARN_SOURCE_DIR "/Samples/") + sample, filesystem::OpenMode::Read);
    zarn::io::ImportReport report;
    zarn::io::MusicXmlImporter().importScore(*handle, score, report);
}

float highest(const std::vector<float> &frames)
{
    float value = 0;
    for (const float each : frames)
        value = std::max(value, std::abs(each));
    return value;
}

class Playing : public ::testing::Test {
protected:
    void SetUp() override
    {
        std::string error;
        if (findSoundFont({}, &error).empty())
            GTEST_SKIP() << error;
        Player::Settings settings;
        settings.hasReverb = false;
        auto output = std::make_unique<ManualOutput>();
        _output = output.get();
        _player = std::make_unique<Player>(settings, std::move(output));
        ASSERT_TRUE(_player->open(&error)) << error;
    }

    /// Frames from the first one that is not silent.
    std::int64_t onset(const std::vector<float> &frames, float level = 0.003F) const
    {
        for (std::size_t i = 0; i < frames.size(); ++i)
            if (std::abs(frames[i]) > level)
                return static_cast<std::int64_t>(i / 2);
        return -1;
    }

    ManualOutput *_output = nullptr;
    std::unique_ptr<Player> _player;
};

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

/// What a user who practises does to a player and its score.
class Practice {
public:
    Practice(Player &player, zarn::Score &score) : _player(player), _score(score) { }

    void doSomething()
    {
        const auto bars = static_cast<int>(_score.masterTrack()->masterBarCount());
        const unsigned bar = static_cast<unsigned>(number(bars));
        const unsigned track = static_cast<unsigned>(number(int(_score.trackCount())));
        switch (number(12)) {
        case 0:
        case 1:
            _player.seek(bar, utils::rational(number(3)));
            return;
        case 2:
            _player.setLoop(bar, bar + 1);
            return;
        case 3:
            _player.clearLoop();
            return;
        case 4:
            _player.setSpeed(0.25 + 0.25 * number(8));
            return;
        case 5:
            _player.setMuted(track, number(2) == 0);
            return;
        case 6:
            _player.setSolo(track, number(4) == 0);
            return;
        case 7:
            _player.setMetronome(number(2) == 0);
            return;
        case 8:
            _player.pause();
            return;
        case 9:
            _score.createBars(static_cast<int>(bar), 1);
            return;
        case 10:
            _score.commandStack().undo();
            return;
        default:
            _player.setTrackVolume(track, number(20) - 15);
        }
    }

private:
    int number(int count) { return static_cast<int>(_random() % static_cast<unsigned>(count)); }

    Player &_player;
    zarn::Score &_score;
    std::mt19937 _random{4711};
};

/// Sixteenths of chords of five notes on eight tracks: all the voices that there are.
void readDenseScore(zarn::Score &score)
{
    constexpr int parts = 8;
    constexpr int bars = 8;
    std::ostringstream text;
    text << R"(<score-partwise version="4.0"><part-list>)";
    for (int part = 1; part <= parts; ++part)
        text << "<score-part id=\"P" << part << "\"><part-name>" << part
             << "</part-name><score-instrument id=\"I" << part
             << "\"><instrument-name>x</instrument-name></score-instrument><midi-instrument id=\"I"
             << part << "\"><midi-program>" << part * 6 << "</midi-program></midi-instrument>"
             << "</score-part>";
    text << "</part-list>";
    for (int part = 1; part <= parts; ++part) {
        text << "<part id=\"P" << part << "\">";
        for (int bar = 1; bar <= bars; ++bar) {
            text << "<measure number=\"" << bar << "\">";
            if (bar == 1)
                text << "<attributes><divisions>4</divisions><time><beats>4</beats><beat-type>4"
                        "</beat-type></time></attributes><direction><sound tempo=\"160\"/>"
                        "</direction>";
            for (int step = 0; step < 16; ++step)
                for (int note = 0; note < 5; ++note)
                    text << "<note>" << (note > 0 ? "<chord/>" : "") << "<pitch><step>"
                         << "CEGBD"[note] << "</step><octave>" << 2 + (step * part + bar) % 5
                         << "</octave></pitch><duration>1</duration><type>16th</type></note>";
            text << "</measure>";
        }
        text << "</part>";
    }
    text << "</score-partwise>";
    filesystem::RAMFileSystem files;
    put(files, "x", text.str());
    zarn::io::ImportReport report;
    zarn::io::MusicXmlImporter().importScore(*files.open("x", filesystem::OpenMode::Read), score,
                                             report);
}

/// Practises for some seconds of music; in how many of them there was a sound.
int practise(Player &player, ManualOutput &output, zarn::Score &score, int seconds)
{
    player.follow(score);
    Practice practice(player, score);
    int loudSeconds = 0;
    for (int second = 0; second < seconds; ++second) {
        practice.doSomething();
        player.poll();
        if (player.state() == State::Stopped)
            player.play();
        loudSeconds += highest(output.take(rate, 64 << second % 6)) > 0.001F ? 1 : 0;
    }
    return loudSeconds;
}

TEST_F(Playing, neverTouchesHeapLocksOrFilesInTenMinutes)
{
    zarn::Score score;
    readInto(score, "saints-band.musicxml");
    if (countsCalls()) {
        const auto before = heapCalls() + blockingCalls();
        std::mutex mutex;
        const std::lock_guard<std::mutex> lock(mutex);
        EXPECT_GT(heapCalls() + blockingCalls(), before) << "a lock is noticed";
    }
    const int seconds = countsCalls() ? 600 : 20;
    EXPECT_GT(practise(*_player, *_output, score, seconds), seconds / 3);
    EXPECT_EQ(_output->calls, 0u);
}

TEST_F(Playing, neverTouchesThemWhenMoreVoicesAreAskedForThanThereAre)
{
    // By itself in ten minutes of music: ZARN_PLAYED_SECONDS=600.
    const char *const chosen = std::getenv("ZARN_PLAYED_SECONDS");
    const int seconds = chosen != nullptr ? std::atoi(chosen) : 10;
    auto output = std::make_unique<ManualOutput>();
    ManualOutput &taken = *output;
    Player player({}, std::move(output));
    std::string error;
    ASSERT_TRUE(player.open(&error)) << error;
    zarn::Score score;
    readDenseScore(score);
    EXPECT_GT(practise(player, taken, score, seconds), seconds / 3);
    EXPECT_EQ(taken.calls, 0u);
}

/// A tone of 5000 Hz as a recording.
std::shared_ptr<zarn::AudioTrack> toneTrack(const QTemporaryDir &folder, int seconds)
{
    std::vector<float> tone;
    for (int i = 0; i < seconds * rate; ++i)
        tone.push_back(0.5F * static_cast<float>(std::sin(2 * M_PI * 5000 * i / rate)));
    auto track = std::make_shared<zarn::AudioTrack>("tone");
    track->setFilePath(folder.filePath(QStringLiteral("tone.wav")).toStdString());
    filesystem::DiskFileSystem files;
    put(files, track->filePath(),
        encoded(tone, format(AudioFormat::File::Wav, AudioFormat::Encoding::Pcm16, 1)));
    return track;
}

TEST_F(Playing, recordingsJoinAtEverySpeed)
{
    const QTemporaryDir folder;
    const auto model = modelOf("romance-guitar-study.musicxml");
    model->addAudioTrack(toneTrack(folder, 20));
    _player->setScore(*model);
    _player->play();
    EXPECT_EQ(_player->state(), State::Playing);
    _player->setScore(*modelOf("romance-guitar-study.musicxml"));
    _player->poll();
    EXPECT_GT(highest(_output->take(rate)), 0.01F) << "nothing is waited for any more";
    _player->pause();
    _output->take(1024);
    _player->seekSecond(0);
    _player->setScore(*model);
    _player->play();
    const auto soon = [this] {
        for (int i = 0; i < 2000; ++i) {
            _player->poll();
            const auto frames = _output->take(1024);
            if (power(frames, 0, 1, 5000) > 0.05)
                return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        return false;
    };
    EXPECT_TRUE(soon());
    EXPECT_LT(_player->second(), 0.2) << "playing begins when the recording is there";
    _player->setSpeed(0.5);
    EXPECT_TRUE(soon());
    ASSERT_TRUE(_player->problems().empty());
    // It ends where it ends at that speed, and edits leave it alone.
    _player->seekSecond(19);
    _output->take(1024);
    EXPECT_GT(power(_output->take(rate), 0, 1, 5000), 1e-2);
    _player->setScore(*model);
    EXPECT_GT(power(_output->take(rate / 2), 0, 1, 5000), 1e-2);
    _output->take(rate);
    EXPECT_LT(power(_output->take(rate), 0, 1, 5000), 1e-4);
    EXPECT_EQ(_output->calls, 0u);

    model->audioTracks()[0]->setFilePath("none.wav");
    _player->setScore(*model);
    for (int i = 0; i < 2000 && _player->problems().empty(); ++i) {
        _player->poll();
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    ASSERT_EQ(_player->problems().size(), 1u);
}

/// Takes sound on a thread of its own, as fast as it can.
class ThreadOutput final : public AudioOutput {
public:
    ~ThreadOutput() override { close(); }
    bool open(Source &source, int, std::string *) override
    {
        _thread = std::thread([this, &source] {
            std::vector<float> frames(2 * 256);
            while (!_isClosed) {
                source.render(frames.data(), 256);
                std::this_thread::sleep_for(std::chrono::microseconds(200));
            }
        });
        return true;
    }
    void close() noexcept override
    {
        _isClosed = true;
        if (_thread.joinable())
            _thread.join();
    }
    bool isLost() const noexcept override { return false; }
    double latency() const noexcept override { return 0.01; }

private:
    std::atomic<bool> _isClosed{false};
    std::thread _thread;
};

TEST(PlayerThreads, shareNothingButTheQueues)
{
    std::string error;
    if (findSoundFont({}, &error).empty())
        GTEST_SKIP() << error;
    zarn::Score score;
    readInto(score, "saints-band.musicxml");
    const QTemporaryDir folder;
    score.createAudioTrack(0, toneTrack(folder, 3));
    Player player({}, std::make_unique<ThreadOutput>());
    player.follow(score);
    ASSERT_TRUE(player.open(&error)) << error;
    Practice practice(player, score);
    for (int i = 0; i < 200; ++i) {
        practice.doSomething();
        if (player.state() == State::Stopped)
            player.play();
        player.poll();
        EXPECT_TRUE(player.place());
        EXPECT_TRUE(std::isfinite(player.second()));
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
}

TEST_F(Playing, tellsOfADeviceThatVanishesAndOpensAgain)
{
    _player->setScore(*modelOf("romance-guitar-study.musicxml"));
    _player->play();
    _output->take(rate);
    const double where = _player->second();
    std::string failure;
    _player->setFailedCallback([&failure](const std::string &text) { failure = text; });
    _output->isThere = false;
    _player->poll();
    EXPECT_NE(failure.find("device is gone"), std::string::npos);
    EXPECT_FALSE(_player->isOpen());
    EXPECT_EQ(_player->state(), State::Stopped);
    std::string error;
    EXPECT_FALSE(_player->open(&error));
    EXPECT_EQ(error, "no device");
    for (int i = 0; i < 3000; ++i)
        _player->seekSecond(i * 0.01);
    _player->seekSecond(where);
    _output->isThere = true;
    ASSERT_TRUE(_player->open(&error));
    _player->play();
    EXPECT_GT(highest(_output->take(rate)), 0.01F);
    EXPECT_NEAR(_player->second(), where + 1, 0.1);
}

} // namespace
