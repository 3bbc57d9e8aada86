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
    setBar(bar);
    _marks = marks;
    const bool areKnown = marks.empty() || *marks.rbegin() < DirectionMark::NoDirection;
    return areKnown && bar >= 0 && expectPlace([this] { return hasBar(); });
}

void SetBarDirections::place(Directions &directions) const
{
    requirePlace(hasBar());
    for (int &place : directions.barOfKind) {
        if (place == bar())
            place = -1;
    }
    std::uint32_t kept = 0;
    for (const DirectionMark mark : _marks) {
        kept |= directions.further & directionBit(mark);
        if ((kept & directionBit(mark)) == 0)
            directions.barOfKind[static_cast<std::size_t>(mark)] = bar();
    }
    directions.further = kept;
}

} // namespace zarn::cmd
