// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/automations/ZarnSoundAutomation.h>

#include <ZarnCore/instruments/sounds/ZarnSound.h>

#include <utility>

namespace zarn {

SoundAutomation::SoundAutomation(std::shared_ptr<const zarn::Sound> sound)
    : Automation(Automation::Sound), _sound(std::move(sound))
{
}

SoundAutomation::~SoundAutomation() = default;

bool SoundAutomation::equals(const Automation &other) const
{
    if (!Automation::equals(other))
        return false;
    const auto &sound = static_cast<const SoundAutomation &>(other)._sound;
    if (_sound == nullptr || sound == nullptr)
        return _sound == sound;
    return *_sound == *sound;
}

std::unique_ptr<Automation> SoundAutomation::cloneAutomation() const
{
    return std::make_unique<SoundAutomation>(*this);
}

void SoundAutomation::reset()
{
    Automation::reset();
    _sound.reset();
}

std::string SoundAutomation::valueToString() const
{
    return _sound != nullptr ? _sound->toString() : std::string();
}

bool SoundAutomation::valueFromString(const std::string &text)
{
    if (text.empty()) {
        _sound.reset();
        return true;
    }
    auto sound = zarn::Sound::fromString(text);
    if (!sound)
        return false;
    _sound = std::make_shared<const zarn::Sound>(*std::move(sound));
    return true;
}

} // namespace zarn
