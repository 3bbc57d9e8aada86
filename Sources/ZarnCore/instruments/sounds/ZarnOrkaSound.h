// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/instruments/effects/ZarnEffectChain.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace zarn {

class SoundbankPatch;

/// A sound of the sampled engine: a patch, the effects behind it, and the settings of the pickups
/// when it is a guitar or bass that has some.
///
/// The patch is kept by the identifier by which it was named, so that a document that names a patch
/// which is not known here keeps its sound, and equality is that of the identifiers. The patch
/// itself is looked up when it is asked for.
class ZARNCORE_EXPORT OrkaSound {
public:
    /// What plays the sound.
    enum class SoundReproduction : std::uint8_t {
        Sampled, ///< the patch, or MIDI as long as it has none that is installed
        MIDI,    ///< always the General MIDI sound
    };

    OrkaSound() = default;
    /// Names the patch.
    explicit OrkaSound(std::string soundbankPatchId) : _patchId(std::move(soundbankPatchId)) { }

    /// Identifier of the patch, in whatever form it was given; empty without one.
    const std::string &soundbankPatchId() const noexcept { return _patchId; }
    void setSoundbankPatchId(const std::string &id);

    /// The patch that was set, or the one that the installed `SoundCatalogue` finds by the
    /// identifier; null when there is none.
    std::shared_ptr<const SoundbankPatch> soundbankPatch() const;
    /// Null takes the patch away.
    void setSoundbankPatch(std::shared_ptr<const SoundbankPatch> patch);

    const EffectChain &effectChain() const noexcept { return _effectChain; }
    EffectChain &mutableEffectChain() noexcept { return _effectChain; }
    void setEffectChain(const EffectChain &chain) { _effectChain = chain; }

    SoundReproduction soundReproduction() const noexcept { return _soundReproduction; }
    void setSoundReproduction(SoundReproduction value) noexcept { _soundReproduction = value; }

    // Knobs, one for each pickup from the neck to the bridge, from 0 to 1; a pickup past the end of
    // the list has its knob at 1. The setters raise a `CoreException` for any other value.

    const std::vector<float> &pickupTones() const noexcept { return _pickupTones; }
    void setPickupTones(const std::vector<float> &tones);
    const std::vector<float> &knobVolumes() const noexcept { return _knobVolumes; }
    void setKnobVolumes(const std::vector<float> &volumes);

    /// Index of `GuitarPickupSet::switchPositions`; raises a `CoreException` when negative.
    std::int32_t switchPosition() const noexcept { return _switchPosition; }
    void setSwitchPosition(std::int32_t position);

    // What the amplifier simulation is told about the guitar, in its own numbers and names.

    /// Position of the pickup switch; -1 leaves it to the simulation.
    std::int32_t overloudPosition() const noexcept { return _overloudPosition; }
    void setOverloudPosition(std::int32_t position) noexcept { _overloudPosition = position; }
    /// Models of the pickups, from the neck to the bridge.
    const std::vector<std::string> &overloudPickupIds() const noexcept
    {
        return _overloudPickupIds;
    }
    void setOverloudPickupIds(const std::vector<std::string> &ids) { _overloudPickupIds = ids; }

    /// All fields in one line; empty for a fresh sound.
    std::string toString() const;

    /// Reads what `toString` wrote; nothing for anything else.
    static std::optional<OrkaSound> fromString(const std::string &text);

    /// "Sampled", "MIDI".
    static std::string soundReproductionToString(SoundReproduction value);
    /// `Sampled` for any other text than "MIDI".
    static SoundReproduction soundReproductionFromString(const std::string &text);

private:
    std::string _patchId;
    std::shared_ptr<const SoundbankPatch> _patch; ///< when it was set as such
    EffectChain _effectChain;
    SoundReproduction _soundReproduction = SoundReproduction::Sampled;
    std::vector<float> _pickupTones;
    std::vector<float> _knobVolumes;
    std::int32_t _switchPosition = 0;
    std::int32_t _overloudPosition = -1;
    std::vector<std::string> _overloudPickupIds;

    auto fields() const noexcept
    {
        return std::tie(_patchId, _effectChain, _soundReproduction, _pickupTones, _knobVolumes,
                        _switchPosition, _overloudPosition, _overloudPickupIds);
    }

public:
    friend bool operator==(const OrkaSound &a, const OrkaSound &b) noexcept
    {
        return a.fields() == b.fields();
    }
    friend bool operator!=(const OrkaSound &a, const OrkaSound &b) noexcept { return !(a == b); }
    friend bool operator<(const OrkaSound &a, const OrkaSound &b) noexcept
    {
        return a.fields() < b.fields();
    }
};

} // namespace zarn
