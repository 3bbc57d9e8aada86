// SPDX-License-Identifier: MIT
#include <ZarnAudio/LateRecordings.h>

#include <algorithm>
#include <cmath>
#include <new>
#include <utility>

namespace Halvec::audio {

bool LateRecordings::Wish::operator==(const Wish &other) const
{
    return tracks == other.tracks && rate == other.rate && folder == other.folder
        && speed == other.speed;
}

void LateRecordings::Answer::read(Recordings &recordings)
{
    try {
        Tracks tracks;
        for (const zarn::AudioTrack &track : wish.tracks)
            tracks.push_back(std::make_shared<zarn::AudioTrack>(track));
        placed = recordings.of(tracks, wish.rate, 0, wish.folder, wish.speed);
        problems = recordings.problems();
    } catch (const std::bad_alloc &) {
        problems = {"there is not enough memory for the recordings"};
    }
}

LateRecordings::~LateRecordings()
{
    {
        const std::lock_guard<std::mutex> lock(_mutex);
        _isEnding = true;
    }
    _change.notify_all();
    if (_thread.joinable())
        _thread.join();
}

std::vector<PlacedRecording> LateRecordings::of(const Tracks &tracks, int rate, double second,
                                                const std::string &folder, double speed)
{
    Wish wish;
    for (const auto &track : tracks)
        wish.tracks.push_back(*track);
    wish.rate = rate;
    wish.folder = folder;
    wish.speed = speed;
    if (wish.tracks.empty()) {
        _isBusy = false;
        _known = Answer{wish, {}, {}};
        _problems.clear();
        _asked = std::move(wish);
        return {};
    }
    if (!(wish == (_isBusy ? _asked : _known.wish))) {
        _asked = wish;
        _isBusy = true;
        if (!_thread.joinable())
            _thread = std::thread([this] { work(); });
        {
            const std::lock_guard<std::mutex> lock(_mutex);
            _wish = std::make_unique<Wish>(std::move(wish));
        }
        _change.notify_all();
    }
    if (_known.wish.speed != speed || _known.wish.rate != rate)
        return {};
    auto placed = _known.placed;
    for (PlacedRecording &recording : placed)
        recording.start -= std::llround(second * rate / speed);
    return placed;
}

bool LateRecordings::hasCome()
{
    std::unique_ptr<Answer> answer;
    {
        const std::lock_guard<std::mutex> lock(_mutex);
        answer = std::move(_answer);
    }
    // An answer to an earlier wish is of no use any more.
    if (answer == nullptr || !_isBusy || !(answer->wish == _asked))
        return false;
    _known = std::move(*answer);
    _problems = _known.problems;
    _isBusy = false;
    return true;
}

void LateRecordings::work()
{
    std::unique_lock<std::mutex> lock(_mutex);
    for (;;) {
        _change.wait(lock, [this] { return _isEnding || _wish != nullptr; });
        if (_isEnding)
            return;
        Answer answer;
        answer.wish = std::move(*std::exchange(_wish, nullptr));
        lock.unlock();
        answer.read(_recordings);
        lock.lock();
        _answer = std::make_unique<Answer>(std::move(answer));
    }
}

} // namespace Halvec::audio
