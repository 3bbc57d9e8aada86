// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetBeatArpeggio.h>

namespace zarn::cmd {

SetBeatArpeggio::SetBeatArpeggio() : SetByTable(QStringLiteral("SetBeatArpeggio")) { }
SetBeatArpeggio::~SetBeatArpeggio() = default;

bool SetBeatArpeggio::init(Score *score, const ScoreModelRange &range, Direction direction,
                           unsigned length, StrumAnchor anchor)
{
    ZARN_ASSERT_IN("zarn::cmd::SetBeatArpeggio::init", score != NULL);
    if (length > Strum::LongestLength)
        return false;
    Strum strum;
    strum.direction = direction;
    if (direction != Direction::None) {
        strum.length = static_cast<std::uint16_t>(length == Strum::ArpeggioLength ? 0 : length);
        strum.anchor = anchor;
    }
    return prepare(score, range, {{BeatAttribute::Arpeggio, strum}});
}

} // namespace zarn::cmd
