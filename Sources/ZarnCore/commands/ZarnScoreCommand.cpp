// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/ZarnScoreCommand.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/ZarnLog.h>
#include <ZarnCore/commands/ZarnRangeNodes.h>
#include <ZarnCore/commands/ZarnTouchedBars.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/ZarnKeptSpans.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>
#include <ZarnCore/score/ZarnScore.h>

#include <algorithm>
#include <exception>
#include <vector>

namespace zarn {

namespace {

/// Does something on the way out of a failure; what that throws is logged.
template <class Action>
void attempt(const Command &command, Action action) noexcept
{
    try {
        action();
    } catch (const std::exception &error) {
        qCCritical(log::commands) << "Cannot take back" << command.name() << error.what();
    } catch (...) {
        qCCritical(log::commands) << "Cannot take back" << command.name();
    }
}

} // namespace

struct ScoreCommand::SpanWork {
    struct Bars {
        unsigned track;
        unsigned staff;
        unsigned first;
        unsigned last;
    };

    KeptSpans kept;
    std::vector<Bars> announced; ///< by the command itself

    bool isAnnounced(const KeptBeats::Place &place) const
    {
        return std::any_of(announced.begin(), announced.end(), [&](const Bars &bars) {
            return bars.track == place.track && bars.staff == place.staff && bars.first <= place.bar
                && place.bar <= bars.last;
        });
    }
};

ScoreCommand::ScoreCommand(const QString &name)
{
    setName(name);
}

ScoreCommand::~ScoreCommand() = default;

void ScoreCommand::setScore(Score *score) noexcept
{
    _score = score;
    _base = score;
}

ScoreModel &ScoreCommand::model() const noexcept
{
    return *_score->scoreModel();
}

void ScoreCommand::requirePlace(bool exists) const
{
    if (!exists) {
        const QString text = name() + args() + QStringLiteral(": the score has no such place");
        ZARN_RAISE_IN("zarn::ScoreCommand::requirePlace", text.toStdString());
    }
}

bool ScoreCommand::isCollected() const noexcept
{
    return _score->commandStack().isMacroOpen();
}

void ScoreCommand::keepSpans(unsigned track, unsigned staff, unsigned firstBar, unsigned lastBar)
{
    if (!_spans)
        _spans = std::make_unique<SpanWork>();
    _spans->kept.keep(*model().tracks()[track], firstBar, lastBar);
    auto &announced = _spans->announced;
    const bool goesOn = !announced.empty() && announced.back().track == track
        && announced.back().staff == staff && firstBar >= announced.back().first
        && firstBar <= announced.back().last + 1;
    if (goesOn)
        announced.back().last = std::max(announced.back().last, lastBar);
    else
        announced.push_back({track, staff, firstBar, lastBar});
}

void ScoreCommand::keepSpans(const ScoreModelRange &range)
{
    const auto bars = std::minmax({range.first().barIndex(), range.second().barIndex()});
    const auto staves = stavesOf(range);
    for (const auto &track : model().tracks()) {
        if (!range.isMultiTrack() && static_cast<int>(track->index()) != range.first().trackIndex())
            continue;
        for (unsigned staff = 0; staff < track->staffCount(); ++staff)
            if (range.isMultiTrack() || (staff >= staves.first && staff <= staves.second))
                keepSpans(track->index(), staff, static_cast<unsigned>(std::max(bars.first, 0)),
                          static_cast<unsigned>(std::max(bars.second, 0)));
    }
}

void ScoreCommand::setGivenSpan(SpanKind kind)
{
    if (_spans)
        _spans->kept.setGiven(kind);
}

void ScoreCommand::perform()
{
    if (_spans)
        *_spans = {};
    apply();
    if (_spans)
        _spans->kept.mend(model());
}

void ScoreCommand::takeBack()
{
    if (_spans)
        _spans->kept.putBack(model());
    revert();
}

void ScoreCommand::announceSpans()
{
    if (!_spans)
        return;
    TouchedBars touched;
    for (const KeptBeats::Place &place : _spans->kept.changed())
        if (!_spans->isAnnounced(place))
            touched.add(place.track, place.staff, place.bar, place.bar);
    touched.announce(score(), this);
}

void ScoreCommand::redo()
{
    perform();
    try {
        announceApplied();
        announceSpans();
    } catch (...) {
        // Listeners that heard of the change hear that it is gone again, all of it.
        const Score::TakingBack unstoppable(_score);
        attempt(*this, [this] { takeBack(); });
        attempt(*this, [this] { announceReverted(); });
        attempt(*this, [this] { announceSpans(); });
        throw;
    }
}

void ScoreCommand::undo()
{
    takeBack();
    try {
        announceReverted();
        announceSpans();
    } catch (...) {
        const Score::TakingBack unstoppable(_score);
        attempt(*this, [this] { perform(); });
        attempt(*this, [this] { announceApplied(); });
        attempt(*this, [this] { announceSpans(); });
        throw;
    }
}

} // namespace zarn
