// SPDX-License-Identifier: MIT
#include <ZarnAudio/ZarnRecording.h>

#include <ZarnAudio/ZarnAudioDecoder.h>
#include <ZarnCore/model/ZarnAudioTrack.h>
#include <streams/FileStream.h>

#include <SoundTouch.h>
#include <samplerate.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace Halvec::audio {

namespace {

constexpr std::int64_t readFrames = 4096;

/// What renderers and players make louder by, unless told otherwise, is taken from recordings: they
/// are heard as loud as they are.
constexpr double usualGain = 6;

struct DeleteConverter {
    void operator()(SRC_STATE *state) const { src_delete(state); }
};

/// Appends stereo frames at another rate.
class Resampler {
public:
    Resampler(int from, int to, std::vector<float> &frames)
        : _ratio(static_cast<double>(to) / from), _frames(frames)
    {
        if (from != to)
            _state.reset(src_new(SRC_SINC_MEDIUM_QUALITY, 2, nullptr));
    }

    void take(const float *frames, std::int64_t count, bool isLast)
    {
        if (!_state) {
            _frames.insert(_frames.end(), frames, frames + 2 * count);
            return;
        }
        SRC_DATA data{};
        data.data_in = frames;
        data.input_frames = count;
        data.end_of_input = isLast ? 1 : 0;
        data.src_ratio = _ratio;
        std::array<float, 2 * readFrames> made{};
        do {
            data.data_out = made.data();
            data.output_frames = readFrames;
            if (src_process(_state.get(), &data) != 0)
                return;
            _frames.insert(_frames.end(), made.begin(), made.begin() + 2 * data.output_frames_gen);
            data.data_in += 2 * data.input_frames_used;
            data.input_frames -= data.input_frames_used;
        } while (data.input_frames > 0 || data.output_frames_gen == readFrames);
    }

private:
    double _ratio;
    std::vector<float> &_frames;
    std::unique_ptr<SRC_STATE, DeleteConverter> _state;
};

/// The first two channels of frames, or the only one twice.
void toStereo(const std::vector<float> &frames, std::int64_t count, int channels,
              std::vector<float> &stereo)
{
    stereo.clear();
    for (std::int64_t i = 0; i < count; ++i) {
        const auto at = static_cast<std::size_t>(i * channels);
        stereo.push_back(frames[at]);
        stereo.push_back(frames[at + (channels > 1 ? 1 : 0)]);
    }
}

} // namespace

std::shared_ptr<const Recording> Recording::load(AudioDecoder &decoder, int rate,
                                                 std::string *error)
{
    if (src_is_valid_ratio(static_cast<double>(rate) / decoder.rate()) == 0) {
        if (error != nullptr)
            *error = decoder.name() + ": " + std::to_string(decoder.rate())
                + " frames a second cannot be played";
        return nullptr;
    }
    std::vector<float> frames;
    Resampler resampler(decoder.rate(), rate, frames);
    std::vector<float> block(static_cast<std::size_t>(readFrames * decoder.channels()));
    std::vector<float> stereo;
    std::int64_t count = 0;
    do {
        count = decoder.read(block.data(), readFrames);
        toStereo(block, count, decoder.channels(), stereo);
        resampler.take(stereo.data(), count, count < readFrames);
        if (static_cast<std::int64_t>(frames.size()) > 2 * mostFrames) {
            if (error != nullptr)
                *error = decoder.name() + ": is longer than half an hour";
            return nullptr;
        }
    } while (count == readFrames);
    if (error != nullptr)
        *error = decoder.errorText();
    return std::make_shared<const Recording>(std::move(frames));
}

std::shared_ptr<const Recording> Recording::atSpeed(double speed, int rate) const
{
    const auto wanted = std::llround(static_cast<double>(frames()) / speed);
    if (wanted > mostFrames)
        return nullptr;
    soundtouch::SoundTouch stretcher;
    stretcher.setSampleRate(static_cast<unsigned>(rate));
    stretcher.setChannels(2);
    stretcher.setTempo(speed);
    std::vector<float> made;
    made.reserve(static_cast<std::size_t>(2 * wanted));
    std::array<float, 2 * readFrames> block{};
    const auto take = [&] {
        while (const auto count = stretcher.receiveSamples(block.data(), readFrames))
            made.insert(made.end(), block.begin(), block.begin() + 2 * std::ptrdiff_t(count));
    };
    for (std::int64_t done = 0; done < frames(); done += readFrames) {
        stretcher.putSamples(data() + 2 * done,
                             static_cast<unsigned>(std::min(readFrames, frames() - done)));
        take();
    }
    stretcher.flush();
    take();
    made.resize(static_cast<std::size_t>(2 * wanted));
    return std::make_shared<const Recording>(std::move(made));
}

void PlacedRecording::add(float *frames, std::int64_t from, std::int64_t count) const noexcept
{
    const auto begin = std::max(from, start);
    const auto end = std::min(from + count, start + sound->frames());
    const float *const heard = sound->data();
    for (auto frame = begin; frame < end; ++frame) {
        frames[2 * (frame - from)] += left * heard[2 * (frame - start)];
        frames[2 * (frame - from) + 1] += right * heard[2 * (frame - start) + 1];
    }
}

Recordings::~Recordings() = default;

void Recordings::load(Kept &kept)
{
    auto handle = _files.open(kept.path, filesystem::OpenMode::Read, &kept.error);
    if (handle == nullptr)
        return;
    const auto decoder =
        AudioDecoder::open(std::make_unique<streams::FileStream>(std::move(handle)), &kept.error);
    if (decoder != nullptr)
        kept.sound = Recording::load(*decoder, kept.rate, &kept.error);
}

void Recordings::change(Kept &kept, double speed)
{
    if (kept.sound == nullptr || speed == 1 || (kept.changed != nullptr && kept.speed == speed))
        return;
    kept.changed = kept.sound->atSpeed(speed, kept.rate);
    kept.speed = speed;
    if (kept.changed == nullptr)
        _problems.push_back(kept.path + ": is too long to be played so slowly");
}

std::vector<PlacedRecording>
Recordings::of(const std::vector<std::shared_ptr<zarn::AudioTrack>> &tracks, int rate,
               double second, const std::string &folder, double speed)
{
    _problems.clear();
    std::vector<PlacedRecording> placed;
    std::vector<Kept> kept;
    for (const auto &track : tracks) {
        std::string path = track->filePath();
        if (track->isMuted() || path.empty())
            continue;
        if (path.front() != '/' && !folder.empty())
            path = folder + '/' + path;
        const auto isSame = [&](const Kept &each) {
            return each.path == path && each.rate == rate;
        };
        auto found = std::find_if(kept.begin(), kept.end(), isSame);
        if (found == kept.end()) {
            const auto before = std::find_if(_kept.begin(), _kept.end(), isSame);
            if (before != _kept.end()) {
                kept.push_back(*before);
            } else {
                kept.emplace_back();
                kept.back().path = path;
                kept.back().rate = rate;
                load(kept.back());
            }
            found = std::prev(kept.end());
            if (!found->error.empty())
                _problems.push_back(found->error);
            change(*found, speed);
        }
        const auto &sound = speed == 1 ? found->sound : found->changed;
        if (sound == nullptr)
            continue;
        const double level = track->volume() * std::pow(10.0, -usualGain / 20);
        const double seconds = static_cast<double>(track->startOffset()) / 1000 - second;
        placed.push_back({sound, std::llround(seconds * rate / speed),
                          static_cast<float>(level * std::min(1.0F, 1 - track->pan())),
                          static_cast<float>(level * std::min(1.0F, 1 + track->pan()))});
    }
    _kept = std::move(kept);
    return placed;
}

} // namespace Halvec::audio
