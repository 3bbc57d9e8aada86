// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnAudioExport.h>
#include <ZarnAudio/ZarnAudioOutput.h>
#include <ZarnCore/playback/ZarnPlaybackPlan.h>
#include <ZarnCore/utils/rational.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zarn {
class Score;
class ScoreModel;
} // namespace zarn

namespace Halvec::audio {

class PlayerControl;

/// Plays a score on a sound device, by a General MIDI sound font.
///
/// All calls are made on one thread, that of the score. It calls `poll` again and again, 20 to 60
/// times a second: there errors are noticed, edits of a score that is followed are taken over, and
/// callbacks come. What a call asks for is done when the device asks for its next block; the
/// thread of the device itself never allocates, locks or waits.
///
/// Seconds are those of the plan: the music at its own tempo, whatever the speed.
class ZARNAUDIO_EXPORT Player {
public:
    struct Settings {
        std::string font;        ///< path; the first one that is found when empty
        int rate = 44100;        ///< frames per second, 8000 to 96000
        bool hasReverb = true;   ///< chorus too
        std::string folder;      ///< of recordings whose paths are relative
        std::string device;      ///< the system's choice when empty
        int bufferFrames = 1024; ///< that the device asks for at a time, 64 to 16384
    };

    explicit Player(const Settings &settings);

    /// For an output of one's own instead of a device.
    Player(const Settings &settings, std::unique_ptr<AudioOutput> output);
    ~Player();
    Player(const Player &) = delete;
    Player &operator=(const Player &) = delete;

    /// Loads the font and opens the device; false with the reason, for a user to read. Needed once,
    /// and again after the device was lost.
    bool open(std::string *error);

    /// The same without waiting: the font is loaded on a thread of its own, and a later `poll`
    /// opens the device, or says in the failed callback why not. What is asked for meanwhile is
    /// done then; `play` too.
    void openLater();
    void close() noexcept;
    bool isOpen() const noexcept;

    /// Whether `openLater` is still at work.
    bool isOpening() const noexcept;

    /// What is played from now on. While it plays, the music goes on at the place where it is.
    /// Tracks are muted and solo as the model has them, unless everything is to be heard.
    void setScore(const zarn::ScoreModel &model, const zarn::playback::PlanOptions &options = {});

    /// The same for a score, with every later edit of it, until it dies or another one is set.
    void follow(zarn::Score &score);

    /// Why recordings of the score cannot be read, or not to their ends: they are read on a thread
    /// of their own.
    std::vector<std::string> problems() const;

    /// What is played; null without a score.
    std::shared_ptr<const zarn::playback::PlaybackPlan> plan() const;

    // Transport.

    enum class State { Stopped, CountingIn, Playing };
    State state() const;

    /// From the place where it is, at the end from the beginning. Inside of a loop when there is
    /// one. Recordings that are still being read are waited for.
    void play();

    /// Stays where it is.
    void pause();

    /// Goes to a place, in the pass of the bar counted from 0; false when it is not played.
    bool seek(unsigned bar, const utils::rational &offset = {}, unsigned pass = 0);
    void seekSecond(double second);

    /// Plays the bars `first` to `last` again and again; false when none of them is played. The
    /// loop stays with its bars when bars go and come.
    bool setLoop(unsigned first, unsigned last);
    void clearLoop();

    /// 1 is the tempo of the score; 0.25 to 2, the pitch stays. Recordings of audio tracks join
    /// when they have been stretched, which is done on another thread.
    void setSpeed(double speed);
    double speed() const noexcept;

    void setMetronome(bool isOn);
    bool hasMetronome() const noexcept;

    /// Bars that the metronome counts before it plays, 0 to 4.
    void setCountIn(int bars);
    int countIn() const noexcept;

    // What is heard at once. Tracks that there are not are passed over.

    void setMuted(unsigned track, bool isMuted);
    void setSolo(unsigned track, bool isSolo);
    bool isMuted(unsigned track) const;
    bool isSolo(unsigned track) const;

    /// On top of what the score says; decibels, -144 to 12.
    void setTrackVolume(unsigned track, double decibels);

    /// Of all, behind the mastering of the score; decibels, -144 to 24. 6 at first.
    void setGain(double decibels);
    double gain() const noexcept;

    // Where it is, as it is heard now.

    double second() const;
    std::optional<zarn::playback::PlayPlace> place() const;

    /// How many blocks took longer to make than to play: the device may have had nothing to play
    /// meanwhile.
    unsigned lateBlocks() const noexcept;

    // From `poll` alone.

    void setFinishedCallback(std::function<void()> callback);

    /// The device was lost, or could not be opened later; the player is closed.
    void setFailedCallback(std::function<void(const std::string &)> callback);

    void poll();

private:
    std::unique_ptr<PlayerControl> _control;
};

} // namespace Halvec::audio
