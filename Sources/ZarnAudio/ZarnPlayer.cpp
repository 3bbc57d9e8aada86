// SPDX-License-Identifier: MIT
#include <ZarnAudio/ZarnPlayer.h>

#include <ZarnAudio/PlayerControl.h>

#include <algorithm>

namespace Halvec::audio {

Player::Player(const Settings &settings)
    : Player(settings, makeDeviceOutput(settings.device, settings.bufferFrames))
{
}

Player::Player(const Settings &settings, std::unique_ptr<AudioOutput> output)
    : _control(std::make_unique<PlayerControl>(settings, std::move(output)))
{
}

Player::~Player() = default;

bool Player::open(std::string *error)
{
    return _control->open(error);
}

void Player::openLater()
{
    _control->openLater();
}

void Player::close() noexcept
{
    _control->close();
}

bool Player::isOpen() const noexcept
{
    return _control->isOpen();
}

bool Player::isOpening() const noexcept
{
    return _control->isOpening();
}

void Player::setScore(const zarn::ScoreModel &model, const zarn::playback::PlanOptions &options)
{
    _control->setScore(model, options);
}

void Player::follow(zarn::Score &score)
{
    _control->follow(score);
}

std::vector<std::string> Player::problems() const
{
    return _control->problems();
}

std::shared_ptr<const zarn::playback::PlaybackPlan> Player::plan() const
{
    return _control->plan();
}

Player::State Player::state() const
{
    return _control->state();
}

void Player::play()
{
    _control->play();
}

void Player::pause()
{
    _control->pause();
}

bool Player::seek(unsigned bar, const utils::rational &offset, unsigned pass)
{
    return _control->seek(bar, offset, pass);
}

void Player::seekSecond(double second)
{
    _control->seekSecond(second);
}

bool Player::setLoop(unsigned first, unsigned last)
{
    return _control->setLoop(first, last);
}

void Player::clearLoop()
{
    _control->clearLoop();
}

void Player::setSpeed(double speed)
{
    _control->setSpeed(speed);
}

double Player::speed() const noexcept
{
    return _control->speed();
}

void Player::setMetronome(bool isOn)
{
    _control->setMetronome(isOn);
}

bool Player::hasMetronome() const noexcept
{
    return _control->hasMetronome();
}

void Player::setCountIn(int bars)
{
    _control->setCountIn(bars);
}

int Player::countIn() const noexcept
{
    return _control->countIn();
}

void Player::setMuted(unsigned track, bool isMuted)
{
    _control->changeStrip(track, [isMuted](Mixer::Strip &strip) { strip.isMuted = isMuted; });
}

void Player::setSolo(unsigned track, bool isSolo)
{
    _control->changeStrip(track, [isSolo](Mixer::Strip &strip) { strip.isSolo = isSolo; });
}

bool Player::isMuted(unsigned track) const
{
    const auto &strips = _control->mixer().strips();
    return track < strips.size() && strips[track].isMuted;
}

bool Player::isSolo(unsigned track) const
{
    const auto &strips = _control->mixer().strips();
    return track < strips.size() && strips[track].isSolo;
}

void Player::setTrackVolume(unsigned track, double decibels)
{
    const double volume = std::clamp(decibels, -144.0, 12.0);
    _control->changeStrip(track,
                          [volume](Mixer::Strip &strip) { strip.volumePan.decibels = volume; });
}

void Player::setGain(double decibels)
{
    _control->setGain(decibels);
}

double Player::gain() const noexcept
{
    return _control->gain();
}

double Player::second() const
{
    return _control->second();
}

std::optional<zarn::playback::PlayPlace> Player::place() const
{
    return _control->place();
}

unsigned Player::lateBlocks() const noexcept
{
    return _control->lateBlocks();
}

void Player::setFinishedCallback(std::function<void()> callback)
{
    _control->finished = std::move(callback);
}

void Player::setFailedCallback(std::function<void(const std::string &)> callback)
{
    _control->failed = std::move(callback);
}

void Player::poll()
{
    _control->poll();
}

} // namespace Halvec::audio
