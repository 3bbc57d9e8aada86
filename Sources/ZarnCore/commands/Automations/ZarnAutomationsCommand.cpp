// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Automations/ZarnAutomationsCommand.h>

#include <ZarnCore/commands/Automations/AnnounceAutomations.h>
#include <ZarnCore/events/ZarnAutomationEvents.h>
#include <ZarnCore/instruments/automations/AutomationRange.h>
#include <ZarnCore/instruments/automations/ZarnAutomationContainer.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <algorithm>
#include <limits>

namespace zarn {

AutomationsCommand::~AutomationsCommand() = default;

bool AutomationsCommand::prepare(Score *score, const std::vector<AutomationChanges> &changes)
{
    setScore(score);
    recordArgs(changes);
    for (const AutomationChanges &change : changes) {
        AutomationEdit &edit = _edits[change.track];
        for (const Automation *automation : change.removed) {
            if (!canRemove(change.track, automation))
                return false;
            edit.addRemoval(*automation);
        }
        for (const Automation *automation : change.inserted) {
            if (!canInsert(change.track, automation))
                return false;
            edit.addInsertion(*automation);
        }
        if (edit.isEmpty())
            _edits.erase(change.track);
    }
    return !_edits.empty() && std::all_of(_edits.begin(), _edits.end(), [](const auto &edit) {
        return edit.second.isUnambiguous();
    }) && expectPlace([this] { return isPossible(); });
}

int AutomationsCommand::trackNumber(unsigned track) noexcept
{
    constexpr unsigned most = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(track, most));
}

/// What is removed first, then what is put in, numbered through.
void AutomationsCommand::recordArgs(const std::vector<AutomationChanges> &changes)
{
    std::size_t number = 0;
    const auto record = [&](const Automations &automations) {
        for (const Automation *automation : automations) {
            const std::size_t i = number++;
            if (automation == nullptr)
                continue;
            // One by one: a text may hold a "%" of its own. The colon before "Text" is as it
            // should be.
            QString value = QStringLiteral("Type:%0;Linear:%1;Index:%2;Position:%3;Value:%4:Text:");
            value =
                value.arg(QString::fromStdString(Automation::typeToString(automation->type())),
                          automation->isLinear() ? QStringLiteral("true") : QStringLiteral("false"),
                          QString::number(automation->index()),
                          QString::number(static_cast<double>(automation->position())),
                          QString::fromStdString(automation->valueToString()));
            value += QString::fromStdString(automation->text());
            value += QStringLiteral(";Visible:");
            value += automation->isVisible() ? QStringLiteral("true") : QStringLiteral("false");
            addArg(QStringLiteral("Automation%0").arg(i), value);
        }
    };
    for (const AutomationChanges &change : changes) {
        if (change.track != masterTrackIndex || changes.size() > 1)
            addArg(QStringLiteral("TrackIndex"), QString::number(change.track));
        record(change.removed);
        record(change.inserted);
    }
}

bool AutomationsCommand::canHold(int track, Automation::Type type) const noexcept
{
    return isParameterType(type)
        || type == (track == masterTrackIndex ? Automation::Tempo : Automation::Sound);
}

bool AutomationsCommand::canHaveValue(const Automation &) const noexcept
{
    return true;
}

bool AutomationsCommand::canRemove(int track, const Automation *automation) const noexcept
{
    return automation != nullptr && canHold(track, automation->type());
}

bool AutomationsCommand::canInsert(int track, const Automation *automation) const noexcept
{
    return canRemove(track, automation) && isInRange(*automation) && canHaveValue(*automation);
}

AutomationContainer *AutomationsCommand::container(int track) const
{
    if (track == masterTrackIndex)
        return model().masterTrack().get();
    const auto number = static_cast<unsigned>(track);
    return model().hasTrackIndex(number) ? &model().tracks()[number]->mutableAutomations()
                                         : nullptr;
}

bool AutomationsCommand::isPossible() const
{
    const unsigned barCount = model().masterTrack()->masterBarCount();
    return std::all_of(_edits.begin(), _edits.end(), [&](const auto &edit) {
        const AutomationContainer *const target = container(edit.first);
        return target != nullptr && edit.second.isPossible(*target, barCount);
    });
}

void AutomationsCommand::apply()
{
    requirePlace(isPossible());
    const MasterTrack &master = *model().masterTrack();
    _tempoBefore = startTempo(master);
    for (auto &edit : _edits)
        edit.second.apply(*container(edit.first));
    _tempoAfter = startTempo(master);
}

void AutomationsCommand::revert()
{
    for (auto &edit : _edits)
        edit.second.revert(*container(edit.first));
}

void AutomationsCommand::announceApplied()
{
    announce(_tempoBefore, _tempoAfter);
}

void AutomationsCommand::announceReverted()
{
    announce(_tempoAfter, _tempoBefore);
}

void AutomationsCommand::announce(double tempoBefore, double tempoAfter)
{
    for (const auto &edit : _edits) {
        for (const auto &span : edit.second.spans())
            announceAutomations(score(), this, edit.first, span.first, span.second.first,
                                span.second.second);
    }
    announceStartTempo(score(), this, tempoBefore, tempoAfter);
    score().notify(this, evt::AutomationChanged());
}

} // namespace zarn
