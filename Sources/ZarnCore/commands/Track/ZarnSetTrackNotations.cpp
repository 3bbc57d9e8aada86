// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnSetTrackNotations.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnScoreViewEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <QStringList>

namespace zarn::cmd {

SetTrackNotations::SetTrackNotations() : ScoreCommand(QStringLiteral("SetTrackNotations")) { }
SetTrackNotations::~SetTrackNotations() = default;

bool SetTrackNotations::init(Score *score, unsigned track,
                             const std::optional<TrackNotations> &notations)
{
    ZARN_ASSERT_IN("zarn::cmd::SetTrackNotations::init", score != NULL);
    QStringList words;
    if (notations && notations->standard)
        words << QStringLiteral("Standard");
    if (notations && notations->tablature)
        words << QStringLiteral("Tablature");
    if (notations && notations->slash)
        words << QStringLiteral("Slash");
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("Type"), words.join(QLatin1Char(' ')));
    setScore(score);
    _track = track;
    _notations = notations;
    return (!notations || notations->any())
        && expectPlace([this] { return model().hasTrackIndex(_track); });
}

void SetTrackNotations::apply()
{
    requirePlace(model().hasTrackIndex(_track));
    _before = model().track(_track)->chosenNotations();
    model().track(_track)->setChosenNotations(_notations);
}

void SetTrackNotations::revert()
{
    model().track(_track)->setChosenNotations(_before);
}

void SetTrackNotations::announceApplied()
{
    announce();
}

void SetTrackNotations::announceReverted()
{
    announce();
}

void SetTrackNotations::announce()
{
    const auto views = static_cast<int>(model().views().size());
    for (int view = 0; view < views; ++view)
        score().notify(this, evt::TrackViewNotationsChanged(view, static_cast<int>(_track)));
}

} // namespace zarn::cmd
