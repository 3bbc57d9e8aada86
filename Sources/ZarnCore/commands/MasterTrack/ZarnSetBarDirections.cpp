// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/MasterTrack/ZarnSetBarDirections.h>

#include <ZarnCore/ZarnAssert.h>

namespace zarn::cmd {

SetBarDirections::SetBarDirections() : ModifyDirections(QStringLiteral("SetBarDirections")) { }
SetBarDirections::~SetBarDirections() = default;

bool SetBarDirections::init(Score *score, int bar, const std::set<DirectionMark> &marks)
{
    ZARN_ASSERT_IN("zarn::cmd::SetBarDirections::init", score != NULL);
    addArg(QStringLiteral("Index"), QString::number(bar));
    addArg(QStringLiteral("Type"), directionMarksToQString(marks));
    setScore(score);
    _bar = bar;
    _marks = marks;
    const bool areKnown = marks.empty() || *marks.rbegin() < DirectionMark::NoDirection;
    return areKnown && bar >= 0 && expectPlace([&] { return hasBar(bar); });
}

void SetBarDirections::place(MasterTrack::DirectionSlots &directions) const
{
    requirePlace(hasBar(_bar));
    for (int &place : directions) {
        if (place == _bar)
            place = -1;
    }
    for (const DirectionMark mark : _marks)
        directions[static_cast<std::size_t>(mark)] = _bar;
}

} // namespace zarn::cmd
