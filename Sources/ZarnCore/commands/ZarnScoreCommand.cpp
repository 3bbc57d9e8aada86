// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/ZarnScoreCommand.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/ZarnLog.h>
#include <ZarnCore/score/ZarnScore.h>

#include <exception>

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

ScoreCommand::ScoreCommand(const QString &name)
{
    setName(name);
}

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

void ScoreCommand::redo()
{
    apply();
    try {
        announceApplied();
    } catch (...) {
        // Listeners that heard of the change hear that it is gone again, all of it.
        const Score::TakingBack unstoppable(_score);
        attempt(*this, [this] { revert(); });
        attempt(*this, [this] { announceReverted(); });
        throw;
    }
}

void ScoreCommand::undo()
{
    revert();
    try {
        announceReverted();
    } catch (...) {
        const Score::TakingBack unstoppable(_score);
        attempt(*this, [this] { apply(); });
        attempt(*this, [this] { announceApplied(); });
        throw;
    }
}

} // namespace zarn
