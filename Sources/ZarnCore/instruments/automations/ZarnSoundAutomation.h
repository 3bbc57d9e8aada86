// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/automations/ZarnAutomation.h>

#include <memory>

namespace zarn {

class Sound;

/// A change to another sound of the track.
class ZARNCORE_EXPORT SoundAutomation : public Automation {
public:
    explicit SoundAutomation(std::shared_ptr<const zarn::Sound> sound = nullptr);
    SoundAutomation(const SoundAutomation &other) = default;
    ~SoundAutomation() override;

    /// Compares the sounds by value too.
    bool equals(const Automation &other) const override;
    /// The copy shares the sound, which nobody changes.
    std::unique_ptr<Automation> cloneAutomation() const override;
    /// Takes the sound away too.
    void reset() override;
    /// `Sound::toString` of the sound; empty without one.
    std::string valueToString() const override;
    /// The empty text takes the sound away.
    bool valueFromString(const std::string &text) override;

    /// May be null.
    const std::shared_ptr<const zarn::Sound> &sound() const noexcept { return _sound; }
    void setSound(std::shared_ptr<const zarn::Sound> sound) { _sound = std::move(sound); }

private:
    std::shared_ptr<const zarn::Sound> _sound;
};

} // namespace zarn
