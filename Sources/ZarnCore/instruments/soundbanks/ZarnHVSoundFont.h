// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/instruments/soundbanks/ZarnRawSampleFormat.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankRegion.h>
#include <ZarnCore/instruments/sounds/ZarnInstrument.h>

#include <rapidjson/fwd.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace zarn {

class GuitarPickupSet;

/// What a bank file (".zarn7bank") says: the description of a set of samples and where they lie.
/// Documents/catalogues.md has the format. It does not change once it is read.
class ZARNCORE_EXPORT HVSoundFont {
public:
    /// Reads a bank's description. `path` is the file that it comes from; samples are looked for
    /// beside it. Raises `CoreException` with the place of what is wrong.
    static HVSoundFont parse(const rapidjson::Value &value, const std::string &path);

    /// The same for a bank whose samples lie elsewhere: `hasSample` tells whether there is one.
    static HVSoundFont parse(const rapidjson::Value &value, const std::string &path,
                             const std::function<bool(const std::string &)> &hasSample);

    /// File that the description comes from.
    const std::string &path() const noexcept { return _path; }

    const std::string &id() const noexcept { return _id; }
    const std::string &name() const noexcept { return _name; }
    const std::string &description() const noexcept { return _description; }

    /// What was sampled, by the text of its category: "electricGuitar", "snare".
    const std::string &instrument() const noexcept { return _instrument; }
    Instrument::Type instrumentType() const noexcept { return _instrumentType; }

    /// Decibels by which the engine makes the bank louder, so that banks agree with each other.
    double velocity() const noexcept { return _velocity; }

    /// Sample files, relative to the folder or archive of the bank, each of them once.
    const std::vector<std::string> &samples() const noexcept { return _samples; }

    /// How a sample without a header is to be read; null for one that says it itself.
    const RawSampleFormat *rawFormat(const std::string &sample) const;

    /// Which notes play which samples; empty for a bank that does not tell.
    const std::vector<SoundbankRegion> &regions() const noexcept { return _regions; }

    /// There are samples, and all of their files were there when the bank was read.
    bool isUsable() const noexcept { return _usable; }

    /// Null for a bank without pickups.
    const std::shared_ptr<const GuitarPickupSet> &guitarPickupSet() const noexcept
    {
        return _guitarPickupSet;
    }

private:
    void readSamples(const rapidjson::Value &value);
    void readRegions(const rapidjson::Value &value);

    std::string _path;
    std::string _id;
    std::string _name;
    std::string _description;
    std::string _instrument;
    Instrument::Type _instrumentType = Instrument::unknown;
    double _velocity = 0;
    std::vector<std::string> _samples;
    std::map<std::string, RawSampleFormat> _rawFormats;
    std::vector<SoundbankRegion> _regions;
    std::shared_ptr<const GuitarPickupSet> _guitarPickupSet;
    bool _usable = false;
};

} // namespace zarn
