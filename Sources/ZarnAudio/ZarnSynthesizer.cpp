// SPDX-License-Identifier: MIT
#include <ZarnAudio/ZarnSynthesizer.h>

#include <ZarnAudio/BankFont.h>
#include <ZarnAudio/ZarnSoundFonts.h>
#include <streams/BankArchive.h>

#include <fluidsynth.h>

#include <algorithm>
#include <cmath>
#include <new>
#include <vector>

namespace Halvec::audio {

static_assert(Synthesizer::blockFrames == BankFont::blockFrames);

namespace {

/// FluidSynth makes nothing louder than a font has it. All voices are quieter by so many decibels,
/// which volumes and regions can take back, and what is rendered is louder by them.
constexpr double headroom = 36;

constexpr double inaudible = -144;
constexpr double loudest = 12;

constexpr double farthestBend = 48; ///< semitones

constexpr int generalMidiDrums = 9; ///< the channel of percussion in General MIDI, from 0

struct DeleteSettings {
    void operator()(fluid_settings_t *settings) const { delete_fluid_settings(settings); }
};

struct DeleteSynth {
    void operator()(fluid_synth_t *synth) const { delete_fluid_synth(synth); }
};

/// Fonts and the system tell what is wrong by the answers of functions.
void silenceLog()
{
    for (int level = FLUID_PANIC; level < LAST_LOG_LEVEL; ++level)
        fluid_set_log_function(level, nullptr, nullptr);
}

} // namespace

class Synthesizer::Fluid {
public:
    explicit Fluid(const Settings &settings) : _rate(settings.rate)
    {
        silenceLog();
        _settings.reset(new_fluid_settings());
        if (!_settings)
            throw std::bad_alloc();
        const auto set = [this](const char *name, int value) {
            fluid_settings_setint(_settings.get(), name, value);
        };
        constexpr int channelGroup = 16;
        _channels.resize(static_cast<std::size_t>(settings.channels));
        if (has(generalMidiDrums))
            _channels[generalMidiDrums].isPercussion = true;
        set("synth.midi-channels",
            (settings.channels + channelGroup - 1) / channelGroup * channelGroup);
        set("synth.polyphony", settings.polyphony);
        set("synth.threadsafe-api", 0);
        set("synth.reverb.active", settings.hasReverb ? 1 : 0);
        set("synth.chorus.active", settings.hasChorus ? 1 : 0);
        fluid_settings_setnum(_settings.get(), "synth.sample-rate", settings.rate);
        fluid_settings_setnum(_settings.get(), "synth.gain", 1);
        _synth.reset(new_fluid_synth(_settings.get()));
        if (!_synth)
            throw std::bad_alloc();
        resetChannels();
    }

    bool loadFont(const std::string &path)
    {
        const int font = fluid_synth_sfload(_synth.get(), path.c_str(), 1);
        if (font == FLUID_FAILED)
            return false;
        if (_font != FLUID_FAILED)
            fluid_synth_sfunload(_synth.get(), static_cast<unsigned>(_font), 0);
        _font = font;
        resetChannels();
        return true;
    }

    bool loadBank(int channel, std::shared_ptr<streams::BankArchive> archive, SampleCache &cache,
                  std::string *error)
    {
        auto font = BankFont::load(std::move(archive), cache, _rate, error);
        if (font == nullptr)
            return false;
        Channel &state = _channels[static_cast<std::size_t>(channel)];
        state.fontNumber = font->addTo(_synth.get());
        state.bank = font.get();
        _banks.push_back(std::move(font));
        resetChannels();
        return true;
    }

    void setPercussion(int channel, bool isPercussion) noexcept
    {
        fluid_synth_set_channel_type(_synth.get(), channel,
                                     isPercussion ? CHANNEL_TYPE_DRUM : CHANNEL_TYPE_MELODIC);
        _channels[static_cast<std::size_t>(channel)].isPercussion = isPercussion;
        resetChannel(channel);
    }

    void setReverb(double roomSize, double level) noexcept
    {
        fluid_synth_set_reverb_group_roomsize(_synth.get(), 0, roomSize);
        fluid_synth_set_reverb_group_level(_synth.get(), 0, level);
    }

    bool isPercussion(int channel) const noexcept
    {
        return has(channel) && _channels[static_cast<std::size_t>(channel)].isPercussion;
    }

    bool has(int channel) const noexcept
    {
        return channel >= 0 && static_cast<std::size_t>(channel) < _channels.size();
    }

    bool hasBank(int channel) const noexcept
    {
        return has(channel) && _channels[static_cast<std::size_t>(channel)].bank != nullptr;
    }

    void apply(const TimedEvent &event, int phase) noexcept;

    void render(float *frames) noexcept
    {
        fluid_synth_write_float(_synth.get(), blockFrames, frames, 0, 2, frames, 1, 2);
        static const auto gain = static_cast<float>(std::pow(10.0, headroom / 20));
        std::transform(frames, frames + 2 * blockFrames, frames,
                       [](float value) { return value * gain; });
    }

    int voiceCount() const noexcept { return fluid_synth_get_active_voice_count(_synth.get()); }

    void reset() noexcept
    {
        for (Channel &channel : _channels)
            channel.volume = channel.pan = 0;
        silence();
    }

    void silence() noexcept
    {
        fluid_synth_system_reset(_synth.get());
        resetChannels();
    }

private:
    struct Channel {
        BankFont *bank = nullptr;
        int fontNumber = FLUID_FAILED;
        double bend = 0;
        double volume = 0; ///< decibels
        double pan = 0;
        bool isPercussion = false;
    };

    void resetChannels() noexcept
    {
        for (int channel = 0; has(channel); ++channel)
            resetChannel(channel);
    }

    void resetChannel(int channel) noexcept
    {
        Channel &state = _channels[static_cast<std::size_t>(channel)];
        if (state.bank != nullptr)
            fluid_synth_program_select(_synth.get(), channel, state.fontNumber, 0, 0);
        else
            fluid_synth_program_change(_synth.get(), channel, 0);
        fluid_synth_cc(_synth.get(), channel, volumeController, 127);
        bend(channel, 0);
        setVolume(channel, state.volume);
        setPan(channel, state.pan);
    }

    void setVolume(int channel, double decibels) noexcept
    {
        constexpr double centibels = 10;
        constexpr double half = 0.5; // FluidSynth cuts off what is left of a whole number of them
        _channels[static_cast<std::size_t>(channel)].volume = decibels;
        const double volume = std::clamp(decibels, inaudible, loudest); // no number is silence
        fluid_synth_set_gen(_synth.get(), channel, GEN_ATTENUATION,
                            static_cast<float>((headroom - volume) * centibels + half));
    }

    void setPan(int channel, double pan) noexcept
    {
        constexpr double hardPan = 500;
        _channels[static_cast<std::size_t>(channel)].pan = pan;
        fluid_synth_set_gen(_synth.get(), channel, GEN_PAN,
                            static_cast<float>(hardPan * std::clamp(pan, -1.0, 1.0)));
    }

    /// By the tuning, which is exact, where a pitch wheel has steps.
    void bend(int channel, double semitones) noexcept
    {
        constexpr double cents = 100;
        const double bounded = std::clamp(semitones, -farthestBend, farthestBend);
        fluid_synth_set_gen(_synth.get(), channel, GEN_FINETUNE,
                            static_cast<float>(bounded * cents));
        _channels[static_cast<std::size_t>(channel)].bend = bounded;
    }

    static constexpr int volumeController = 7;

    int _rate;
    std::unique_ptr<fluid_settings_t, DeleteSettings> _settings;
    std::vector<std::unique_ptr<BankFont>> _banks; ///< outlive the synthesizer
    std::unique_ptr<fluid_synth_t, DeleteSynth> _synth;
    int _font = FLUID_FAILED;
    std::vector<Channel> _channels;
};

void Synthesizer::Fluid::apply(const TimedEvent &event, int phase) noexcept
{
    const int channel = event.channel;
    if (!has(channel))
        return;
    auto *const synth = _synth.get();
    Channel &state = _channels[event.channel];
    switch (event.kind) {
    case TimedEvent::Kind::NoteOff:
        if (event.key < 128 && (state.bank == nullptr || state.bank->endsWithNote(event.key)))
            fluid_synth_noteoff(synth, channel, event.key);
        return;
    case TimedEvent::Kind::Program:
        if (state.bank == nullptr) {
            fluid_synth_bank_select(synth, channel, event.key);
            fluid_synth_program_change(synth, channel, event.value);
        }
        return;
    case TimedEvent::Kind::Controller:
        fluid_synth_cc(synth, channel, event.key, event.value);
        return;
    case TimedEvent::Kind::Volume:
        setVolume(channel, event.amount);
        return;
    case TimedEvent::Kind::Pan:
        setPan(channel, event.amount);
        return;
    case TimedEvent::Kind::Bend:
        bend(channel, event.amount);
        return;
    case TimedEvent::Kind::NoteOn:
        if (event.key >= 128)
            return;
        if (state.bank != nullptr)
            state.bank->setStart(std::clamp(phase, 0, blockFrames - 1), state.bend);
        fluid_synth_noteon(synth, channel, event.key, event.value);
        return;
    }
}

Synthesizer::Synthesizer(const Settings &settings) : _settings(settings)
{
    _settings.rate = std::clamp(_settings.rate, 8000, 96000);
    _settings.channels = std::clamp(_settings.channels, 1, mostChannels);
    _settings.polyphony = std::clamp(_settings.polyphony, 1, 4096);
    _fluid = std::make_unique<Fluid>(_settings);
}

Synthesizer::~Synthesizer() = default;

bool Synthesizer::loadFont(const std::string &path, std::string *error)
{
    if (!isSoundFont(path, error))
        return false;
    if (_fluid->loadFont(path))
        return true;
    if (error != nullptr)
        *error = path + ": is damaged, or too large for the memory";
    return false;
}

bool Synthesizer::loadBank(int channel, std::shared_ptr<streams::BankArchive> bank,
                           SampleCache &cache, std::string *error)
{
    if (_fluid->has(channel))
        return _fluid->loadBank(channel, std::move(bank), cache, error);
    if (error != nullptr)
        *error = bank->path() + ": there is no channel " + std::to_string(channel);
    return false;
}

bool Synthesizer::hasBank(int channel) const noexcept
{
    return _fluid->hasBank(channel);
}

void Synthesizer::setPercussion(int channel, bool isPercussion) noexcept
{
    if (_fluid->has(channel))
        _fluid->setPercussion(channel, isPercussion);
}

bool Synthesizer::isPercussion(int channel) const noexcept
{
    return _fluid->isPercussion(channel);
}

void Synthesizer::setReverb(double roomSize, double level) noexcept
{
    _fluid->setReverb(std::clamp(roomSize, 0.0, 1.0), std::clamp(level, 0.0, 1.0));
}

void Synthesizer::apply(const TimedEvent &event, int phase) noexcept
{
    _fluid->apply(event, phase);
}

void Synthesizer::render(float *frames) noexcept
{
    _fluid->render(frames);
}

int Synthesizer::voiceCount() const noexcept
{
    return _fluid->voiceCount();
}

void Synthesizer::reset() noexcept
{
    _fluid->reset();
}

void Synthesizer::silence() noexcept
{
    _fluid->silence();
}

} // namespace Halvec::audio
