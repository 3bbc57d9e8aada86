// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/MasterTrack/ZarnSetBarDirection.h>

#include <ZarnCore/ZarnAssert.h>

namespace zarn::cmd {

SetBarDirection::SetBarDirection() : ModifyDirections(QStringLiteral("SetBarDirection")) { }
SetBarDirection::~SetBarDirection() = default;

bool SetBarDirection::init(Score *score, DirectionMark mark, int bar)
{
    ZARN_ASSERT_IN("zarn::cmd::SetBarDirection::init", score != NULL);
    addArg(QStringLiteral("Type"), directionMarkToQString(mark));
    addArg(QStringLiteral("Index"), QString::number(bar));
    setScore(score);
    _mark = mark;
    setBar(bar);
    return mark < DirectionMark::NoDirection && bar >= -1
        && expectPlace([this] { return isPossible(); });
}

bool SetBarDirection::isPossible() const
{
    return bar() == -1 || hasBar();
}

void SetBarDirection::place(Directions &directions) const
{
    requirePlace(isPossible());
    directions.barOfKind[static_cast<std::size_t>(_mark)] = bar();
    directions.further &= ~directionBit(_mark);
}

} // namespace zarn::cmd
