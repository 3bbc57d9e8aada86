// SPDX-License-Identifier: MIT
#include "app/Playing.h"

#include "document/Document.h"

#include <ZarnAudio/ZarnPlayer.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>

namespace zarn::editor {
namespace {

using Halvec::audio::Player;

constexpr int pollInterval = 25; // milliseconds

} // namespace

Playing::Playing(Document &document) : _document(document)
{
    _timer.setInterval(pollInterval);
    connect(&_timer, &QTimer::timeout, this, &Playing::poll);
    connect(&document, &Document::placeChanged, this, [this] {
        if (_isLooping && isPlaying())
            applyLoop();
    });
}

Playing::~Playing() = default;

bool Playing::isPlaying() const
{
    return _player != nullptr && _player->state() != Player::State::Stopped;
}

void Playing::open()
{
    if (_player == nullptr) {
        _player = std::make_unique<Player>(Player::Settings());
        _player->setFinishedCallback([this] { stop(); });
        _player->setFailedCallback([this](const std::string &reason) {
            Q_EMIT failed(QString::fromStdString(reason));
            stop();
        });
        _player->setMetronome(_hasMetronome);
        _player->setSpeed(_speed);
        _player->follow(_document.listenedScore());
    }
    if (!_player->isOpen() && !_player->isOpening())
        _player->openLater();
}

void Playing::playOrPause()
{
    if (isPlaying()) {
        _player->pause();
        _isPaused = true;
        poll();
        Q_EMIT stateChanged();
        return;
    }
    open();
    applyLoop();
    const ScoreModelIndex &place = _document.cursor();
    if (!_isPaused && place.isBarValid() && !_isLooping)
        _player->seek(static_cast<unsigned>(place.barIndex()),
                      place.isBeatValid() ? place.beatDrawingOffset() : utils::rational());
    _isPaused = false;
    _player->play();
    _timer.start();
    Q_EMIT stateChanged();
}

void Playing::stop()
{
    if (_player != nullptr)
        _player->pause();
    _isPaused = false;
    _timer.stop();
    Q_EMIT moved(std::nullopt);
    Q_EMIT stateChanged();
}

void Playing::setMetronome(bool isOn)
{
    _hasMetronome = isOn;
    if (_player != nullptr)
        _player->setMetronome(isOn);
}

void Playing::setLooping(bool isOn)
{
    _isLooping = isOn;
    if (_player != nullptr)
        applyLoop();
}

void Playing::applyLoop()
{
    if (!_isLooping) {
        _player->clearLoop();
        return;
    }
    const auto bars = _document.selection().bars(_document.score());
    _player->setLoop(bars.first, bars.second);
}

void Playing::setSpeed(double speed)
{
    constexpr double slowest = 0.25;
    constexpr double fastest = 2;
    _speed = std::clamp(speed, slowest, fastest);
    if (_player != nullptr)
        _player->setSpeed(_speed);
}

void Playing::poll()
{
    _player->poll();
    if (!isPlaying() && !_isPaused)
        return;
    const auto place = _player->place();
    if (place)
        Q_EMIT moved(std::pair{static_cast<std::int32_t>(place->bar), place->offset});
}

} // namespace zarn::editor
