// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Sounds/ZarnTrackSoundChange.h>
#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/instruments/effects/ZarnEffectChain.h>

#include <memory>
#include <optional>

namespace zarn {

/// Base of commands that change an effect chain: that of the mastering, or that of a sound of a
/// track. Sounds are shared and never change: the sound is replaced by a changed copy, in the list
/// of the track and in the automations that switch to it.
///
/// Sends, for a sound, `TrackSoundEffectsChanged`; then the events of the concrete command; then,
/// for the slot of the master reverb, `MasteringReverbChanged`; and `TrackAutomationChanged` with
/// what follows it when automations hold the sound.
class ZARNCORE_EXPORT EffectChainCommand : public ScoreCommand {
public:
    ~EffectChainCommand() override;

protected:
    using ScoreCommand::ScoreCommand;

    /// The chain: that of the mastering for the track -1, whatever the sound, else that of a sound
    /// of the track; the sound -1 is the one that the track is forced to play with, or its first.
    /// Records both.
    void setPlace(Score *score, int track, int sound);

    /// Whether there is such a chain, and it can be changed in this way; see `expectPlace`.
    bool expectChain() const;

    /// As events name the place.
    int trackIndex() const noexcept { return _track; }

    const EffectChain &before() const noexcept { return _before; }

private:
    /// The chain as the command makes it; nothing when it cannot be changed in this way.
    virtual std::optional<EffectChain> changed(const EffectChain &chain) const = 0;
    virtual void announceChange() = 0;
    virtual void announceChangeBack() { announceChange(); }

    bool isMastering() const noexcept;
    /// The place of the sound in its track; nothing when there is none.
    std::optional<unsigned> soundIndex() const;
    std::optional<EffectChain> changedChain() const;
    const EffectChain *chain() const;

    void apply() final;
    void revert() final;
    void announceApplied() final;
    void announceReverted() final;
    void announceSound();
    void announceConsequences();

    int _track = 0;
    int _sound = 0;
    EffectChain _before;
    bool _isReverbChanged = false;
    std::shared_ptr<const Sound> _changedSound;
    TrackSoundChange _soundChange;
};

} // namespace zarn
