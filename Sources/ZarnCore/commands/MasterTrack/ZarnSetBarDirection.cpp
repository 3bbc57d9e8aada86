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
    _bar = bar;
    return mark < DirectionMark::NoDirection && bar >= -1
        && expectPlace([this] { return isPossible(); });
}

bool SetBarDirection::isPossible() const
{
    return _bar == -1 || hasBar(_bar);
}

void SetBarDirection::place(MasterTrack::DirectionSlots &directions) const
{
    requirePlace(isPossible());
    directions[static_cast<std::size_t>(_mark)] = _bar;
}

} // namespace zarn::cmd
