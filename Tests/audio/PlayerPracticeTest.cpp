// SPDX-License-Identifier: MIT
// A user who practises, at random: nothing on the thread of the device waits for anything.
#include "Playing.h"

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <mutex>
#include <sstream>
#include <thread>

namespace {

using namespace playing;

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

} // namespace
