// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/sounds/ZarnOrkaSound.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundCatalogue.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPatch.h>
#include <ZarnCore/instruments/sounds/OrkaSoundText.h>
#include <ZarnCore/utils/EnumTable.h>

#include <algorithm>
#include <utility>

namespace zarn {

namespace {

using SoundReproduction = OrkaSound::SoundReproduction;

constexpr auto soundReproductionTexts =
    utils::enumTable<SoundReproduction>(utils::KeyMatch::Exact,
                                        {
                                            {SoundReproduction::Sampled, "Sampled"},
                                            {SoundReproduction::MIDI, "MIDI"},
                                        });
static_assert(soundReproductionTexts.isConsistent());

bool areLevels(const std::vector<float> &values)
{
    return std::all_of(values.begin(), values.end(),
                       [](float value) { return value >= 0 && value <= 1; });
}

} // namespace

void OrkaSound::setSoundbankPatchId(const std::string &id)
{
    _patchId = id;
    _patch.reset();
}

std::shared_ptr<const SoundbankPatch> OrkaSound::soundbankPatch() const
{
    if (_patch != nullptr || _patchId.empty())
        return _patch;
    const SoundCatalogue *catalogue = SoundCatalogue::installed();
    return catalogue != nullptr ? catalogue->soundbankPatch(_patchId) : nullptr;
}

void OrkaSound::setSoundbankPatch(std::shared_ptr<const SoundbankPatch> patch)
{
    _patchId = patch != nullptr ? patch->id() : std::string();
    _patch = std::move(patch);
}

void OrkaSound::setPickupTones(const std::vector<float> &tones)
{
    ZARN_ASSERT_IN("zarn::OrkaSound::setPickupTones", areLevels(tones));
    _pickupTones = tones;
}

void OrkaSound::setKnobVolumes(const std::vector<float> &volumes)
{
    ZARN_ASSERT_IN("zarn::OrkaSound::setKnobVolumes", areLevels(volumes));
    _knobVolumes = volumes;
}

void OrkaSound::setSwitchPosition(std::int32_t position)
{
    ZARN_ASSERT_IN("zarn::OrkaSound::setSwitchPosition", position >= 0);
    _switchPosition = position;
}

std::string OrkaSound::toString() const
{
    return textOfSound(*this);
}

std::optional<OrkaSound> OrkaSound::fromString(const std::string &text)
{
    return soundFromText(text);
}

std::string OrkaSound::soundReproductionToString(SoundReproduction value)
{
    return std::string(soundReproductionTexts.textOrFirst(value));
}

OrkaSound::SoundReproduction OrkaSound::soundReproductionFromString(const std::string &text)
{
    return soundReproductionTexts.valueOrFirst(text);
}

} // namespace zarn
