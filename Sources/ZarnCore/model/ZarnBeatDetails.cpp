// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnBeatDetails.h>

namespace zarn {

bool operator==(const BeatDetails &left, const BeatDetails &right)
{
    return left.text == right.text && left.textBelow == right.textBelow && left.chord == right.chord
        && left.whammyBar == right.whammyBar && left.lyrics == right.lyrics
        && left.slurEnds == right.slurEnds && left.barre == right.barre
        && left.strumLength == right.strumLength && left.strumAnchor == right.strumAnchor
        && left.textSpan == right.textSpan && left.slurLine == right.slurLine
        && left.slurSide == right.slurSide && left.dynamicSide == right.dynamicSide
        && left.hairpinSide == right.hairpinSide;
}

} // namespace zarn
