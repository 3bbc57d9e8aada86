// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/utils/rational.h>

#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>
#include <utility>

namespace Halvec::audio {
class Player;
}

namespace zarn::editor {

class Document;

/// Plays a document on the sound device, with every edit of it. The font is read and the
/// device is opened when something is played first, while the window goes on.
class Playing : public QObject {
    Q_OBJECT
public:
    /// The document must outlive it.
    explicit Playing(Document &document);
    ~Playing() override;

    bool isPlaying() const;

    /// From the cursor, or where it was paused, on; or holds it there.
    void playOrPause();
    void stop();

    bool hasMetronome() const noexcept { return _hasMetronome; }
    void setMetronome(bool isOn);

    /// Plays what is selected again and again; without a selection all of it once.
    bool isLooping() const noexcept { return _isLooping; }
    void setLooping(bool isOn);

    /// 1 is the tempo of the score.
    double speed() const noexcept { return _speed; }
    void setSpeed(double speed);

Q_SIGNALS:
    /// What sounds now: a bar and quarters from its begin; nothing when it is stopped.
    void moved(const std::optional<std::pair<std::int32_t, utils::rational>> &position);
    void stateChanged();
    /// There is no sound, and why.
    void failed(const QString &message);

private:
    void open();
    void poll();
    void applyLoop();

    Document &_document;
    std::unique_ptr<Halvec::audio::Player> _player;
    QTimer _timer;
    bool _isPaused = false;
    bool _hasMetronome = false;
    bool _isLooping = false;
    double _speed = 1;
};

} // namespace zarn::editor
