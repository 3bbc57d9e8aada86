// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Effects/ZarnEffectChainCommand.h>

#include <ZarnCore/commands/Automations/AnnounceAutomations.h>
#include <ZarnCore/events/ZarnEffectEvents.h>
#include <ZarnCore/events/ZarnScoreEvents.h>
#include <ZarnCore/instruments/effects/ZarnMastering.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <utility>

namespace zarn {

EffectChainCommand::~EffectChainCommand() = default;

void EffectChainCommand::setPlace(Score *score, int track, int sound)
{
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    if (track != masterTrackIndex)
        addArg(QStringLiteral("SoundIndex"), QString::number(sound));
    setScore(score);
    _track = track;
    _sound = sound;
}

bool EffectChainCommand::expectChain() const
{
    return expectPlace([this] { return changedChain().has_value(); });
}

bool EffectChainCommand::isMastering() const noexcept
{
    return _track == masterTrackIndex;
}

std::optional<unsigned> EffectChainCommand::soundIndex() const
{
    const auto number = static_cast<unsigned>(_track);
    if (!model().hasTrackIndex(number))
        return std::nullopt;
    const Track &track = *model().tracks()[number];
    const auto isThere = [&track](int index) {
        return index >= 0 && index < static_cast<int>(track.sounds().size());
    };
    int index = _sound;
    if (index == -1)
        index = isThere(track.forcedSoundIndex()) ? track.forcedSoundIndex() : 0;
    return isThere(index) ? std::optional(static_cast<unsigned>(index)) : std::nullopt;
}

const EffectChain *EffectChainCommand::chain() const
{
    if (isMastering())
        return &model().masterTrack()->mastering().effectChain();
    const auto index = soundIndex();
    return index ? &model()
                        .tracks()[static_cast<unsigned>(_track)]
                        ->sounds()[*index]
                        ->orkaSound()
                        .effectChain()
                 : nullptr;
}

std::optional<EffectChain> EffectChainCommand::changedChain() const
{
    const EffectChain *const found = chain();
    return found != nullptr ? changed(*found) : std::nullopt;
}

void EffectChainCommand::apply()
{
    const auto after = changedChain();
    requirePlace(after.has_value());
    _before = *chain();
    if (isMastering()) {
        constexpr unsigned reverb = Mastering::reverbSlot;
        _isReverbChanged = _before.effect(reverb) != after->effect(reverb);
        model().masterTrack()->mutableMastering().setEffectChain(*after);
        return;
    }
    Track &track = *model().tracks()[static_cast<unsigned>(_track)];
    const unsigned index = *soundIndex();
    // The same one again after an undo: others may have seen it.
    if (_changedSound == nullptr) {
        const auto sound = std::make_shared<Sound>(*track.sounds()[index]);
        sound->mutableOrkaSound().setEffectChain(*after);
        _changedSound = sound;
    }
    _soundChange.apply(track, index, _changedSound);
}

void EffectChainCommand::revert()
{
    if (isMastering())
        model().masterTrack()->mutableMastering().setEffectChain(_before);
    else
        _soundChange.revert(*model().tracks()[static_cast<unsigned>(_track)]);
}

void EffectChainCommand::announceApplied()
{
    announceSound();
    announceChange();
    announceConsequences();
}

void EffectChainCommand::announceReverted()
{
    announceSound();
    announceChangeBack();
    announceConsequences();
}

void EffectChainCommand::announceSound()
{
    if (!isMastering())
        score().notify(
            this, evt::TrackSoundEffectsChanged(_track, static_cast<int>(_soundChange.index())));
}

void EffectChainCommand::announceConsequences()
{
    if (!isMastering())
        _soundChange.announceAutomations(score(), this, static_cast<unsigned>(_track));
    else if (_isReverbChanged)
        score().notify(this, evt::MasteringReverbChanged());
}

} // namespace zarn
