// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/ZarnCompoundCommand.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/ZarnLog.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <exception>

namespace zarn {

CompoundCommand::CompoundCommand(const QString &name) : ScoreCommand(name) { }
CompoundCommand::~CompoundCommand() = default;

void CompoundCommand::addStep(std::unique_ptr<Command> step)
{
    ZARN_ASSERT_IN("zarn::CompoundCommand::addStep", step != nullptr);
    _steps.push_back({std::move(step), nullptr});
}

void CompoundCommand::addStep(std::function<std::unique_ptr<Command>()> make)
{
    _steps.push_back({nullptr, std::move(make)});
}

void CompoundCommand::apply()
{
    if (_steps.empty()) {
        try {
            plan();
        } catch (...) {
            _steps.clear();
            throw;
        }
    }
    run(Way::Forwards);
}

void CompoundCommand::revert()
{
    run(Way::Backwards);
}

void CompoundCommand::step(Way way, std::size_t place)
{
    if (way == Way::Backwards) {
        _steps[_steps.size() - 1 - place].command->undo();
        return;
    }
    Step &step = _steps[place];
    if (step.command == nullptr) {
        step.command = step.make();
        requirePlace(step.command != nullptr);
    }
    step.command->redo();
}

void CompoundCommand::run(Way way)
{
    std::size_t done = 0;
    try {
        for (; done < _steps.size(); ++done)
            step(way, done);
    } catch (...) {
        const ScoreBase::TakingBack unstoppable(&score());
        const Way back = way == Way::Forwards ? Way::Backwards : Way::Forwards;
        for (std::size_t left = done; left > 0; --left) {
            try {
                step(back, _steps.size() - left);
            } catch (const std::exception &error) {
                qCCritical(log::commands) << "Cannot take back a part of" << name() << error.what();
            }
        }
        throw;
    }
}

} // namespace zarn
