// SPDX-License-Identifier: MIT
#include <ZarnAudio/ZarnSoundbanks.h>

#include <ZarnAudio/ZarnSynthesizer.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSetLibrary.h>
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFont.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundCatalogue.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbank.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPatch.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <streams/BankArchive.h>

#include <algorithm>

namespace Halvec::audio {

namespace {

/// The element of a set that a percussion key plays; empty when there is none.
std::string elementOf(zarn::InstrumentSet::Type type, int key)
{
    const auto *const library = zarn::InstrumentSetLibrary::installed();
    const auto set = library == nullptr ? nullptr : library->findInstrumentSetWithType(type);
    if (set == nullptr)
        return {};
    const auto &articulations = set->articulations();
    const auto found =
        std::find_if(articulations.begin(), articulations.end(),
                     [key](const auto &each) { return each.outputMidiNumber() == key; });
    return found == articulations.end() ? std::string() : found->element().name();
}

/// The id of the bank; empty when the patch has none for the note.
std::string bankIdOf(const zarn::SoundbankPatch &patch, bool isPercussion, int key)
{
    if (patch.isPitched() == isPercussion || patch.soundbanks().empty())
        return {};
    if (!isPercussion)
        return patch.soundbanks().front().second;
    return patch.soundbankId(elementOf(patch.instrumentSetType(), key));
}

} // namespace

std::string bankOfNote(const zarn::Sound &sound, bool isPercussion, int key)
{
    const zarn::OrkaSound &orka = sound.orkaSound();
    const auto *const catalogue = zarn::SoundCatalogue::installed();
    if (catalogue == nullptr || orka.soundbankPatchId().empty()
        || orka.soundReproduction() != zarn::OrkaSound::SoundReproduction::Sampled)
        return {};
    const auto patch = orka.soundbankPatch();
    if (patch == nullptr)
        return {};
    const std::string id = bankIdOf(*patch, isPercussion, key);
    const auto bank = id.empty() ? nullptr : catalogue->soundbank(id);
    const bool isPlayable =
        bank != nullptr && bank->isUsable() && !bank->soundfont()->regions().empty();
    return isPlayable ? bank->soundfont()->path() : std::string();
}

Soundbanks::Soundbanks(std::size_t budget) : _heap(budget), _cache(_heap) { }

Soundbanks::~Soundbanks() = default;

PlanSound Soundbanks::soundOf(const zarn::playback::PlaybackPlan &plan,
                              const PlanSound::BankChoice &bankOf)
{
    if (!bankOf)
        return PlanSound(plan);
    return PlanSound(plan, [&](const zarn::Sound &sound, bool isPercussion, int key) {
        const auto bank = bankOf(sound, isPercussion, key);
        return _refused.count(bank) == 0 ? bank : std::string();
    });
}

bool Soundbanks::load(Synthesizer &synthesizer, const PlanSound &sound)
{
    bool isLoaded = true;
    for (std::size_t channel = 0; channel < sound.channels().size(); ++channel) {
        const std::string &path = sound.channels()[channel].bank;
        if (path.empty())
            continue;
        std::string error;
        std::shared_ptr<streams::BankArchive> archive =
            streams::BankArchive::open(_files, path, &error);
        if (archive != nullptr
            && synthesizer.loadBank(static_cast<int>(channel), archive, _cache, &error))
            continue;
        _refused.emplace(path, error);
        isLoaded = false;
    }
    return isLoaded;
}

} // namespace Halvec::audio
