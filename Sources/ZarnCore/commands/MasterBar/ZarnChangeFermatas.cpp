// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/MasterBar/ZarnChangeFermatas.h>

#include <ZarnCore/events/ZarnMasterBarEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <algorithm>

namespace zarn {

bool ChangeFermatas::prepare(Score *score, unsigned bar)
{
    setScore(score);
    _bar = bar;
    return expectPlace([this] { return canChange(); });
}

bool ChangeFermatas::canChange() const
{
    const auto bar = model().masterTrack()->masterBar(_bar);
    FermataMarks marks = bar ? bar->fermatas() : FermataMarks();
    return bar && change(*bar, marks);
}

void ChangeFermatas::apply()
{
    const auto bar = model().masterTrack()->masterBar(_bar);
    requirePlace(bar != nullptr);
    FermataMarks marks = bar->fermatas();
    requirePlace(change(*bar, marks));
    _before = bar->fermatas();
    bar->setFermatas(marks);
}

void ChangeFermatas::revert()
{
    model().masterTrack()->masterBars()[_bar]->setFermatas(_before);
}

void ChangeFermatas::announce()
{
    const auto bar = static_cast<int>(_bar);
    score().notify(this, evt::MasterBarFermata(bar, bar));
}

FermataMarks::iterator markAt(FermataMarks &marks, const utils::rational &position)
{
    return std::find_if(marks.begin(), marks.end(),
                        [&](const FermataMark &mark) { return mark.position == position; });
}

void addMark(FermataMarks &marks, const FermataMark &mark)
{
    const auto behind = std::find_if(marks.begin(), marks.end(), [&](const FermataMark &other) {
        return mark.position < other.position;
    });
    marks.insert(behind, mark);
}

} // namespace zarn
