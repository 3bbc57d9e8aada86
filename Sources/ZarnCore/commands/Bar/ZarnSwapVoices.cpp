// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Bar/ZarnSwapVoices.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Bar/ContentSwap.h>
#include <ZarnCore/commands/ZarnRangeNodes.h>
#include <ZarnCore/model/ZarnScoreModel.h>

namespace zarn::cmd {

SwapVoices::SwapVoices() : SwapContent(QStringLiteral("SwapVoices")) { }
SwapVoices::~SwapVoices() = default;

bool SwapVoices::init(Score *score, const ScoreModelRange &range, unsigned voice, unsigned other)
{
    ZARN_ASSERT_IN("zarn::cmd::SwapVoices::init", score != NULL);
    addArg(QStringLiteral("Range"), range.toQString());
    addArg(QStringLiteral("Voice"), QString::number(voice));
    addArg(QStringLiteral("Other"), QString::number(other));
    setScore(score);
    _range = range;
    _voice = voice;
    _other = other;
    return voice != other && voice < Bar::MaxVoices && other < Bar::MaxVoices && canExist(range)
        && expectPlace([this] { return hasWork(); });
}

void SwapVoices::plan(ContentSwap &swap) const
{
    for (RangeBarIterator it(rangeIn(model(), _range)); it.oneStep();) {
        const auto &voice = it.bar()->voices()[_voice];
        const auto &other = it.bar()->voices()[_other];
        const bool hasBeats = voice != nullptr && !voice->isEmpty();
        if (hasBeats || (other != nullptr && !other->isEmpty())) {
            const auto give = [&](const std::shared_ptr<Voice> &from, unsigned slot) {
                const VoicePlace place{it.trackIndex(), it.staffIndex(), it.barIndex(), slot};
                if (from != nullptr)
                    swap.setBeats(place, from->beats());
                else
                    swap.dropVoice(place);
            };
            give(voice, _other);
            give(other, _voice);
        }
        if (it.isFirstBar())
            swap.addBarLine(it.trackIndex(), it.staffIndex(), it.barIndex());
        if (it.isLastBar())
            swap.addBarLine(it.trackIndex(), it.staffIndex(), it.barIndex() + 1);
        if (_range.isMultiTrack() && it.isFirstBar())
            swap.announceAllTracks(it.barIndex(), it.barIndex() + _range.barCount() - 1);
    }
}

} // namespace zarn::cmd
