// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Bar/ZarnCompleteReduceBarsWithRests.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Bar/ContentSwap.h>
#include <ZarnCore/commands/ZarnRangeNodes.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/barring/MeterRests.h>

#include <algorithm>

namespace zarn::cmd {

namespace {

using utils::rational;

bool isRestLike(const Beat &beat)
{
    return !beat.isGrace() && (beat.isRest() || beat.isPlaceHolder());
}

/// The beats of a voice made as long as its bar, and where the first one differs; nothing when they
/// stay as they are.
struct Fitted {
    Voice::Beats beats;
    unsigned from = 0;
    unsigned to = 0; ///< behind the last new one
    bool isChanged = false;
};

Fitted fit(const Voice &voice, const rational &length, const TimeSignature &meter)
{
    Fitted fitted;
    fitted.beats = voice.beats();
    Voice::Beats &beats = fitted.beats;
    const bool isWritten = std::any_of(beats.begin(), beats.end(),
                                       [](const auto &beat) { return !beat->isPlaceHolder(); });
    if (!isWritten)
        return fitted;
    // They lead to the next bar.
    Voice::Beats graces;
    while (!beats.empty() && beats.back()->isGrace()) {
        graces.insert(graces.begin(), beats.back());
        beats.pop_back();
    }
    rational used = voice.length();
    const auto isTooMuch = [&] {
        return !beats.empty()
            && (beats.back()->isPlaceHolder() || (length < used && isRestLike(*beats.back())));
    };
    while (isTooMuch()) {
        used -= beats.back()->length();
        beats.pop_back();
        fitted.isChanged = true;
    }
    fitted.from = static_cast<unsigned>(beats.size());
    if (used < length) {
        const Voice::Beats rests = restsInMeter(meter, used, length);
        beats.insert(beats.end(), rests.begin(), rests.end());
        fitted.isChanged = true;
    }
    fitted.to = static_cast<unsigned>(beats.size());
    beats.insert(beats.end(), graces.begin(), graces.end());
    return fitted;
}

} // namespace

CompleteReduceBarsWithRests::CompleteReduceBarsWithRests()
    : SwapContent(QStringLiteral("CompleteReduceBarsWithRests"))
{
}

CompleteReduceBarsWithRests::~CompleteReduceBarsWithRests() = default;

bool CompleteReduceBarsWithRests::init(Score *score, const ScoreModelRange &range)
{
    ZARN_ASSERT_IN("zarn::cmd::CompleteReduceBarsWithRests::init", score != NULL);
    addArg(QStringLiteral("Range"), range.toQString());
    setScore(score);
    _range = range;
    return canExist(range) && expectPlace([this] { return hasWork(); });
}

void CompleteReduceBarsWithRests::plan(ContentSwap &swap) const
{
    const auto &masterBars = model().masterTrack()->masterBars();
    for (RangeBarIterator it(rangeIn(model(), _range)); it.oneStep();) {
        const MasterBar &master = *masterBars[it.barIndex()];
        if (master.isFreeTime() || it.bar()->isSimile())
            continue;
        for (const auto &voice : it.bar()->voices()) {
            if (voice == nullptr || voice->isEmpty())
                continue;
            Fitted fitted = fit(*voice, master.length(), master.timeSignature());
            if (!fitted.isChanged)
                continue;
            const VoicePlace place{it.trackIndex(), it.staffIndex(), it.barIndex(), voice->index()};
            swap.setBeats(place, std::move(fitted.beats));
            swap.addJoint(place, fitted.from);
            if (fitted.to != fitted.from)
                swap.addJoint(place, fitted.to);
        }
    }
}

} // namespace zarn::cmd
