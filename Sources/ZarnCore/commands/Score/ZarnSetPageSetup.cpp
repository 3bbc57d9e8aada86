// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Score/ZarnSetPageSetup.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnScoreViewEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <utility>

namespace zarn::cmd {
namespace {

bool isBetween(int value, int least, int most)
{
    return value >= least && value <= most;
}

/// Both margins of a side leave half of it.
bool leaveRoom(int first, int second, int length)
{
    return isBetween(first, 0, length) && isBetween(second, 0, length)
        && first + second <= length / 2;
}

} // namespace

SetPageSetup::SetPageSetup() : ScoreCommand(QStringLiteral("SetPageSetup")) { }
SetPageSetup::~SetPageSetup() = default;

bool SetPageSetup::init(Score *score, const PageSetup &setup)
{
    ZARN_ASSERT_IN("zarn::cmd::SetPageSetup::init", score != NULL);
    addArg(QStringLiteral("Size"), QStringLiteral("%1 x %2").arg(setup.width).arg(setup.height));
    addArg(QStringLiteral("Value"), QString::number(setup.staffSpace));
    setScore(score);
    _setup = setup;
    int width = setup.width;
    int height = setup.height;
    if (setup.orientation == PageSetup::Orientation::Landscape)
        std::swap(width, height);
    return setup.orientation <= PageSetup::Orientation::Landscape
        && isBetween(width, smallestSheet, largestSheet)
        && isBetween(height, smallestSheet, largestSheet)
        && isBetween(setup.staffSpace, smallestStaffSpace, largestStaffSpace)
        && leaveRoom(setup.leftMargin, setup.rightMargin, width)
        && leaveRoom(setup.topMargin, setup.bottomMargin, height);
}

void SetPageSetup::apply()
{
    _before = model().pageSetup();
    model().setPageSetup(_setup);
}

void SetPageSetup::revert()
{
    model().setPageSetup(_before);
}

void SetPageSetup::announceApplied()
{
    announce();
}

void SetPageSetup::announceReverted()
{
    announce();
}

void SetPageSetup::announce()
{
    const auto views = static_cast<int>(model().views().size());
    for (int view = 0; view < views; ++view)
        score().notify(this, evt::ScoreViewLayoutChanged(view));
}

} // namespace zarn::cmd
