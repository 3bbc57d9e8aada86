// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetBrush.h>

namespace zarn::cmd {

SetBrush::SetBrush() : SetByTable(QStringLiteral("SetBrush")) { }
SetBrush::~SetBrush() = default;

bool SetBrush::init(Score *score, const ScoreModelRange &range, Direction direction,
                    unsigned length, StrumAnchor anchor)
{
    ZARN_ASSERT_IN("zarn::cmd::SetBrush::init", score != NULL);
    if (length > Strum::LongestLength)
        return false;
    Strum strum;
    strum.direction = direction;
    if (direction != Direction::None) {
        strum.length = static_cast<std::uint16_t>(length == Strum::BrushLength ? 0 : length);
        strum.anchor = anchor;
    }
    return prepare(score, range, {{BeatAttribute::Brush, strum}});
}

} // namespace zarn::cmd
