// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/writer/BarFermatas.h>

#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>

namespace zarn::io {

namespace {

/// Calls with the onset and the end of each beat of a bar.
template <class Use>
void forEachBeat(const ScoreModel &model, unsigned bar, const Use &use)
{
    for (const auto &track : model.tracks())
        for (const auto &staff : track->staves())
            for (const auto &voice : staff->bars()[bar]->voices()) {
                utils::rational onset;
                for (unsigned i = 0; voice && i < voice->beatCount(); ++i) {
                    const utils::rational end = onset + voice->beats()[i]->length();
                    use(onset, end);
                    onset = end;
                }
            }
}

} // namespace

BarFermatas fermatasOf(const ScoreModel &model, unsigned bar)
{
    BarFermatas fermatas;
    for (const FermataMark &mark : model.masterTrack()->masterBars()[bar]->fermatas())
        fermatas.push_back({mark.kind, FermataSpan(mark.position)});
    if (fermatas.empty())
        return fermatas;
    forEachBeat(model, bar, [&](const utils::rational &onset, const utils::rational &end) {
        for (BarFermata &fermata : fermatas)
            fermata.span.add(onset, end);
    });
    forEachBeat(model, bar, [&](const utils::rational &onset, const utils::rational &end) {
        const bool isOfLater =
            std::any_of(fermatas.begin(), fermatas.end(), [&](const BarFermata &later) {
                return later.span.isHeldFromBefore(onset, end);
            });
        for (BarFermata &fermata : fermatas)
            fermata.isTold =
                fermata.isTold || (!isOfLater && onset < end && fermata.span.isOver(onset, end));
    });
    return fermatas;
}

} // namespace zarn::io
