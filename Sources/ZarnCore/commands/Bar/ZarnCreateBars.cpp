// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Bar/ZarnCreateBars.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnBarEvents.h>
#include <ZarnCore/model/BarColumnEdit.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn::cmd {

CreateBars::CreateBars() : ScoreCommand(QStringLiteral("CreateBars")) { }
CreateBars::~CreateBars() = default;

bool CreateBars::init(Score *score, unsigned index, unsigned count)
{
    ZARN_ASSERT_IN("zarn::cmd::CreateBars::init", score != NULL);
    setScore(score);
    _index = index;
    _count = count;
    addArg(QStringLiteral("Index"), QString::number(index));
    addArg(QStringLiteral("Count"), QString::number(count));
    return count > 0 && count <= MasterTrack::MaxBars
        && expectPlace([this] { return isPossible(); });
}

bool CreateBars::isPossible() const
{
    const unsigned present = model().masterTrack()->masterBarCount();
    return _index <= present && present <= MasterTrack::MaxBars
        && _count <= MasterTrack::MaxBars - present;
}

void CreateBars::apply()
{
    requirePlace(isPossible());
    if (_undone.has_value()) {
        model().putBackBarColumns(std::move(*_undone));
        _undone.reset();
    } else {
        _surroundings = model().insertEmptyBarColumns(_index, _count);
        _changes.start(_index, _count);
        _changes.addSurroundings(model(), _surroundings, ColumnChanges::Columns::Out);
    }
}

void CreateBars::revert()
{
    _undone = BarColumnEdit(model()).take(_index, _index + _count - 1);
    model().restoreSurroundings(_surroundings);
    // Now the links are as they were without the columns, which a redo takes away again.
    _undone->surroundings.links.settle();
    _changes.addAutomations(*_undone);
}

void CreateBars::announceApplied()
{
    score().notify(this, evt::AddBars(static_cast<int>(_index), static_cast<int>(_count)));
    _changes.announceIn(score(), this);
}

void CreateBars::announceReverted()
{
    score().notify(this, evt::RemoveBars(static_cast<int>(_index), static_cast<int>(_count)));
    _changes.announceOut(score(), this);
}

} // namespace zarn::cmd
