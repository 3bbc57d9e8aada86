// SPDX-License-Identifier: MIT
#include <ZarnAudio/BankFont.h>

#include <ZarnAudio/ZarnBankCheck.h>
#include <ZarnAudio/ZarnSampleCache.h>
#include <ZarnAudio/ZarnSampleData.h>
#include <ZarnCore/ZarnException.h>
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFont.h>
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFontManager.h>
#include <streams/BankArchive.h>

#include <algorithm>
#include <cmath>
#include <map>

namespace Halvec::audio {

namespace {

constexpr double centsPerOctave = 1200;
constexpr float hardPan = 500; ///< in FluidSynth's unit of a tenth of a percent

/// Centibels that a sample is louder than it is: FluidSynth's filter adds 15.05, and velocity,
/// volume and expression take 1.37 each at their highest values.
constexpr double tooLoud = 15.05 - 3 * 1.37;

BankFont &self(fluid_sfont_t *font)
{
    return *static_cast<BankFont *>(fluid_sfont_get_data(font));
}

BankFont &self(fluid_preset_t *preset)
{
    return *static_cast<BankFont *>(fluid_preset_get_data(preset));
}

const char *fontName(fluid_sfont_t *font)
{
    return self(font).name().c_str();
}

fluid_preset_t *presetOf(fluid_sfont_t *font, int bank, int program)
{
    return bank == 0 && program == 0 ? self(font).preset() : nullptr;
}

/// The font belongs to its `BankFont`.
int keepFont(fluid_sfont_t *)
{
    return 0;
}

const char *presetName(fluid_preset_t *preset)
{
    return self(preset).name().c_str();
}

int zero(fluid_preset_t *)
{
    return 0;
}

int noteOnPreset(fluid_preset_t *preset, fluid_synth_t *synth, int channel, int key, int velocity)
{
    return self(preset).noteOn(synth, channel, key, velocity);
}

void keepPreset(fluid_preset_t *) { }

} // namespace

std::unique_ptr<BankFont> BankFont::load(std::shared_ptr<streams::BankArchive> archive,
                                         SampleCache &cache, int rate, std::string *error)
{
    const auto refuse = [error](const std::string &reason) -> std::unique_ptr<BankFont> {
        if (error != nullptr)
            *error = reason;
        return nullptr;
    };
    std::shared_ptr<const zarn::HVSoundFont> bank;
    try {
        bank = zarn::HVSoundFontManager::readSoundFont(*archive);
    } catch (const zarn::CoreException &problem) {
        return refuse(archive->path() + ": " + problem.message());
    }
    if (bank->regions().empty())
        return refuse(archive->path() + ": has no regions");
    // From here on the archive belongs to the thread of the cache.
    std::map<std::string, SampleUse> uses;
    for (const auto &region : bank->regions())
        if (uses.count(region.sample) == 0)
            uses[region.sample] =
                cache.use(archive->path() + ": " + region.sample,
                          [archive, bank, sample = region.sample](std::string *reason) {
                              return openBankSample(*archive, *bank, sample, reason);
                          });
    cache.waitUntilLoaded();
    auto font = std::make_unique<BankFont>(*bank);
    for (auto region : bank->regions()) {
        const auto &use = uses[region.sample];
        region.gain += bank->velocity();
        if (use.data() == nullptr)
            return refuse(use.errorText());
        if (!font->addVoice(region, use, rate))
            return refuse(archive->path() + ": " + region.sample + ": cannot be played");
    }
    for (auto &[name, use] : uses)
        font->_uses.push_back(std::move(use));
    font->indexKeys();
    return font;
}

BankFont::BankFont(const zarn::HVSoundFont &bank)
    : _name(bank.id()), _font(new_fluid_sfont(fontName, presetOf, nullptr, nullptr, keepFont)),
      _preset(new_fluid_preset(_font.get(), presetName, zero, zero, noteOnPreset, keepPreset))
{
    fluid_sfont_set_data(_font.get(), this);
    fluid_preset_set_data(_preset.get(), this);
}

BankFont::~BankFont() = default;

bool BankFont::addVoice(const zarn::SoundbankRegion &region, const SampleUse &use, int rate)
{
    const SampleData &data = *use.data();
    Voice voice;
    voice.region = region;
    voice.rateRatio = static_cast<double>(data.rate()) / rate;
    const auto all = data.frames() + SampleData::lead + SampleData::tail;
    if (all > UINT32_MAX / 2)
        return false;
    for (int side = 0; side < std::min(data.channels(), 2); ++side) {
        voice.samples.emplace_back(new_fluid_sample());
        auto *const sample = voice.samples.back().get();
        // FluidSynth only reads what it is not to copy.
        auto *const upper = const_cast<short *>(data.upper(side) - SampleData::lead);
        auto *const lower =
            const_cast<char *>(reinterpret_cast<const char *>(data.lower(side) - SampleData::lead));
        if (sample == nullptr
            || fluid_sample_set_sound_data(sample, upper, lower, static_cast<unsigned>(all),
                                           static_cast<unsigned>(data.rate()), 0)
                != FLUID_OK)
            return false;
        fluid_sample_set_name(sample, region.sample.c_str());
        fluid_sample_set_pitch(sample, region.rootKey, 0);
        const auto end = std::min(region.loop ? region.loop->end : data.frames(), data.frames());
        const auto start = std::min(region.loop ? region.loop->start : 0, end);
        fluid_sample_set_loop(sample, static_cast<unsigned>(SampleData::lead + start),
                              static_cast<unsigned>(SampleData::lead + end));
    }
    _voices.push_back(std::move(voice));
    return true;
}

void BankFont::indexKeys()
{
    std::map<int, std::size_t> groups;
    _turns.assign(1, 0);
    for (Voice &voice : _voices) {
        if (const int number = voice.region.roundRobin) {
            const auto place = groups.emplace(number, _turns.size());
            if (place.second)
                _turns.push_back(0);
            voice.turn = place.first->second;
        }
        for (int key = voice.region.keys.first; key <= voice.region.keys.last; ++key) {
            const auto at = static_cast<std::size_t>(key);
            _byKey[at].push_back(&voice);
            _endsWithNote[at] = _endsWithNote[at] || !voice.region.isOneShot;
        }
    }
}

int BankFont::addTo(fluid_synth_t *synth)
{
    return fluid_synth_add_sfont(synth, _font.get());
}

int BankFont::noteOn(fluid_synth_t *synth, int channel, int key, int velocity)
{
    const auto &voices = _byKey[static_cast<std::size_t>(key)];
    bool isPlayed = true;
    for (auto voice = voices.begin(); voice != voices.end(); ++voice) {
        const auto group = (*voice)->turn;
        const auto fits = [=](const Voice *other) {
            return other->turn == group && other->region.fits(key, velocity);
        };
        if (!fits(*voice))
            continue;
        if (group != 0) {
            // The first one of a group that fits asks whose turn it is.
            const auto before = std::count_if(voices.begin(), voice, fits);
            const auto all = before + std::count_if(voice, voices.end(), fits);
            const auto turn = _turns[group] % static_cast<unsigned>(all);
            if (static_cast<unsigned>(before) != turn)
                continue;
        }
        for (std::size_t side = 0; side < (*voice)->samples.size(); ++side)
            isPlayed = startVoice(synth, channel, key, velocity, **voice, side) && isPlayed;
    }
    for (auto voice = voices.begin(); voice != voices.end(); ++voice) {
        const auto group = (*voice)->turn;
        const auto isOfGroup = [=](const Voice *other) {
            return other->turn == group && other->region.fits(key, velocity);
        };
        if (group != 0 && isOfGroup(*voice) && std::none_of(voices.begin(), voice, isOfGroup))
            ++_turns[group];
    }
    return isPlayed ? FLUID_OK : FLUID_FAILED;
}

bool BankFont::startVoice(fluid_synth_t *synth, int channel, int key, int velocity,
                          const Voice &voice, std::size_t side) const
{
    auto *const sounding =
        fluid_synth_alloc_voice(synth, voice.samples[side].get(), channel, key, velocity);
    if (sounding == nullptr)
        return false;
    const auto &region = voice.region;
    const double semitones = key - region.rootKey + _bend;
    const double ratio = voice.rateRatio * std::exp2(semitones / 12 + region.tune / centsPerOctave);
    const auto silent = std::lround((blockFrames + _phase) * ratio);
    const auto start = std::max<long>(0, static_cast<long>(SampleData::lead) - silent);
    const auto set = [sounding](int generator, double value) {
        fluid_voice_gen_set(sounding, generator, static_cast<float>(value));
    };
    set(GEN_STARTADDROFS, static_cast<double>(start));
    set(GEN_FINETUNE, region.tune);
    set(GEN_ATTENUATION, tooLoud - 10 * region.gain);
    const float place = voice.samples.size() == 1 ? 0 : side == 0 ? -hardPan : hardPan;
    set(GEN_PAN, std::clamp(place + hardPan * static_cast<float>(region.pan), -hardPan, hardPan));
    constexpr double shortest = 0.001;
    set(GEN_VOLENVRELEASE, centsPerOctave * std::log2(std::max(region.release, shortest)));
    set(GEN_SAMPLEMODE, region.loop ? 1 : 0);
    if (region.chokeGroup != 0)
        set(GEN_EXCLUSIVECLASS, region.chokeGroup);
    fluid_synth_start_voice(synth, sounding);
    return true;
}

} // namespace Halvec::audio
