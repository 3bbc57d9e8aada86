// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <QString>

#include <memory>
#include <string>

namespace zarn {

class GuitarPickupSet;
class HVSoundFont;

/// A set of samples as the catalogue shows it.
class ZARNCORE_EXPORT Soundbank {
public:
    /// Raises a `CoreException` for a null font.
    explicit Soundbank(std::shared_ptr<const HVSoundFont> soundfont);

    /// What patches call the bank, and its key in the core's catalogue: "Strat-Guitar".
    const std::string &id() const noexcept;

    /// Name for people: the font's, except for a few ids whose names are fixed ("DXPiano1-Key" is
    /// "DX Piano 1").
    const std::string &name() const noexcept { return _name; }
    const std::string &description() const noexcept;

    /// Text of the category of what was sampled: "electricGuitar".
    const std::string &instrument() const noexcept;

    /// Decibels.
    double velocity() const noexcept;
    /// "-1.5 dB".
    QString velocityString() const;

    /// Its samples are installed.
    bool isUsable() const noexcept;

    bool isPitched() const noexcept;
    bool isUnpitched() const noexcept;

    const std::shared_ptr<const HVSoundFont> &soundfont() const noexcept { return _soundfont; }

    /// Null for a bank without pickups.
    const std::shared_ptr<const GuitarPickupSet> &guitarPickupSet() const noexcept;

private:
    std::shared_ptr<const HVSoundFont> _soundfont;
    std::string _name;
};

} // namespace zarn
