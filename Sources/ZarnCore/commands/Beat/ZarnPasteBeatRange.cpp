// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnPasteBeatRange.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Bar/GivenContent.h>
#include <ZarnCore/commands/Bar/PastePlace.h>
#include <ZarnCore/commands/Bar/ZarnCreateBars.h>
#include <ZarnCore/commands/Beat/BeatPasting.h>
#include <ZarnCore/model/ZarnScoreModel.h>

namespace zarn::cmd {

PasteBeatRange::PasteBeatRange() : CompoundCommand(QStringLiteral("PasteBeatRange")) { }
PasteBeatRange::~PasteBeatRange() = default;

bool PasteBeatRange::init(Score *score, const Clip &clip, const ScoreModelIndex &place,
                          unsigned times, PasteMode mode)
{
    ZARN_ASSERT_IN("zarn::cmd::PasteBeatRange::init", score != NULL);
    addArg(QStringLiteral("Index"), place.toQString());
    addArg(QStringLiteral("Times"), QString::number(times));
    addArg(QStringLiteral("Type"), QString::fromStdString(pasteModeToString(mode)));
    setScore(score);
    _target = score;
    _clip = clip;
    _place = place;
    _place.setModel(nullptr);
    _times = times;
    _mode = mode;
    return mode <= PasteMode::Merge && times >= 1 && times <= MostTimes
        && clip.kind == Clip::Kind::Beats && !clip.isEmpty() && place.trackIndex() >= 0
        && place.barIndex() >= 0 && place.beatIndex() >= 0 && place.voiceIndex() < Bar::MaxVoices
        && expectPlace([this] { return isPossible(); });
}

bool PasteBeatRange::isPossible() const
{
    return BeatPasting(model(), _clip, _place, _times, _mode).isPossible();
}

void PasteBeatRange::plan()
{
    BeatPasting pasting(model(), _clip, _place, _times, _mode);
    requirePlace(pasting.isPossible());
    auto swap = std::make_unique<ContentSwap>();
    const unsigned barCount = pasting.addTo(*swap);
    const unsigned present = model().masterTrack()->masterBarCount();
    if (barCount > present) {
        auto create = std::make_unique<CreateBars>();
        requirePlace(create->init(_target, present, barCount - present));
        addStep(std::move(create));
    }
    auto content = std::make_unique<GivenContent>();
    requirePlace(content->init(_target, std::move(swap)));
    addStep(std::move(content));
    for (const BeatPasting::Stretch &open : pasting.openStretches())
        addStep([this, open] { return fingeringOf(_target, open.first, open.second); });
}

} // namespace zarn::cmd
