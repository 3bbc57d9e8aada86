// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetBeatHairpin.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/model/ZarnBeat.h>

namespace zarn::cmd {

SetBeatHairpin::SetBeatHairpin() : ChangeLinks(QStringLiteral("SetBeatHairpin")) { }
SetBeatHairpin::~SetBeatHairpin() = default;

bool SetBeatHairpin::init(Score *score, const ScoreModelRange &range, Hairpin hairpin)
{
    ZARN_ASSERT_IN("zarn::cmd::SetBeatHairpin::init", score != NULL);
    addArg(QStringLiteral("Range"), range.toQString());
    addArg(QStringLiteral("Type"), QString::fromStdString(hairpinToString(hairpin)));
    _hairpin = hairpin;
    return hairpin <= Hairpin::Swell && prepare(score, range);
}

bool SetBeatHairpin::takes(const Line &line) const
{
    return !line.beats.empty();
}

void SetBeatHairpin::change(const Line &line)
{
    const bool isRun = _hairpin == Hairpin::Crescendo || _hairpin == Hairpin::Decrescendo;
    for (Beat *const beat : line.beats) {
        beat->setHairpin(_hairpin);
        beat->setHairpinBegins(false);
        if (beat->hasDetails())
            beat->setHairpinSide(MarkSide::Auto);
    }
    if (!isRun)
        return;
    if (line.before != nullptr && line.before->hairpin() == _hairpin)
        line.beats.front()->setHairpinBegins(true);
    if (line.behind != nullptr && line.behind->hairpin() == _hairpin)
        line.behind->setHairpinBegins(true);
}

} // namespace zarn::cmd
