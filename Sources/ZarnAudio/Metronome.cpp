// SPDX-License-Identifier: MIT
#include <ZarnAudio/Metronome.h>

#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <cmath>

namespace Halvec::audio {

namespace {

using utils::rational;
using zarn::playback::PlaybackPlan;
using zarn::playback::PlayedBar;

/// How much of the whole bar is gone when a played bar begins.
rational missingOf(const PlayedBar &played, const BarBeats &beats)
{
    const rational missing = beats.length - played.length;
    return beats.isPickup && missing.sign() > 0 ? missing : rational();
}

} // namespace

int BarBeats::count() const
{
    return std::max(1, static_cast<int>(std::ceil((length / beat).toDouble() - 1e-9)));
}

std::vector<BarBeats> beatsOf(const zarn::ScoreModel &model)
{
    std::vector<BarBeats> all;
    for (const auto &bar : model.masterTrack()->masterBars()) {
        const auto &meter = bar->timeSignature();
        const bool isCompound = meter.getDenominator() >= 8 && meter.getNumerator() % 3 == 0
            && meter.getNumerator() > 3;
        all.push_back(
            {meter.timeUnit() * rational(isCompound ? 3 : 1), meter.barLength(), all.empty()});
    }
    return all;
}

std::vector<PlannedClick> clicksOf(const PlaybackPlan &plan, const std::vector<BarBeats> &beats)
{
    std::vector<PlannedClick> clicks;
    zarn::playback::TempoCursor cursor(plan.tempo());
    for (const PlayedBar &played : plan.bars().bars()) {
        if (played.bar >= beats.size())
            continue;
        const BarBeats &meter = beats[played.bar];
        const rational missing = missingOf(played, meter);
        for (rational at; at < played.length + missing; at += meter.beat)
            if (at >= missing)
                clicks.push_back({cursor.secondsAt(played.start + (at - missing)), at.isZero()});
    }
    return clicks;
}

CountIn countInAt(const PlaybackPlan &plan, const std::vector<BarBeats> &beats, double second,
                  int bars)
{
    CountIn count;
    const auto place = plan.placeAt(second);
    if (bars <= 0 || !place || place->bar >= beats.size())
        return count;
    const PlayedBar &played = plan.bars().bars()[place->playedBar];
    const BarBeats &meter = beats[place->bar];
    const double inBar = ((place->offset + missingOf(played, meter)) / meter.beat).toDouble();
    count.beatsPerBar = meter.count();
    count.beats = bars * count.beatsPerBar + static_cast<int>(inBar + 1e-6);
    const double start = plan.tempo().quartersAt(second);
    count.beatSeconds =
        plan.tempo().secondsAt(start + meter.beat.toDouble()) - plan.tempo().secondsAt(start);
    return count;
}

} // namespace Halvec::audio
