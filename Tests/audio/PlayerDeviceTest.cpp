// SPDX-License-Identifier: MIT
// What a player waits for: its font, its device, and recordings.
#include "Playing.h"

#include <chrono>
#include <thread>

namespace {

using namespace playing;

/// Calls `poll` until it answers true; whether it did within some seconds.
template <class Condition>
bool polledUntil(Player &player, Condition condition)
{
    for (int i = 0; i < 2000; ++i) {
        player.poll();
        if (condition())
            return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return false;
}

TEST_F(Playing, opensLaterAndKeepsWhatWasAskedForMeanwhile)
{
    auto output = std::make_unique<ManualOutput>();
    ManualOutput &taken = *output;
    Player player({}, std::move(output));
    player.setScore(*modelOf("romance-guitar-study.musicxml"));
    player.openLater();
    EXPECT_TRUE(player.isOpening());
    ASSERT_TRUE(player.seek(4));
    ASSERT_TRUE(player.setLoop(4, 5));
    player.setSpeed(2);
    player.play();
    EXPECT_EQ(player.state(), State::Playing);
    ASSERT_TRUE(polledUntil(player, [&player] { return player.isOpen(); }));
    EXPECT_FALSE(player.isOpening());
    EXPECT_GT(highest(taken.take(rate / 2)), 0.01F);
    EXPECT_EQ(player.state(), State::Playing);
    EXPECT_EQ(player.place()->bar, 4u);

    // Paused while it opens again, it stays silent.
    player.openLater();
    player.play();
    player.pause();
    ASSERT_TRUE(polledUntil(player, [&player] { return player.isOpen(); }));
    EXPECT_EQ(player.state(), State::Stopped);
    EXPECT_LT(highest(taken.take(rate / 2)), 1e-4F);
}

TEST_F(Playing, saysWhyItCouldNotBeOpenedLater)
{
    const auto failureOf = [](const std::string &font, bool isThere) {
        auto output = std::make_unique<ManualOutput>();
        output->isThere = isThere;
        Player::Settings settings;
        settings.font = font;
        Player player(settings, std::move(output));
        player.setScore(*modelOf("romance-guitar-study.musicxml"));
        std::string failure;
        player.setFailedCallback([&failure](const std::string &text) { failure = text; });
        player.openLater();
        player.play();
        EXPECT_TRUE(polledUntil(player, [&failure] { return !failure.empty(); }));
        EXPECT_FALSE(player.isOpen() || player.isOpening());
        EXPECT_EQ(player.state(), State::Stopped);
        return failure;
    };
    EXPECT_EQ(failureOf({}, false), "no device");
    EXPECT_NE(failureOf("/no/such/font.sf2", true).find("font.sf2"), std::string::npos);
    // A font may still be on its way when nobody wants it any more.
    Player player({}, std::make_unique<ManualOutput>());
    player.openLater();
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
        return polledUntil(*_player,
                           [this] { return power(_output->take(1024), 0, 1, 5000) > 0.05; });
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
    polledUntil(*_player, [this] { return !_player->problems().empty(); });
    ASSERT_EQ(_player->problems().size(), 1u);
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
