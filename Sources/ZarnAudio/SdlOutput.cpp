// SPDX-License-Identifier: MIT
#include <ZarnAudio/ZarnAudioOutput.h>

#include <SDL.h>

#include <algorithm>
#include <atomic>
#include <chrono>

namespace Halvec::audio {

namespace {

using Clock = std::chrono::steady_clock;

/// SDL's sound, for as long as somebody needs it.
class SdlAudio {
public:
    SdlAudio()
    {
        // An interrupt is the program's own affair.
        SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
        _isReady = SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
    }
    ~SdlAudio()
    {
        if (_isReady)
            SDL_QuitSubSystem(SDL_INIT_AUDIO);
    }
    SdlAudio(const SdlAudio &) = delete;
    SdlAudio &operator=(const SdlAudio &) = delete;

    bool isReady() const noexcept { return _isReady; }

private:
    bool _isReady = false;
};

class SdlOutput final : public AudioOutput {
public:
    SdlOutput(std::string name, int bufferFrames)
        : _name(std::move(name)), _bufferFrames(bufferFrames)
    {
    }
    ~SdlOutput() override { close(); }

    bool open(Source &source, int rate, std::string *error) override
    {
        close();
        _audio = std::make_unique<SdlAudio>();
        if (!_audio->isReady())
            return refuse("there is no sound", error);
        SDL_AudioSpec wanted{};
        wanted.freq = rate;
        wanted.format = AUDIO_F32SYS;
        wanted.channels = 2;
        wanted.samples = static_cast<Uint16>(std::clamp(_bufferFrames, 64, 16384));
        wanted.callback = fill;
        wanted.userdata = this;
        SDL_AudioSpec got{};
        _source = &source;
        _lastAsked = now();
        _device = SDL_OpenAudioDevice(_name.empty() ? nullptr : _name.c_str(), 0, &wanted, &got, 0);
        if (_device == 0)
            return refuse(_name.empty() ? "no sound device can be opened"
                                        : "the sound device \"" + _name + "\" cannot be opened",
                          error);
        // The frames that the device plays, and those that wait behind them.
        _latency = 2.0 * got.samples / rate;
        _patience = std::max(5.0, 8 * _latency);
        SDL_PauseAudioDevice(_device, 0);
        return true;
    }

    void close() noexcept override
    {
        if (_device != 0)
            SDL_CloseAudioDevice(_device);
        _device = 0;
        _audio.reset();
    }

    bool isLost() const noexcept override
    {
        // A device that was unplugged stops, or it says nothing and asks for nothing.
        return _device != 0
            && (SDL_GetAudioDeviceStatus(_device) == SDL_AUDIO_STOPPED
                || now() - _lastAsked > _patience);
    }

    double latency() const noexcept override { return _latency; }

private:
    static double now() noexcept
    {
        return std::chrono::duration<double>(Clock::now().time_since_epoch()).count();
    }

    static void SDLCALL fill(void *self, Uint8 *bytes, int count)
    {
        auto &output = *static_cast<SdlOutput *>(self);
        output._lastAsked = now();
        constexpr int frameBytes = 2 * sizeof(float);
        output._source->render(reinterpret_cast<float *>(bytes), count / frameBytes);
    }

    bool refuse(const std::string &what, std::string *error)
    {
        if (error != nullptr)
            *error = what + ": " + SDL_GetError();
        close();
        return false;
    }

    std::string _name;
    int _bufferFrames;
    std::unique_ptr<SdlAudio> _audio;
    SDL_AudioDeviceID _device = 0;
    Source *_source = nullptr;
    double _latency = 0;
    double _patience = 5; ///< seconds
    std::atomic<double> _lastAsked{0};
};

} // namespace

AudioOutput::Source::~Source() = default;
AudioOutput::~AudioOutput() = default;

std::unique_ptr<AudioOutput> makeDeviceOutput(const std::string &device, int bufferFrames)
{
    return std::make_unique<SdlOutput>(device, bufferFrames);
}

std::vector<std::string> outputDevices()
{
    const SdlAudio audio;
    std::vector<std::string> names;
    if (!audio.isReady())
        return names;
    for (int i = 0; i < SDL_GetNumAudioDevices(0); ++i)
        if (const char *const name = SDL_GetAudioDeviceName(i, 0))
            names.emplace_back(name);
    return names;
}

} // namespace Halvec::audio
