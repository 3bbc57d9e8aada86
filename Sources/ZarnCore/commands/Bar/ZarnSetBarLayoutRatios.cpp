// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Bar/ZarnSetBarLayoutRatios.h>

#include <ZarnCore/commands/NumbersText.h>
#include <ZarnCore/model/attributes/ZarnLayoutRatio.h>

namespace zarn {

std::vector<std::shared_ptr<Bar>> TrackBarPlaces::nodes(ScoreModel &model) const
{
    std::vector<std::shared_ptr<Bar>> nodes;
    const auto node = model.track(track);
    if (!node || last >= node->barCount())
        return nodes;
    for (const auto &staff : node->staves())
        nodes.insert(nodes.end(), staff->bars().begin() + first, staff->bars().begin() + last + 1);
    return nodes;
}

void TrackBarPlaces::announce(ScoreBase &score, const void *sender) const
{
    score.notify(sender,
                 evt::BarLayoutRatiosChanged(static_cast<int>(first), static_cast<int>(last)));
}

} // namespace zarn

namespace zarn::cmd {

SetBarLayoutRatios::SetBarLayoutRatios() : SetEach(QStringLiteral("SetBarLayoutRatios")) { }
SetBarLayoutRatios::~SetBarLayoutRatios() = default;

bool SetBarLayoutRatios::init(Score *score, unsigned track, unsigned first,
                              const std::vector<float> &ratios)
{
    ZARN_ASSERT_IN("zarn::cmd::SetBarLayoutRatios::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("First"), QString::number(first));
    addArg(QStringLiteral("Value"), numbersText(ratios));
    _ratios = ratios;
    return areLayoutRatios(ratios) && first < MasterTrack::MaxBars
        && prepare(score, {track, first, first + static_cast<unsigned>(ratios.size()) - 1});
}

std::optional<float> SetBarLayoutRatios::next(std::size_t number, const Bar &) const
{
    return _ratios[number % _ratios.size()];
}

} // namespace zarn::cmd
