// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnRecording.h>
#include <ZarnCore/model/ZarnAudioTrack.h>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace Halvec::audio {

/// Recordings that are read, resampled and stretched on a thread of their own, and are there when
/// that is done.
class LateRecordings {
public:
    using Tracks = std::vector<std::shared_ptr<zarn::AudioTrack>>;

    LateRecordings() = default;
    ~LateRecordings();
    LateRecordings(const LateRecordings &) = delete;
    LateRecordings &operator=(const LateRecordings &) = delete;

    // All calls are made on one thread.

    /// What there is of them now, see `Recordings`: all of them when nothing but the second is
    /// other than before, else those from before until `hasCome` says that the new ones are there.
    /// The tracks do not change.
    std::vector<PlacedRecording> of(const Tracks &tracks, int rate, double second,
                                    const std::string &folder, double speed);

    /// Whether some are on their way.
    bool isBusy() const noexcept { return _isBusy; }

    /// True once when those that were on their way are there.
    bool hasCome();

    const std::vector<std::string> &problems() const noexcept { return _problems; }

private:
    struct Wish {
        std::vector<zarn::AudioTrack> tracks;
        int rate = 0;
        std::string folder;
        double speed = 1;
        bool operator==(const Wish &other) const;
    };
    struct Answer {
        Wish wish;
        std::vector<PlacedRecording> placed; ///< for a first frame at the beginning of the score
        std::vector<std::string> problems;
        void read(Recordings &recordings);
    };
    void work();

    // Of the thread that asks.
    bool _isBusy = false;
    Wish _asked;
    Answer _known;
    std::vector<std::string> _problems;

    // Shared by both threads.
    std::mutex _mutex;
    std::condition_variable _change;
    std::unique_ptr<Wish> _wish;     ///< the next work; a later wish replaces it
    std::unique_ptr<Answer> _answer; ///< the last one, until it is taken
    bool _isEnding = false;

    Recordings _recordings; ///< of the thread that works
    std::thread _thread;
};

} // namespace Halvec::audio
